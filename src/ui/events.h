// Every event of every window comes in here. One table says which handler answers which event of
// which control; the window system only turns its own events into (window, control, event).
#pragma once

#include <string_view>

#include "form/events.h"

// Runs the handler that the table gives for the event as an event of the program: a fatal
// failure shows its message and ends the program. Returns whether there was a handler (an
// event of a window that isn't open has none).
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args);
bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on);

// The user gives Slider or Check a new value, by mouse, key or assistive technology: the write
// raises the control's event as an event of the program.
void Input_Value(Vorlane& vForm, std::string_view control, int value);
