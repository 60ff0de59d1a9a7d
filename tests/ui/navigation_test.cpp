#include <gtest/gtest.h>

#include "store/file_commands.h"
#include "store/image.h"
#include "support/fixture.h"
#include "ui/byte_grid.h"
#include "ui/navigation.h"
#include "ui/record_tests.h"

namespace {

using Navigation = Window_Test;

TEST_F(Navigation, WithNoFileTheSliderOnlyCounts) {
  for (int step = 0; step < 50; ++step) Event([&] { nNext_Click(window); });
  EXPECT_EQ(window.L_NLine.Caption, "Record #50");
  Event([&] { Form_KeyUp(window, key::Keypad_Plus); });
  EXPECT_EQ(platform.Beeps, 1);
  Event([&] { Form_KeyUp(window, key::Keypad_Minus); });
  EXPECT_EQ(window.L_NLine.Caption, "Record #49");
  EXPECT_EQ(Cells_Text(window), "");
  EXPECT_EQ(window.L_Info_User.Caption, "");
  Event([&] { Slider_MouseMove(window); });
  EXPECT_EQ(window.L_Info_Line.Caption, "") << "no hint without a file";
  EXPECT_FALSE(window.nEdit.Enabled);
}

TEST_F(Navigation, KeysAndMenuBeepAtBothEnds) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { nBack_Click(window); });
  Event([&] { Form_KeyUp(window, key::Keypad_Minus); });
  EXPECT_EQ(platform.Beeps, 2);
  EXPECT_EQ(window.Slider.Value, 0);
  Event([&] { Form_KeyUp(window, key::Keypad_Plus); });
  EXPECT_EQ(window.Slider.Value, 1);
  EXPECT_EQ(window.Current_Record, 1);
  Event([&] { Slider_Set_Value(window, 50); });
  Event([&] { nNext_Click(window); });
  Event([&] { Form_KeyUp(window, key::Keypad_Plus); });
  EXPECT_EQ(platform.Beeps, 4);
  EXPECT_EQ(window.Slider.Value, 50);
  // The main keyboard's + and - and other keys do nothing.
  for (const int other : {187, 189, 13, 0}) Event([&] { Form_KeyUp(window, other); });
  EXPECT_EQ(window.Slider.Value, 50);
  EXPECT_EQ(platform.Beeps, 4);
}

TEST_F(Navigation, ARecordOnShowEnablesEditAndTheHint) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 12); });
  EXPECT_EQ(window.L_NLine.Caption, "Record #12");
  EXPECT_EQ(Cells_Text(window), image::Hex_Text(Record_Bytes(12)));
  EXPECT_TRUE(window.nEdit.Enabled);
  Event([&] { Slider_MouseMove(window); });
  EXPECT_EQ(window.L_Info_Line.Caption, "Choose record (50 lines X 32 bytes)");
}

TEST_F(Navigation, AnAllZeroRecordOfAStandardFileExistsAndCanBeEdited) {
  Event([&] { nNew_Click(window); });
  Event([&] { Slider_Set_Value(window, 1); });
  EXPECT_TRUE(window.nEdit.Enabled);
  EXPECT_EQ(window.L_Info_User.Caption, "");
  Event([&] { Slider_Set_Value(window, 50); });
  EXPECT_TRUE(window.nEdit.Enabled);
  EXPECT_EQ(window.L_Info_User.Caption, "");
}

TEST_F(Navigation, TheStumpOfABukaFileIsNoRecord) {
  Open_Bytes("b.npc", Buka_File());
  Event([&] { Slider_Set_Value(window, 49); });
  Event([&] { L_Click(window, 3); });
  ASSERT_EQ(window.Selected_Field, "1");
  Event([&] { Slider_Set_Value(window, 50); });
  EXPECT_EQ(window.L_Info_User.Caption, "Record no exist");
  EXPECT_EQ(window.L_NByte.Caption, "Byte 0");
  EXPECT_FALSE(window.nEdit.Enabled);
  EXPECT_EQ(window.Selected_Field, "");
  for (int n = 1; n <= 32; ++n) EXPECT_EQ(window.L(n).BackColor, colour::Button_Face) << n;
  const Bytes record_50 = Record_Bytes(50);
  EXPECT_EQ(Cells_Text(window), image::Hex_Text(Bytes(record_50.begin(), record_50.begin() + 28)));
  // Leaving it stores the same 28 bytes back.
  Event([&] { Slider_Set_Value(window, 1); });
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  EXPECT_TRUE(window.nEdit.Enabled);
}

TEST_F(Navigation, GoingToZeroAndBackLosesNothing) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 1); });
  window.L(5).Caption = "AB";
  Event([&] { Slider_Set_Value(window, 0); });
  EXPECT_EQ(Cells_Text(window), "");
  EXPECT_EQ(window.L_NByte.Caption, "Byte 0");
  EXPECT_FALSE(window.nEdit.Enabled);
  EXPECT_EQ(window.Current_Record, 0);
  Event([&] { Slider_Set_Value(window, 1); });
  EXPECT_EQ(window.L(5).Caption, "AB");
}

TEST_F(Navigation, ASelectedFieldFollowsTheRecord) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 3); });
  Event([&] { L_Click(window, 9); });
  window.L_Info_User.Caption = "stale";
  Event([&] { Slider_Set_Value(window, 4); });
  EXPECT_EQ(window.Selected_Field, "1");
  EXPECT_EQ(window.L(9).BackColor, colour::Pale_Yellow);
  EXPECT_NE(window.L_Info_User.Caption, "stale") << "the explanation is worked out for record 4";
  EXPECT_EQ(window.L_NByte.Caption, "Byte 09");
  EXPECT_TRUE(window.nEdit.Enabled) << "with a field lit, nEdit stays as it was";
  // Going to 0 clears all; the next record that exists enables nEdit again.
  Event([&] { Slider_Set_Value(window, 0); });
  EXPECT_EQ(window.Selected_Field, "");
  EXPECT_EQ(window.L(9).BackColor, colour::Button_Face);
  Event([&] { Slider_Set_Value(window, 5); });
  EXPECT_TRUE(window.nEdit.Enabled);
}

TEST_F(Navigation, SettingTheSameValueRaisesNoChange) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 2); });
  window.L_NLine.Caption = "marker";
  Event([&] { Slider_Set_Value(window, 2); });
  EXPECT_EQ(window.L_NLine.Caption, "marker");
}

TEST_F(Navigation, OpeningAnotherFileNeverStoresTheOldCellsIntoIt) {
  Open_Bytes("a.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 2); });
  Open_Bytes("b.npc", Buka_File());
  EXPECT_EQ(image::Bytes_Of(window.HexImage), Buka_File());
  EXPECT_EQ(window.Slider.Value, 0);
  EXPECT_EQ(Cells_Text(window), "");
}

TEST_F(Navigation, RecordTestsTellEmptyFromMissing) {
  Set_Cells(window, std::string(64, '0'));
  Record_Exsist(window);
  EXPECT_EQ(window.Work_Text_2, "error");
  Record_Exsist_1(window);
  EXPECT_EQ(window.Work_Text_2, "ok");
  for (int n = 1; n <= 32; ++n) {
    Set_Cells(window, std::string(64, '0'));
    window.L(n).Caption = "01";
    Record_Exsist(window);
    EXPECT_EQ(window.Work_Text_2, "ok") << n;
    window.L(n).Caption = "";
    Record_Exsist_1(window);
    EXPECT_EQ(window.Work_Text_2, "error") << n;
  }
}

TEST_F(Navigation, TheGateOpensOnlyOnAWholeRecordOfAnOpenFile) {
  Set_Cells(window, std::string(64, '0'));
  window.Slider.Value = 3;
  Move_L(window);
  EXPECT_EQ(window.Work_Text, "error") << "no file";
  Open_Bytes("b.npc", Buka_File());
  Move_L(window);
  EXPECT_EQ(window.Work_Text, "error") << "slider at 0";
  Event([&] { Slider_Set_Value(window, 1); });
  Move_L(window);
  EXPECT_EQ(window.Work_Text, "ok");
  Event([&] { Slider_Set_Value(window, 50); });
  Move_L(window);
  EXPECT_EQ(window.Work_Text, "error") << "the stump";
}

}  // namespace
