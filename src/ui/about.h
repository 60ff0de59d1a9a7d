// The About window: one picture on an elliptic window above all others, gone at the first
// click or character key.
#pragma once

#include <cstdint>
#include <span>

#include "ui/controls.h"

struct Vorlane;

struct About_Form : Form_Window {
  explicit About_Form(Vorlane& main);
  Vorlane& Main;
};

// The picture of Img1, stored with the window: a GIF of 341 x 343 pixels with 8 colours.
std::span<const std::uint8_t> About_Picture();

// The region the window is cut to, in pixels from its top left corner: right and bottom
// excluded, as the system's elliptic regions count them.
struct Ellipse_Region {
  int Left = 30, Top = 20, Right = 360, Bottom = 345;
};

void nAbout_Click(Vorlane& vForm);
void About_Load(About_Form& vForm);
// Any key that produces a character.
void About_KeyPress(About_Form& vForm, int key_ascii);
void Img1_Click(About_Form& vForm);
void E_nd(About_Form& vForm);
