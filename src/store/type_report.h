// Which variant the file on show is, and how many of its records are in use.
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

// Tools > Type > Current: the type report in a box.
void nCurrent_Click(Vorlane& vForm);
