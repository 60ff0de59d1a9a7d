// Every event of every window comes in here. One table says which handler answers which event of
// which control; a front end only turns what its window system reports into the neutral input
// below, or into (window, control, event), and renders the window objects afterwards.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "form/events.h"

// The routing table: which handler answers which event of which control of the three windows.
// The main window is made with it.
std::span<const Route> Routes();

// Runs the handler that the table gives for the event as an event of the program: a fatal
// failure shows its message and ends the program. Returns whether there was a handler (an
// event of a window that isn't open has none).
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args);
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on);

// The neutral input of the front ends. A window whose Enabled is false takes none of it.

// The user gives a control a new value, by mouse, key or assistive technology: Slider or Check
// (the write raises the control's event), or the selected row of a list (a row raises its click).
void Input_Value(Vorlane& vForm, std::string_view window, std::string_view control, int value);
// The user changed the text of a text box (the key filter has let the keys through).
void Input_Text(Vorlane& vForm, std::string_view window, std::string_view control, const std::string& text);
// A control took the focus.
void Got_Focus(Vorlane& vForm, std::string_view window, std::string_view control);
// The mouse moved over a control, or over the bare window (the window's name). The movement
// belongs to the control, whether it has a handler or not, and goes no further to what lies
// behind it; with a button held it is a drag, which the widget itself needs. Returns whether
// the control took it.
bool Mouse_Move(Vorlane& vForm, std::string_view window, std::string_view control, bool button_held);
// The left button came up over a control that doesn't click by itself (a label, a picture): a
// click where the press was, unless it is the second release of a double click.
void Mouse_Up(Vorlane& vForm, std::string_view window, std::string_view control, bool over_control);
// A double click on such a control. It comes as press, release, double click, release.
void Double_Click(Vorlane& vForm, std::string_view window, std::string_view control);
// A key went down in a control (the window's name when the window itself has the focus), giving
// this character, 0 for none. Esc presses the window's cancel button where it has one; otherwise
// only a key that gives a character raises a key press (Delete gives none, and Tab moves the
// focus instead). Returns whether the
// key goes on to the control: false when it was swallowed.
bool Key_Down(Vorlane& vForm, std::string_view window, std::string_view control, int character);
// A key came up, by the system's key code (107 the keypad's +, 109 its -): a window that previews
// keys sees it before any control.
void Key_Up(Vorlane& vForm, std::string_view window, int key_code);
// The system asks for a window to be closed (its close button, Alt+F4): the main window's
// unload can refuse. Returns whether the window is gone.
bool Close_Window(Vorlane& vForm, std::string_view window);
