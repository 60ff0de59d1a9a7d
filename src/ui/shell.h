// The main window's start-up, its place on the screen, its hint line and its closing.
#pragma once

#include <string_view>

#include "ui/controls.h"
#include "ui/platform.h"

struct Vorlane;

namespace Position {
// Centres the window across the screen with a third of the free height above it.
void Place_Controls(Form_Window& vForm, const Screen_Size& screen);
}  // namespace Position

// The start-up event: place, constants, the captions of nNext and nBack.
void Form_Load(Vorlane& vForm);

// Mouse movement over a control that only clears the hint line: the bare window, L_Edt, Help,
// L_Fix, L_Fix_1, L_Message, L_NByte, L_NLine, Check, Com1, Com2, SBar_1, SBar_2.
void Clear_Hint(Vorlane& vForm);
void L_Info_User_MouseMove(Vorlane& vForm);
void SBar_3_MouseMove(Vorlane& vForm);

// nExit, ComExit and the window's close button: unload the window, which can refuse.
// Returns true when the window has closed.
bool Unload_Main(Vorlane& vForm);
void nExit_Click(Vorlane& vForm);
void ComExit_Click(Vorlane& vForm);

// Which handler a control of the main window has for an event; nullptr where it has none.
// "Vorlane" is the bare window.
using Main_Handler = void (*)(Vorlane&);
Main_Handler Mouse_Move_Handler(std::string_view control);
Main_Handler Menu_Click_Handler(std::string_view menu_item);
