// Every event of every window comes in through Fire: it runs the handler and takes the fatal
// road (one message, then the program ends at once) for whatever failure reaches it.
#pragma once

#include "store/failure.h"
#include "ui/vorlane.h"

// Shows the message of a fatal failure and ends the program.
void End_With_Message(Vorlane& vForm, const Fatal_Error& failure);

template <class Handler>
void Fire(Vorlane& vForm, Handler&& handler) {
  if (vForm.Ended || vForm.Unloaded) return;
  try {
    handler();
  } catch (const Fatal_Error& failure) {
    End_With_Message(vForm, failure);
  } catch (const Program_Ended&) {
  }
}
