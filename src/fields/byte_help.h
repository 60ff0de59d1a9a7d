// The long help text of each field, keyed by the field's caption ("Bytes 03-04", "Byte 09").
#pragma once

#include <string>

namespace Position {

// In: a field caption. Out: head line, CR LF (twice, but once for "Bytes 01-02"), body.
// A text that is no caption of the table stays as it was.
void Byte_Help(std::string& text);

}  // namespace Position
