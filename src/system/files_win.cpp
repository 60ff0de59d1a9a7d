// The disk on Windows: paths are UTF-8 in the program and UTF-16 at the system's calls.
#include <windows.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>

#include "system/failure.h"
#include "system/files.h"
#include "system/paths.h"
#include "system/text.h"
#include "system/text_win.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& what, const std::string& path) { throw Run_Time_Error(what + ": " + path); }

// A handle that is closed however the block is left.
struct Handle {
  HANDLE h;
  ~Handle() {
    if (h != INVALID_HANDLE_VALUE) CloseHandle(h);
  }
  // Closes it now; false when closing failed, which can be the last word of a failed write.
  bool Close() {
    const BOOL closed = CloseHandle(h);
    h = INVALID_HANDLE_VALUE;
    return closed != 0;
  }
};

HANDLE Open_For_Reading(const fs::path& path) {
  return CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool Regular_File(const std::string& path) { return sys::Examine(path).What == sys::Kind::File; }

// The attributes a program may set; the others belong to the file system.
constexpr DWORD Settable = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                           FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_TEMPORARY;

// The new file that is being written beside its target, for the console's handler to remove when
// Ctrl+C, Ctrl+Break or closing the console window stops the program. The handler runs on a
// thread of its own: the lock keeps the writer from making or placing the file meanwhile.
SRWLOCK Pending_Lock = SRWLOCK_INIT;
std::wstring Pending_Name;
bool Pending = false;

BOOL WINAPI Remove_Pending_And_Stop(DWORD) {
  // The lock is never given back: the program ends when the system's own handler, next in line,
  // ends it. Deleting a file that is still open removes it when its last handle closes, and the
  // program's end closes that.
  AcquireSRWLockExclusive(&Pending_Lock);
  if (Pending) DeleteFileW(Pending_Name.c_str());
  Pending = false;
  return FALSE;
}

void Watch_Console() {
  static const bool watched = SetConsoleCtrlHandler(Remove_Pending_And_Stop, TRUE);
  (void)watched;
}

// While it lives, the console's handler waits.
class Console_Held {
 public:
  Console_Held() { AcquireSRWLockExclusive(&Pending_Lock); }
  ~Console_Held() { ReleaseSRWLockExclusive(&Pending_Lock); }
  Console_Held(const Console_Held&) = delete;
  Console_Held& operator=(const Console_Held&) = delete;
};

// The hidden new file's name: the process's number, so that a later run can tell its own
// leftovers (after the program was ended outright, which nothing can catch) from the files of a
// run still going.
constexpr const char* Temp_Prefix = ".vorlane-";

std::string Temp_Name() {
  static std::mt19937 random{std::random_device{}()};
  static const char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  std::string name = Temp_Prefix + std::to_string(GetCurrentProcessId()) + "-";
  for (int i = 0; i < 6; ++i) name += letters[random() % (sizeof letters - 1)];
  return name;
}

bool Process_Gone(DWORD number) {
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number);
  if (!process) return GetLastError() == ERROR_INVALID_PARAMETER;
  DWORD code = 0;
  const bool gone = GetExitCodeProcess(process, &code) && code != STILL_ACTIVE;
  CloseHandle(process);
  return gone;
}

// Removes the hidden files that runs which are gone left in the folder: hidden regular files
// named by the number of a process that no longer exists. Once a folder for each run.
void Remove_Leftovers(const std::string& folder) {
  static std::set<std::string> cleaned;
  if (!cleaned.insert(folder).second) return;
  const std::string prefix = Temp_Prefix;
  for (const std::string& name : sys::List_Folder(folder).Names) {
    const std::size_t dash = name.find('-', prefix.size());
    if (name.rfind(prefix, 0) != 0 || dash == std::string::npos || name.size() != dash + 7) continue;
    const std::string number = name.substr(prefix.size(), dash - prefix.size());
    if (number.empty() || number.size() > 9 || number.find_first_not_of("0123456789") != std::string::npos) continue;
    const DWORD process = static_cast<DWORD>(std::stoul(number));
    const std::wstring path = text::Wide(text::Path_In(folder, name));
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (process == GetCurrentProcessId() || attributes == INVALID_FILE_ATTRIBUTES ||
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) ||
        !(attributes & FILE_ATTRIBUTE_HIDDEN) || !Process_Gone(process))
      continue;
    DeleteFileW(path.c_str());
  }
}

}  // namespace

std::int64_t Disk_Files::Length(const std::string& path) {
  // A folder has no length of its own: it measures as an empty file.
  const sys::Kind kind = sys::Examine(path).What;
  if (kind == sys::Kind::Folder) return 0;
  if (kind != sys::Kind::File) Fail("no such file", path);
  Handle file{Open_For_Reading(text::Path(path))};
  LARGE_INTEGER size;
  if (file.h == INVALID_HANDLE_VALUE || !GetFileSizeEx(file.h, &size)) Fail("can't measure", path);
  return size.QuadPart;
}

std::string Disk_Files::Dir(const std::string& path) {
  return Regular_File(path) ? text::File_Title(path) : std::string();
}

std::vector<std::uint8_t> Disk_Files::Read(const std::string& path, std::int64_t offset, std::size_t count) {
  if (!Regular_File(path)) Fail("no such file", path);
  Handle file{Open_For_Reading(text::Path(path))};
  if (file.h == INVALID_HANDLE_VALUE) Fail("can't open", path);
  LARGE_INTEGER at;
  at.QuadPart = offset;
  if (!SetFilePointerEx(file.h, at, nullptr, FILE_BEGIN)) Fail("can't read", path);
  std::vector<std::uint8_t> bytes(count);
  std::size_t done = 0;
  while (done < count) {
    DWORD read = 0;
    const DWORD want = static_cast<DWORD>(std::min<std::size_t>(count - done, 1 << 20));
    if (!ReadFile(file.h, bytes.data() + done, want, &read, nullptr) || read == 0) Fail("can't read", path);
    done += read;
  }
  return bytes;
}

void Disk_Files::Write_Chunk(Native_File fd, const std::uint8_t* data, std::size_t size) {
  while (size > 0) {
    DWORD written = 0;
    const DWORD want = static_cast<DWORD>(std::min<std::size_t>(size, 1 << 20));
    if (!WriteFile(static_cast<HANDLE>(fd), data, want, &written, nullptr)) {
      const DWORD error = GetLastError();
      if (error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL) throw No_Room("no room");
      throw Run_Time_Error("write failed");
    }
    data += written;
    size -= written;
  }
}

bool Disk_Files::Replace(const fs::path& target, const std::vector<std::uint8_t>& bytes, unsigned long attributes,
                         std::uint64_t created, std::string& why) {
  // The new file's name is short: a name built from the target's could pass the file system's
  // limit of 255 characters for a target whose own name is near it.
  const std::string folder = text::Folder_Of(text::Text(target));
  Remove_Leftovers(folder.empty() ? "." : folder);
  Watch_Console();
  std::wstring temp;
  Handle file{INVALID_HANDLE_VALUE};
  {
    const Console_Held held;
    for (int tries = 0; file.h == INVALID_HANDLE_VALUE && tries < 10; ++tries) {
      temp = text::Wide(text::Path_In(folder, Temp_Name()));
      // Shared for deleting: the console's handler may remove it while it is being written.
      file.h = CreateFileW(temp.c_str(), GENERIC_WRITE | FILE_WRITE_ATTRIBUTES, FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                           FILE_ATTRIBUTE_HIDDEN, nullptr);
      if (file.h == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (file.h == INVALID_HANDLE_VALUE) {
      const DWORD error = GetLastError();
      why = error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL ? "no room on the disk"
                                                                        : "the folder takes no new file";
      return false;
    }
    Pending_Name = temp;
    Pending = true;
  }
  const auto discard = [&] {
    file.Close();
    const Console_Held held;
    DeleteFileW(temp.c_str());
    Pending = false;
  };
  try {
    Write_Chunk(file.h, bytes.data(), bytes.size());
    // The file keeps the day it was made.
    FILETIME made{static_cast<DWORD>(created), static_cast<DWORD>(created >> 32)};
    if ((created && !SetFileTime(file.h, &made, nullptr, nullptr)) || !FlushFileBuffers(file.h))
      throw Run_Time_Error("can't finish");
  } catch (const No_Room&) {
    discard();
    why = "no room on the disk";
    return false;  // no room for a second copy: the old file's own place may do
  } catch (...) {
    discard();
    throw;
  }
  if (!file.Close()) {
    discard();
    throw Run_Time_Error("can't close");
  }
  {
    const Console_Held held;
    // The new file takes the old one's place, or the place of none, in one move that reaches the
    // disk before it returns.
    if (!MoveFileExW(temp.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      why = "the new file can't take its place";
      DeleteFileW(temp.c_str());
      Pending = false;
      return false;
    }
    Pending = false;
  }
  // The bytes are in place; the file takes the attributes it had, or those of a new file. Should
  // that fail, the file is still whole.
  SetFileAttributesW(target.c_str(), attributes ? attributes : FILE_ATTRIBUTE_NORMAL);
  return true;
}

void Disk_Files::Write_In_Place(const fs::path& target, const std::vector<std::uint8_t>& bytes) {
  Handle file{CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                          nullptr)};
  if (file.h == INVALID_HANDLE_VALUE) throw Run_Time_Error("can't open");
  Write_Chunk(file.h, bytes.data(), bytes.size());
  if (!FlushFileBuffers(file.h) || !SetEndOfFile(file.h) || !FlushFileBuffers(file.h) || !file.Close())
    throw Run_Time_Error("can't finish");
}

void Disk_Files::Write(const std::string& path, const std::vector<std::uint8_t>& bytes, unsigned new_mode) {
  if (path.empty()) Fail("no name", path);
  fs::path target = text::Path(path);
  WIN32_FILE_ATTRIBUTE_DATA data;
  bool exists = GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &data);
  // Write through a link to the file it names, so that the link stays a link.
  if (exists && (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
    Handle file{Open_For_Reading(target)};
    std::wstring final_path(32768, L'\0');
    const DWORD length =
        file.h == INVALID_HANDLE_VALUE
            ? 0
            : GetFinalPathNameByHandleW(file.h, final_path.data(), static_cast<DWORD>(final_path.size()), 0);
    if (length > 0 && length < final_path.size()) {
      final_path.resize(length);
      target = fs::path(final_path);
      exists = GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &data);
    }
  }
  if (exists && (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) Fail("is a folder", path);
  if (exists && (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY)) Fail("read-only", path);
  std::string why;
  if (!exists) {
    // A new file comes whole or not at all. Of the permission bits, Windows keeps one: a file
    // that may not be written is read-only.
    if (!Replace(target, bytes, new_mode & 0200 ? 0 : FILE_ATTRIBUTE_READONLY, 0, why)) Fail(why, path);
    return;
  }
  // A file with other names keeps them only if its own bytes change.
  DWORD names = 1;
  {
    Handle file{Open_For_Reading(target)};
    BY_HANDLE_FILE_INFORMATION info;
    if (file.h != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file.h, &info)) names = info.nNumberOfLinks;
  }
  const std::uint64_t created =
      (static_cast<std::uint64_t>(data.ftCreationTime.dwHighDateTime) << 32) | data.ftCreationTime.dwLowDateTime;
  if (names == 1 && Replace(target, bytes, data.dwFileAttributes & Settable, created, why)) return;
  Write_In_Place(target, bytes);
}

bool Disk_Files::Same_File(const std::string& a, const std::string& b) {
  const auto identity = [](const std::string& path, BY_HANDLE_FILE_INFORMATION& info) {
    Handle file{CreateFileW(text::Path(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
    return file.h != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file.h, &info);
  };
  BY_HANDLE_FILE_INFORMATION first, second;
  if (!identity(a, first) || !identity(b, second)) return a == b;
  return first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
         first.nFileIndexLow == second.nFileIndexLow;
}

Files& Disk() {
  static Disk_Files disk;
  return disk;
}
