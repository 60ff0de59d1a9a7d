// Windows-1251, the code page of the games' Russian speech texts.
#pragma once

#include <string>

namespace cp1251 {
// The character of a Windows-1251 code as UTF-8; code 0 gives the empty text.
const std::string& Character(unsigned char code);
}  // namespace cp1251
