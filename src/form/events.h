// The events of the window objects: a handler found in the window's routing table and run, and
// the writes that raise an event. The table lives with the handlers, above the window objects;
// the main window is made with it and reaches it for the events that its own writes raise.
#pragma once

#include <span>
#include <string_view>

#include "form/route.h"
#include "form/vorlane.h"
#include "system/failure.h"

// The route of this event of this control in a routing table; nullptr where the control has no
// handler for it.
const Route* Find_Route(std::span<const Route> table, std::string_view window, std::string_view control, Event on);

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
