// The reader of .edt speech files: one message of the bound file, decoded into L_Edt.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "form/vorlane.h"

// Decodes the message whose number stands in L_Message from the bound speech file into L_Edt.
// A message that ends beyond Edt_Last_Position takes the failure road.
void Read_EDT(Vorlane& vForm);

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
