// The Edit window: the one place where the bytes of a record change. It works on a private
// copy of the 32 byte captions of the main window for as long as it is open.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "ui/controls.h"

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

// The way in: a double click on any byte cell, and the menu item nEdit. Through the gate only.
void Dbl_Click_All_L(Vorlane& vForm);
void nEdit_Click(Vorlane& vForm);

// Events of the Edit window.
void Edit_Load(Edit_Form& vForm);
void Edit_List_Click(Edit_Form& vForm);
void Txt_1_GotFocus(Edit_Form& vForm);
// The key filter: the code to let through, or 0 to swallow the key.
int Only_Num(int key_ascii);
void Txt_1_KeyPress(Edit_Form& vForm, int& key_ascii);
void O_1_Click(Edit_Form& vForm);
void O_2_Click(Edit_Form& vForm);
void ComApply_Click(Edit_Form& vForm);
void ComOK_Click(Edit_Form& vForm);
void ComCl_Click(Edit_Form& vForm);
// The copy of the main window's captions.
void Old_Data(Edit_Form& vForm);
// Closes the window by any road; its unload event gives the main window back its input and
// the slider its focus. The form is gone when this returns.
void Unload_Edit(Vorlane& main);
