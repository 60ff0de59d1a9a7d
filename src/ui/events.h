// Every event of every window comes in here. One table says which handler answers which event of
// which control; the window system only turns its own events into (window, control, event).
#pragma once

#include <span>
#include <string_view>

#include "store/failure.h"
#include "ui/vorlane.h"

enum class Event { Load, Unload, Click, Dbl_Click, Mouse_Move, Change, Got_Focus, Key_Press, Key_Up };

// What comes with an event: the new value of a slider or check box, the key code of a key
// press or key up. A key-press handler may change Key: 0 swallows the key.
struct Event_Args {
  int Value = 0;
  int Key = 0;
  int Index = 0;  // set from the route: the byte cell's number
};

using Handler = void (*)(Vorlane& main, Event_Args& args);

// One line of the table. Window is "Vorlane", "Edit" or "About"; a window's own events have the
// window's name as control.
struct Route {
  std::string_view Window;
  std::string_view Control;
  Event On;
  Handler Run;
  int Index = 0;
};

std::span<const Route> Routes();
// The route of this event of this control; nullptr where the control has no handler for it.
const Route* Find_Route(std::string_view window, std::string_view control, Event on);

// Runs the handler that the table gives for the event as an event of the program: a fatal
// failure shows its message and ends the program. Returns whether there was a handler (an
// event of a window that isn't open has none).
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args);
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on);

// Runs any handler as an event of the program.
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
