#include "ui/shell.h"

#include <cmath>

#include <array>
#include <utility>

#include "speech/speech.h"
#include "store/file_commands.h"
#include "store/text.h"
#include "store/type_report.h"
#include "ui/about.h"
#include "ui/edit.h"
#include "ui/navigation.h"
#include "ui/reference_lists.h"
#include "ui/vorlane.h"

namespace Position {

void Place_Controls(Form_Window& vForm, const Screen_Size& screen) {
  const auto top = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Height) - vForm.Height)) / 3;
  const auto left = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Width) - vForm.Width)) / 2;
  vForm.Left = left;
  vForm.Top = top;
}

}  // namespace Position

void Form_Load(Vorlane& vForm) {
  Position::Place_Controls(vForm, vForm.platform.Screen());
  vForm.Color_Normal = std::to_string(colour::Button_Face);
  vForm.Color_Field = std::to_string(colour::Active_Title_Bar);
  vForm.Color_Select = std::to_string(colour::Pale_Yellow);
  vForm.Hint_Text = "Click-select / Dbl. Click-edit";
  vForm.Error_Title = "ERROR";
  vForm.Bad_Record_Text = "Bad record";
  vForm.nNext.Caption = "Next\t+";
  vForm.nBack.Caption = "Back\t-";
}

void Clear_Hint(Vorlane& vForm) { vForm.L_Info_Line.Caption.clear(); }

void L_Info_User_MouseMove(Vorlane& vForm) {
  Clear_Hint(vForm);
  if (!vForm.L_Info_User.Caption.empty()) vForm.L_Info_User.ToolTipText = vForm.L_Info_User.Caption;
}

void SBar_3_MouseMove(Vorlane& vForm) {
  Clear_Hint(vForm);
  if (text::Length(vForm.SBar_3.SimpleText) >= 27) vForm.SBar_3.ToolTipText = vForm.SBar_3.SimpleText;
}

bool Unload_Main(Vorlane& vForm) {
  bool cancel = false;
  Form_Unload(vForm, cancel);
  if (!cancel) vForm.Unloaded = true;
  return !cancel;
}

void nExit_Click(Vorlane& vForm) { Unload_Main(vForm); }
void ComExit_Click(Vorlane& vForm) { Unload_Main(vForm); }

Main_Handler Mouse_Move_Handler(std::string_view control) {
  static constexpr std::array<std::pair<std::string_view, Main_Handler>, 17> handlers{{
      {"Vorlane", Clear_Hint},
      {"L_Edt", Clear_Hint},
      {"Help", Clear_Hint},
      {"L_Fix", Clear_Hint},
      {"L_Fix_1", Clear_Hint},
      {"L_Message", Clear_Hint},
      {"L_NByte", Clear_Hint},
      {"L_NLine", Clear_Hint},
      {"Check", Clear_Hint},
      {"Com1", Clear_Hint},
      {"Com2", Clear_Hint},
      {"SBar_1", Clear_Hint},
      {"SBar_2", Clear_Hint},
      {"L_Info_User", L_Info_User_MouseMove},
      {"SBar_3", SBar_3_MouseMove},
      {"Slider", Slider_MouseMove},
      {"List", List_MouseMove},
  }};
  for (const auto& [name, handler] : handlers)
    if (name == control) return handler;
  return nullptr;
}

Main_Handler Menu_Click_Handler(std::string_view menu_item) {
  static constexpr std::array<std::pair<std::string_view, Main_Handler>, 18> handlers{{
      {"nOpen", nOpen_Click},
      {"nNew", nNew_Click},
      {"nSave", nSave_Click},
      {"nSaveas", nSaveas_Click},
      {"nExit", nExit_Click},
      {"nKey_2", nKey_2_Click},
      {"nKey_1", nKey_1_Click},
      {"nItem", nItem_Click},
      {"nNPC_Names", nNPC_Names_Click},
      {"nQests", nQests_Click},
      {"nQuests", nQuests_Click},
      {"nTrigers", nTrigers_Click},
      {"nEdit", nEdit_Click},
      {"nCurrent", nCurrent_Click},
      {"nChaing", nChaing_Click},
      {"nNext", nNext_Click},
      {"nBack", nBack_Click},
      {"nAbout", nAbout_Click},
  }};
  for (const auto& [name, handler] : handlers)
    if (name == menu_item) return handler;
  return nullptr;
}
