#include "ui/reference_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "support/fixture.h"
#include "vocab/vocab.h"

namespace {

using Command = void (*)(Vorlane&);
using Table = void (*)(std::string&);

struct List_Case {
  const char* name;
  Command command;
  std::size_t lines;
  std::string first;
  std::string last;
  bool hourglass;
  // For a numbered list: its table and whether its numbers stand as two bytes.
  Table table = nullptr;
  bool two_bytes = false;
};

std::ostream& operator<<(std::ostream& out, const List_Case& c) { return out << c.name; }

const List_Case kLists[] = {
    {"InputCodes", nKey_1_Click, 10, "(00) Любое стандартное воздействие",
     "(19) Игрок пытается говорить с НПЦ (дружеским) во время боя", false},
    {"ActionCodes", nKey_2_Click, 8, "(00 00) Стандартная реакция на данное воздействие", "(00 00) НПЦ перемещается",
     false},
    {"NpcNames", nNPC_Names_Click, 170, "№_0 (00)   Барри", "№_169 (A9)   ", false, Position::Npc_Name},
    {"QuestsGive", nQests_Click, 30, "№_0 (00)   Доставить письмо Мигелю", "№_29 (1D)   No 29 Yet", false,
     Position::Quest_Give_Name},
    {"QuestsTake", nQuests_Click, 30, "№_0 (00)   Воссоединение с повстанцами", "№_29 (1D)   No 29 Yet", false,
     Position::Quest_Take_Name},
    {"Items", nItem_Click, 351, "№_0 (00 00)   Игнорируется", "№_350 (5E 01)   Имячко", true, Position::Item_Name,
     true},
    {"Triggers", nTrigers_Click, 500, "№_0 (00 00)   Омерта освобождена", "№_499 (F3 01)   ", true,
     Position::Trigger_Name, true},
};

class List_Test : public Window_Test {
 protected:
  const std::vector<std::string>& Lines() const { return window.List.Items; }
  bool Has(const std::string& line) const { return std::find(Lines().begin(), Lines().end(), line) != Lines().end(); }
};

class Each_List : public List_Test, public ::testing::WithParamInterface<List_Case> {};

TEST_P(Each_List, FillsItsLinesInOrderAndPointsOnlyWhenLong) {
  const auto& c = GetParam();
  Event([&] { c.command(window); });
  ASSERT_EQ(Lines().size(), c.lines);
  EXPECT_EQ(Lines().front(), c.first);
  EXPECT_EQ(Lines().back(), c.last);
  EXPECT_EQ(window.List.ListIndex, -1);
  const std::vector<int> pointers = c.hourglass ? std::vector<int>{11, 0} : std::vector<int>{};
  EXPECT_EQ(platform.Pointers, pointers);
}

INSTANTIATE_TEST_SUITE_P(ViewMenu, Each_List, ::testing::ValuesIn(kLists),
                         [](const auto& info) { return std::string(info.param.name); });

// Every line of a numbered list: the number, its bytes as they stand in a record, three blanks
// and the name (nothing for a trigger without a row).
TEST_F(List_Test, NumberedLinesCarryTheBytesAndTheName) {
  for (const auto& c : kLists) {
    if (c.table == nullptr) continue;
    SCOPED_TRACE(c.name);
    Event([&] { c.command(window); });
    for (std::size_t n = 0; n < Lines().size(); ++n) {
      char bytes[16];
      if (c.two_bytes)
        std::snprintf(bytes, sizeof bytes, "%02X %02X", static_cast<unsigned>(n % 256), static_cast<unsigned>(n / 256));
      else
        std::snprintf(bytes, sizeof bytes, "%02X", static_cast<unsigned>(n));
      std::string name = std::to_string(n);
      c.table(name);
      if (name == std::to_string(n)) name.clear();  // no row
      EXPECT_EQ(Lines()[n], "№_" + std::to_string(n) + " (" + bytes + ")   " + name);
    }
  }
}

TEST_F(List_Test, StoredListsAreTheCodeTablesLines) {
  Event([&] { nKey_1_Click(window); });
  EXPECT_EQ(Lines(), vocab::Input_Code_Lines());
  Event([&] { nKey_2_Click(window); });
  EXPECT_EQ(Lines(), vocab::Action_Code_Lines());
}

TEST_F(List_Test, ExampleLines) {
  const struct {
    Command command;
    const char* line;
  } examples[] = {
      {nNPC_Names_Click, "№_0 (00)   Барри"},
      {nNPC_Names_Click, "№_163 (A3)   "},
      {nItem_Click, "№_255 (FF 00)   Вино"},
      {nItem_Click, "№_256 (00 01)   Пиво"},
      {nItem_Click, "№_350 (5E 01)   Имячко"},
      {nTrigers_Click, "№_157 (9D 00)   "},
      {nTrigers_Click, "№_499 (F3 01)   "},
      {nQests_Click, "№_25 (19)   Убить Дейдрану|Убрать Кошек-Убийц со склада Бетти"},
  };
  for (const auto& e : examples) {
    Event([&] { e.command(window); });
    EXPECT_TRUE(Has(e.line)) << e.line;
  }
}

TEST_F(List_Test, TriggersWithoutARowEndAfterTheBlanks) {
  Event([&] { nTrigers_Click(window); });
  const auto blank_lines =
      std::count_if(Lines().begin(), Lines().end(), [](const std::string& line) { return line.ends_with(")   "); });
  EXPECT_EQ(blank_lines, 193);
}

TEST_F(List_Test, SelectedLineBecomesTheToolTip) {
  Event([&] { nItem_Click(window); });
  window.List.ListIndex = 256;
  window.L_Info_Line.Caption = "hint";
  Event([&] { List_GotFocus(window); });
  EXPECT_EQ(window.List.ToolTipText, "№_256 (00 01)   Пиво");
  EXPECT_EQ(window.L_Info_Line.Caption, "hint");  // focus leaves the hint line alone

  window.List.ListIndex = 0;
  Event([&] { List_MouseMove(window); });
  EXPECT_EQ(window.List.ToolTipText, "№_0 (00 00)   Игнорируется");
  EXPECT_EQ(window.L_Info_Line.Caption, "");
}

TEST_F(List_Test, SecondCommandReplacesListAndSelection) {
  Event([&] { nTrigers_Click(window); });
  window.List.ListIndex = 157;
  Event([&] { List_MouseMove(window); });
  ASSERT_FALSE(window.List.ToolTipText.empty());
  const unsigned before = window.List.Revision;

  Event([&] { nKey_2_Click(window); });
  EXPECT_EQ(Lines().size(), 8u);
  EXPECT_EQ(window.List.ListIndex, -1);
  EXPECT_NE(window.List.Revision, before);
  Event([&] { List_MouseMove(window); });
  EXPECT_EQ(window.List.ToolTipText, "");
  Event([&] { List_GotFocus(window); });
  EXPECT_EQ(window.List.ToolTipText, "");
}

TEST_F(List_Test, ListsLeaveTheFileAlone) {
  Open_Bytes("075.npc", Standard_File());
  const auto image = window.HexImage;
  const auto status = window.SBar_3.SimpleText;
  Event([&] { nNPC_Names_Click(window); });
  EXPECT_EQ(Lines().size(), 170u);
  EXPECT_EQ(window.HexImage, image);
  EXPECT_EQ(window.SBar_3.SimpleText, status);
  EXPECT_TRUE(platform.Messages.empty());
}

}  // namespace
