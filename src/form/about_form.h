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

  Image Img1;
};

// The picture of Img1, stored with the window: a GIF of 341 x 343 pixels with 8 colours.
std::span<const std::uint8_t> About_Picture();
