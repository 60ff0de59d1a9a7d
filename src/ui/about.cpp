#include "ui/about.h"

#include <memory>

#include "form/control_table.h"
#include "form/registry.h"
#include "form/vorlane.h"

void nAbout_Click(Vorlane& vForm) {
  vForm.About = std::make_unique<About_Form>(vForm);
  About_Load(*vForm.About);
}

// The elliptic region and the topmost flag are the window row's: the front end sets them.
void About_Load(About_Form& vForm) {
  Position::Place_Controls(vForm, vForm.Main.platform.Screen());
  vForm.Main.Enabled = false;
  Focus_At_Start(vForm);
}

void About_KeyPress(About_Form& vForm, int key_ascii) {
  if (key_ascii > 0) E_nd(vForm);
}

void Img1_Click(About_Form& vForm) { E_nd(vForm); }

// The form is destroyed at the end: nothing may touch it afterwards.
void E_nd(About_Form& vForm) {
  Vorlane& main = vForm.Main;
  main.Enabled = true;
  main.SetFocus("Slider");
  main.About.reset();
}
