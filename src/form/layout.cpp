#include "form/layout.h"

#include <array>
#include <cmath>

namespace layout {
namespace {

constexpr std::array<Geometry, 19> main_controls{{
    {"Slider", -85, 0, 9100, 430},         {"L_Info_Line", 100, 500, 7000, 250}, {"L_NLine", 6850, 500, 2000, 250},
    {"L_Info_User", 105, 1240, 7500, 240}, {"L_NByte", 7710, 1240, 1140, 240},   {"Help", 0, 1560, 8890, 1455},
    {"List", 0, 3010, 4500, 2985},         {"L_Edt", 4500, 3015, 4395, 2625},    {"Check", 4560, 5700, 250, 250},
    {"L_Fix", 4800, 5730, 1995, 255},      {"L_Fix_1", 7560, 5730, 345, 255},    {"L_Message", 7800, 5730, 405, 255},
    {"Com1", 8020, 5680, 370, 300},        {"Com2", 8480, 5680, 370, 300},       {"SBar_1", 0, 5990, 900, 360},
    {"SBar_2", 900, 5990, 5600, 360},      {"SBar_3", 6500, 5990, 2415, 360},    {"ComExit", 120, 5640, 195, 195},
    {"Txt_Free", 480, 480, 150, 285},
}};

// Left and width of each byte cell; all have top 950 and height 200. The cells of a two-byte
// field touch, and stand apart from the next field.
constexpr std::array<std::array<std::int32_t, 2>, 32> cells{{
    {180, 260},  {440, 200},  {720, 260},  {980, 200},  {1260, 260}, {1520, 200}, {1800, 260}, {2060, 200},
    {2340, 200}, {2610, 200}, {2880, 200}, {3150, 200}, {3420, 200}, {3690, 200}, {3960, 200}, {4230, 200},
    {4500, 200}, {4770, 200}, {5040, 200}, {5310, 200}, {5580, 260}, {5840, 200}, {6120, 260}, {6380, 200},
    {6660, 260}, {6920, 200}, {7200, 260}, {7450, 200}, {7740, 260}, {8000, 260}, {8240, 260}, {8480, 200},
}};

constexpr std::array<std::string_view, 32> cell_names{"L_1",  "L_2",  "L_3",  "L_4",  "L_5",  "L_6",  "L_7",  "L_8",
                                                      "L_9",  "L_10", "L_11", "L_12", "L_13", "L_14", "L_15", "L_16",
                                                      "L_17", "L_18", "L_19", "L_20", "L_21", "L_22", "L_23", "L_24",
                                                      "L_25", "L_26", "L_27", "L_28", "L_29", "L_30", "L_31", "L_32"};

constexpr std::array<Geometry, 15> edit_controls{{
    {"F_1", 120, 0, 3975, 2775},
    {"List", 240, 240, 1215, 2400},
    {"F_2", 1440, 120, 2415, 735},  // within F_1
    {"L_1", 120, 360, 375, 255},    // within F_2
    {"L_H", 480, 360, 615, 255},    // within F_2
    {"L_2", 1200, 360, 375, 255},   // within F_2
    {"L_D", 1560, 360, 735, 255},   // within F_2
    {"F_3", 1560, 960, 2415, 1695},
    {"Txt_1", 1680, 1320, 975, 285},
    {"Txt_4", 2880, 1320, 975, 285},
    {"O_2", 1680, 1920, 2175, 195},
    {"O_1", 1680, 2280, 1335, 255},
    {"ComApply", 3000, 2280, 855, 315},
    {"ComOK", 360, 2880, 1215, 315},
    {"ComCl", 2520, 2880, 1215, 315},
}};

// The seven lists carry Ctrl with the function keys in an unbroken rising run, from Ctrl+F1.
constexpr std::array<Menu_Entry, 24> main_menu{{
    {"nFile", "", "&File", "", true},
    {"nOpen", "nFile", "Open...", "Ctrl+O", true},
    {"nNew", "nFile", "New", "Ctrl+N", true},
    {"nSave", "nFile", "Save", "Ctrl+S", false},
    {"nSaveas", "nFile", "Save as", "Ctrl+L", false},
    {"n1", "nFile", "-", "", true},
    {"nExit", "nFile", "Exit", "Ctrl+X", true},
    {"nView", "", "&View", "", true},
    {"nKey_2", "nView", "Show Action codes", "Ctrl+F1", true},
    {"nKey_1", "nView", "Show Input codes", "Ctrl+F2", true},
    {"nItem", "nView", "Show Items", "Ctrl+F3", true},
    {"nNPC_Names", "nView", "Show NPC Names", "Ctrl+F4", true},
    {"nQests", "nView", "Show Quests(give)", "Ctrl+F5", true},
    {"nQuests", "nView", "Show Quests(take)", "Ctrl+F6", true},
    {"nTrigers", "nView", "Show Trigers", "Ctrl+F7", true},
    {"nTools", "", "&Tools", "", true},
    {"nEdit", "nTools", "Edit", "Ctrl+E", false},
    {"nType", "nTools", "Type", "", true},
    {"nCurrent", "nType", "Current", "F1", true},
    {"nChaing", "nType", "Change", "F2", true},
    {"nRecord", "", "&Record", "", true},
    {"nNext", "nRecord", "", "", true},  // captions set at start-up
    {"nBack", "nRecord", "", "", true},
    {"nAbout", "", "&About", "", true},
}};

}  // namespace

std::span<const Geometry> Main_Controls() { return main_controls; }

Geometry Cell(int n) {
  const auto i = static_cast<std::size_t>(n - 1);
  return {cell_names[i], cells[i][0], 950, cells[i][1], 200};
}

std::span<const Geometry> Edit_Controls() { return edit_controls; }

const Geometry* Find(std::span<const Geometry> table, std::string_view name) {
  for (const auto& g : table)
    if (g.Name == name) return &g;
  return nullptr;
}

std::span<const Menu_Entry> Main_Menu() { return main_menu; }

}  // namespace layout

namespace Position {

void Place_Controls(Form_Window& vForm, const Screen_Size& screen) {
  const auto top = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Height) - vForm.Height)) / 3;
  const auto left = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Width) - vForm.Width)) / 2;
  vForm.Left = left;
  vForm.Top = top;
}

}  // namespace Position
