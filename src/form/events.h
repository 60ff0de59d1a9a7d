// What the user or the program does to a control of a window object, and the one table that
// says which handler answers it. The table lives with the handlers, above the window objects;
// the window objects reach it for the events that their own writes raise.
#pragma once

#include <span>
#include <string_view>

#include "form/vorlane.h"
#include "system/failure.h"

enum class Event { Load, Unload, Click, Dbl_Click, Mouse_Move, Change, Got_Focus, Key_Press, Key_Up };

// What comes with an event: the key code of a key press or key up. A key-press handler may
// change Key: 0 swallows the key.
struct Event_Args {
  int Key = 0;
  int Index = 0;  // set from the route: the byte cell's number
};

using Handler = void (*)(Vorlane& main, Event_Args& args);

// One line of the table. Window is one of window::Main, window::Edit, window::About; a window's
// own events have the window's name as control.
struct Route {
  std::string_view Window;
  std::string_view Control;
  Event On;
  Handler Run;
  int Index = 0;
};

// The routing table, defined with the handlers (ui/events.cpp).
std::span<const Route> Routes();
// The route of this event of this control; nullptr where the control has no handler for it.
const Route* Find_Route(std::string_view window, std::string_view control, Event on);

// Runs the handler of this event of this control within the handler that is running, as a write
// that raises an event runs it: a failure goes on up to the event that is being handled. False
// where there is no handler (an event of a window that isn't open has none).
bool Run_Event(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args);

// The writes that raise an event: a new Value of Slider runs its change event, a new Value of
// Check its click event, before the write returns. Writing the value it has raises nothing.
void Slider_Set_Value(Vorlane& vForm, int value);
void Check_Set_Value(Vorlane& vForm, int value);

// Runs a handler as an event of the program: a fatal failure shows its message and ends the
// program there. Nothing runs once the program has ended or its window is unloaded.
template <class Handler_Body>
void Fire(Vorlane& vForm, Handler_Body&& handler) {
  if (vForm.Ended || vForm.Unloaded) return;
  try {
    handler();
  } catch (const Fatal_Error& failure) {
    vForm.platform.MsgBox(failure.Text, failure.Style, failure.Title);
    vForm.Ended = true;
    vForm.platform.End_Program();
  }
}
