// The Edit window object: its controls and the private copy of the 32 byte captions of the main
// window that it works on for as long as it is open.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "form/controls.h"

struct Vorlane;

struct Edit_Form : Form_Window {
  explicit Edit_Form(Vorlane& main);

  Vorlane& Main;

  // --- Controls ---------------------------------------------------------------------------
  Frame F_1;
  List_Box List;
  Frame F_2;
  Label L_1;  // "Hex": not the main window's byte cell
  Label L_H;
  Label L_2;  // "Dec"
  Label L_D;
  Frame F_3;
  Text_Box Txt_1;
  Text_Box Txt_4;  // locked: only the program writes it
  Option_Button O_2;
  Option_Button O_1;
  Button ComApply;
  Button ComOK;
  Button ComCl;

  // --- Variables --------------------------------------------------------------------------
  std::array<std::string, 32> Old_Bytes;  // Old_Byte_1 .. Old_Byte_32: the captions at opening
  std::array<std::string, 32> New_Bytes;  // New_Byte_1 .. New_Byte_32: the working copy
  std::string Edit_Text;
  std::string Hi_Text;
  std::string Lo_Text;
  std::int32_t Edit_Value = 0;

  std::string& Old_Byte(int n) { return Old_Bytes[static_cast<std::size_t>(n - 1)]; }
  std::string& New_Byte(int n) { return New_Bytes[static_cast<std::size_t>(n - 1)]; }
};
