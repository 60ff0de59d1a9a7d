#include "ui/byte_grid.h"

#include "fields/byte_help.h"
#include "fields/field_map.h"
#include "form/record_tests.h"
#include "form/vorlane.h"
#include "ui/edit.h"

namespace {

void Paint(Vorlane& vForm, const Field& field, const std::string& colour_variable) {
  const std::int32_t colour = colour::From_Text(colour_variable);
  for (int n = field.First; n <= field.Last(); ++n) vForm.L(n).BackColor = colour;
}

bool Has_Colour(const Vorlane& vForm, int cell, const std::string& colour_variable) {
  return vForm.L(cell).BackColor == colour::From_Text(colour_variable);
}

// The field's caption, its help text and its sentence.
void Show_Field(Vorlane& vForm, const Field& field) {
  vForm.L_NByte.Caption = std::string(field.Caption);
  vForm.Work_Text = vForm.L_NByte.Caption;
  Position::Byte_Help(vForm.Work_Text);
  vForm.Help.Caption = vForm.Work_Text;
  field.Explain(vForm);
}

}  // namespace

void L_MouseMove(Vorlane& vForm, int n) {
  const Field& field = fields::Of_Cell(n);
  Move_L(vForm);
  if (vForm.Work_Text != "ok") return;
  vForm.L_Info_Line.Caption = vForm.Hint_Text;
  if (Has_Colour(vForm, field.First, vForm.Color_Select)) {
    field.Explain(vForm);
    return;
  }
  if (!vForm.Selected_Field.empty()) return;
  All_L_Color_Back(vForm);
  Paint(vForm, field, vForm.Color_Field);
  Show_Field(vForm, field);
}

void L_Click(Vorlane& vForm, int n) {
  const Field& field = fields::Of_Cell(n);
  Move_L(vForm);
  if (vForm.Work_Text != "ok") return;
  if (Has_Colour(vForm, field.First, vForm.Color_Select)) {
    Paint(vForm, field, vForm.Color_Field);
    vForm.Selected_Field.clear();
    return;
  }
  All_L_Color_Back(vForm);
  Paint(vForm, field, vForm.Color_Select);
  Show_Field(vForm, field);
  vForm.Selected_Field = "1";
}

void L_DblClick(Vorlane& vForm, int) { Dbl_Click_All_L(vForm); }

bool Renew_Lit_Field(Vorlane& vForm) {
  const std::int32_t viewed = colour::From_Text(vForm.Color_Field), selected = colour::From_Text(vForm.Color_Select);
  for (const Field& field : fields::All()) {
    const int second = field.Width == 1 ? field.First : field.First + 1;
    if (vForm.L(field.First).BackColor == viewed || vForm.L(second).BackColor == selected) {
      field.Explain(vForm);
      return true;
    }
  }
  return false;
}
