#include "ui/reference_lists.h"

#include <string>
#include <vector>

#include "form/vorlane.h"
#include "store/hex.h"
#include "system/text.h"
#include "ui/shell.h"
#include "vocab/vocab.h"

namespace {

using Table = void (*)(std::string&);

// One numbered list: the numbers 0 .. Last, each with the name its table gives.
struct Numbered_List {
  int Last;
  Table Name;
  // Two bytes, low byte first ("FF 00", "00 01"), as a word stands in a record; else one byte.
  // These are also the long lists, which show the hourglass while they fill.
  bool Two_Bytes;
  // A number without a row stays as its own digits: drop it, so the line ends after the blanks.
  bool Drop_Misses;
};

void Fill(Vorlane& vForm, const Numbered_List& list) {
  vForm.List.Clear();
  if (list.Two_Bytes) vForm.platform.Mouse_Pointer(pointer::Hourglass);
  for (int n = 0; n <= list.Last; ++n) {
    const std::string bytes = list.Two_Bytes ? hex::Word_Pairs(n) : hex::Pair(n);
    std::string name = std::to_string(n);
    list.Name(name);
    if (list.Drop_Misses && text::Length(name) < 4) name.clear();
    vForm.List.AddItem("№_" + std::to_string(n) + " (" + bytes + ")   " + name);
  }
  if (list.Two_Bytes) vForm.platform.Mouse_Pointer(pointer::Default);
}

void Fill_Stored(Vorlane& vForm, const std::vector<std::string>& lines) {
  vForm.List.Clear();
  for (const auto& line : lines) vForm.List.AddItem(line);
}

void Show_Selected_Line(Vorlane& vForm) {
  const auto& list = vForm.List;
  const bool selected = list.ListIndex >= 0 && static_cast<std::size_t>(list.ListIndex) < list.Items.size();
  vForm.List.ToolTipText = selected ? list.Items[static_cast<std::size_t>(list.ListIndex)] : std::string();
}

}  // namespace

void nKey_1_Click(Vorlane& vForm) { Fill_Stored(vForm, vocab::Input_Code_Lines()); }
void nKey_2_Click(Vorlane& vForm) { Fill_Stored(vForm, vocab::Action_Code_Lines()); }
void nNPC_Names_Click(Vorlane& vForm) { Fill(vForm, {vocab::Last_Npc, Position::Npc_Name, false, false}); }
void nQests_Click(Vorlane& vForm) { Fill(vForm, {vocab::Last_Quest, Position::Quest_Give_Name, false, false}); }
void nQuests_Click(Vorlane& vForm) { Fill(vForm, {vocab::Last_Quest, Position::Quest_Take_Name, false, false}); }
void nItem_Click(Vorlane& vForm) { Fill(vForm, {vocab::Last_Item, Position::Item_Name, true, false}); }
void nTrigers_Click(Vorlane& vForm) { Fill(vForm, {vocab::Last_Trigger, Position::Trigger_Name, true, true}); }

void List_GotFocus(Vorlane& vForm) { Show_Selected_Line(vForm); }

void List_MouseMove(Vorlane& vForm) {
  Show_Selected_Line(vForm);
  Clear_Hint(vForm);
}
