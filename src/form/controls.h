// The controls of a window as plain models. The controls are the state: a label's caption holds
// a byte, its back colour the state of the field, a status bar's text whether a file is open.
// The Qt binding renders these into widgets and reports the user's input back into them.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// The names of the three windows, as the routing table and the control table know them.
namespace window {
inline constexpr std::string_view Main = "Vorlane";
inline constexpr std::string_view Edit = "Edit";
inline constexpr std::string_view About = "About";
}  // namespace window

namespace colour {

// 0x00BBGGRR for a plain colour, 0x80000000 plus an index for a colour of the system's scheme.
constexpr std::int32_t System(int index) {
  return static_cast<std::int32_t>(0x80000000u + static_cast<unsigned>(index));
}

constexpr std::int32_t Active_Title_Bar = System(2);
constexpr std::int32_t Window_Background = System(5);
constexpr std::int32_t Window_Text = System(8);
constexpr std::int32_t Active_Title_Text = System(9);
constexpr std::int32_t Active_Border = System(10);
constexpr std::int32_t Button_Face = System(15);
constexpr std::int32_t Button_Text = System(18);
constexpr std::int32_t Light_3D = System(22);
constexpr std::int32_t Pale_Yellow = 0x80FFFF;

// The colour variables hold decimal text ("-2147483633"); this is their number.
// The grid asks it twice a field at every change of record: the plain form, a sign and up to 18
// digits, is read without strtol, to the same number.
inline std::int32_t From_Text(const std::string& decimal) {
  const std::size_t sign = !decimal.empty() && decimal[0] == '-' ? 1 : 0;
  const std::size_t digits = decimal.size() - sign;
  long value = 0;
  for (std::size_t i = sign; i < decimal.size() && digits <= 18; ++i) {
    if (decimal[i] < '0' || decimal[i] > '9') return static_cast<std::int32_t>(std::strtol(decimal.c_str(), nullptr, 10));
    value = value * 10 + (decimal[i] - '0');
  }
  if (digits == 0 || digits > 18) return static_cast<std::int32_t>(std::strtol(decimal.c_str(), nullptr, 10));
  return static_cast<std::int32_t>(sign ? -value : value);
}

}  // namespace colour

struct Label {
  std::string Caption;
  std::int32_t BackColor = colour::Button_Face;
  std::string ToolTipText;
};

struct Status_Bar {
  std::string SimpleText;
  std::string ToolTipText;
};

struct Text_Box {
  std::string Text;
  int SelStart = 0;
  int SelLength = 0;
};

struct Button {
  std::string Caption;
  bool Enabled = true;
};

// Value is written through the window's setter, which raises the click event.
struct Check_Box {
  int Value = 0;
  bool Enabled = true;
};

struct Option_Button {
  std::string Caption;
  bool Value = false;
};

struct Frame {
  std::string Caption;
};

// A drawn line; it has no state, only its place.
struct Line {};

// A picture, stored with the window.
struct Image {
  std::span<const std::uint8_t> Picture;  // the bytes of a GIF
};

struct Menu_Item {
  std::string Caption;
  bool Enabled = true;
};

struct List_Box {
  std::vector<std::string> Items;
  int ListIndex = -1;
  std::string ToolTipText;
  // Raised on every change of Items, so that a view can tell a refill without comparing lines.
  unsigned Revision = 0;

  void AddItem(std::string item) {
    Items.push_back(std::move(item));
    ++Revision;
  }
  void Clear() {
    Items.clear();
    ListIndex = -1;
    ++Revision;
  }
};

// Value is written through the window's setter, which raises the change event.
struct Slider_Control {
  int Value = 0;
  int Min = 0;
  int Max = 50;
  int SmallChange = 1;
  int LargeChange = 1;
};

// The common file dialog. Filter holds description|pattern pairs separated by "|".
namespace dialog_flag {
constexpr int Overwrite_Prompt = 0x2;
constexpr int Hide_Read_Only = 0x4;
constexpr int File_Must_Exist = 0x1000;
constexpr int Open = File_Must_Exist | Hide_Read_Only;   // 4100
constexpr int Save = Overwrite_Prompt | Hide_Read_Only;  // 6
}  // namespace dialog_flag

struct Common_Dialog {
  std::string FileName;
  std::string FileTitle;
  std::string Filter;
  int FilterIndex = 0;
  int Flags = 0;
  std::string DialogTitle;
};

struct Form_Window;

// A control of a window object, as the control table names it: the model it holds its state in.
using Model = std::variant<std::monostate, Form_Window*, Label*, Button*, Option_Button*, Check_Box*, Text_Box*,
                           List_Box*, Slider_Control*, Status_Bar*, Frame*, Line*, Image*, Menu_Item*>;

// What every window has: its title, whether it takes input, its outer place and size in twips,
// and the control that should hold the focus (a request the view carries out once per serial).
struct Form_Window {
  std::string Caption;
  bool Enabled = true;
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::string Focus;
  unsigned Focus_Serial = 0;

  void SetFocus(std::string control) {
    Focus = std::move(control);
    ++Focus_Serial;
  }

  // The window's name in the control table, and the models of its controls, the window itself
  // first, in the order of its rows there.
  std::string_view Name;
  std::vector<Model> Models;
  // The model of the control of this name; empty for a name the window doesn't have.
  Model Control(std::string_view name) const;

  // A double click comes as press, release, double click, release: the release after it is no
  // click of its own.
  bool After_Double_Click = false;
};
