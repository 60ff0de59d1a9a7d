#include "form/control_table.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// The font of every window, and the bold one of the main window's explanation.
constexpr Control_Font Window_Font{"MS Sans Serif", 825, 400, 0};
constexpr Control_Font Bold_Cyrillic{"MS Sans Serif", 825, 700, 204};

// Left and width of each byte cell; all have top 950 and height 200. The cells of a two-byte
// field touch, and stand apart from the next field.
constexpr std::array<std::array<std::int32_t, 2>, 32> Cells{{
    {180, 260},  {440, 200},  {720, 260},  {980, 200},  {1260, 260}, {1520, 200}, {1800, 260}, {2060, 200},
    {2340, 200}, {2610, 200}, {2880, 200}, {3150, 200}, {3420, 200}, {3690, 200}, {3960, 200}, {4230, 200},
    {4500, 200}, {4770, 200}, {5040, 200}, {5310, 200}, {5580, 260}, {5840, 200}, {6120, 260}, {6380, 200},
    {6660, 260}, {6920, 200}, {7200, 260}, {7450, 200}, {7740, 260}, {8000, 260}, {8240, 260}, {8480, 200},
}};

using window::Main;

std::vector<Control> Make_Main() {
  static const auto names = [] {
    std::array<std::pair<std::string, std::string>, 32> texts;
    for (int n = 1; n <= 32; ++n) texts[n - 1] = {"L_" + std::to_string(n), "Byte " + std::to_string(n)};
    return texts;
  }();
  std::vector<Control> rows{
      {.Window = Main,
       .Name = Main,
       .Kind = Control_Kind::Window,
       .Place = {0, 0, 8910, 6345},
       .Caption = "Vorlane",
       .Font = Window_Font,
       .Styles = window_style::Fixed_Border | window_style::Minimize_Button | window_style::Key_Preview,
       .Focus = "Slider"},
      {.Window = Main,
       .Name = "Slider",
       .Kind = Control_Kind::Slider,
       .Place = {-85, 0, 9100, 430},
       .Tab_Index = 0,
       .Accessible_Name = "Record",
       .Min = 0,
       .Max = 50,
       .Small_Change = 1,
       .Large_Change = 1},
      {.Window = Main, .Name = "L_Info_Line", .Place = {100, 500, 7000, 250}},
      {.Window = Main,
       .Name = "L_NLine",
       .Place = {6850, 500, 2000, 250},
       .Caption = "Record #0",
       .Alignment = Align::Right},
      {.Window = Main,
       .Name = "Line1",
       .Kind = Control_Kind::Line,
       .Place = {0, 800, 9000, 0},
       .ForeColor = 0x00008080,
       .Line_Width = 2},
      {.Window = Main,
       .Name = "Line2",
       .Kind = Control_Kind::Line,
       .Place = {0, 800, 9000, 0},
       .ForeColor = colour::Window_Background},
  };
  for (int n = 1; n <= 32; ++n) {
    const auto& [name, description] = names[n - 1];
    const auto [left, width] = Cells[n - 1];
    rows.push_back({.Window = Main,
                    .Name = name,
                    .Place = {left, 950, width, 200},
                    .Alignment = Align::Center,
                    .Accessible_Description = description});
  }
  const std::vector<Control> rest{
      {.Window = Main, .Name = "L_Info_User", .Place = {105, 1240, 7500, 240}, .Font = Bold_Cyrillic},
      {.Window = Main,
       .Name = "L_NByte",
       .Place = {7710, 1240, 1140, 240},
       .Caption = "Byte 0",
       .Alignment = Align::Right},
      {.Window = Main,
       .Name = "Help",
       .Place = {0, 1560, 8890, 1455},
       .Border = true,
       .Wrap = true,
       .BackColor = colour::Light_3D},
      // ComExit lies under List, whose rectangle covers it: never seen, pressed by Esc.
      {.Window = Main,
       .Name = "ComExit",
       .Kind = Control_Kind::Button,
       .Place = {120, 5640, 195, 195},
       .Tab_Index = 5,
       .Cancel = true,
       .Accessible_Name = "Exit",
       .Z_Order = -1},
      {.Window = Main,
       .Name = "List",
       .Kind = Control_Kind::List_Box,
       .Place = {0, 3010, 4500, 2985},
       .BackColor = colour::Light_3D,
       .Tab_Index = 1,
       .Accessible_Name = "List"},
      {.Window = Main,
       .Name = "L_Edt",
       .Place = {4500, 3015, 4395, 2625},
       .Border = true,
       .Wrap = true,
       .BackColor = colour::Light_3D},
      {.Window = Main,
       .Name = "Check",
       .Kind = Control_Kind::Check_Box,
       .Place = {4560, 5700, 250, 250},
       .BackColor = colour::Active_Border,
       .Tab_Index = 2,
       .Enabled = false,
       .Accessible_Name = "Show NPC speech dialogs"},
      {.Window = Main, .Name = "L_Fix", .Place = {4800, 5730, 1995, 255}, .Caption = "Show NPC speech dialogs"},
      {.Window = Main, .Name = "L_Fix_1", .Place = {7560, 5730, 345, 255}, .Caption = "№_"},
      {.Window = Main, .Name = "L_Message", .Place = {7800, 5730, 405, 255}, .Caption = "0"},
      {.Window = Main,
       .Name = "Com1",
       .Kind = Control_Kind::Button,
       .Place = {8020, 5680, 370, 300},
       .Caption = "<<",
       .Tab_Index = 3,
       .Enabled = false,
       .Accessible_Description = "Previous message"},
      {.Window = Main,
       .Name = "Com2",
       .Kind = Control_Kind::Button,
       .Place = {8480, 5680, 370, 300},
       .Caption = ">>",
       .Tab_Index = 4,
       .Enabled = false,
       .Accessible_Description = "Next message"},
      {.Window = Main, .Name = "SBar_1", .Kind = Control_Kind::Status_Panel, .Place = {0, 5990, 900, 360}},
      {.Window = Main, .Name = "SBar_2", .Kind = Control_Kind::Status_Panel, .Place = {900, 5990, 5600, 360}},
      {.Window = Main, .Name = "SBar_3", .Kind = Control_Kind::Status_Panel, .Place = {6500, 5990, 2415, 360}},
      {.Window = Main,
       .Name = "Txt_Free",
       .Kind = Control_Kind::Text_Box,
       .Place = {480, 480, 150, 285},
       .Visible = false},
  };
  rows.insert(rows.end(), rest.begin(), rest.end());

  // The menus, in menu order. The seven lists carry Ctrl with the function keys in an unbroken
  // rising run, from Ctrl+F1. The captions of nNext and nBack are set at start-up.
  struct Item {
    std::string_view Name, Parent, Caption, Shortcut;
    bool Enabled = true;
  };
  constexpr Item menus[] = {
      {"nFile", "", "&File", ""},
      {"nOpen", "nFile", "Open...", "Ctrl+O"},
      {"nNew", "nFile", "New", "Ctrl+N"},
      {"nSave", "nFile", "Save", "Ctrl+S", false},
      {"nSaveas", "nFile", "Save as", "Ctrl+L", false},
      {"n1", "nFile", "-", ""},
      {"nExit", "nFile", "Exit", "Ctrl+X"},
      {"nView", "", "&View", ""},
      {"nKey_2", "nView", "Show Action codes", "Ctrl+F1"},
      {"nKey_1", "nView", "Show Input codes", "Ctrl+F2"},
      {"nItem", "nView", "Show Items", "Ctrl+F3"},
      {"nNPC_Names", "nView", "Show NPC Names", "Ctrl+F4"},
      {"nQests", "nView", "Show Quests(give)", "Ctrl+F5"},
      {"nQuests", "nView", "Show Quests(take)", "Ctrl+F6"},
      {"nTrigers", "nView", "Show Trigers", "Ctrl+F7"},
      {"nTools", "", "&Tools", ""},
      {"nEdit", "nTools", "Edit", "Ctrl+E", false},
      {"nType", "nTools", "Type", ""},
      {"nCurrent", "nType", "Current", "F1"},
      {"nChaing", "nType", "Change", "F2"},
      {"nRecord", "", "&Record", ""},
      {"nNext", "nRecord", "", ""},
      {"nBack", "nRecord", "", ""},
      {"nAbout", "", "&About", ""},
  };
  for (const Item& item : menus)
    rows.push_back({.Window = Main,
                    .Name = item.Name,
                    .Kind = Control_Kind::Menu_Item,
                    .Parent = item.Parent,
                    .Caption = item.Caption,
                    .Enabled = item.Enabled,
                    .Shortcut = item.Shortcut});
  return rows;
}

std::vector<Control> Make_Edit() {
  using window::Edit;
  return {
      {.Window = Edit,
       .Name = Edit,
       .Kind = Control_Kind::Window,
       .Place = {0, 0, 4185, 3285},
       .Font = Window_Font,
       .Styles = window_style::Fixed_Border | window_style::Owned,
       .Focus = "Txt_1"},
      {.Window = Edit,
       .Name = "F_1",
       .Kind = Control_Kind::Frame,
       .Place = {120, 0, 3975, 2775},
       .Caption = "Select byte",
       .Tab_Index = 4,
       .Z_Order = -1},
      {.Window = Edit,
       .Name = "List",
       .Kind = Control_Kind::List_Box,
       .Place = {240, 240, 1215, 2400},
       .BackColor = colour::Window_Background,
       .Tab_Index = 1,
       .Accessible_Name = "Select byte"},
      {.Window = Edit,
       .Name = "F_2",
       .Kind = Control_Kind::Frame,
       .Parent = "F_1",
       .Place = {1440, 120, 2415, 735},
       .Caption = "Current",
       .Tab_Index = 10},
      {.Window = Edit, .Name = "L_1", .Parent = "F_2", .Place = {120, 360, 375, 255}, .Caption = "Hex"},
      {.Window = Edit, .Name = "L_H", .Parent = "F_2", .Place = {480, 360, 615, 255}},
      {.Window = Edit, .Name = "L_2", .Parent = "F_2", .Place = {1200, 360, 375, 255}, .Caption = "Dec"},
      {.Window = Edit, .Name = "L_D", .Parent = "F_2", .Place = {1560, 360, 735, 255}},
      {.Window = Edit,
       .Name = "F_3",
       .Kind = Control_Kind::Frame,
       .Place = {1560, 960, 2415, 1695},
       .Caption = "Encode number as",
       .Tab_Index = 8,
       .Z_Order = -2},
      {.Window = Edit,
       .Name = "Txt_1",
       .Kind = Control_Kind::Text_Box,
       .Place = {1680, 1320, 975, 285},
       .BackColor = colour::Window_Background,
       .ForeColor = colour::Window_Text,
       .Tab_Index = 0,
       .Accessible_Name = "Number"},
      {.Window = Edit,
       .Name = "Txt_4",
       .Kind = Control_Kind::Text_Box,
       .Place = {2880, 1320, 975, 285},
       .BackColor = colour::Light_3D,
       .ForeColor = colour::Window_Text,
       .Tab_Index = 5,
       .Locked = true,
       .Accessible_Name = "Encoded"},
      {.Window = Edit,
       .Name = "O_2",
       .Kind = Control_Kind::Option_Button,
       .Place = {1680, 1920, 2175, 195},
       .Caption = "&Word (Max. 65535)",
       .Tab_Index = 7},
      {.Window = Edit,
       .Name = "O_1",
       .Kind = Control_Kind::Option_Button,
       .Place = {1680, 2280, 1335, 255},
       .Caption = "&Byte (255)",
       .Tab_Index = 6},
      {.Window = Edit,
       .Name = "ComApply",
       .Kind = Control_Kind::Button,
       .Place = {3000, 2280, 855, 315},
       .Caption = "&Overwrite",
       .Tab_Index = 9},
      {.Window = Edit,
       .Name = "ComOK",
       .Kind = Control_Kind::Button,
       .Place = {360, 2880, 1215, 315},
       .Caption = "&Apply",
       .Tab_Index = 2},
      {.Window = Edit,
       .Name = "ComCl",
       .Kind = Control_Kind::Button,
       .Place = {2520, 2880, 1215, 315},
       .Caption = "Cancel",
       .Tab_Index = 3,
       .Cancel = true},
  };
}

std::vector<Control> Make_About() {
  using window::About;
  return {
      {.Window = About,
       .Name = About,
       .Kind = Control_Kind::Window,
       .Place = {0, 0, 6255, 5355},
       .Font = Window_Font,
       .Styles = window_style::No_Border | window_style::Topmost | window_style::Owned,
       // The ellipse of 330 by 325 pixels from (30, 20), at 15 twips a pixel: it lies within the
       // picture, so only the picture is seen, and of it its ring.
       .Ellipse = {450, 300, 4950, 4875},
       .Focus = About},
      {.Window = About,
       .Name = "Img1",
       .Kind = Control_Kind::Image,
       .Place = {360, 120, 5115, 5145},
       .Accessible_Name = "Vorlane"},
  };
}

const std::vector<Control>& Table() {
  static const std::vector<Control> table = [] {
    std::vector<Control> all = Make_Main();
    for (const auto& more : {Make_Edit(), Make_About()}) all.insert(all.end(), more.begin(), more.end());
    return all;
  }();
  return table;
}

}  // namespace

namespace controls {

std::span<const Control> All() { return Table(); }

std::span<const Control> Of(std::string_view window) {
  const std::vector<Control>& table = Table();
  std::size_t first = 0;
  while (first < table.size() && table[first].Window != window) ++first;
  std::size_t last = first;
  while (last < table.size() && table[last].Window == window) ++last;
  return std::span<const Control>(table).subspan(first, last - first);
}

const Control* Find(std::string_view window, std::string_view name) {
  for (const Control& row : Of(window))
    if (row.Name == name) return &row;
  return nullptr;
}

const Control& Window_Row(std::string_view window) { return Of(window).front(); }

const Control& Cell(int n) { return *Find(window::Main, "L_" + std::to_string(n)); }

const Control* Cancel_Button(std::string_view window) {
  for (const Control& row : Of(window))
    if (row.Cancel) return &row;
  return nullptr;
}

bool Has_Submenu(const Control& item) {
  for (const Control& row : Of(item.Window))
    if (row.Kind == Control_Kind::Menu_Item && row.Parent == item.Name) return true;
  return false;
}

}  // namespace controls

Keys Shortcut_Keys(std::string_view shortcut) {
  Keys keys;
  if (shortcut.starts_with("Ctrl+")) {
    keys.Ctrl = true;
    shortcut.remove_prefix(5);
  }
  if (shortcut.size() == 1 && ((shortcut[0] >= 'A' && shortcut[0] <= 'Z') || (shortcut[0] >= '0' && shortcut[0] <= '9'))) {
    keys.Key = shortcut[0];
  } else if (shortcut.size() >= 2 && shortcut.size() <= 3 && shortcut[0] == 'F') {
    const int n = std::atoi(std::string(shortcut.substr(1)).c_str());
    if (n >= 1 && n <= 24) keys.Key = 111 + n;  // F1 is 112
  }
  return keys;
}

std::int32_t Text_Colour(std::int32_t back, std::int32_t fore) {
  return back == colour::Active_Title_Bar ? colour::Active_Title_Text : fore;
}

namespace Position {

void Place_Controls(Form_Window& vForm, const Screen_Size& screen) {
  const auto top = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Height) - vForm.Height)) / 3;
  const auto left = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Width) - vForm.Width)) / 2;
  vForm.Left = left;
  vForm.Top = top;
}

}  // namespace Position
