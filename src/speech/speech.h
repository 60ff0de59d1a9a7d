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
// "<<" and ">>": the previous and the next message.
void Com1_Click(Vorlane& vForm);
void Com2_Click(Vorlane& vForm);

namespace speech {
// The size of one message in a speech file of this kind: 320 for kind 3, else 480.
std::int16_t Entry_Size(std::int16_t kind);
// The message number that L_Message shows; Run_Time_Error for a caption that is no number.
std::int32_t Message_Number(const Vorlane& vForm);
}  // namespace speech

namespace cp1251 {
// The character of a Windows-1251 code as UTF-8; code 0 gives the empty text.
const std::string& Character(unsigned char code);
}  // namespace cp1251
