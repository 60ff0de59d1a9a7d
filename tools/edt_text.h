// Text to the bytes of one message of a speech file: two bytes a character, low byte first, the
// Windows-1251 code plus one ("я" becomes 00 01), a blank as 20 00, the rest of the entry zero.
// The editor only reads such files; the example generator and the benchmarks write them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "speech/cp1251.h"

inline std::vector<std::uint8_t> Edt_Entry(std::string_view text, std::size_t entry_size) {
  std::vector<std::uint8_t> entry;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == ' ') {
      entry.insert(entry.end(), {0x20, 0x00});
      ++at;
      continue;
    }
    int code = 1;
    while (code < 256 && !text.substr(at).starts_with(cp1251::Character(static_cast<unsigned char>(code)))) ++code;
    if (code == 256) throw std::invalid_argument("no Windows-1251 character at: " + std::string(text.substr(at)));
    entry.push_back(static_cast<std::uint8_t>((code + 1) & 0xFF));
    entry.push_back(static_cast<std::uint8_t>((code + 1) >> 8));
    at += cp1251::Character(static_cast<unsigned char>(code)).size();
  }
  if (entry.size() + 2 > entry_size) throw std::invalid_argument("message too long: " + std::string(text));
  entry.resize(entry_size, 0);
  return entry;
}
