// The conversion of a file between the two variants: standard to Buka and back.
#pragma once

#include <string>

struct Vorlane;

// A file's image, 3200 hex characters, converted to a variant (npc_type::Buka or
// npc_type::Standard). To Buka, the mark goes in front and the last four bytes, bytes 29 to 32 of
// record 50, drop out; to standard, the mark goes and four zero bytes come behind.
struct Conversion {
  bool Needed = false;  // false when the image is of that variant already; nothing else is set then
  std::string Image;    // the converted image
  std::string Dropped;  // the bytes that dropped out, as hex text (empty when none did)
};
Conversion Convert_Image(const std::string& hex, int target);

// Tools > Type > Change: converts a file on disk, standard to Buka or back.
void nChaing_Click(Vorlane& vForm);
