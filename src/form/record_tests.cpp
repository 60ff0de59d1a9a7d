#include "form/record_tests.h"

#include <string>

#include "form/vorlane.h"

void Record_Exsist(Vorlane& vForm) {
  bool all_zero = true;
  for (int n = 1; n <= 32 && all_zero; ++n) {
    const std::string& caption = vForm.L(n).Caption;
    all_zero = caption.size() == 2 && caption[0] == '0' && caption[1] == '0';
  }
  vForm.Work_Text_2 = all_zero ? "error" : "ok";
}

void Record_Exsist_1(Vorlane& vForm) {
  bool any_empty = false;
  for (int n = 1; n <= 32 && !any_empty; ++n) any_empty = vForm.L(n).Caption.empty();
  vForm.Work_Text_2 = any_empty ? "error" : "ok";
}

void All_L_Color_Back(Vorlane& vForm) {
  vForm.Work_Text = vForm.Color_Normal;
  const std::int32_t colour = colour::From_Text(vForm.Work_Text);
  for (int n = 1; n <= 32; ++n) vForm.L(n).BackColor = colour;
}

void L_All_Cls(Vorlane& vForm) {
  for (int n = 1; n <= 32; ++n) vForm.L(n).Caption.clear();
}

void Move_L(Vorlane& vForm) {
  if (vForm.SBar_1.SimpleText.empty() || vForm.Slider.Value == 0) {
    vForm.Work_Text = "error";
    return;
  }
  Record_Exsist_1(vForm);
  vForm.Work_Text = vForm.Work_Text_2 == "error" ? "error" : "ok";
}
