// The About window: one picture on an elliptic window above all others, gone at the first
// click or character key.
#pragma once

#include "form/about_form.h"

void nAbout_Click(Vorlane& vForm);
void About_Load(About_Form& vForm);
// Any key that produces a character.
void About_KeyPress(About_Form& vForm, int key_ascii);
void Img1_Click(About_Form& vForm);
void E_nd(About_Form& vForm);
