#include "ui/events.h"

void End_With_Message(Vorlane& vForm, const Fatal_Error& failure) {
  vForm.platform.MsgBox(failure.Text, failure.Style, failure.Title);
  vForm.Ended = true;
  vForm.platform.End_Program();
}
