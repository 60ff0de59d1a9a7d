#include "ui/shell.h"

#include "form/control_table.h"
#include "form/registry.h"
#include "form/vorlane.h"
#include "store/file_commands.h"
#include "system/text.h"

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
  Focus_At_Start(vForm);
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
