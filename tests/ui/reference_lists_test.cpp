// The reference lists beside the record: how they fill and what their tool tip shows. The
// lines themselves are checked against their transcriptions.
#include "ui/reference_lists.h"

#include "support/fixture.h"

namespace {

using Reference_List = Window_Test;

// Only the two long lists show the hourglass while they fill; a new list has no selection.
TEST_F(Reference_List, TheLongListsShowTheHourglass) {
  for (const char* item : {"nKey_1", "nKey_2", "nNPC_Names", "nQests", "nQuests", "nItem", "nTrigers"}) {
    platform.Pointers.clear();
    window.List.ListIndex = 3;
    Raise(window, window::Main, item, Event::Click);
    const bool hourglass = item == std::string("nItem") || item == std::string("nTrigers");
    EXPECT_EQ(std::tuple(platform.Pointers, window.List.ListIndex),
              std::tuple(hourglass ? std::vector{11, 0} : std::vector<int>{}, -1))
        << item;
  }
}

// The selected line becomes the tool tip on focus and under the mouse; a second list replaces
// the lines and the selection, so the tool tip is empty until a line is chosen.
TEST_F(Reference_List, TheSelectedLineIsTheToolTip) {
  Raise(window, window::Main, "nItem", Event::Click);
  window.List.ListIndex = 256;
  window.L_Info_Line.Caption = "hint";
  Raise(window, window::Main, "List", Event::Got_Focus);
  EXPECT_EQ(std::tuple(window.List.ToolTipText, window.L_Info_Line.Caption),
            std::tuple("№_256 (00 01)   Пиво", "hint"));
  window.List.ListIndex = 0;
  Raise(window, window::Main, "List", Event::Mouse_Move);
  EXPECT_EQ(std::tuple(window.List.ToolTipText, window.L_Info_Line.Caption),
            std::tuple("№_0 (00 00)   Игнорируется", ""));
  Raise(window, window::Main, "nKey_2", Event::Click);
  Raise(window, window::Main, "List", Event::Mouse_Move);
  EXPECT_EQ(std::tuple(window.List.Items.size(), window.List.ToolTipText), std::tuple(8u, ""));
}

}  // namespace
