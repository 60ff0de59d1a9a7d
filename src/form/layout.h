// Where the controls stand and what the menus hold. Lengths are twips (15 to a pixel), left,
// top, width, height within the client area of the window (or the frame named as parent).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "form/controls.h"
#include "form/platform.h"

struct Geometry {
  std::string_view Name;
  std::int32_t Left, Top, Width, Height;
};

namespace layout {

constexpr std::int32_t Twips_Per_Pixel = 15;

// The main window.
constexpr std::int32_t Main_Client_Width = 8910;
constexpr std::int32_t Main_Client_Height = 6345;
// Every control of the main window but the byte cells, the lines and the file dialog.
std::span<const Geometry> Main_Controls();
// Byte cell n, 1 .. 32.
Geometry Cell(int n);
// Line1 and Line2 run from (0, 800) to (9000, 800); Line1 is 2 pixels wide.
constexpr std::int32_t Line_Y = 800;
constexpr std::int32_t Line_X2 = 9000;

// The Edit window; F_2 and its labels lie within F_1 and F_2 as their parents say.
constexpr std::int32_t Edit_Client_Width = 4185;
constexpr std::int32_t Edit_Client_Height = 3285;
std::span<const Geometry> Edit_Controls();

// The About window and its picture.
constexpr std::int32_t About_Client_Width = 6255;
constexpr std::int32_t About_Client_Height = 5355;
constexpr Geometry About_Image{"Img1", 360, 120, 5115, 5145};

// Finds a control by name in one of the tables above; nullptr when it has none.
const Geometry* Find(std::span<const Geometry> table, std::string_view name);

}  // namespace layout

// One item of the main window's menus. Parent is empty for the items on the bar.
struct Menu_Entry {
  std::string_view Name;
  std::string_view Parent;
  std::string_view Caption;   // "&" marks the access letter, "-" a separator
  std::string_view Shortcut;  // in the portable text form, "Ctrl+O", "F1"
  bool Enabled;
};

namespace layout {
std::span<const Menu_Entry> Main_Menu();
}

namespace Position {
// Centres the window across the screen with a third of the free height above it, by the
// window's outer size.
void Place_Controls(Form_Window& vForm, const Screen_Size& screen);
}  // namespace Position
