#include "system/text.h"

#include <cstdint>

namespace text {
namespace {

bool Is_Continuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Byte offset of the character with index n (0-based), or s.size() if there are fewer.
std::size_t Offset_Of(std::string_view s, std::size_t n) {
  std::size_t i = 0;
  for (std::size_t count = 0; i < s.size(); ++i) {
    if (!Is_Continuation(static_cast<unsigned char>(s[i]))) {
      if (count == n) return i;
      ++count;
    }
  }
  return s.size();
}

void Append_Utf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace

std::size_t Length(std::string_view s) {
  std::size_t n = 0;
  for (unsigned char c : s) n += Is_Continuation(c) ? 0 : 1;
  return n;
}

std::string Left(std::string_view s, std::size_t n) { return std::string(s.substr(0, Offset_Of(s, n))); }

std::string Right(std::string_view s, std::size_t n) {
  const std::size_t length = Length(s);
  if (n >= length) return std::string(s);
  return std::string(s.substr(Offset_Of(s, length - n)));
}

std::string Upper(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    if (c >= 'a' && c <= 'z') {
      out += static_cast<char>(c - 'a' + 'A');
      ++i;
    } else if ((c == 0xD0 || c == 0xD1) && i + 1 < s.size()) {
      // Two-byte Cyrillic: U+0430..U+044F -> U+0410..U+042F, U+0450..U+045F -> U+0400..U+040F.
      const std::uint32_t cp = ((c & 0x1F) << 6) | (static_cast<unsigned char>(s[i + 1]) & 0x3F);
      std::uint32_t up = cp;
      if (cp >= 0x430 && cp <= 0x44F)
        up = cp - 0x20;
      else if (cp >= 0x450 && cp <= 0x45F)
        up = cp - 0x50;
      Append_Utf8(out, up);
      i += 2;
    } else {
      out += static_cast<char>(c);
      ++i;
    }
  }
  return out;
}

std::string File_Title(std::string_view path) {
#ifdef _WIN32
  const auto slash = path.find_last_of("/\\:");
#else
  const auto slash = path.find_last_of('/');
#endif
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::filesystem::path Path(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Text(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return std::string(utf8.begin(), utf8.end());
}

}  // namespace text
