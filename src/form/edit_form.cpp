#include "form/edit_form.h"

#include "form/layout.h"

namespace {

// The outer size of a fixed dialog window: a frame of 3 pixels on each side and a title bar of
// 19 pixels around the client area. The binding may correct it to the frame its system draws.
constexpr std::int32_t Frame_Across = 2 * 3 * layout::Twips_Per_Pixel;
constexpr std::int32_t Frame_Down = (19 + 2 * 3) * layout::Twips_Per_Pixel;

}  // namespace

Edit_Form::Edit_Form(Vorlane& main) : Main(main) {
  Width = layout::Edit_Client_Width + Frame_Across;
  Height = layout::Edit_Client_Height + Frame_Down;
  F_1.Caption = "Select byte";
  F_2.Caption = "Current";
  L_1.Caption = "Hex";
  L_2.Caption = "Dec";
  F_3.Caption = "Encode number as";
  O_2.Caption = "&Word (Max. 65535)";
  O_1.Caption = "&Byte (255)";
  ComApply.Caption = "&Overwrite";
  ComOK.Caption = "&Apply";
  ComCl.Caption = "Cancel";
}
