// The main window's start-up, its hint line and its closing.
#pragma once

struct Vorlane;

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
