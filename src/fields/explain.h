// One Russian sentence for the value of a field in the record on show, into L_Info_User.
// Each reads only the captions of its own cells (byte 15 reads byte 14 too).
#pragma once

#include <optional>

struct Vorlane;

// Bytes 1 to 13: when the record fires.
void Info_For_Bytes_1_2(Vorlane& vForm);
void Info_For_Bytes_3_4(Vorlane& vForm);
void Info_For_Bytes_5_6(Vorlane& vForm);
void Info_For_Bytes_7_8(Vorlane& vForm);
void Info_For_Byte_9(Vorlane& vForm);
void Info_For_Byte_10(Vorlane& vForm);
void Info_For_Byte_11(Vorlane& vForm);
void Info_For_Byte_12(Vorlane& vForm);
void Info_For_Byte_13(Vorlane& vForm);

// Bytes 14 to 32: what the character then does. Byte 14 also drives the speech pane.
void Info_For_Byte_14(Vorlane& vForm);
void Info_For_Byte_15(Vorlane& vForm);
void Info_For_Byte_16(Vorlane& vForm);
void Info_For_Byte_17(Vorlane& vForm);
void Info_For_Byte_18(Vorlane& vForm);
void Info_For_Byte_19(Vorlane& vForm);
void Info_For_Byte_20(Vorlane& vForm);
void Info_For_Bytes_21_22(Vorlane& vForm);
void Info_For_Bytes_23_24(Vorlane& vForm);
void Info_For_Bytes_25_26(Vorlane& vForm);
void Info_For_Bytes_27_28(Vorlane& vForm);
void Info_For_Bytes_29_32(Vorlane& vForm);

namespace fields {
// Where byte 18 passes control: the character of this value; none for 255 or a number past the
// last character.
std::optional<int> Goto_Npc(long value);
// Where byte 19 passes control: the record, 1 .. 50, of this value, which counts records from 0;
// none for 255 or a number past the file's last record.
std::optional<int> Goto_Record(long value);
}  // namespace fields
