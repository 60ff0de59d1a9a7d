#include "form/edit_form.h"

#include "form/registry.h"

namespace {

// The outer size of a fixed dialog window: a frame of 3 pixels on each side and a title bar of
// 19 pixels around the client area, at 15 twips a pixel. The front end corrects it to the frame
// its system draws.
constexpr std::int32_t Frame_Across = 2 * 3 * 15;
constexpr std::int32_t Frame_Down = (19 + 2 * 3) * 15;

}  // namespace

Edit_Form::Edit_Form(Vorlane& main) : Main(main) {
  Bind_Controls(*this, window::Edit,
                {{window::Edit, static_cast<Form_Window*>(this)},
                 {"F_1", &F_1},
                 {"List", &List},
                 {"F_2", &F_2},
                 {"L_1", &L_1},
                 {"L_H", &L_H},
                 {"L_2", &L_2},
                 {"L_D", &L_D},
                 {"F_3", &F_3},
                 {"Txt_1", &Txt_1},
                 {"Txt_4", &Txt_4},
                 {"O_2", &O_2},
                 {"O_1", &O_1},
                 {"ComApply", &ComApply},
                 {"ComOK", &ComOK},
                 {"ComCl", &ComCl}});
  const Rect client = controls::Window_Row(window::Edit).Place;
  Width = client.Width + Frame_Across;
  Height = client.Height + Frame_Down;
}
