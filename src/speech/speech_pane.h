// The speech pane: one .edt speech file bound to the window, one of its messages on show.
#pragma once

#include <cstdint>
#include <string>

#include "form/vorlane.h"

// The click event of Check: ticking binds a speech file, unticking lets it go.
void Check_Click(Vorlane& vForm);
// Ticks Check with the speech file already chosen, as if it had been picked in the open dialog
// with the filter entry of this kind: the file is bound and the message in L_Message shown. A
// file that can't be measured unticks Check again.
void Check_Tick_With_File(Vorlane& vForm, const std::string& path, Speech_Kind kind);
// "<<" and ">>": the previous and the next message.
void Com1_Click(Vorlane& vForm);
void Com2_Click(Vorlane& vForm);
// Shows message n of the bound file, as the two buttons step to it.
void Show_Message(Vorlane& vForm, std::int64_t n);
