#include "ui/navigation.h"

#include <string>

#include "form/events.h"
#include "form/record_tests.h"
#include "form/vorlane.h"
#include "store/image.h"
#include "ui/byte_grid.h"

void Slider_Change(Vorlane& vForm) {
  const int value = vForm.Slider.Value;
  vForm.L_NLine.Caption = "Record #" + std::to_string(value);
  if (vForm.SBar_2.SimpleText.empty()) return;
  Read_From_File(vForm);
  vForm.Current_Record = static_cast<std::int16_t>(value);
  Record_Exsist_1(vForm);
  if (value == 0) {
    All_L_Color_Back(vForm);
    L_All_Cls(vForm);
    vForm.nEdit.Enabled = false;
    vForm.L_Info_User.Caption.clear();
    vForm.L_NByte.Caption = "Byte 0";
    vForm.Selected_Field.clear();
    return;
  }
  if (vForm.Work_Text_2 == "error") {
    vForm.nEdit.Enabled = false;
    vForm.L_Info_User.Caption = "Record no exist";
    vForm.L_NByte.Caption = "Byte 0";
    vForm.Selected_Field.clear();
    All_L_Color_Back(vForm);
    return;
  }
  if (!Renew_Lit_Field(vForm)) vForm.nEdit.Enabled = true;
}

void Slider_MouseMove(Vorlane& vForm) {
  if (!vForm.SBar_1.SimpleText.empty()) vForm.L_Info_Line.Caption = "Choose record (50 lines X 32 bytes)";
}

void nNext_Click(Vorlane& vForm) {
  if (vForm.Slider.Value < 50)
    Slider_Set_Value(vForm, vForm.Slider.Value + 1);
  else
    vForm.platform.Beep();
}

void nBack_Click(Vorlane& vForm) {
  if (vForm.Slider.Value > 0)
    Slider_Set_Value(vForm, vForm.Slider.Value - 1);
  else
    vForm.platform.Beep();
}

void Form_KeyUp(Vorlane& vForm, int key_code) {
  if (key_code == key::Keypad_Plus)
    nNext_Click(vForm);
  else if (key_code == key::Keypad_Minus)
    nBack_Click(vForm);
}
