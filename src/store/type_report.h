// Which variant the file on show is, and the conversion of a file on disk between the two.
#pragma once

#include <string>

struct Vorlane;

// What Tools > Type > Current says of the file on show, worked out from the records in memory.
struct Type_Report {
  std::string Type;       // "JA2-eng. & UB-any ver." or "Агония Власти."
  int Records_Exist = 0;  // records that are not all zero; the stump of a Buka file never counts
  std::string Remark;     // "Bad last record" for a Buka file whose stump is not all zero, else empty
  // The line of the report: "Type: ", the type, " Records exist: ", the count, a blank, the remark.
  std::string Text() const;
};
Type_Report File_Type_Report(const Vorlane& vForm);

// A file's image, 3200 hex characters, converted to a variant (npc_type::Buka or
// npc_type::Standard). To Buka, the mark goes in front and the last four bytes, bytes 29 to 32 of
// record 50, drop out; to standard, the mark goes and four zero bytes come behind.
struct Conversion {
  bool Needed = false;  // false when the image is of that variant already; nothing else is set then
  std::string Image;    // the converted image
  std::string Dropped;  // the bytes that dropped out, as hex text (empty when none did)
};
Conversion Convert_Image(const std::string& hex, int target);

// Tools > Type > Current: the type report in a box.
void nCurrent_Click(Vorlane& vForm);
// Tools > Type > Change: converts a file on disk, standard to Buka or back.
void nChaing_Click(Vorlane& vForm);
