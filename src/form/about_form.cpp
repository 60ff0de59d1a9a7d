#include "form/about_form.h"

#include "form/registry.h"

About_Form::About_Form(Vorlane& main) : Main(main) {
  Bind_Controls(*this, window::About, {{window::About, static_cast<Form_Window*>(this)}, {"Img1", &Img1}});
  Img1.Picture = About_Picture();
  // No border and no title bar: the outer size is the client area.
  const Rect client = controls::Window_Row(window::About).Place;
  Width = client.Width;
  Height = client.Height;
}
