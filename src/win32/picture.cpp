#include "win32/picture.h"

#include <objidl.h>
// GDI+ flat API, as the system's gdiplus.dll exports it.
#include <gdiplus.h>

#include <map>
#include <vector>

#include "system/text_win.h"

namespace win32 {
namespace {

// GDI+ for the life of the program, from its first use.
bool Start_Gdiplus() {
  static const bool started = [] {
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
  }();
  return started;
}

// A stream over a copy of the bytes, which the stream owns.
IStream* Stream_Of(std::span<const std::uint8_t> bytes) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (!memory) return nullptr;
  void* data = GlobalLock(memory);
  std::copy(bytes.begin(), bytes.end(), static_cast<std::uint8_t*>(data));
  GlobalUnlock(memory);
  IStream* stream = nullptr;
  if (CreateStreamOnHGlobal(memory, TRUE, &stream) != S_OK) {
    GlobalFree(memory);
    return nullptr;
  }
  return stream;
}

// A bitmap scaled by dpi / 96.
HBITMAP Scaled(HBITMAP natural, int dpi) {
  if (dpi == 96 || !natural) return natural;
  BITMAP info;
  GetObjectW(natural, sizeof info, &info);
  const int width = MulDiv(info.bmWidth, dpi, 96), height = MulDiv(info.bmHeight, dpi, 96);
  HDC screen = GetDC(nullptr);
  HDC from = CreateCompatibleDC(screen), to = CreateCompatibleDC(screen);
  HBITMAP scaled = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ old_from = SelectObject(from, natural), old_to = SelectObject(to, scaled);
  SetStretchBltMode(to, COLORONCOLOR);
  StretchBlt(to, 0, 0, width, height, from, 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
  SelectObject(from, old_from), SelectObject(to, old_to);
  DeleteDC(from), DeleteDC(to);
  ReleaseDC(nullptr, screen);
  DeleteObject(natural);
  return scaled;
}

int CALLBACK Found(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool Has_Cyrillic(const std::wstring& face) {
  LOGFONTW wanted{};
  wanted.lfCharSet = RUSSIAN_CHARSET;
  face.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  bool found = false;
  HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &wanted, Found, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

}  // namespace

HBITMAP Decode_Picture(std::span<const std::uint8_t> gif, int dpi) {
  if (!Start_Gdiplus()) return nullptr;
  IStream* stream = Stream_Of(gif);
  if (!stream) return nullptr;
  Gdiplus::GpBitmap* bitmap = nullptr;
  HBITMAP natural = nullptr;
  if (Gdiplus::DllExports::GdipCreateBitmapFromStream(stream, &bitmap) == Gdiplus::Ok) {
    Gdiplus::DllExports::GdipCreateHBITMAPFromBitmap(bitmap, &natural, 0xFFFFFFFF);
    Gdiplus::DllExports::GdipDisposeImage(bitmap);
  }
  stream->Release();
  return Scaled(natural, dpi);
}

std::wstring Face_For(std::string_view face) {
  static std::map<std::string, std::wstring, std::less<>> chosen;
  if (const auto known = chosen.find(face); known != chosen.end()) return known->second;
  // Where the face is missing or has no Cyrillic letters, a sans of the same width, then the
  // face the system writes its own messages in.
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const std::vector<std::wstring> faces{text::Wide(face), L"Microsoft Sans Serif", L"Tahoma", L"Arial",
                                        metrics.lfMessageFont.lfFaceName};
  std::wstring result = faces.back();
  for (const std::wstring& candidate : faces)
    if (Has_Cyrillic(candidate)) {
      result = candidate;
      break;
    }
  chosen.emplace(std::string(face), result);
  return result;
}

}  // namespace win32
