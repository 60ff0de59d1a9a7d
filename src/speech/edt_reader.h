// The reader of .edt speech files: one message of the bound file, decoded into L_Edt.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "form/vorlane.h"

namespace speech {
// The last position (1-based) that the editor's walk can reach: it counts in signed 16 bits, so
// the last message it shows is 67 of 480 bytes, 101 of 320.
inline constexpr std::int64_t Editor_Last_Position = 32767;
}  // namespace speech

// Decodes the message whose number stands in L_Message from the bound speech file into L_Edt.
// A message that ends beyond `last_position` takes the failure road; with no last position, any
// message that the file holds is read (the command line reads them all).
void Read_EDT(Vorlane& vForm, std::optional<std::int64_t> last_position);
// The editor's reader: Read_EDT with the editor's last position.
inline void Read_EDT(Vorlane& vForm) { Read_EDT(vForm, speech::Editor_Last_Position); }

namespace speech {
// The size of one message in a speech file of this kind: 320 for civilians' dialogues, else 480.
std::int16_t Entry_Size(Speech_Kind kind);
// Whether message n has its whole entry in a speech file of this length: only such a message is
// read and shown.
bool Has_Message(std::int64_t file_size, std::int64_t entry_size, std::int64_t n);
// The message number that L_Message shows; Run_Time_Error for a caption that is no number.
std::int32_t Message_Number(const Vorlane& vForm);
// A kind by its short name: "npc", "civilian" or "comment"; nothing for any other name.
std::optional<Speech_Kind> Kind_Named(std::string_view name);
}  // namespace speech
