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

// The length of the UTF-8 character that starts at s[i] and its code, or 0 for a byte that
// starts none.
std::size_t Character_At(std::string_view s, std::size_t i, std::uint32_t& code) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char c = byte(i);
  if (c < 0x80) {
    code = c;
    return 1;
  }
  std::size_t length = 0;
  std::uint32_t least = 0;
  if (c >= 0xC2 && c <= 0xDF) {
    length = 2, least = 0x80, code = c & 0x1F;
  } else if (c >= 0xE0 && c <= 0xEF) {
    length = 3, least = 0x800, code = c & 0x0F;
  } else if (c >= 0xF0 && c <= 0xF4) {
    length = 4, least = 0x10000, code = c & 0x07;
  } else {
    return 0;
  }
  if (i + length > s.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if (!Is_Continuation(byte(i + k))) return 0;
    code = (code << 6) | (byte(i + k) & 0x3F);
  }
  if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
  return length;
}

bool Is_Control(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code <= 0x9F); }

void Append_Escape(std::string& out, unsigned value) {
  static constexpr char Digits[] = "0123456789ABCDEF";
  out += "\\x";
  out += Digits[(value >> 4) & 0xF];
  out += Digits[value & 0xF];
}

}  // namespace

std::string Printable(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    std::uint32_t code = 0;
    const std::size_t length = Character_At(s, i, code);
    if (length == 0) {
      Append_Escape(out, static_cast<unsigned char>(s[i]));
      ++i;
      continue;
    }
    if (Is_Control(code))
      Append_Escape(out, code);
    else
      out.append(s.substr(i, length));
    i += length;
  }
  return out;
}

bool Valid_Utf8(std::string_view s) {
  for (std::size_t i = 0; i < s.size();) {
    std::uint32_t code = 0;
    const std::size_t length = Character_At(s, i, code);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

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

namespace {

// What ends a folder's part of a path: a slash; on Windows also a backslash and the colon of a
// drive ("C:x.npc" is x.npc in drive C's working folder).
#ifdef _WIN32
constexpr std::string_view Separators = "/\\:";
#else
constexpr std::string_view Separators = "/";
#endif

}  // namespace

std::string File_Title(std::string_view path) {
  const auto slash = path.find_last_of(Separators);
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string Folder_Of(std::string_view path) {
  const auto slash = path.find_last_of(Separators);
  return std::string(slash == std::string_view::npos ? std::string_view() : path.substr(0, slash + 1));
}

std::string Path_In(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && Separators.find(path.back()) == std::string_view::npos) {
#ifdef _WIN32
    const auto last = path.find_last_of("/\\");
    path += last == std::string::npos ? '/' : path[last];
#else
    path += '/';
#endif
  }
  return path + std::string(name);
}

std::filesystem::path Path(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Text(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return std::string(utf8.begin(), utf8.end());
}

}  // namespace text
