#include "form/about_form.h"

#include "form/layout.h"

About_Form::About_Form(Vorlane& main) : Main(main) {
  // No border and no title bar: the outer size is the client area.
  Width = layout::About_Client_Width;
  Height = layout::About_Client_Height;
}
