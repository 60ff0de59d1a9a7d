// The reader of .edt speech files. A file is a run of fixed-size entries without header; a
// character is stored as its Windows-1251 code plus 1 in the low byte of a little-endian word,
// and "я" (0xFF + 1) as 00 01. The reader walks byte by byte and decides at each 00 by looking
// two bytes ahead.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "speech/edt_reader.h"
#include "speech/cp1251.h"
#include "form/events.h"
#include "store/error_text.h"
#include "system/failure.h"
#include "store/number.h"
#include "form/vorlane.h"

namespace {

// The length of the speech file; a file that has gone since it was chosen reads as empty.
std::int64_t Length_Or_Empty(Vorlane& vForm) {
  try {
    return vForm.files.Length(vForm.Edt_Path);
  } catch (const Run_Time_Error&) {
    return 0;
  }
}

// Decodes the positions first .. last (1-based) into Txt_Free. `bytes` starts at position first
// and reaches two positions beyond last where the file has them, for the look-ahead.
void Decode(Vorlane& vForm, const std::vector<std::uint8_t>& bytes, std::int64_t first, std::int64_t last) {
  const auto at = [&](std::int64_t p) { return bytes[static_cast<std::size_t>(p - first)]; };
  std::string& text = vForm.Txt_Free.Text;
  for (std::int64_t p = first; p <= last; ++p) {
    const std::uint8_t b = at(p);
    if (b == 0x20) {
      text += ' ';
    } else if (b == 0x00) {
      if (p + 2 > vForm.Edt_File_Size) break;
      const std::uint8_t b1 = at(p + 1);
      const std::uint8_t b2 = at(p + 2);
      if (vForm.Edt_Kind == Npc_Comments && b1 == 0x00 && b2 != 0x01) break;  // comments end at any 00 00 but "я"
      if (b1 == 0x00 && b2 == 0x00) break;
      if (b1 == 0x00 && b2 == 0x01) text += cp1251::Character(0xFF);
    } else {
      text += cp1251::Character(static_cast<unsigned char>(b - 1));
    }
  }
}

// The one failure road of the reader: the message, then the speech pane goes off.
void Reading_Failed(Vorlane& vForm) {
  Show_Error(vForm.platform, vForm.Work_Text, "6", msgbox::Critical, vForm.Error_Title, "\r\n" + vForm.Edt_Path);
  vForm.L_Edt.Caption.clear();
  vForm.L_Message.Caption = "0";
  Check_Set_Value(vForm, 0);
}

}  // namespace

std::int16_t speech::Entry_Size(Speech_Kind kind) { return kind == Civilian_Dialogues ? 320 : 480; }

std::optional<Speech_Kind> speech::Kind_Named(std::string_view name) {
  if (name == "npc") return Npc_Dialogues;
  if (name == "civilian") return Civilian_Dialogues;
  if (name == "comment") return Npc_Comments;
  return std::nullopt;
}

bool speech::Has_Message(std::int64_t file_size, std::int64_t entry_size, std::int64_t n) {
  return (n + 1) * entry_size <= file_size;
}

std::int32_t speech::Message_Number(const Vorlane& vForm) {
  const auto n = number::Read_Long(vForm.L_Message.Caption);
  if (!n) throw Run_Time_Error("no message number: " + vForm.L_Message.Caption);
  return *n;
}

void Read_EDT(Vorlane& vForm) {
  const std::optional<std::int64_t> last_position = vForm.Edt_Last_Position;
  if (vForm.Edt_Kind == No_Speech) return;
  try {
    vForm.Txt_Free.Text.clear();
    vForm.Edt_File_Size = Length_Or_Empty(vForm);
    vForm.Edt_Entry_Size = speech::Entry_Size(vForm.Edt_Kind);

    // Message N is walked from the last byte of message N - 1 to its own last byte, so that
    // the look-ahead sees its first two bytes; message 0 has no byte in front of it.
    const std::int64_t size = vForm.Edt_Entry_Size;
    const std::int64_t n = speech::Message_Number(vForm);
    const std::int64_t last = n * size + size;
    const std::int64_t first = last == size ? 1 : last - size;
    // The editor's positions are 32-bit numbers, its walk's 16-bit ones.
    if (last_position && (last < INT32_MIN || last > INT32_MAX)) throw Run_Time_Error("position out of range");
    if (!speech::Has_Message(vForm.Edt_File_Size, size, n)) return;  // not in the file: nothing changes
    if ((last_position && last > *last_position) || first < 1) throw Run_Time_Error("position out of range");

    // Only the span and its look-ahead are read, however large the file.
    const std::int64_t end = std::min(last + 2, vForm.Edt_File_Size);
    const auto bytes = vForm.files.Read(vForm.Edt_Path, first - 1, static_cast<std::size_t>(end - first + 1));
    Decode(vForm, bytes, first, last);
    vForm.L_Edt.Caption = vForm.Txt_Free.Text;
  } catch (const Run_Time_Error&) {
    Reading_Failed(vForm);
  }
}
