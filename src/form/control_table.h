// Every control of the three windows, described whole: kind, place, caption at start, alignment,
// border, font, colours, tab order, the cancel button, visibility, state at start, what assistive
// technology reads, z-order, and for the menus their shortcuts. The window rows carry the
// windows' own styles. The window objects take their state at start from here, and each front
// end builds its widgets with one loop over these rows; no front end names a control, a caption,
// a colour or a rectangle of its own.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "form/controls.h"
#include "form/platform.h"

enum class Control_Kind {
  Window,
  Label,
  Button,
  Option_Button,
  Check_Box,
  Text_Box,
  List_Box,
  Slider,
  Status_Panel,
  Frame,
  Line,
  Image,
  Menu_Item,
};

// Where a caption stands across its control.
enum class Align { Left, Right, Center };

// A font. An empty face is the font of the window the control lies in.
struct Control_Font {
  std::string_view Face{};
  int Size_Hundredths = 0;  // points, in hundredths: 825 is 8.25 points
  int Weight = 0;           // 700 is bold; 0 the ordinary weight
  int Charset = 0;          // 204 is Cyrillic
};

// Left, top, width and height in twips, within the parent's client area. A line runs from
// (Left, Top) to (Left + Width, Top + Height).
struct Rect {
  std::int32_t Left, Top, Width, Height;
};

// The styles of a window row.
namespace window_style {
constexpr unsigned Fixed_Border = 0x1;     // a single border the user can't drag: no resizing
constexpr unsigned Minimize_Button = 0x2;  // the title bar offers to minimise it
constexpr unsigned No_Border = 0x4;        // neither border nor title bar
constexpr unsigned Topmost = 0x8;          // above all windows that aren't
constexpr unsigned Owned = 0x10;           // no task-bar entry of its own: it belongs to the main window
constexpr unsigned Key_Preview = 0x20;     // the window sees key-up events before its controls do
}  // namespace window_style

struct Control {
  std::string_view Window{};  // window::Main, window::Edit or window::About
  std::string_view Name{};    // the control's name; a window row carries the window's name
  Control_Kind Kind = Control_Kind::Label;
  // The frame the rectangle is measured in, or the menu an item belongs to; empty for the window.
  std::string_view Parent{};
  Rect Place{};                // a window row: the size of its client area
  std::string_view Caption{};  // at start: a label's, button's, frame's, window's or menu item's caption
  Align Alignment = Align::Left;
  bool Border = false;  // a fixed single border round a label
  bool Wrap = false;    // a label's text breaks into lines at its right edge
  Control_Font Font{};
  std::int32_t BackColor = colour::Button_Face;
  std::int32_t ForeColor = colour::Button_Text;  // also the colour of a line
  int Line_Width = 1;                            // pixels
  int Tab_Index = -1;                            // the order of the focus; -1 takes no focus
  bool Cancel = false;                           // Esc anywhere in the window presses it
  bool Default = false;                          // Enter presses it
  bool Visible = true;
  bool Enabled = true;
  bool Locked = false;                      // a text box only the program writes
  std::string_view Accessible_Name{};         // empty: what the control shows is its name
  std::string_view Accessible_Description{};  // what assistive technology says of it besides
  int Z_Order = 0;                          // siblings with a lower number lie below; table order within one
  std::string_view Shortcut{};                // a menu item's keys, "Ctrl+O", "F1"
  int Min = 0, Max = 0, Small_Change = 0, Large_Change = 0;  // a slider
  unsigned Styles = 0;                                       // a window row: window_style
  Rect Ellipse{};            // a window row: where it is cut to an ellipse, from its top left corner; empty for none
  std::string_view Focus{};  // a window row: the control that has the focus at start (the window itself: its name)
};

// The text of the table, src/form/controls.txt, as the build compiles it in.
std::string_view Controls_Text();

namespace controls {

// Every row: for each window its window row first, then its controls in the order they are made.
std::span<const Control> All();
// The rows of one window, its window row first.
std::span<const Control> Of(std::string_view window);
// The row of a control; nullptr where the window has none of that name.
const Control* Find(std::string_view window, std::string_view name);
// The window row.
const Control& Window_Row(std::string_view window);
// Byte cell n, 1 .. 32, of the main window.
const Control& Cell(int n);
// The cancel button of a window, nullptr where it has none.
const Control* Cancel_Button(std::string_view window);
// Whether a menu item opens a submenu of its own.
bool Has_Submenu(const Control& item);
// Whether the control is clicked by the mouse's release over it, as a label or a picture is;
// buttons, boxes and the rest click by themselves.
bool Clicked_On_Release(const Control& row);

}  // namespace controls

// The keys of a menu item's shortcut as the system codes them: Ctrl or not, and the key ('O',
// 112 for F1); Key 0 for a text that names no key.
struct Keys {
  bool Ctrl = false;
  int Key = 0;
};
Keys Shortcut_Keys(std::string_view shortcut);

// Lengths of the windows are twips: 1440 to an inch, so 15 to a pixel at 96 dots per inch.
constexpr int To_Pixels(std::int32_t twips, int dots_per_inch) {
  return static_cast<int>(static_cast<std::int64_t>(twips) * dots_per_inch / 1440);
}
constexpr std::int32_t To_Twips(int pixels, int dots_per_inch) {
  return static_cast<std::int32_t>(static_cast<std::int64_t>(pixels) * 1440 / dots_per_inch);
}

// The colour that text is drawn in on this back colour: the title bar's own text colour on the
// colour of an active title bar, the control's text colour on any other.
std::int32_t Text_Colour(std::int32_t back, std::int32_t fore);

namespace Position {
// Centres the window across the screen with a third of the free height above it, by the
// window's outer size.
void Place_Controls(Form_Window& vForm, const Screen_Size& screen);
}  // namespace Position
