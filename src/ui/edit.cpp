#include "ui/edit.h"

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fields/byte_help.h"
#include "fields/field_map.h"
#include "form/control_table.h"
#include "form/record_tests.h"
#include "form/registry.h"
#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/hex.h"
#include "store/image.h"
#include "store/number.h"
#include "system/text.h"

namespace {

// A double has no room for a whole part of more digits than this.
constexpr std::size_t Max_Whole_Digits = 308;

const char* const Warning_Title = "EDIT";

// The failure road of the window: the message of the code, then the window closes and the
// working copy is lost. The form is gone afterwards; the caller must return at once.
void Fail(Edit_Form& vForm, const char* code) {
  Vorlane& main = vForm.Main;
  Show_Error(main.platform, vForm.Edit_Text, code, msgbox::Critical, "ERROR");
  Unload_Edit(main);
}

// The row of the field list that is selected, or none.
const Edit_Row* Selected_Row(const Edit_Form& vForm) {
  const auto rows = fields::Edit_Rows();
  const int index = vForm.List.ListIndex;
  if (index < 0 || index >= static_cast<int>(rows.size())) return nullptr;
  return &rows[static_cast<std::size_t>(index)];
}

// Edit_Text holds a hex pair; afterwards it holds its decimal text, and this is its value.
std::int32_t Decode_Edit_Text(Edit_Form& vForm) {
  Position::Sub_DeCode(vForm.Edit_Text);
  return static_cast<std::int32_t>(std::stol(vForm.Edit_Text));
}

// L_H and L_D show the row's bytes from the working copy: hex in file order, and the value.
void Show_Value(Edit_Form& vForm, const Edit_Row& row) {
  if (row.Width == 2) {
    const std::string& low = vForm.New_Byte(row.First);
    const std::string& high = vForm.New_Byte(row.First + 1);
    vForm.L_H.Caption = low + " " + high;
    vForm.Edit_Text = low;
    vForm.Edit_Value = Decode_Edit_Text(vForm);
    vForm.Edit_Text = high;
    vForm.Edit_Value = Decode_Edit_Text(vForm) * 256 + vForm.Edit_Value;
  } else {
    vForm.L_H.Caption = vForm.New_Byte(row.First);
    vForm.Edit_Text = vForm.L_H.Caption;
    vForm.Edit_Value = Decode_Edit_Text(vForm);
  }
  vForm.L_D.Caption = std::to_string(vForm.Edit_Value);
}

// Digits of the whole part of a number's text, leading zeros not counted.
std::size_t Whole_Digits(std::string_view text) {
  std::size_t i = text.find_first_not_of(" +-");
  if (i == std::string_view::npos) return 0;
  while (i < text.size() && text[i] == '0') ++i;
  std::size_t digits = 0;
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i, ++digits;
  return digits;
}

// Txt_1 read as a floating-point number through Edit_Text; nothing when it is no number or
// too long for one.
std::optional<double> Read_Txt_1(Edit_Form& vForm) {
  vForm.Edit_Text = vForm.Txt_1.Text;
  if (Whole_Digits(vForm.Edit_Text) > Max_Whole_Digits) return std::nullopt;
  return number::Read(vForm.Edit_Text);
}

// The shared steps of both option buttons. Encode gives empty text over the limit (a negative
// or fractional number counts as over it too). The window may be gone afterwards.
void Encode_Txt_1(Edit_Form& vForm, std::string (*encode)(double), bool beep_over_limit) {
  if (vForm.Txt_1.Text.empty()) {
    vForm.Main.platform.Beep();
  } else {
    const std::optional<double> number = Read_Txt_1(vForm);
    if (!number) {
      Fail(vForm, "1");
      return;
    }
    vForm.Edit_Text = encode(*number);
    if (vForm.Edit_Text.empty() && beep_over_limit) vForm.Main.platform.Beep();
    vForm.Txt_4.Text = vForm.Edit_Text;
  }
  // Both buttons are momentary: they never show a state.
  vForm.O_1.Value = false;
  vForm.O_2.Value = false;
}

void Warn(Edit_Form& vForm, const char* text) { vForm.Main.platform.MsgBox(text, msgbox::Warning, Warning_Title); }

}  // namespace

void Dbl_Click_All_L(Vorlane& vForm) {
  Move_L(vForm);
  if (vForm.Work_Text != "ok") return;
  vForm.Enabled = false;
  vForm.Edit = std::make_unique<Edit_Form>(vForm);
  Edit_Load(*vForm.Edit);
}

void nEdit_Click(Vorlane& vForm) { Dbl_Click_All_L(vForm); }

void Edit_Load(Edit_Form& vForm) {
  Position::Place_Controls(vForm, vForm.Main.platform.Screen());
  vForm.Caption = "EDIT " + vForm.Main.L_NLine.Caption;
  vForm.List.Clear();
  for (const Edit_Row& row : fields::Edit_Rows()) vForm.List.AddItem(std::string(row.Text));
  Old_Data(vForm);
  Focus_At_Start(vForm);
}

void Edit_List_Click(Edit_Form& vForm) {
  const Edit_Row* row = Selected_Row(vForm);
  if (row == nullptr) return;
  try {
    Show_Value(vForm, *row);
    vForm.Edit_Text = std::string(row->Help_Key);
    Position::Byte_Help(vForm.Edit_Text);
    vForm.Main.Help.Caption = vForm.Edit_Text;
    vForm.SetFocus("Txt_1");
    vForm.O_1.Value = false;
    vForm.O_2.Value = false;
  } catch (const std::exception&) {
    Fail(vForm, "2");
  }
}

void Txt_1_GotFocus(Edit_Form& vForm) {
  if (vForm.Txt_1.Text.empty()) return;
  vForm.Txt_1.SelStart = 0;
  vForm.Txt_1.SelLength = static_cast<int>(text::Length(vForm.Txt_1.Text));
}

int Only_Num(int key_ascii) {
  static const std::string allowed = std::string("1234567890") + '\b';
  if (key_ascii <= 0 || key_ascii > 255) return 0;
  return allowed.find(static_cast<char>(key_ascii)) != std::string::npos ? key_ascii : 0;
}

void Txt_1_KeyPress(Edit_Form&, int& key_ascii) { key_ascii = Only_Num(key_ascii); }

void O_1_Click(Edit_Form& vForm) { Encode_Txt_1(vForm, hex::Encode_Byte, true); }

void O_2_Click(Edit_Form& vForm) { Encode_Txt_1(vForm, hex::Encode_Word, false); }

void ComApply_Click(Edit_Form& vForm) {
  if (vForm.Txt_4.Text.empty()) {
    vForm.Main.platform.Beep();
    return;
  }
  const Edit_Row* row = Selected_Row(vForm);
  if (row == nullptr) return;
  try {
    // The one check: the encoding must have the width of the field.
    const std::size_t length = text::Length(vForm.Txt_4.Text);
    if (row->Width == 2) {
      if (length != 5) {
        Warn(vForm, "Can`t overwrite current Word as Byte");
        return;
      }
      // Already in file order: low byte first.
      vForm.New_Byte(row->First) = text::Left(vForm.Txt_4.Text, 2);
      vForm.New_Byte(row->First + 1) = text::Right(vForm.Txt_4.Text, 2);
    } else {
      if (length != 2) {
        Warn(vForm, "Can`t overwrite current Byte as Word");
        return;
      }
      vForm.New_Byte(row->First) = vForm.Txt_4.Text;
    }
    Show_Value(vForm, *row);
  } catch (const std::exception&) {
    Fail(vForm, "2");
  }
}

void ComOK_Click(Edit_Form& vForm) {
  Vorlane& main = vForm.Main;
  for (int n = 1; n <= 32; ++n) main.L(n).Caption = vForm.New_Byte(n);
  main.Enabled = true;
  Read_From_File(main);
  Unload_Edit(main);
}

void ComCl_Click(Edit_Form& vForm) {
  Vorlane& main = vForm.Main;
  for (int n = 1; n <= 32; ++n) main.L(n).Caption = vForm.Old_Byte(n);
  main.Enabled = true;
  Unload_Edit(main);
}

void Old_Data(Edit_Form& vForm) {
  for (int n = 1; n <= 32; ++n) vForm.Old_Byte(n) = vForm.Main.L(n).Caption;
  for (int n = 1; n <= 32; ++n) vForm.New_Byte(n) = vForm.Old_Byte(n);
}

void Unload_Edit(Vorlane& main) {
  main.Enabled = true;
  main.SetFocus("Slider");
  main.Edit.reset();
}
