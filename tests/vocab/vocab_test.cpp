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

struct Named_Table {
    const char* name;
    Table table;
};

const Named_Table kTables[] = {
    {"Npc", Position::Npc_Name},
    {"QuestGive", Position::Quest_Give_Name},
    {"QuestTake", Position::Quest_Take_Name},
    {"Item", Position::Item_Name},
    {"Trigger", Position::Trigger_Name},
    {"Action", Position::Action_Name},
    {"Reaction", Position::Reaction_Name},
};

// Every number from 0 up to here is asked, well beyond any table and any word value.
constexpr int kHighestAsked = 70000;

// The numbers of a table that have a row. A row text never equals its own number, so a text
// that comes back changed is a hit; this also counts the empty rows.
const std::set<int>& Numbers_With_Row(Table table) {
    static std::map<Table, std::set<int>> found;
    auto [at, fresh] = found.try_emplace(table);
    if (fresh) {
        for (int n = 0; n <= kHighestAsked; ++n) {
            if (Ask(table, std::to_string(n)) != std::to_string(n)) at->second.insert(n);
        }
    }
    return at->second;
}

std::set<int> Range(int first, int last) {
    std::set<int> numbers;
    for (int n = first; n <= last; ++n) numbers.insert(n);
    return numbers;
}

std::set<int> Trigger_Numbers() {
    // The trigger numbers that have no row.
    const std::pair<int, int> gaps[] = {
        {157, 157}, {240, 241}, {246, 247}, {259, 260}, {262, 263}, {279, 279}, {281, 281},
        {285, 288}, {290, 290}, {297, 297}, {300, 301}, {303, 303}, {305, 306}, {308, 399},
        {409, 411}, {424, 499},
    };
    std::set<int> numbers = Range(0, 499);
    for (auto [first, last] : gaps) {
        for (int n = first; n <= last; ++n) numbers.erase(n);
    }
    return numbers;
}

// ---------------------------------------------------------------- which numbers have a row

struct Coverage_Case {
    Named_Table table;
    std::set<int> numbers;
    std::size_t count;
};

class Coverage : public testing::TestWithParam<Coverage_Case> {};

TEST_P(Coverage, ExactlyTheKnownNumbersHaveARow) {
    const Coverage_Case& c = GetParam();
    const std::set<int> found = Numbers_With_Row(c.table.table);
    EXPECT_EQ(found.size(), c.count);
    EXPECT_EQ(found, c.numbers);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, Coverage,
    testing::Values(Coverage_Case{kTables[0], Range(0, 169), 170},
                    Coverage_Case{kTables[1], Range(0, 29), 30},
                    Coverage_Case{kTables[2], Range(0, 29), 30},
                    Coverage_Case{kTables[3], Range(0, 350), 351},
                    Coverage_Case{kTables[4], Trigger_Numbers(), 307},
                    Coverage_Case{kTables[5], {0, 1, 2, 3, 4, 6, 10, 13, 14, 19}, 10},
                    Coverage_Case{kTables[6], {0, 1, 4, 21, 22, 23, 24, 65528}, 8}),
    [](const testing::TestParamInfo<Coverage_Case>& info) { return info.param.table.name; });

TEST(Coverage, HighestTriggerRowIs423) {
    EXPECT_EQ(*Trigger_Numbers().rbegin(), 423);
    EXPECT_EQ(Trigger_Numbers().size(), 307u);
}

// ---------------------------------------------------------------- rows as the user reads them

struct Hit_Case {
    const char* label;
    Table table;
    const char* number;
    const char* text;
};

class Hit : public testing::TestWithParam<Hit_Case> {};

TEST_P(Hit, NumberBecomesRowText) {
    EXPECT_EQ(Ask(GetParam().table, GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Hit,
    testing::Values(
        Hit_Case{"Npc_first", Position::Npc_Name, "0", "Барри"},
        Hit_Case{"Npc_run_46", Position::Npc_Name, "46", "Ларри"},
        Hit_Case{"Npc_run_47", Position::Npc_Name, "47", "Ларри"},
        Hit_Case{"Npc_PGMale1", Position::Npc_Name, "51", "PGMale1"},
        Hit_Case{"Npc_PGLady3", Position::Npc_Name, "56", "PGLady3"},
        Hit_Case{"Npc_bar_57", Position::Npc_Name, "57", "Мигель|PGMale4"},
        Hit_Case{"Npc_bar_62", Position::Npc_Name, "62", "Робот|Джон Кульба"},
        Hit_Case{"Npc_bar_64", Position::Npc_Name, "64", "Слай (киллер)|Текс"},
        Hit_Case{"Npc_RPC_65", Position::Npc_Name, "65", "RPC"},
        Hit_Case{"Npc_RPC_71", Position::Npc_Name, "71", "RPC"},
        Hit_Case{"Npc_bar_77", Position::Npc_Name, "77",
                 "Энрико Чивальдори|Руди Твоскиду"},
        Hit_Case{"Npc_105", Position::Npc_Name, "105",
                 "Док.Эрнест Пиппин (Ученый нижнего уровня Орты)"},
        Hit_Case{"Npc_131", Position::Npc_Name, "131",
                 "Вальтер Баззон (Ученый верхнего уровня Орты)"},
        Hit_Case{"Npc_last_named", Position::Npc_Name, "162", "Трак"},
        Hit_Case{"Npc_empty_163", Position::Npc_Name, "163", ""},
        Hit_Case{"Npc_empty_169", Position::Npc_Name, "169", ""},

        Hit_Case{"Give_first", Position::Quest_Give_Name, "0", "Доставить письмо Мигелю"},
        Hit_Case{"Give_mark_8", Position::Quest_Give_Name, "8",
                 "Отряд в плену! (и Альма не освобожденна<I-13>)"},
        Hit_Case{"Give_mark_9", Position::Quest_Give_Name, "9",
                 "Отряд в плену! (и Альма освобожденна<I-13>)"},
        Hit_Case{"Give_23", Position::Quest_Give_Name, "23",
                 "No 23 Yet|Найти и уничтожить ракеты"},
        Hit_Case{"Give_25", Position::Quest_Give_Name, "25",
                 "Убить Дейдрану|Убрать Кошек-Убийц со склада Бетти"},
        Hit_Case{"Give_27", Position::Quest_Give_Name, "27", "No 27 Yet"},
        Hit_Case{"Give_last", Position::Quest_Give_Name, "29", "No 29 Yet"},
        Hit_Case{"Take_first", Position::Quest_Take_Name, "0", "Воссоединение с повстанцами"},
        Hit_Case{"Take_24", Position::Quest_Take_Name, "24",
                 "No 24 Yet|Интернет-соединение на лэптопе заработало"},
        Hit_Case{"Take_25", Position::Quest_Take_Name, "25", "Дейдрана убита|Кошек больше нет"},
        Hit_Case{"Take_last", Position::Quest_Take_Name, "29", "No 29 Yet"},

        Hit_Case{"Item_first", Position::Item_Name, "0", "Игнорируется"},
        Hit_Case{"Item_1", Position::Item_Name, "1", "Глок 17"},
        Hit_Case{"Item_trailing_blank_60", Position::Item_Name, "60", "Танковое Орудие "},
        Hit_Case{"Item_quotes_194", Position::Item_Name, "194", "Футболка \"I love Arulco\""},
        Hit_Case{"Item_trailing_blank_225", Position::Item_Name, "225", "Видеокассета "},
        Hit_Case{"Item_trailing_blank_248", Position::Item_Name, "248", "Голова "},
        Hit_Case{"Item_before_keys", Position::Item_Name, "278", "Ключ-карта"},
        Hit_Case{"Item_key_279", Position::Item_Name, "279", "Ключ"},
        Hit_Case{"Item_key_290", Position::Item_Name, "290", "Ключ"},
        Hit_Case{"Item_key_302", Position::Item_Name, "302", "Ключ"},
        Hit_Case{"Item_after_keys", Position::Item_Name, "303", "Серебр. тарелка"},
        Hit_Case{"Item_leading_blank_307", Position::Item_Name, "307", " Прут и пружина"},
        Hit_Case{"Item_double_blank_328", Position::Item_Name, "328",
                 "Имячко | Видеокассета  'Т'"},
        Hit_Case{"Item_unclosed_quote_329", Position::Item_Name, "329",
                 "Имячко | Видеокассета 'Дикий, дикий Ист"},
        Hit_Case{"Item_336", Position::Item_Name, "336", "Имячко | Инструкци"},
        Hit_Case{"Item_337", Position::Item_Name, "337", "Имячко"},
        Hit_Case{"Item_last", Position::Item_Name, "350", "Имячко"},

        Hit_Case{"Trigger_first", Position::Trigger_Name, "0", "Омерта освобождена"},
        Hit_Case{"Trigger_npc_number_15", Position::Trigger_Name, "15", "Димитрий (#060) погиб"},
        Hit_Case{"Trigger_numero_27", Position::Trigger_Name, "27",
                 "Квест №_1 - доставить продовольствие из Драссена - уже получен"},
        Hit_Case{"Trigger_same_text_47", Position::Trigger_Name, "47", "НПЦ ранен"},
        Hit_Case{"Trigger_same_text_68", Position::Trigger_Name, "68", "НПЦ ранен"},
        Hit_Case{"Trigger_leading_question_93", Position::Trigger_Name, "93",
                 "?Игрок ждал пока девочки освободятся"},
        Hit_Case{"Trigger_english_95", Position::Trigger_Name, "95", "Mercs walked by goon"},
        Hit_Case{"Trigger_double_blank_113", Position::Trigger_Name, "113",
                 "Спайк переместился на клетку с координатами -  9817"},
        Hit_Case{"Trigger_double_blank_171", Position::Trigger_Name, "171",
                 "Говорящий наемник из AIM или в отряде есть наемник из AIM и  он находится не "
                 "далее, чем в 10 клетках"},
        Hit_Case{"Trigger_inner_question_213", Position::Trigger_Name, "213",
                 "Брюстер (#134) разговаривает до того как охрана(?жена) убита"},
        Hit_Case{"Trigger_before_gap_408", Position::Trigger_Name, "408",
                 "Игрок уже угрожал Раулю (UB)"},
        Hit_Case{"Trigger_after_gap_412", Position::Trigger_Name, "412",
                 "Игрок купил барретт у Рауля (UB)"},
        Hit_Case{"Trigger_last", Position::Trigger_Name, "423",
                 "Биггинс в отряде и вентилятор остановлен (UB)"},

        Hit_Case{"Action_first", Position::Action_Name, "0", "Любое стандартное воздействие"},
        Hit_Case{"Action_backslashes_6", Position::Action_Name, "6",
                 "НПЦ получает\\имеет предмет от наемника\\НПЦ"},
        Hit_Case{"Action_last", Position::Action_Name, "19",
                 "Игрок пытается говорить с НПЦ (дружеским) во время боя"},
        Hit_Case{"Reaction_first", Position::Reaction_Name, "0",
                 "Стандартная реакция на данное воздействие"},
        Hit_Case{"Reaction_24", Position::Reaction_Name, "24",
                 "НПЦ прекращает разговор и диалоговое окно закрывается"},
        Hit_Case{"Reaction_move_F8_FF", Position::Reaction_Name, "65528", "НПЦ перемещается"}),
    [](const testing::TestParamInfo<Hit_Case>& info) { return info.param.label; });

// ---------------------------------------------------------------- texts that stay as they were

// No table may touch these: numbers in any other spelling than plain decimal, and non-numbers.
const char* const kNotPlainDecimal[] = {
    "",   "00",  "01",  "057", "007", "+5",  "-0",  " 5",  "5 ", "1 0", "0x1", "1e1",
    "5.", "٣",   "５",  "Барри", "99999999999999999999", "00000000000000000001",
};

struct Miss_Case {
    Named_Table table;
    std::vector<std::string> beyond;  // plain numbers without a row
};

class Miss : public testing::TestWithParam<Miss_Case> {};

TEST_P(Miss, TextStaysAsItWas) {
    for (const std::string& number : GetParam().beyond) {
        EXPECT_EQ(Ask(GetParam().table.table, number), number);
    }
    for (const char* text : kNotPlainDecimal) {
        EXPECT_EQ(Ask(GetParam().table.table, text), text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Tables, Miss,
    testing::Values(
        Miss_Case{kTables[0], {"170", "999", "65535"}},
        Miss_Case{kTables[1], {"30", "255"}},
        Miss_Case{kTables[2], {"30", "255"}},
        Miss_Case{kTables[3], {"351", "65535"}},
        Miss_Case{kTables[4], {"157", "240", "279", "399", "409", "424", "499", "500", "65535"}},
        Miss_Case{kTables[5], {"5", "7", "20", "255"}},
        Miss_Case{kTables[6], {"2", "25", "65527", "65529", "65535", "65536"}}),
    [](const testing::TestParamInfo<Miss_Case>& info) { return info.param.table.name; });

// ---------------------------------------------------------------- whole-table properties

// A row named by its table and number.
using Found_Row = std::pair<std::string, int>;

bool Valid_Utf8(const std::string& s) {
    for (std::size_t i = 0; i < s.size();) {
        const auto c = static_cast<unsigned char>(s[i]);
        const std::size_t length = c < 0x80 ? 1
                                   : (c & 0xE0) == 0xC0 ? 2
                                   : (c & 0xF0) == 0xE0 ? 3
                                   : (c & 0xF8) == 0xF0 ? 4
                                                        : 0;
        if (length == 0 || i + length > s.size()) return false;
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return false;
        }
        i += length;
    }
    return true;
}

template <typename Pred>
std::set<Found_Row> Rows_Where(Pred pred) {
    std::set<Found_Row> rows;
    for (const Named_Table& t : kTables) {
        for (int n : Numbers_With_Row(t.table)) {
            if (pred(Ask(t.table, std::to_string(n)))) rows.insert({t.name, n});
        }
    }
    return rows;
}

TEST(Properties, BlanksAtTheEndsOnlyWhereTheNamesHaveThem) {
    const auto rows = Rows_Where([](const std::string& s) {
        return !s.empty() && (s.front() == ' ' || s.back() == ' ');
    });
    const std::set<Found_Row> expected{{"Item", 60}, {"Item", 225}, {"Item", 248}, {"Item", 307}};
    EXPECT_EQ(rows, expected);
}

TEST(Properties, DoubleBlanksOnlyWhereTheNamesHaveThem) {
    const auto rows =
        Rows_Where([](const std::string& s) { return s.find("  ") != std::string::npos; });
    const std::set<Found_Row> expected{{"Item", 328}, {"Trigger", 113}, {"Trigger", 171}};
    EXPECT_EQ(rows, expected);
}

TEST(Properties, EmptyTextsOnlyForNpc163To169) {
    const auto rows = Rows_Where([](const std::string& s) { return s.empty(); });
    std::set<Found_Row> expected;
    for (int n = 163; n <= 169; ++n) expected.insert({"Npc", n});
    EXPECT_EQ(rows, expected);
}

TEST(Properties, NoControlCharactersAndValidUtf8) {
    const auto bad = Rows_Where([](const std::string& s) {
        for (char c : s) {
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return true;
        }
        return !Valid_Utf8(s);
    });
    EXPECT_TRUE(bad.empty());
}

TEST(Properties, NpcBarsJoinJa2AndUbNames) {
    const auto rows =
        Rows_Where([](const std::string& s) { return s.find('|') != std::string::npos; });
    std::set<Found_Row> npc;
    for (const Found_Row& r : rows) {
        if (r.first == "Npc") npc.insert(r);
    }
    std::set<Found_Row> expected;
    for (int n : {57, 58, 59, 60, 61, 62, 63, 64, 73, 74, 75, 76, 77}) expected.insert({"Npc", n});
    EXPECT_EQ(npc, expected);
    for (const Found_Row& r : rows) EXPECT_NE(r.first, "Trigger") << r.second;
}

TEST(Properties, ItemBarsStandBetweenBlanks) {
    for (int n = 0; n <= 350; ++n) {
        const std::string text = Ask(Position::Item_Name, std::to_string(n));
        const auto bar = text.find('|');
        if (bar == std::string::npos) continue;
        ASSERT_GT(bar, 0u) << n;
        EXPECT_EQ(text.substr(bar - 1, 3), " | ") << n;
        EXPECT_EQ(text.find('|', bar + 1), std::string::npos) << n;
    }
}

TEST(Properties, KeysRun279To302) {
    for (int n = 279; n <= 302; ++n) EXPECT_EQ(Ask(Position::Item_Name, std::to_string(n)), "Ключ");
    EXPECT_NE(Ask(Position::Item_Name, "278"), "Ключ");
    EXPECT_NE(Ask(Position::Item_Name, "303"), "Ключ");
}

TEST(Properties, OnlyItemZeroMeansNoItem) {
    for (int n = 1; n <= 350; ++n) {
        EXPECT_NE(Ask(Position::Item_Name, std::to_string(n)), "Игнорируется") << n;
    }
}

TEST(Properties, UbTriggersAreExactly400AndAbove) {
    const std::string mark = " (UB)";
    for (int n : Trigger_Numbers()) {
        const std::string text = Ask(Position::Trigger_Name, std::to_string(n));
        const bool ub = text.size() > mark.size() &&
                        text.compare(text.size() - mark.size(), mark.size(), mark) == 0;
        EXPECT_EQ(ub, n >= 400) << n << " " << text;
    }
}

TEST(Properties, QuestsMissingInAGame) {
    for (Table table : {Position::Quest_Give_Name, Position::Quest_Take_Name}) {
        for (int n : {23, 24, 26}) {
            const std::string head = "No " + std::to_string(n) + " Yet|";
            const std::string text = Ask(table, std::to_string(n));
            EXPECT_EQ(text.substr(0, head.size()), head);
            EXPECT_GT(text.size(), head.size());
        }
        for (int n : {27, 28, 29}) {
            EXPECT_EQ(Ask(table, std::to_string(n)), "No " + std::to_string(n) + " Yet");
        }
    }
    EXPECT_NE(Ask(Position::Quest_Give_Name, "23"), Ask(Position::Quest_Take_Name, "23"));
}

// Callers tell a code without a row by the length of the result: shorter than 4 characters
// for actions, shorter than 6 for reactions. Each row must be long enough to pass that test.
TEST(Properties, CodeRowsPassTheCallersLengthTest) {
    for (int n : Numbers_With_Row(Position::Action_Name)) {
        EXPECT_GE(Ask(Position::Action_Name, std::to_string(n)).size(), 4u) << n;
    }
    for (int n : Numbers_With_Row(Position::Reaction_Name)) {
        EXPECT_GE(Ask(Position::Reaction_Name, std::to_string(n)).size(), 6u) << n;
    }
}

// ---------------------------------------------------------------- the two code lists

TEST(CodeLists, InputCodeLines) {
    const std::vector<std::string> expected{
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
    };
    EXPECT_EQ(vocab::Input_Code_Lines(), expected);
    EXPECT_EQ(vocab::Input_Code_Lines()[8].find("(0E)"), std::string::npos);
}

TEST(CodeLists, ActionCodeLines) {
    const std::vector<std::string> expected{
        "(00 00) Стандартная реакция на данное воздействие",
        "(01 00) НПЦ возвращает предмет переданный наемником",
        "(04 00) НПЦ вступает в отряд (бесплатно)",
        "(15 00) НПЦ вступает в бой (и уже до этого был враждебен)",
        "(16 00) НПЦ вступает в бой (и становиться враждебен)",
        "(17 00) НПЦ вступает в отряд (за деньги)",
        "(18 00) НПЦ прекращает разговор и диалоговое окно закрывается",
        "(00 00) НПЦ перемещается",
    };
    EXPECT_EQ(vocab::Action_Code_Lines(), expected);
}

// A list line is its label, a blank and the very text the explanation line gives for the code.
TEST(CodeLists, LinesCarryTheTableTexts) {
    const std::vector<std::pair<int, std::string>> actions{
        {0, "(00)"}, {1, "(01)"}, {2, "(02)"}, {3, "(03)"},          {4, "(04)"},
        {6, "(06)"}, {10, "(0A)"}, {13, "(0D)"}, {14, "(0\xD0\x95)"}, {19, "(19)"},
    };
    ASSERT_EQ(vocab::Input_Code_Lines().size(), actions.size());
    for (std::size_t i = 0; i < actions.size(); ++i) {
        EXPECT_EQ(vocab::Input_Code_Lines()[i],
                  actions[i].second + " " +
                      Ask(Position::Action_Name, std::to_string(actions[i].first)));
    }
    const std::vector<std::pair<int, std::string>> reactions{
        {0, "(00 00)"},  {1, "(01 00)"},  {4, "(04 00)"},  {21, "(15 00)"},
        {22, "(16 00)"}, {23, "(17 00)"}, {24, "(18 00)"}, {65528, "(00 00)"},
    };
    ASSERT_EQ(vocab::Action_Code_Lines().size(), reactions.size());
    for (std::size_t i = 0; i < reactions.size(); ++i) {
        EXPECT_EQ(vocab::Action_Code_Lines()[i],
                  reactions[i].second + " " +
                      Ask(Position::Reaction_Name, std::to_string(reactions[i].first)));
    }
}

}  // namespace
