// The disk on Windows: paths are UTF-8 in the program and UTF-16 at the system's calls.
#include <windows.h>

#include <filesystem>
#include <random>

#include "system/failure.h"
#include "system/files.h"
#include "system/text.h"
#include "system/text_win.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& what, const std::string& path) { throw Run_Time_Error(what + ": " + path); }

// What the system knows of a path, without following a link at its end; nothing where it
// names nothing.
bool Attributes(const fs::path& path, WIN32_FILE_ATTRIBUTE_DATA& data) {
  return GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) != 0;
}

bool Is_Folder(const WIN32_FILE_ATTRIBUTE_DATA& data) { return data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY; }

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

// The regular file at the path, following links; false for a folder or nothing.
bool Regular_File(const std::string& path) {
  if (path.empty()) return false;
  Handle file{Open_For_Reading(text::Path(path))};
  if (file.h == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION info;
  return GetFileInformationByHandle(file.h, &info) && !(info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// A name for a new file in the folder, hidden from a listing as long as it lives.
fs::path Temporary_Name(const fs::path& folder) {
  static std::mt19937 random{std::random_device{}()};
  static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  std::string name = ".vorlane-";
  for (int i = 0; i < 6; ++i) name += digits[random() % (sizeof digits - 1)];
  return (folder.empty() ? fs::path(L".") : folder) / text::Path(name);
}

}  // namespace

std::int64_t Disk_Files::Length(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  // A folder has no length of its own: it measures as an empty file.
  if (!path.empty() && Attributes(text::Path(path), data) && Is_Folder(data)) return 0;
  if (!Regular_File(path)) Fail("no such file", path);
  Handle file{Open_For_Reading(text::Path(path))};
  LARGE_INTEGER size;
  if (file.h == INVALID_HANDLE_VALUE || !GetFileSizeEx(file.h, &size)) Fail("can't measure", path);
  return size.QuadPart;
}

std::string Disk_Files::Dir(const std::string& path) { return Regular_File(path) ? text::File_Title(path) : std::string(); }

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

bool Disk_Files::Replace(const fs::path& target, const std::vector<std::uint8_t>& bytes, bool exists) {
  const fs::path temp = Temporary_Name(target.parent_path());
  Handle file{CreateFileW(temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN, nullptr)};
  if (file.h == INVALID_HANDLE_VALUE) return false;  // the folder takes no new file
  const auto discard = [&] {
    file.Close();
    DeleteFileW(temp.c_str());
  };
  try {
    Write_Chunk(file.h, bytes.data(), bytes.size());
    if (!FlushFileBuffers(file.h)) throw Run_Time_Error("can't finish");
  } catch (const No_Room&) {
    discard();
    return false;  // no room for a second copy: the old file's own place may do
  } catch (...) {
    discard();
    throw;
  }
  if (!file.Close()) {
    DeleteFileW(temp.c_str());
    throw Run_Time_Error("can't close");
  }
  // The new file takes the old one's place and its attributes; a file that wasn't there is
  // made by the move, which reaches the disk before it returns.
  const bool placed = exists ? ReplaceFileW(target.c_str(), temp.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                                            nullptr, nullptr) != 0
                             : MoveFileExW(temp.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
  if (!placed) {
    DeleteFileW(temp.c_str());
    return false;
  }
  if (!exists) SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
  return true;
}

void Disk_Files::Write_In_Place(const fs::path& target, const std::vector<std::uint8_t>& bytes) {
  Handle file{CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                          nullptr)};
  if (file.h == INVALID_HANDLE_VALUE) throw Run_Time_Error("can't open");
  Write_Chunk(file.h, bytes.data(), bytes.size());
  if (!FlushFileBuffers(file.h) || !SetEndOfFile(file.h) || !FlushFileBuffers(file.h) || !file.Close())
    throw Run_Time_Error("can't finish");
}

void Disk_Files::Write(const std::string& path, const std::vector<std::uint8_t>& bytes, unsigned) {
  if (path.empty()) Fail("no name", path);
  fs::path target = text::Path(path);
  // Write through a link to the file it names, so that the link stays a link.
  std::error_code ec;
  if (fs::is_symlink(target, ec)) target = fs::weakly_canonical(target, ec);
  WIN32_FILE_ATTRIBUTE_DATA data;
  const bool exists = Attributes(target, data);
  if (exists && Is_Folder(data)) Fail("is a folder", path);
  if (exists && (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY)) Fail("read-only", path);
  // A file with other names keeps them only if its own bytes change.
  DWORD names = 1;
  if (exists) {
    Handle file{Open_For_Reading(target)};
    BY_HANDLE_FILE_INFORMATION info;
    if (file.h != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file.h, &info)) names = info.nNumberOfLinks;
  }
  if (names == 1 && Replace(target, bytes, exists)) return;
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
  return first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
         first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

Files& Disk() {
  static Disk_Files disk;
  return disk;
}
