// The sentence under every field for every kind of value, on records set cell by cell.
#include "fields/explain.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fields/field_map.h"
#include "support/fixture.h"
#include "vocab/vocab.h"

namespace {

using Explainer = void (*)(Vorlane&);
using Table = void (*)(std::string&);

// What a name table says for a number.
std::string Name(Table table, int number) {
  std::string text = std::to_string(number);
  table(text);
  return text;
}

const Field& Field_Of(Explainer explain) {
  for (const Field& field : fields::All())
    if (field.Explain == explain) return field;
  ADD_FAILURE() << "no field for this procedure";
  return fields::All().front();
}

struct Sentence_Case {
  const char* name;
  Explainer explain;
  int at;           // first cell that the hex pairs go to
  std::string hex;  // pairs in file order
  std::string expected;
};

std::ostream& operator<<(std::ostream& out, const Sentence_Case& c) { return out << c.name; }

// Every row of every field's table and the values on both sides of each limit.
std::vector<Sentence_Case> Sentence_Cases() {
  using namespace Position;
  const std::string too_big = "слишком большое число! (всего 500 тригеров (0-499))";
  const std::string never = "Данная запись не сработает никогда!";
  const std::string says_nothing = "НПЦ ничего не скажет";
  const std::string byte_14_ff = "Байт 14 = 'FF' (НПЦ ничего не скажет), байт 15 должен быть равен '01'!";
  const std::string no_passing = "Данная запись не передает управление";
  const auto held = [](int n) {
    return "Предмет №_" + std::to_string(n) + " <" + Name(Item_Name, n) + "> должен быть у НПЦ";
  };
  const auto given = [](int n) {
    return "При выполнении всех условий предмет №_" + std::to_string(n) + " <" + Name(Item_Name, n) +
           "> будет передан игроку ";
  };
  const auto trigger = [](int n, const std::string& verb) {
    return "Тригер №_" + std::to_string(n) + " <" + Name(Trigger_Name, n) + "> " + verb;
  };
  const std::string must = "должен быть выполнен";
  const std::string must_not = "не должен быть выполненым";
  const std::string set = "будет переведен в значение True";
  const auto count = [](const std::string& c, const std::string& word) {
    return "НПЦ скажет " + c + word + ", после фразы №_12 (включительно)";
  };
  const auto record = [](int n) {
    return "№_" + std::to_string(n) + " - файл может иметь максимум 50 записей по 32 байта (0-49)";
  };
  const std::string differ_byte = "Данный байт у всех существующих НПЦ = '00'!";
  const std::string differ_bytes = "Данные байты у всех существующих НПЦ = '00'!";

  return {
      {"FireMode_Always", Info_For_Bytes_1_2, 1, "0000",
       "Эта запись будет сработывать всегда, без передачи на стандартные записи"},
      {"FireMode_Once", Info_For_Bytes_1_2, 1, "0200",
       "Эта запись сработает только один раз во всей игре и управление передастся стандартной записи"},
      {"FireMode_Repeat", Info_For_Bytes_1_2, 1, "0400",
       "Эта запись сработает всегда и при повторе управление передастся стандартные записи"},
      {"FireMode_HighByteTwo", Info_For_Bytes_1_2, 1, "0002", "<?>"},
      {"FireMode_One", Info_For_Bytes_1_2, 1, "0100", "<?>"},

      {"HeldItem_0_Ignored", Info_For_Bytes_3_4, 3, "0000", "№_0 Запись не проверят наличия у НПЦ предметов"},
      {"HeldItem_1", Info_For_Bytes_3_4, 3, "0100", held(1)},
      {"HeldItem_FF00_Is255", Info_For_Bytes_3_4, 3, "FF00", held(255)},
      {"HeldItem_349", Info_For_Bytes_3_4, 3, "5D01", held(349)},
      {"HeldItem_350", Info_For_Bytes_3_4, 3, "5E01", held(350)},
      {"HeldItem_351_MarkerWithoutBlank", Info_For_Bytes_3_4, 3, "5F01", "№_351<?>"},
      {"HeldItem_00FF_Is65280", Info_For_Bytes_3_4, 3, "00FF", "№_65280<?>"},
      {"HeldItem_FFFF_IsANumber", Info_For_Bytes_3_4, 3, "FFFF", "№_65535<?>"},

      {"TriggerTrue_FFFF_NotInUse", Info_For_Bytes_5_6, 5, "FFFF",
       "Данная запись не проверяет тригеры на логические значение True"},
      {"TriggerTrue_0", Info_For_Bytes_5_6, 5, "0000", trigger(0, must)},
      {"TriggerTrue_FF00_Is255", Info_For_Bytes_5_6, 5, "FF00", trigger(255, must)},
      {"TriggerTrue_157_WithoutName", Info_For_Bytes_5_6, 5, "9D00", "Тригер №_157 <157> должен быть выполнен"},
      {"TriggerTrue_499", Info_For_Bytes_5_6, 5, "F301", trigger(499, must)},
      {"TriggerTrue_500_ThreeBlanks", Info_For_Bytes_5_6, 5, "F401", "№_500   " + too_big},
      {"TriggerTrue_00FF_Is65280", Info_For_Bytes_5_6, 5, "00FF", "№_65280   " + too_big},

      {"TriggerFalse_FFFF_NotInUse", Info_For_Bytes_7_8, 7, "FFFF",
       "Данная запись не проверяет тригеры на логические значение False"},
      {"TriggerFalse_FF00_Is255", Info_For_Bytes_7_8, 7, "FF00", trigger(255, must_not)},
      {"TriggerFalse_499", Info_For_Bytes_7_8, 7, "F301", trigger(499, must_not)},
      {"TriggerFalse_500_ThreeBlanks", Info_For_Bytes_7_8, 7, "F401", "№_500   " + too_big},
      {"TriggerFalse_00FF_Is65280", Info_For_Bytes_7_8, 7, "00FF", "№_65280   " + too_big},

      {"QuestNeeded_255_None", Info_For_Byte_9, 9, "FF", "№_-1 Запись не проверяет получение квеста игроком"},
      {"QuestNeeded_0_GivenQuestName", Info_For_Byte_9, 9, "00",
       "Квест №_0 <" + Name(Quest_Give_Name, 0) + "> уже должен быть получен игроком"},
      {"QuestNeeded_29", Info_For_Byte_9, 9, "1D",
       "Квест №_29 <" + Name(Quest_Give_Name, 29) + "> уже должен быть получен игроком"},
      {"QuestNeeded_30", Info_For_Byte_9, 9, "1E", "Квест №_30 <?>"},
      {"QuestNeeded_254", Info_For_Byte_9, 9, "FE", "Квест №_254 <?>"},

      {"FirstDay_255_Never", Info_For_Byte_10, 10, "FF", never},
      {"FirstDay_0_FromStart", Info_For_Byte_10, 10, "00", "Данная запись сработает с начала игры"},
      {"FirstDay_1", Info_For_Byte_10, 10, "01", "Данная запись сработает начиная с 1 дня"},
      {"FirstDay_254", Info_For_Byte_10, 10, "FE", "Данная запись сработает начиная с 254 дня"},

      {"LastDay_255_NoLimit", Info_For_Byte_11, 11, "FF", "Ограничений на срабатование данной записи нет"},
      {"LastDay_0_Never", Info_For_Byte_11, 11, "00", never},
      {"LastDay_1", Info_For_Byte_11, 11, "01", "Данная запись сработает только до 1 дня"},
      {"LastDay_254", Info_For_Byte_11, 11, "FE", "Данная запись сработает только до 254 дня"},

      {"InputCode_0", Info_For_Byte_12, 12, "00", "№_0 <" + Name(Action_Name, 0) + ">"},
      {"InputCode_5_NoEntry", Info_For_Byte_12, 12, "05", "№_5 <?>"},
      {"InputCode_10", Info_For_Byte_12, 12, "0A", "№_10 <" + Name(Action_Name, 10) + ">"},
      {"InputCode_19", Info_For_Byte_12, 12, "13", "№_19 <" + Name(Action_Name, 19) + ">"},
      {"InputCode_255_NoEntry", Info_For_Byte_12, 12, "FF", "№_255 <?>"},

      {"Leadership_0", Info_For_Byte_13, 13, "00",
       "Данный НПЦ вступит в диалог с игроком независимо от его уровня лидерства"},
      {"Leadership_1", Info_For_Byte_13, 13, "01",
       "Данный НПЦ вступит в диалог с игроком, при уровене лидерства игрока > 1"},
      {"Leadership_100", Info_For_Byte_13, 13, "64",
       "Данный НПЦ вступит в диалог с игроком, при уровене лидерства игрока > 100"},
      {"Leadership_101", Info_For_Byte_13, 13, "65",
       "Вероятно данный НПЦ никогда не вступит в диалог с игроком. (Ур. лид. должен быть 101)"},
      {"Leadership_255", Info_For_Byte_13, 13, "FF",
       "Вероятно данный НПЦ никогда не вступит в диалог с игроком. (Ур. лид. должен быть 255)"},

      {"MessageNumber_255", Info_For_Byte_14, 14, "FF", says_nothing},
      {"MessageNumber_0", Info_For_Byte_14, 14, "00", "НПЦ скажет фразу №_0"},
      {"MessageNumber_254", Info_For_Byte_14, 14, "FE", "НПЦ скажет фразу №_254"},

      {"MessageCount_FF_01", Info_For_Byte_15, 14, "FF01", says_nothing},
      {"MessageCount_FF_00_RuleOf255First", Info_For_Byte_15, 14, "FF00", byte_14_ff},
      {"MessageCount_FF_02", Info_For_Byte_15, 14, "FF02", byte_14_ff},
      {"MessageCount_05_01", Info_For_Byte_15, 14, "0501", "НПЦ скажет только фразу №_5"},
      {"MessageCount_05_00", Info_For_Byte_15, 14, "0500", "По умолчанию этот байт должен быть равен '01' !"},
      {"MessageCount_2", Info_For_Byte_15, 14, "0C02", count("2", " фразы")},
      {"MessageCount_3", Info_For_Byte_15, 14, "0C03", count("3", " фразы")},
      {"MessageCount_4", Info_For_Byte_15, 14, "0C04", count("4", " фразы")},
      {"MessageCount_5", Info_For_Byte_15, 14, "0C05", count("5", " фраз")},
      {"MessageCount_21", Info_For_Byte_15, 14, "0C15", count("21", " фраз")},
      {"MessageCount_22", Info_For_Byte_15, 14, "0C16", count("22", " фраз")},
      {"MessageCount_255", Info_For_Byte_15, 14, "0CFF", count("255", " фраз")},

      {"QuestGive_255_None", Info_For_Byte_16, 16, "FF", "Данная запись не дает квестов"},
      {"QuestGive_0", Info_For_Byte_16, 16, "00", "Игрок получает квест №_0 <" + Name(Quest_Give_Name, 0) + ">"},
      {"QuestGive_29", Info_For_Byte_16, 16, "1D", "Игрок получает квест №_29 <" + Name(Quest_Give_Name, 29) + ">"},
      {"QuestGive_30", Info_For_Byte_16, 16, "1E", "Квест №_30 <?>"},

      {"QuestTake_255_None", Info_For_Byte_17, 17, "FF", "Данная запись не принимает квестов"},
      {"QuestTake_0_TakenQuestName", Info_For_Byte_17, 17, "00", "Квест №_0 <" + Name(Quest_Take_Name, 0) + ">"},
      {"QuestTake_29", Info_For_Byte_17, 17, "1D", "Квест №_29 <" + Name(Quest_Take_Name, 29) + ">"},
      {"QuestTake_30", Info_For_Byte_17, 17, "1E", "Квест №_30 <?>"},

      {"GotoNpc_255_None", Info_For_Byte_18, 18, "FF", no_passing},
      {"GotoNpc_0", Info_For_Byte_18, 18, "00", "Управление передается " + Name(Npc_Name, 0) + " (№_#0)"},
      {"GotoNpc_162", Info_For_Byte_18, 18, "A2", "Управление передается " + Name(Npc_Name, 162) + " (№_#162)"},
      {"GotoNpc_169_EmptyName", Info_For_Byte_18, 18, "A9", "Управление передается  (№_#169)"},
      {"GotoNpc_170", Info_For_Byte_18, 18, "AA",
       "Запись не передаст управление #170 т.к. макс. № НПЦ -169 (см. Bynarydata\\Prof.dat)"},

      {"GotoRecord_255_None", Info_For_Byte_19, 19, "FF", no_passing},
      {"GotoRecord_0", Info_For_Byte_19, 19, "00", "Управление передается на запись №_0 (Record #1)"},
      {"GotoRecord_49", Info_For_Byte_19, 19, "31", "Управление передается на запись №_49 (Record #50)"},
      {"GotoRecord_50", Info_For_Byte_19, 19, "32", record(50)},
      {"GotoRecord_254", Info_For_Byte_19, 19, "FE", record(254)},

      {"UnknownByte_00", Info_For_Byte_20, 20, "00", "Unknown byte"},
      {"UnknownByte_01", Info_For_Byte_20, 20, "01", differ_byte},
      {"UnknownByte_FF", Info_For_Byte_20, 20, "FF", differ_byte},

      {"TriggerSet_FFFF_NotInUse", Info_For_Bytes_21_22, 21, "FFFF",
       "Данная запись не переводит тригеры в логическое значение True"},
      {"TriggerSet_FF00_Is255", Info_For_Bytes_21_22, 21, "FF00", trigger(255, set)},
      {"TriggerSet_499", Info_For_Bytes_21_22, 21, "F301", trigger(499, set)},
      {"TriggerSet_500_OneBlank", Info_For_Bytes_21_22, 21, "F401", "№_500 " + too_big},
      {"TriggerSet_00FF_Is65280", Info_For_Bytes_21_22, 21, "00FF", "№_65280 " + too_big},

      {"GivenItem_0_Ignored", Info_For_Bytes_23_24, 23, "0000", "НПЦ не пердает игроку ни каких предметов"},
      {"GivenItem_1", Info_For_Bytes_23_24, 23, "0100", given(1)},
      {"GivenItem_349", Info_For_Bytes_23_24, 23, "5D01", given(349)},
      {"GivenItem_350", Info_For_Bytes_23_24, 23, "5E01", given(350)},
      {"GivenItem_351_MarkerWithBlank", Info_For_Bytes_23_24, 23, "5F01", "№_351 <?>"},
      {"GivenItem_FFFF_IsANumber", Info_For_Bytes_23_24, 23, "FFFF", "№_65535 <?>"},

      {"MoveTarget_FFFF_Stays", Info_For_Bytes_25_26, 25, "FFFF", "Данная запись не перемещает НПЦ"},
      {"MoveTarget_FF00_Is255", Info_For_Bytes_25_26, 25, "FF00", "НПЦ переместиться на координаты 255"},
      {"MoveTarget_00FF_Is65280", Info_For_Bytes_25_26, 25, "00FF", "НПЦ переместиться на координаты 65280"},
      {"MoveTarget_0", Info_For_Bytes_25_26, 25, "0000", "НПЦ переместиться на координаты 0"},
      {"MoveTarget_0201_Is258", Info_For_Bytes_25_26, 25, "0201", "НПЦ переместиться на координаты 258"},

      {"Reaction_0", Info_For_Bytes_27_28, 27, "0000", "№_0 <" + Name(Reaction_Name, 0) + ">"},
      {"Reaction_5_NoEntry", Info_For_Bytes_27_28, 27, "0500", "№_5 <?>"},
      {"Reaction_24", Info_For_Bytes_27_28, 27, "1800", "№_24 <" + Name(Reaction_Name, 24) + ">"},
      {"Reaction_65528_Move", Info_For_Bytes_27_28, 27, "F8FF", "№_65528 <НПЦ перемещается>"},
      {"Reaction_65535_NoEntry", Info_For_Bytes_27_28, 27, "FFFF", "№_65535 <?>"},

      {"UnknownBytes_AllZero", Info_For_Bytes_29_32, 29, "00000000", "Unknown bytes"},
      {"UnknownBytes_29", Info_For_Bytes_29_32, 29, "01000000", differ_bytes},
      {"UnknownBytes_30", Info_For_Bytes_29_32, 29, "00010000", differ_bytes},
      {"UnknownBytes_31", Info_For_Bytes_29_32, 29, "00000100", differ_bytes},
      {"UnknownBytes_32", Info_For_Bytes_29_32, 29, "00000001", differ_bytes},
  };
}

class Explain_Test : public Window_Test {
 protected:
  // An otherwise empty record with these pairs from cell `at` on, and one byte outside the
  // field so that the record isn't all zero.
  void Show(Explainer explain, int at, const std::string& hex) {
    for (int n = 1; n <= 32; ++n) window.L(n).Caption = "00";
    window.L(Field_Of(explain).Holds(32) ? 1 : 32).Caption = "01";
    for (std::size_t i = 0; i < hex.size() / 2; ++i) window.L(at + static_cast<int>(i)).Caption = hex.substr(2 * i, 2);
  }
};

class Sentences : public Explain_Test, public testing::WithParamInterface<Sentence_Case> {};

TEST_P(Sentences, ShowsTheSentenceOfTheValue) {
  const Sentence_Case& c = GetParam();
  Show(c.explain, c.at, c.hex);
  window.L_Info_User.Caption = "before";
  c.explain(window);
  EXPECT_EQ(window.L_Info_User.Caption, c.expected);
}

INSTANTIATE_TEST_SUITE_P(AllFields, Sentences, testing::ValuesIn(Sentence_Cases()),
                         [](const testing::TestParamInfo<Sentence_Case>& info) { return info.param.name; });

// Every field has at least one row above, and each row fits its field.
TEST(Sentence_Cases, CoverEveryField) {
  for (const Field& field : fields::All()) {
    int rows = 0;
    for (const Sentence_Case& c : Sentence_Cases()) {
      if (c.explain != field.Explain) continue;
      ++rows;
      EXPECT_TRUE(field.Holds(c.at + static_cast<int>(c.hex.size() / 2) - 1)) << c.name;
    }
    EXPECT_GE(rows, 3) << field.Name;
  }
}

TEST_F(Explain_Test, AnAllZeroRecordIsABadRecordUnderEveryField) {
  for (const Field& field : fields::All()) {
    Set_Cells(window, std::string(64, '0'));
    window.L_Edt.Caption = "speech";
    window.L_Message.Caption = "7";
    field.Explain(window);
    EXPECT_EQ(window.L_Info_User.Caption, "Bad record") << field.Name;
    // Only the message field empties the speech text; nothing touches the number.
    EXPECT_EQ(window.L_Edt.Caption, field.Name == "Message_Number" ? "" : "speech") << field.Name;
    EXPECT_EQ(window.L_Message.Caption, "7") << field.Name;
  }
}

TEST_F(Explain_Test, ASingleNonZeroByteAnywhereMakesARecord) {
  for (int n = 1; n <= 32; ++n) {
    Set_Cells(window, std::string(64, '0'));
    window.L(n).Caption = "01";
    for (const Field& field : fields::All()) {
      window.L_Info_User.Caption.clear();
      field.Explain(window);
      EXPECT_NE(window.L_Info_User.Caption, "Bad record") << "byte " << n << ", " << field.Name;
      EXPECT_FALSE(window.L_Info_User.Caption.empty()) << "byte " << n << ", " << field.Name;
    }
  }
}

// The day fields are explained one at a time: 00 00 is "from the start" and "never" at once.
TEST_F(Explain_Test, DayFieldsDoNotLookAtEachOther) {
  Set_Cells(window, std::string(64, '0'));
  window.L(1).Caption = "02";
  Info_For_Byte_10(window);
  EXPECT_EQ(window.L_Info_User.Caption, "Данная запись сработает с начала игры");
  Info_For_Byte_11(window);
  EXPECT_EQ(window.L_Info_User.Caption, "Данная запись не сработает никогда!");
}

// Unticked, the explanation of byte 14 leaves the speech pane as it is.
TEST_F(Explain_Test, MessageNumberLeavesAnUntickedPaneAlone) {
  for (const char* pair : {"FF", "05"}) {
    Show(Info_For_Byte_14, 14, pair);
    window.L_Edt.Caption = "speech";
    window.L_Message.Caption = "3";
    Info_For_Byte_14(window);
    EXPECT_EQ(window.L_Edt.Caption, "speech") << pair;
    EXPECT_EQ(window.L_Message.Caption, "3") << pair;
    EXPECT_TRUE(platform.Messages.empty());
  }
}

}  // namespace
