// The files of examples/ as a user first meets them: opened, read field by field as
// examples.txt says, with the speech file bound.
#include <gtest/gtest.h>

#include "support/data.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

const std::filesystem::path Examples = std::filesystem::path(__FILE__).parent_path() / "../../examples";

class Examples_Test : public Window_Test, public testing::WithParamInterface<const char*> {
 protected:
  // The sentence under byte cell n of record k.
  std::string Sentence(int k, int n) {
    Event([&] { Slider_Set_Value(window, k); });
    Raise(window, "Vorlane", "L_" + std::to_string(n), Event::Mouse_Move);
    return window.L_Info_User.Caption;
  }
};

TEST_P(Examples_Test, ReadAsWritten) {
  Open((Examples / GetParam()).string());
  EXPECT_EQ(window.SBar_3.SimpleText, "078.NPC - Кармэн");
  for (const Data_Row& row : Read_Data("examples.txt"))
    EXPECT_EQ(Sentence(std::stoi(row[0]), std::stoi(row[1])), row[2]) << row[0] << ":" << row[1];
  EXPECT_EQ(Sentence(50, 1), std::string(GetParam()) == "078.npc" ? "Bad record" : "Record no exist");

  platform.Picks.push_back(Dialog_Pick{(Examples / "078.edt").string(), 1});
  Event_Args tick{1};
  Raise(window, "Vorlane", "Check", Event::Click, tick);
  EXPECT_EQ(window.L_Edt.Caption, "Добрый день. Вы здесь по делу или просто так?");
  EXPECT_EQ(std::tuple(Sentence(5, 14), window.L_Edt.Caption),
            std::tuple("НПЦ скажет фразу №_6", "Меня задели в перестрелке."));
}

INSTANTIATE_TEST_SUITE_P(Variants, Examples_Test, testing::Values("078.npc", "buka/078.npc"));

}  // namespace
