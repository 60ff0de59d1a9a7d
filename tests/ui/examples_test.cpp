// The files of examples/ as a user first meets them: opened, read field by field, with the
// speech file bound; and the Buka file is what the program's own conversion makes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "speech/speech.h"
#include "store/convert.h"
#include "store/file_commands.h"
#include "store/type_report.h"
#include "support/fixture.h"
#include "ui/byte_grid.h"
#include "ui/navigation.h"

namespace {

const std::filesystem::path Examples = std::filesystem::path(__FILE__).parent_path() / "../../examples";
const std::string Standard = (Examples / "078.npc").string();
const std::string Buka = (Examples / "buka/078.npc").string();
const std::string Speech = (Examples / "078.edt").string();

class Examples_Test : public Window_Test, public ::testing::WithParamInterface<std::string> {
 protected:
  // The sentence under byte cell n of record k.
  std::string Sentence(int k, int n) {
    Event([&] { Slider_Set_Value(window, k); });
    Event([&] { L_MouseMove(window, n); });
    return window.L_Info_User.Caption;
  }
};

struct Reading {
  int record, cell;
  const char* sentence;
};

// One sentence of each kind of field, the same in both variants.
const Reading Readings[] = {
    {1, 1, "Эта запись будет сработывать всегда, без передачи на стандартные записи"},
    {1, 21, "Тригер №_102 <Игрок уже говорил с Кармэном> будет переведен в значение True"},
    {2, 2, "Эта запись сработает только один раз во всей игре и управление передастся стандартной записи"},
    {2, 7, "Тригер №_48 <НПЦ был ранен игроком> не должен быть выполненым"},
    {2, 13, "Данный НПЦ вступит в диалог с игроком, при уровене лидерства игрока > 40"},
    {2, 15, "НПЦ скажет 3 фразы, после фразы №_1 (включительно)"},
    {2, 16, "Игрок получает квест №_2 <Награда за головы терористов>"},
    {3, 9, "Квест №_2 <Награда за головы терористов> уже должен быть получен игроком"},
    {3, 17, "Квест №_2 <Все террористы пойманы>"},
    {3, 24, "При выполнении всех условий предмет №_25 <АК-74> будет передан игроку "},
    {4, 3, "Предмет №_215 <Металлоискатель> должен быть у НПЦ"},
    {5, 1, "Эта запись сработает всегда и при повторе управление передастся стандартные записи"},
    {5, 10, "Данная запись сработает начиная с 3 дня"},
    {5, 11, "Данная запись сработает только до 10 дня"},
    {5, 15, "НПЦ скажет 5 фраз, после фразы №_6 (включительно)"},
    {6, 18, "Управление передается Босс (№_#86)"},
    {6, 19, "Управление передается на запись №_7 (Record #8)"},
    {7, 25, "НПЦ переместиться на координаты 12345"},
    {7, 28, "№_65528 <НПЦ перемещается>"},
    {8, 14, "НПЦ ничего не скажет"},
    {10, 5, "Bad record"},
    {11, 1, "<?>"},
    {11, 3, "№_400<?>"},
    {11, 6, "№_600   слишком большое число! (всего 500 тригеров (0-499))"},
    {11, 9, "Квест №_30 <?>"},
    {11, 13, "Вероятно данный НПЦ никогда не вступит в диалог с игроком. (Ур. лид. должен быть 101)"},
    {11, 18, "Запись не передаст управление #170 т.к. макс. № НПЦ -169 (см. Bynarydata\\Prof.dat)"},
    {11, 19, "№_50 - файл может иметь максимум 50 записей по 32 байта (0-49)"},
    {11, 23, "№_351 <?>"},
    {11, 32, "Данные байты у всех существующих НПЦ = '00'!"},
};

TEST_P(Examples_Test, ReadsAsWritten) {
  Open(GetParam());
  EXPECT_EQ(window.SBar_3.SimpleText, "078.NPC - Кармэн");
  for (const Reading& r : Readings) EXPECT_EQ(Sentence(r.record, r.cell), r.sentence) << r.record << ":" << r.cell;

  Event([&] { Slider_Set_Value(window, 50); });
  EXPECT_EQ(window.L_Info_User.Caption, GetParam() == Buka ? "Record no exist" : "Bad record");
  Event([&] { nCurrent_Click(window); });
  EXPECT_EQ(platform.Messages.back().Prompt, GetParam() == Buka ? "Type: Агония Власти. Records exist: 10 "
                                                                : "Type: JA2-eng. & UB-any ver. Records exist: 10 ");
}

// Every message that a record names is in the speech file and has a text.
TEST_P(Examples_Test, SpeechFileHoldsEveryMessageNamed) {
  Open(GetParam());
  platform.Picks.push_back(Dialog_Pick{Speech, 1});
  Event([&] { Check_Set_Value(window, 1); });
  ASSERT_EQ(window.Edt_Kind, 1);
  EXPECT_EQ(window.L_Edt.Caption, "Добрый день. Вы здесь по делу или просто так?");

  EXPECT_EQ(Sentence(2, 14), "НПЦ скажет фразу №_1");
  EXPECT_EQ(window.L_Edt.Caption, "Я охочусь за головами.");
  EXPECT_EQ(Sentence(5, 14), "НПЦ скажет фразу №_6");
  EXPECT_EQ(window.L_Edt.Caption, "Меня задели в перестрелке.");

  for (int k = 1; k <= 49; ++k) {
    Event([&] { Slider_Set_Value(window, k); });
    if (window.L(14).Caption == "FF" || Cells_Text(window) == std::string(64, '0')) continue;
    const int first = hex::Byte_Value(window.L(14).Caption);
    const int count = std::max(1, hex::Byte_Value(window.L(15).Caption));
    for (int m = first; m < first + count; ++m) {
      window.L_Edt.Caption.clear();
      window.L_Message.Caption = std::to_string(m);
      Event([&] { Read_EDT(window); });
      EXPECT_FALSE(window.L_Edt.Caption.empty()) << "record " << k << ", message " << m;
    }
  }
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Variants, Examples_Test, ::testing::Values(Standard, Buka),
                         [](const auto& info) { return info.param == Buka ? "Buka" : "Standard"; });

// Converting the standard example with Tools > Type > Change gives the Buka example.
class Example_Conversion : public Window_Test {};

TEST_F(Example_Conversion, StandardToBukaGivesTheBukaExample) {
  const std::string copy = folder.Write("078.npc", Read_File(Standard));
  platform.Picks.push_back(Dialog_Pick{copy});
  platform.Picks.push_back(Dialog_Pick{copy, 1});
  Event([&] { nChaing_Click(window); });
  EXPECT_EQ(Read_File(copy), Read_File(Buka));
}

}  // namespace
