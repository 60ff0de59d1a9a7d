// What is UTF-8 and how it is printed, for every code point: each written here in its own form
// and in every longer (overlong) form, by the encoding's table.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "system/text.h"

namespace {

// The code point in `length` bytes: a lead byte with as many high bits as bytes, then 6 bits a byte.
std::string Encode(std::uint32_t code, int length) {
  if (length == 1) return std::string(1, static_cast<char>(code));
  std::string bytes(static_cast<std::size_t>(length), '\0');
  for (int k = length - 1; k > 0; --k, code >>= 6) bytes[static_cast<std::size_t>(k)] = static_cast<char>(0x80 | (code & 0x3F));
  bytes[0] = static_cast<char>((0xFF00 >> length) | code);
  return bytes;
}

std::string Escaped(const std::string& bytes) {
  std::string out;
  for (const char c : bytes) {
    char hex[8];
    std::snprintf(hex, sizeof hex, "\\x%02X", static_cast<unsigned char>(c));
    out += hex;
  }
  return out;
}

// Every code point but a surrogate is UTF-8 in its shortest form and in no longer one; a control
// prints as its code, a surrogate as its bytes, everything else as it is.
TEST(Utf8, EveryCodePointInEveryForm) {
  for (std::uint32_t code = 0; code <= 0x10FFFF; ++code) {
    const int length = code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    const std::string bytes = Encode(code, length);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    ASSERT_EQ(text::Valid_Utf8(bytes), !surrogate) << code;
    ASSERT_EQ(text::Printable(bytes), surrogate ? Escaped(bytes) : control ? Escaped(std::string(1, static_cast<char>(code))) : bytes)
        << code;
    for (int longer = length + 1; longer <= 4; ++longer) {
      ASSERT_FALSE(text::Valid_Utf8(Encode(code, longer))) << code << " in " << longer;
      ASSERT_EQ(text::Printable(Encode(code, longer)), Escaped(Encode(code, longer))) << code << " in " << longer;
    }
  }
  // Past U+10FFFF, four bytes hold no character.
  for (std::uint32_t code = 0x110000; code <= 0x1FFFFF; code += 0x3FF)
    ASSERT_FALSE(text::Valid_Utf8(Encode(code, 4))) << code;
}

}  // namespace
