#include <gtest/gtest.h>

#include <set>

#include "fields/field_map.h"
#include "support/fixture.h"
#include "ui/layout.h"
#include "ui/events.h"
#include "ui/layout.h"
#include "ui/shell.h"

namespace {

TEST(Place_Controls, CentresAcrossWithAThirdOfTheFreeHeightAbove) {
  Form_Window window;
  window.Width = 9000;
  window.Height = 7000;
  Position::Place_Controls(window, {15360, 11520});
  EXPECT_EQ(window.Top, 1506);
  EXPECT_EQ(window.Left, 3180);
  // On a screen smaller than the window it hangs over the top and left edges.
  Position::Place_Controls(window, {6000, 5000});
  EXPECT_EQ(window.Top, -666);
  EXPECT_EQ(window.Left, -1500);
  EXPECT_EQ(window.Width, 9000) << "the size doesn't change";
}

TEST_F(Window_Test, StartUpSetsTheConstantsAndTheRecordMenu) {
  EXPECT_EQ(window.Top, 1506);
  EXPECT_EQ(window.Left, 3180);
  EXPECT_EQ(window.Color_Normal, "-2147483633");
  EXPECT_EQ(window.Color_Field, "-2147483646");
  EXPECT_EQ(window.Color_Select, "8454143");
  EXPECT_EQ(window.Hint_Text, "Click-select / Dbl. Click-edit");
  EXPECT_EQ(window.Error_Title, "ERROR");
  EXPECT_EQ(window.Bad_Record_Text, "Bad record");
  EXPECT_EQ(window.nNext.Caption, "Next\t+");
  EXPECT_EQ(window.nBack.Caption, "Back\t-");
  EXPECT_EQ(window.Caption, "Vorlane");
  EXPECT_EQ(window.L_NLine.Caption, "Record #0");
  EXPECT_EQ(window.L_NByte.Caption, "Byte 0");
  EXPECT_EQ(window.L_Fix.Caption, "Show NPC speech dialogs");
  EXPECT_EQ(window.L_Fix_1.Caption, "№_");
  EXPECT_EQ(window.L_Message.Caption, "0");
  EXPECT_EQ(window.Com1.Caption, "<<");
  EXPECT_EQ(window.Com2.Caption, ">>");
  EXPECT_FALSE(window.Check.Enabled);
  EXPECT_FALSE(window.Com1.Enabled);
  EXPECT_FALSE(window.Com2.Enabled);
  EXPECT_EQ(window.Slider.Value, 0);
  EXPECT_EQ(window.Slider.Max, 50);
}

TEST_F(Window_Test, EveryMenuItemHasItsCaptionShortcutAndStartState) {
  struct Row {
    const char* name;
    const char* caption;
    const char* shortcut;
    bool enabled;
  };
  const Row rows[] = {
      {"nFile", "&File", "", true},
      {"nOpen", "Open...", "Ctrl+O", true},
      {"nNew", "New", "Ctrl+N", true},
      {"nSave", "Save", "Ctrl+S", false},
      {"nSaveas", "Save as", "Ctrl+L", false},
      {"n1", "-", "", true},
      {"nExit", "Exit", "Ctrl+X", true},
      {"nView", "&View", "", true},
      {"nKey_2", "Show Action codes", "Ctrl+F1", true},
      {"nKey_1", "Show Input codes", "Ctrl+F2", true},
      {"nItem", "Show Items", "Ctrl+F3", true},
      {"nNPC_Names", "Show NPC Names", "Ctrl+F4", true},
      {"nQests", "Show Quests(give)", "Ctrl+F5", true},
      {"nQuests", "Show Quests(take)", "Ctrl+F6", true},
      {"nTrigers", "Show Trigers", "Ctrl+F7", true},
      {"nTools", "&Tools", "", true},
      {"nEdit", "Edit", "Ctrl+E", false},
      {"nType", "Type", "", true},
      {"nCurrent", "Current", "F1", true},
      {"nChaing", "Change", "F2", true},
      {"nRecord", "&Record", "", true},
      {"nNext", "Next\t+", "", true},
      {"nBack", "Back\t-", "", true},
      {"nAbout", "&About", "", true},
  };
  const auto menu = layout::Main_Menu();
  ASSERT_EQ(menu.size(), std::size(rows));
  for (std::size_t i = 0; i < menu.size(); ++i) {
    const Row& row = rows[i];
    SCOPED_TRACE(row.name);
    EXPECT_EQ(menu[i].Name, row.name) << "menu order";
    EXPECT_EQ(menu[i].Shortcut, row.shortcut);
    const Menu_Item* item = window.Menu(row.name);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Caption, row.caption);
    EXPECT_EQ(item->Enabled, row.enabled);
    const bool command =
        !menu[i].Caption.empty() && menu[i].Caption != "-" &&
        std::none_of(menu.begin(), menu.end(), [&](const Menu_Entry& e) { return e.Parent == menu[i].Name; });
    EXPECT_EQ(Find_Route("Vorlane", row.name, Event::Click) != nullptr,
              command || row.name == std::string("nNext") || row.name == std::string("nBack"));
  }
}

TEST_F(Window_Test, MovingOverOtherControlsClearsTheHint) {
  for (const char* control : {"Vorlane", "L_Edt", "Help", "L_Fix", "L_Fix_1", "L_Message", "L_NByte", "L_NLine",
                              "Check", "Com1", "Com2", "SBar_1", "SBar_2", "L_Info_User", "SBar_3", "List"}) {
    window.L_Info_Line.Caption = "Click-select / Dbl. Click-edit";
    ASSERT_TRUE(Raise(window, "Vorlane", control, Event::Mouse_Move)) << control;
    EXPECT_EQ(window.L_Info_Line.Caption, "") << control;
  }
  EXPECT_EQ(Find_Route("Vorlane", "L_Info_Line", Event::Mouse_Move), nullptr);
}

TEST_F(Window_Test, TheExplanationGetsItsToolTipWhenItHasText) {
  window.L_Info_User.ToolTipText = "old";
  L_Info_User_MouseMove(window);
  EXPECT_EQ(window.L_Info_User.ToolTipText, "old") << "an empty caption keeps the tool tip";
  window.L_Info_User.Caption = "Тригер №_47 <НПЦ ранен> должен быть выполнен";
  L_Info_User_MouseMove(window);
  EXPECT_EQ(window.L_Info_User.ToolTipText, window.L_Info_User.Caption);
}

TEST_F(Window_Test, TheFileNameGetsItsToolTipFrom27Characters) {
  const std::string twenty_six = "075.NPC - Кот в сапогах ab";  // counted in characters, not bytes
  ASSERT_EQ(text::Length(twenty_six), 26u);
  window.SBar_3.SimpleText = twenty_six;
  SBar_3_MouseMove(window);
  EXPECT_EQ(window.SBar_3.ToolTipText, "");
  window.SBar_3.SimpleText = twenty_six + "c";
  SBar_3_MouseMove(window);
  EXPECT_EQ(window.SBar_3.ToolTipText, twenty_six + "c");
}

TEST(Layout, TheByteCellsStandInARowAndShowTheFields) {
  for (int n = 1; n <= 32; ++n) {
    const Geometry cell = layout::Cell(n);
    EXPECT_EQ(cell.Name, "L_" + std::to_string(n));
    EXPECT_EQ(cell.Top, 950);
    EXPECT_EQ(cell.Height, 200);
    if (n == 1) continue;
    const Geometry before = layout::Cell(n - 1);
    const int gap = cell.Left - (before.Left + before.Width);
    // Cells of one field touch (27 and 28 even overlap); 29 .. 32 is a group of its own.
    const bool same_field = fields::Of_Cell(n).Holds(n - 1);
    if (same_field && n < 29) {
      EXPECT_LE(gap, 0) << n;
    } else if (!same_field) {
      EXPECT_GT(gap, 0) << n;
    }
  }
}

TEST(Layout, EveryNamedControlHasOnePlace) {
  std::set<std::string_view> names;
  for (const Geometry& g : layout::Main_Controls()) EXPECT_TRUE(names.insert(g.Name).second) << g.Name;
  EXPECT_EQ(names.size(), 19u);
  const Geometry* list = layout::Find(layout::Main_Controls(), "List");
  const Geometry* exit = layout::Find(layout::Main_Controls(), "ComExit");
  ASSERT_TRUE(list && exit);
  EXPECT_TRUE(exit->Left >= list->Left && exit->Left + exit->Width <= list->Left + list->Width &&
              exit->Top >= list->Top && exit->Top + exit->Height <= list->Top + list->Height)
      << "List covers ComExit";
  EXPECT_EQ(layout::Find(layout::Main_Controls(), "nothing"), nullptr);
  EXPECT_EQ(layout::Edit_Controls().size(), 15u);
}

}  // namespace
