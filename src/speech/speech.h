// The speech pane: one .edt speech file bound to the window, one of its messages on show.
#pragma once

#include <cstdint>
#include <string>

struct Vorlane;

// Decodes the message whose number stands in L_Message from the bound speech file into L_Edt.
void Read_EDT(Vorlane& vForm);

// Writes the check box's value; a new value raises its click event before this returns.
void Check_Set_Value(Vorlane& vForm, int value);
// The click event of Check: ticking binds a speech file, unticking lets it go.
void Check_Click(Vorlane& vForm);
// Ticks Check with the speech file already chosen, as if it had been picked in the open dialog
// with the filter entry of this kind (1, 3 or 4): the file is bound and the message in L_Message
// shown. A file that can't be measured unticks Check again.
void Check_Tick_With_File(Vorlane& vForm, const std::string& path, std::int16_t kind);
// "<<" and ">>": the previous and the next message.
void Com1_Click(Vorlane& vForm);
void Com2_Click(Vorlane& vForm);

namespace speech {
// The size of one message in a speech file of this kind: 320 for kind 3, else 480.
std::int16_t Entry_Size(std::int16_t kind);
// Whether message n has its whole entry in a speech file of this length: only such a message is
// read and shown.
bool Has_Message(std::int64_t file_size, std::int64_t entry_size, std::int64_t n);
// The message number that L_Message shows; Run_Time_Error for a caption that is no number.
std::int32_t Message_Number(const Vorlane& vForm);
}  // namespace speech

namespace cp1251 {
// The character of a Windows-1251 code as UTF-8; code 0 gives the empty text.
const std::string& Character(unsigned char code);
}  // namespace cp1251
