// The About window object: it holds nothing but its place; its picture and the region it is cut
// to are stored with it.
#pragma once

#include <cstdint>
#include <span>

#include "form/controls.h"

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
