// Pictures and fonts as Windows brings them: a GIF decoded by GDI+, a font face that shows the
// program's Russian texts.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace win32 {

// The picture as a bitmap at its natural size scaled to the resolution (96 dots per inch is
// 1:1), on a white ground; nullptr when it can't be decoded.
HBITMAP Decode_Picture(std::span<const std::uint8_t> gif, int dpi);

// The first of the face and the faces that stand in for it which the system has with Cyrillic
// letters.
std::wstring Face_For(std::string_view face);

}  // namespace win32
