#include <gtest/gtest.h>

#include "fields/byte_help.h"
#include "fields/field_map.h"
#include "store/file_commands.h"
#include "support/fixture.h"
#include "ui/byte_grid.h"
#include "ui/navigation.h"

namespace {

constexpr std::int32_t Rest = colour::Button_Face;
constexpr std::int32_t Viewing = colour::Active_Title_Bar;
constexpr std::int32_t Selected = colour::Pale_Yellow;

std::string Help_Of(std::string_view caption) {
  std::string text(caption);
  Position::Byte_Help(text);
  return text;
}

class Byte_Grid : public Window_Test {
 protected:
  void SetUp() override {
    Open_Bytes("a.npc", Standard_File());
    Event([&] { Slider_Set_Value(window, 3); });
  }
  void Hover(int n) {
    Event([&] { L_MouseMove(window, n); });
  }
  void Click(int n) {
    Event([&] { L_Click(window, n); });
  }
  // The colour of every cell, checked against one lit field.
  void Expect_Colours(int lit_cell, std::int32_t colour) {
    const Field* lit = lit_cell ? &fields::Of_Cell(lit_cell) : nullptr;
    for (int n = 1; n <= 32; ++n)
      EXPECT_EQ(window.L(n).BackColor, lit && lit->Holds(n) ? colour : Rest) << "cell " << n;
  }
  void Expect_Labels_For(int cell) {
    const Field& f = fields::Of_Cell(cell);
    EXPECT_EQ(window.L_NByte.Caption, f.Caption);
    EXPECT_EQ(window.Help.Caption, Help_Of(f.Caption));
  }
};

TEST_F(Byte_Grid, HoverLightsTheWholeFieldOfEveryCell) {
  for (int n = 1; n <= 32; ++n) {
    SCOPED_TRACE(n);
    Hover(n);
    Expect_Colours(n, Viewing);
    Expect_Labels_For(n);
    EXPECT_EQ(window.L_Info_Line.Caption, "Click-select / Dbl. Click-edit");
    EXPECT_EQ(window.Selected_Field, "");
  }
}

TEST_F(Byte_Grid, HoverExplainsTheFieldAndGoesOnWithinAField) {
  Hover(1);
  const std::string sentence = window.L_Info_User.Caption;
  EXPECT_FALSE(sentence.empty());
  window.L_Info_User.Caption.clear();
  Hover(2);
  EXPECT_EQ(window.L_Info_User.Caption, sentence) << "the steps run again on the same field";
  Expect_Colours(1, Viewing);
}

TEST_F(Byte_Grid, ClickSelectsAndASecondClickLetsGo) {
  Click(2);
  Expect_Colours(1, Selected);
  EXPECT_EQ(window.Selected_Field, "1");
  Expect_Labels_For(1);
  window.L_Info_Line.Caption = "kept";
  Click(1);
  Expect_Colours(1, Viewing);
  EXPECT_EQ(window.Selected_Field, "");
  EXPECT_EQ(window.L_Info_Line.Caption, "kept") << "a click doesn't write the hint";
  Expect_Labels_For(1);
}

TEST_F(Byte_Grid, ASelectedFieldIgnoresHoverElsewhere) {
  Click(9);
  Hover(10);
  Expect_Colours(9, Selected);
  EXPECT_EQ(window.L_NByte.Caption, "Byte 09");
  EXPECT_EQ(window.L_Info_Line.Caption, "Click-select / Dbl. Click-edit");
  // Hover over the selected field renews only its sentence.
  window.L_Info_User.Caption = "stale";
  window.Help.Caption = "kept";
  Hover(9);
  EXPECT_NE(window.L_Info_User.Caption, "stale");
  EXPECT_EQ(window.Help.Caption, "kept");
}

TEST_F(Byte_Grid, ClickOnAnotherFieldMovesTheSelection) {
  Click(9);
  Click(10);
  Expect_Colours(10, Selected);
  Expect_Labels_For(10);
  Hover(3);
  Expect_Colours(10, Selected);
  Click(10);  // let go, then hover lights another field
  Hover(21);
  Expect_Colours(21, Viewing);
  Expect_Labels_For(21);
}

TEST_F(Byte_Grid, BytesTwentyNineToThirtyTwoAreOneField) {
  for (const int n : {29, 30, 31, 32}) {
    Click(n);
    Expect_Colours(29, Selected);
    Click(n);
    Expect_Colours(29, Viewing);
  }
  EXPECT_EQ(window.L_NByte.Caption, "Bytes 29-32");
}

TEST_F(Byte_Grid, TheGateKeepsTheGridSilent) {
  Event([&] { Slider_Set_Value(window, 0); });
  window.L_Info_Line.Caption = "kept";
  Hover(3);
  Click(3);
  EXPECT_EQ(window.L_Info_Line.Caption, "kept");
  Expect_Colours(0, Rest);
  EXPECT_EQ(window.Selected_Field, "");
}

TEST_F(Byte_Grid, TheStumpOfABukaFileIsSilentInAllCells) {
  Open_Bytes("b.npc", Buka_File());
  Event([&] { Slider_Set_Value(window, 50); });
  for (int n = 1; n <= 32; ++n) {
    Hover(n);
    Click(n);
  }
  Expect_Colours(0, Rest);
  EXPECT_EQ(window.L_NByte.Caption, "Byte 0");
}

TEST_F(Byte_Grid, AnAllZeroRecordWorksAndSaysBadRecord) {
  Event([&] { nNew_Click(window); });
  Event([&] { Slider_Set_Value(window, 1); });
  for (const Field& f : fields::All()) {
    Hover(f.First);
    EXPECT_EQ(window.L_Info_User.Caption, "Bad record") << f.Caption;
  }
}

TEST_F(Byte_Grid, TheLitFieldIsRenewedOnTheNextRecord) {
  // Every field, viewed or selected, is the one renewed; "Bad record" on an all-zero record
  // shows that the explanation ran.
  Bytes file = Standard_File();
  Put_Record(file, false, 4, Bytes(32, 0));
  Open_Bytes("z.npc", file);
  for (const Field& f : fields::All()) {
    for (const bool select : {false, true}) {
      SCOPED_TRACE(std::string(f.Caption) + (select ? " selected" : " viewed"));
      Event([&] { Slider_Set_Value(window, 3); });
      select ? Click(f.First) : Hover(f.Last());
      Event([&] { Slider_Set_Value(window, 4); });
      EXPECT_EQ(window.L_Info_User.Caption, "Bad record");
      EXPECT_EQ(window.L_NByte.Caption, f.Caption);
      if (select) Click(f.First);
    }
  }
}

TEST_F(Byte_Grid, WithNoFieldLitAChangeOfRecordExplainsNothing) {
  window.L_Info_User.Caption = "kept";
  Event([&] { Slider_Set_Value(window, 4); });
  EXPECT_EQ(window.L_Info_User.Caption, "kept");
  EXPECT_TRUE(window.nEdit.Enabled);
}

}  // namespace
