#include "vocab/vocab.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Table = void (*)(std::string&);

std::string Ask(Table table, std::string text) {
  table(text);
  return text;
}

enum Which { Npc, Give, Take, Item, Trigger, Action, Reaction };
const std::pair<const char*, Table> kTables[] = {
    {"Npc", Position::Npc_Name},
    {"QuestGive", Position::Quest_Give_Name},
    {"QuestTake", Position::Quest_Take_Name},
    {"Item", Position::Item_Name},
    {"Trigger", Position::Trigger_Name},
    {"Action", Position::Action_Name},
    {"Reaction", Position::Reaction_Name},
};

std::string Ask(Which t, int n) { return Ask(kTables[t].second, std::to_string(n)); }

// The numbers of a table that have a row, asked well beyond any table and any word value. A row
// text never equals its own number, so a changed text is a hit; this counts the empty rows too.
const std::set<int>& Numbers_With_Row(Which t) {
  static std::map<Which, std::set<int>> found;
  auto [at, fresh] = found.try_emplace(t);
  for (int n = 0; fresh && n <= 70000; ++n) {
    if (Ask(t, n) != std::to_string(n)) at->second.insert(n);
  }
  return at->second;
}

std::set<int> Range(int first, int last, std::vector<std::pair<int, int>> gaps = {}) {
  std::set<int> numbers;
  for (int n = first; n <= last; ++n) numbers.insert(n);
  for (auto [from, to] : gaps) {
    for (int n = from; n <= to; ++n) numbers.erase(n);
  }
  return numbers;
}

TEST(Coverage, ExactlyTheKnownNumbersHaveARow) {
  const std::set<int> triggers = Range(0, 499,
                                       {{157, 157},
                                        {240, 241},
                                        {246, 247},
                                        {259, 260},
                                        {262, 263},
                                        {279, 279},
                                        {281, 281},
                                        {285, 288},
                                        {290, 290},
                                        {297, 297},
                                        {300, 301},
                                        {303, 303},
                                        {305, 306},
                                        {308, 399},
                                        {409, 411},
                                        {424, 499}});
  const struct {
    Which table;
    std::set<int> numbers;
    std::size_t count;
  } rows[] = {
      {Npc, Range(0, 169), 170},
      {Give, Range(0, 29), 30},
      {Take, Range(0, 29), 30},
      {Item, Range(0, 350), 351},
      {Trigger, triggers, 307},
      {Action, {0, 1, 2, 3, 4, 6, 10, 13, 14, 19}, 10},
      {Reaction, {0, 1, 4, 21, 22, 23, 24, 65528}, 8},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(kTables[row.table].first);
    EXPECT_EQ(Numbers_With_Row(row.table).size(), row.count);
    EXPECT_EQ(Numbers_With_Row(row.table), row.numbers);
  }
}

// ---------------------------------------------------------------- rows as the user reads them

struct Hit_Case {
  Which table;
  int number;
  const char* text;
};

class Hit : public testing::TestWithParam<Hit_Case> {};

TEST_P(Hit, NumberBecomesRowText) { EXPECT_EQ(Ask(GetParam().table, GetParam().number), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Rows, Hit,
    testing::Values(
        Hit_Case{Npc, 0, "Барри"}, Hit_Case{Npc, 46, "Ларри"}, Hit_Case{Npc, 47, "Ларри"}, Hit_Case{Npc, 51, "PGMale1"},
        Hit_Case{Npc, 56, "PGLady3"}, Hit_Case{Npc, 57, "Мигель|PGMale4"}, Hit_Case{Npc, 62, "Робот|Джон Кульба"},
        Hit_Case{Npc, 64, "Слай (киллер)|Текс"}, Hit_Case{Npc, 65, "RPC"}, Hit_Case{Npc, 71, "RPC"},
        Hit_Case{Npc, 77, "Энрико Чивальдори|Руди Твоскиду"},
        Hit_Case{Npc, 105, "Док.Эрнест Пиппин (Ученый нижнего уровня Орты)"},
        Hit_Case{Npc, 131, "Вальтер Баззон (Ученый верхнего уровня Орты)"}, Hit_Case{Npc, 162, "Трак"},
        Hit_Case{Npc, 163, ""}, Hit_Case{Npc, 169, ""}, Hit_Case{Give, 0, "Доставить письмо Мигелю"},
        Hit_Case{Give, 8, "Отряд в плену! (и Альма не освобожденна<I-13>)"},
        Hit_Case{Give, 9, "Отряд в плену! (и Альма освобожденна<I-13>)"},
        Hit_Case{Give, 23, "No 23 Yet|Найти и уничтожить ракеты"},
        Hit_Case{Give, 25, "Убить Дейдрану|Убрать Кошек-Убийц со склада Бетти"}, Hit_Case{Give, 29, "No 29 Yet"},
        Hit_Case{Take, 0, "Воссоединение с повстанцами"},
        Hit_Case{Take, 24, "No 24 Yet|Интернет-соединение на лэптопе заработало"},
        Hit_Case{Take, 25, "Дейдрана убита|Кошек больше нет"}, Hit_Case{Take, 29, "No 29 Yet"},
        Hit_Case{Item, 0, "Игнорируется"}, Hit_Case{Item, 1, "Глок 17"}, Hit_Case{Item, 60, "Танковое Орудие "},
        Hit_Case{Item, 194, "Футболка \"I love Arulco\""}, Hit_Case{Item, 225, "Видеокассета "},
        Hit_Case{Item, 248, "Голова "}, Hit_Case{Item, 278, "Ключ-карта"}, Hit_Case{Item, 303, "Серебр. тарелка"},
        Hit_Case{Item, 307, " Прут и пружина"}, Hit_Case{Item, 328, "Имячко | Видеокассета  'Т'"},
        Hit_Case{Item, 329, "Имячко | Видеокассета 'Дикий, дикий Ист"}, Hit_Case{Item, 336, "Имячко | Инструкци"},
        Hit_Case{Item, 337, "Имячко"}, Hit_Case{Item, 350, "Имячко"}, Hit_Case{Trigger, 0, "Омерта освобождена"},
        Hit_Case{Trigger, 15, "Димитрий (#060) погиб"},
        Hit_Case{Trigger, 27, "Квест №_1 - доставить продовольствие из Драссена - уже получен"},
        Hit_Case{Trigger, 47, "НПЦ ранен"}, Hit_Case{Trigger, 68, "НПЦ ранен"},
        Hit_Case{Trigger, 93, "?Игрок ждал пока девочки освободятся"}, Hit_Case{Trigger, 95, "Mercs walked by goon"},
        Hit_Case{Trigger, 113, "Спайк переместился на клетку с координатами -  9817"},
        Hit_Case{Trigger, 171,
                 "Говорящий наемник из AIM или в отряде есть наемник из AIM и  он находится не "
                 "далее, чем в 10 клетках"},
        Hit_Case{Trigger, 213, "Брюстер (#134) разговаривает до того как охрана(?жена) убита"},
        Hit_Case{Trigger, 408, "Игрок уже угрожал Раулю (UB)"},
        Hit_Case{Trigger, 412, "Игрок купил барретт у Рауля (UB)"},
        Hit_Case{Trigger, 423, "Биггинс в отряде и вентилятор остановлен (UB)"},
        Hit_Case{Reaction, 65528, "НПЦ перемещается"}),
    [](const testing::TestParamInfo<Hit_Case>& info) {
      return std::string(kTables[info.param.table].first) + "_" + std::to_string(info.param.number);
    });

// Plain numbers without a row, other spellings of numbers, and non-numbers: no table touches them.
TEST(Miss, TextStaysAsItWas) {
  const std::vector<std::string> beyond[] = {
      {"170", "999", "65535"},
      {"30", "255"},
      {"30", "255"},
      {"351", "65535"},
      {"157", "240", "279", "399", "409", "424", "499", "500", "65535"},
      {"5", "7", "20", "255"},
      {"2", "25", "65527", "65529", "65535", "65536"},
  };
  const char* const not_plain[] = {
      "",
      "00",
      "01",
      "057",
      "007",
      "+5",
      "-0",
      " 5",
      "5 ",
      "1 0",
      "0x1",
      "1e1",
      "5.",
      "٣",
      "５",
      "Барри",
      "99999999999999999999",
      "00000000000000000001",
  };
  for (int t = Npc; t <= Reaction; ++t) {
    SCOPED_TRACE(kTables[t].first);
    for (const std::string& text : beyond[t]) EXPECT_EQ(Ask(kTables[t].second, text), text);
    for (const char* text : not_plain) EXPECT_EQ(Ask(kTables[t].second, text), text);
  }
}

// ---------------------------------------------------------------- whole-table properties

using Found_Row = std::pair<std::string, int>;

bool Plain_Utf8(const std::string& s) {  // valid UTF-8 without control characters
  for (std::size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    const std::size_t length = c < 0x80 ? 1 : c >= 0xF8 ? 0 : c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 0;
    if (length == 0 || i + length > s.size() || c < 0x20 || c == 0x7F) return false;
    for (std::size_t k = 1; k < length; ++k) {
      if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return false;
    }
    i += length;
  }
  return true;
}

// Odd texts only where the names have them: blanks at the ends, double blanks, empty texts, bars
// in NPC names (JA2|UB, never in triggers), control characters or broken UTF-8 (nowhere).
TEST(Properties, OddTextsOnlyWhereTheNamesHaveThem) {
  std::map<std::string, std::set<Found_Row>> found;
  for (int t = Npc; t <= Reaction; ++t) {
    for (int n : Numbers_With_Row(Which(t))) {
      const std::string s = Ask(Which(t), n);
      const Found_Row row{kTables[t].first, n};
      if (!s.empty() && (s.front() == ' ' || s.back() == ' ')) found["ends"].insert(row);
      if (s.find("  ") != std::string::npos) found["double"].insert(row);
      if (s.empty()) found["empty"].insert(row);
      if ((t == Npc || t == Trigger) && s.find('|') != std::string::npos) found["bar"].insert(row);
      if (!Plain_Utf8(s)) found["bad"].insert(row);
    }
  }
  std::map<std::string, std::set<Found_Row>> expected{
      {"ends", {{"Item", 60}, {"Item", 225}, {"Item", 248}, {"Item", 307}}},
      {"double", {{"Item", 328}, {"Trigger", 113}, {"Trigger", 171}}},
  };
  for (int n = 163; n <= 169; ++n) expected["empty"].insert({"Npc", n});
  for (int n : {57, 58, 59, 60, 61, 62, 63, 64, 73, 74, 75, 76, 77}) {
    expected["bar"].insert({"Npc", n});
  }
  EXPECT_EQ(found, expected);
}

// Item bars stand between blanks, once; only 0 means no item; keys run 279 to 302.
TEST(Properties, ItemNames) {
  for (int n = 1; n <= 350; ++n) {
    const std::string text = Ask(Item, n);
    const auto bar = text.find('|');
    EXPECT_NE(text, "Игнорируется") << n;
    EXPECT_EQ(text == "Ключ", n >= 279 && n <= 302) << n;
    if (bar == std::string::npos) continue;
    ASSERT_GT(bar, 0u) << n;
    EXPECT_EQ(text.substr(bar - 1, 3), " | ") << n;
    EXPECT_EQ(text.find('|', bar + 1), std::string::npos) << n;
  }
}

TEST(Properties, UbTriggersAreExactly400AndAbove) {
  for (int n : Numbers_With_Row(Trigger)) {
    const std::string text = Ask(Trigger, n);
    EXPECT_EQ(text.ends_with(" (UB)") && text != " (UB)", n >= 400) << n << " " << text;
  }
}

TEST(Properties, QuestsMissingInAGame) {
  for (Which table : {Give, Take}) {
    for (int n : {23, 24, 26}) {
      const std::string head = "No " + std::to_string(n) + " Yet|";
      EXPECT_TRUE(Ask(table, n).starts_with(head));
      EXPECT_GT(Ask(table, n).size(), head.size());
    }
    for (int n : {27, 28, 29}) EXPECT_EQ(Ask(table, n), "No " + std::to_string(n) + " Yet");
  }
  EXPECT_NE(Ask(Give, 23), Ask(Take, 23));
}

// Callers tell a code without a row by the length of the result: shorter than 4 characters
// for actions, shorter than 6 for reactions. Each row must be long enough to pass that test.
TEST(Properties, CodeRowsPassTheCallersLengthTest) {
  for (int n : Numbers_With_Row(Action)) EXPECT_GE(Ask(Action, n).size(), 4u) << n;
  for (int n : Numbers_With_Row(Reaction)) EXPECT_GE(Ask(Reaction, n).size(), 6u) << n;
}

// ---------------------------------------------------------------- the two code lists

TEST(CodeLists, StoredLines) {
  EXPECT_EQ(vocab::Input_Code_Lines(), (std::vector<std::string>{
                                           "(00) Любое стандартное воздействие",
                                           "(01) Игрок говорит дружески",
                                           "(02) Игрок говорит прямо",
                                           "(03) Игрок угрожает НПЦ",
                                           "(04) Игрок хочет нанять НПЦ",
                                           "(06) НПЦ получает\\имеет предмет от наемника\\НПЦ",
                                           "(0A) Запись получила управление от другой записи\\НПЦ",
                                           "(0D) Игрок пытается говорить с НПЦ (враждебным)",
                                           // Cyrillic capital Е (D0 95), not the Latin E.
                                           "(0\xD0\x95) Игрок виден и НПЦ враждебен (НПЦ сам вступает в разговор)",
                                           "(19) Игрок пытается говорить с НПЦ (дружеским) во время боя",
                                       }));
  EXPECT_EQ(vocab::Action_Code_Lines(), (std::vector<std::string>{
                                            "(00 00) Стандартная реакция на данное воздействие",
                                            "(01 00) НПЦ возвращает предмет переданный наемником",
                                            "(04 00) НПЦ вступает в отряд (бесплатно)",
                                            "(15 00) НПЦ вступает в бой (и уже до этого был враждебен)",
                                            "(16 00) НПЦ вступает в бой (и становиться враждебен)",
                                            "(17 00) НПЦ вступает в отряд (за деньги)",
                                            "(18 00) НПЦ прекращает разговор и диалоговое окно закрывается",
                                            "(00 00) НПЦ перемещается",
                                        }));
}

// A list line is its label, a blank and the very text the explanation line gives for the code.
TEST(CodeLists, LinesCarryTheTableTexts) {
  const struct {
    Which table;
    const std::vector<std::string>& lines;
    std::vector<std::pair<int, std::string>> labels;
  } lists[] = {
      {Action,
       vocab::Input_Code_Lines(),
       {{0, "(00)"},
        {1, "(01)"},
        {2, "(02)"},
        {3, "(03)"},
        {4, "(04)"},
        {6, "(06)"},
        {10, "(0A)"},
        {13, "(0D)"},
        {14, "(0\xD0\x95)"},
        {19, "(19)"}}},
      {Reaction,
       vocab::Action_Code_Lines(),
       {{0, "(00 00)"},
        {1, "(01 00)"},
        {4, "(04 00)"},
        {21, "(15 00)"},
        {22, "(16 00)"},
        {23, "(17 00)"},
        {24, "(18 00)"},
        {65528, "(00 00)"}}},
  };
  for (const auto& list : lists) {
    ASSERT_EQ(list.lines.size(), list.labels.size());
    for (std::size_t i = 0; i < list.lines.size(); ++i) {
      const auto& [number, label] = list.labels[i];
      EXPECT_EQ(list.lines[i], label + " " + Ask(list.table, number));
    }
  }
}

}  // namespace
