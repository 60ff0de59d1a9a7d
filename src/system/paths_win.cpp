// The Windows side of what the system says of a path: paths are UTF-8 in the program and UTF-16
// at the system's calls.
#include <windows.h>

#include <string>
#include <string_view>

#include "system/paths.h"
#include "system/text.h"
#include "system/text_win.h"

namespace sys {
namespace {

// The system's error in the words the program uses on every system; the less common ones as the
// system words them, on one line, without the full stop.
std::string Words_For(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return No_Such_File;
    case ERROR_ACCESS_DENIED:
      return "permission denied";
    case ERROR_CANT_RESOLVE_FILENAME:
      return "too many levels of links";
    default: {
      wchar_t* said = nullptr;
      const DWORD length =
          FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                         nullptr, error, 0, reinterpret_cast<wchar_t*>(&said), 0, nullptr);
      std::wstring words = length ? std::wstring(said, length) : L"error " + std::to_wstring(error);
      LocalFree(said);
      while (!words.empty() &&
             (words.back() == L'\n' || words.back() == L'\r' || words.back() == L'.' || words.back() == L' '))
        words.pop_back();
      for (wchar_t& c : words)
        if (c == L'\r' || c == L'\n') c = L' ';
      std::string text = text::Utf8(words);
      if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z') text[0] = static_cast<char>(text[0] - 'A' + 'a');
      return text;
    }
  }
}

// A handle that is closed however the block is left.
struct Handle {
  HANDLE h;
  ~Handle() {
    if (h != INVALID_HANDLE_VALUE) CloseHandle(h);
  }
};

// Opens what the path names, its links followed, to ask about it or to read it; folders too.
HANDLE Open(const std::wstring& path, DWORD access) {
  return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// A name in the system's namespace of devices and pipes (\\.\pipe\x, \\?\pipe\x): opening one
// may connect to a program at its other end, so it is never opened.
bool Device_Name(const std::wstring& path) {
  if (path.size() < 4 || (path[0] != L'\\' && path[0] != L'/') || (path[1] != L'\\' && path[1] != L'/')) return false;
  if (path[2] == L'.') return true;
  return path[2] == L'?' && (path.compare(4, 5, L"pipe\\") == 0 || path.compare(4, 5, L"PIPE\\") == 0);
}

}  // namespace

Path_Info Examine(const std::string& path) {
  Path_Info info;
  const std::wstring wide = text::Wide(path);
  if (Device_Name(wide)) {
    info.What = Kind::Other;
    return info;
  }
  WIN32_FILE_ATTRIBUTE_DATA own;
  info.Link = !path.empty() && GetFileAttributesExW(wide.c_str(), GetFileExInfoStandard, &own) &&
              (own.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT);
  Handle file{path.empty() ? INVALID_HANDLE_VALUE : Open(wide, FILE_READ_ATTRIBUTES)};
  BY_HANDLE_FILE_INFORMATION data;
  if (file.h == INVALID_HANDLE_VALUE) {
    info.Why = Words_For(path.empty() ? ERROR_FILE_NOT_FOUND : GetLastError());
    return info;
  }
  if (GetFileType(file.h) != FILE_TYPE_DISK || !GetFileInformationByHandle(file.h, &data)) {
    info.What = Kind::Other;  // a device: NUL, CON, a serial port
    return info;
  }
  info.What = data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? Kind::Folder : Kind::File;
  info.Device = data.dwVolumeSerialNumber;
  info.Node = (static_cast<std::uint64_t>(data.nFileIndexHigh) << 32) | data.nFileIndexLow;
  // The one permission Windows keeps in a file's attributes: whether it may be written.
  info.Mode = data.dwFileAttributes & FILE_ATTRIBUTE_READONLY ? 0444 : 0666;
  return info;
}

std::string Why_Unreadable(const std::string& path) {
  if (std::string why = Why_No_File(Examine(path)); !why.empty()) return why;
  Handle file{Open(text::Wide(path), GENERIC_READ)};
  return file.h == INVALID_HANDLE_VALUE ? Words_For(GetLastError()) : std::string();
}

Listing List_Folder(const std::string& path) {
  Listing listing;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileExW(text::Wide(text::Path_In(path.empty() ? "." : path, "*")).c_str(),
                                         FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    // A folder with nothing in it, not even "." (the root of a drive), finds no file.
    if (error != ERROR_FILE_NOT_FOUND || Examine(path).What != Kind::Folder) listing.Why = Words_For(error);
    return listing;
  }
  do {
    const std::string name = text::Utf8(found.cFileName);
    if (name != "." && name != "..") listing.Names.push_back(name);
  } while (FindNextFileW(search, &found));
  const DWORD error = GetLastError();
  if (error != ERROR_NO_MORE_FILES) listing.Why = Words_For(error);
  FindClose(search);
  return listing;
}

unsigned File_Creation_Mask() {
  // Windows takes nothing away from a new file's permissions.
  return 0;
}

bool Plain_Name(std::string_view name) {
  if (name.empty() || name == "." || name == "..") return false;
  if (!text::Valid_Utf8(name) || text::Printable(name) != name) return false;
  if (name.find_first_of(std::string_view("/\\:*?\"<>|\0", 10)) != std::string_view::npos) return false;
  // The system drops a dot or a blank at the end of a name, so "a." and "a" are one file.
  if (name.back() == '.' || name.back() == ' ') return false;
  // The names of devices are taken in every folder, with any extension: "con", "NUL.txt", "com1.npc".
  std::string stem(name.substr(0, name.find('.')));
  while (!stem.empty() && stem.back() == ' ') stem.pop_back();
  for (char& c : stem)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  if (stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL" || stem == "CONIN$" || stem == "CONOUT$")
    return false;
  if (stem.size() == 4 && (stem.compare(0, 3, "COM") == 0 || stem.compare(0, 3, "LPT") == 0) && stem[3] >= '1' &&
      stem[3] <= '9')
    return false;
  return text::Wide(std::string(name)).size() <= MAX_PATH - 5;  // 255 UTF-16 units
}

std::string Make_Folder(const std::string& path) {
  if (CreateDirectoryW(text::Wide(path).c_str(), nullptr)) return {};
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS) return Examine(path).What == Kind::Folder ? std::string() : "a file, not a folder";
  return Words_For(error);
}

std::string Set_Modified(const std::string& path, std::int64_t nanoseconds) {
  // Windows counts time in 100 ns from 1601, 11644473600 seconds before 1970.
  const std::int64_t ticks = nanoseconds / 100 + 116444736000000000LL;
  if (ticks < 0) return "a date before 1601";
  const FILETIME when{static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
  Handle file{CreateFileW(text::Wide(path).c_str(), FILE_WRITE_ATTRIBUTES,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                          FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
  if (file.h == INVALID_HANDLE_VALUE || !SetFileTime(file.h, nullptr, nullptr, &when)) return Words_For(GetLastError());
  return {};
}

}  // namespace sys
