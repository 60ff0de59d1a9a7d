// The byte cells as the user reads a record with the mouse, step by step from byte_grid.txt:
// hover, click, let go, move the selection, and the field that stays lit on the next record.
#include "ui/byte_grid.h"

#include "support/data.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

// The colours of the 32 cells in groups of eight: '.' at rest, 'v' in view, 's' selected.
std::string Colours(const Vorlane& window) {
  std::string shown;
  for (int n = 1; n <= 32; ++n) {
    const auto colour = static_cast<std::uint32_t>(window.L(n).BackColor);
    shown += colour == 0x8000000F ? '.' : colour == 0x80000002 ? 'v' : colour == 0x80FFFF ? 's' : '?';
    if (n % 8 == 0 && n < 32) shown += ' ';
  }
  return shown;
}

class Byte_Grid : public Window_Test {
 protected:
  // One step: action, n, colours, L_NByte, start of Help, L_Info_User, L_Info_Line.
  void Run(const Data_Row& step) {
    SCOPED_TRACE(step[0] + " " + step[1]);
    window.Help.Caption = window.L_Info_User.Caption = "kept";
    window.L_Info_Line.Caption.clear();
    const int n = std::stoi(step[1]);
    if (step[0] == "record") Event([&] { Slider_Set_Value(window, n); });
    if (step[0] != "record")
      Raise(window, window::Main, "L_" + step[1], step[0] == "hover" ? Event::Mouse_Move : Event::Click);
    EXPECT_EQ(Colours(window), step[2]);
    // A field is selected exactly while its cells are pale yellow.
    EXPECT_EQ(window.Selected_Field, step[2].find('s') == std::string::npos ? "" : "1");
    EXPECT_EQ(window.L_NByte.Caption, step[3]);
    EXPECT_TRUE(window.Help.Caption.starts_with(step[4])) << window.Help.Caption;
    EXPECT_EQ(window.L_Info_User.Caption, step[5]);
    EXPECT_EQ(window.L_Info_Line.Caption, step[6]);
  }
};

TEST_F(Byte_Grid, ReadingARecordWithTheMouse) {
  Bytes file = Standard_File();
  Put_Record(file, false, 5, Bytes(32, 0));
  Open_Bytes("a.npc", file);
  Event([&] { Slider_Set_Value(window, 3); });
  for (const Data_Row& step : Read_Data("byte_grid.txt")) Run(step);
  EXPECT_TRUE(window.nEdit.Enabled);
}

// Without a file, and on the 28 bytes of the last record of a Buka file, no cell answers.
TEST_F(Byte_Grid, TheGateKeepsTheGridSilent) {
  const std::string rest = "........ ........ ........ ........";
  Set_Cells(window, std::string(64, '1'));
  window.Slider.Value = 3;
  Run({"hover", "3", rest, "Byte 0", "kept", "kept", ""});
  Open_Bytes("b.npc", Buka_File());
  Event([&] { Slider_Set_Value(window, 50); });
  for (int n = 1; n <= 32; ++n) {
    Run({"hover", std::to_string(n), rest, "Byte 0", "kept", "kept", ""});
    Run({"click", std::to_string(n), rest, "Byte 0", "kept", "kept", ""});
  }
}

}  // namespace
