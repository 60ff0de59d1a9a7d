// The POSIX side of what the system says of a path.
#include "system/paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "system/text.h"

namespace sys {
namespace {

// The system's error in the words the program uses elsewhere; the less common ones as the system
// words them.
std::string Words_For(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return No_Such_File;
    case EACCES:
    case EPERM:
      return "permission denied";
    case ELOOP:
      return "too many levels of links";
    default: {
      std::string words = std::strerror(error);
      if (!words.empty() && words[0] >= 'A' && words[0] <= 'Z') words[0] = static_cast<char>(words[0] - 'A' + 'a');
      return words;
    }
  }
}

}  // namespace

Path_Info Examine(const std::string& path) {
  Path_Info info;
  struct stat own {};
  info.Link = ::lstat(path.c_str(), &own) == 0 && S_ISLNK(own.st_mode);
  struct stat st {};
  if (path.empty() || ::stat(path.c_str(), &st) != 0) {
    info.Why = Words_For(path.empty() ? ENOENT : errno);
    return info;
  }
  info.What = S_ISREG(st.st_mode) ? Kind::File : S_ISDIR(st.st_mode) ? Kind::Folder : Kind::Other;
  info.Device = static_cast<std::uint64_t>(st.st_dev);
  info.Node = static_cast<std::uint64_t>(st.st_ino);
  info.Mode = static_cast<unsigned>(st.st_mode & 07777);
  return info;
}

std::string Why_Unreadable(const std::string& path) {
  if (std::string why = Why_No_File(Examine(path)); !why.empty()) return why;
  // O_NONBLOCK: should the file have become a pipe in the meantime, opening it must not wait.
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return Words_For(errno);
  ::close(fd);
  return {};
}

Listing List_Folder(const std::string& path) {
  Listing listing;
  DIR* folder = ::opendir(path.c_str());
  if (!folder) {
    listing.Why = Words_For(errno);
    return listing;
  }
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(folder);
    if (!entry) {
      if (errno != 0) listing.Why = Words_For(errno);
      break;
    }
    const std::string name = entry->d_name;
    if (name != "." && name != "..") listing.Names.push_back(name);
  }
  ::closedir(folder);
  return listing;
}

unsigned File_Creation_Mask() {
  // The mask can only be read by setting it; it is set back at once (the program has one thread).
  const mode_t mask = ::umask(022);
  ::umask(mask);
  return static_cast<unsigned>(mask);
}

bool Plain_Name(std::string_view name) {
  if (name.empty() || name == "." || name == ".." || name.size() > NAME_MAX) return false;
  if (name.find('/') != std::string_view::npos || name.find('\0') != std::string_view::npos) return false;
  return text::Valid_Utf8(name) && text::Printable(name) == name;
}

std::string Make_Folder(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) == 0) return {};
  const int error = errno;
  if (error == EEXIST) return Examine(path).What == Kind::Folder ? std::string() : "a file, not a folder";
  return Words_For(error);
}

std::string Set_Modified(const std::string& path, std::int64_t nanoseconds) {
  std::int64_t seconds = nanoseconds / 1000000000;
  std::int64_t rest = nanoseconds % 1000000000;
  if (rest < 0) rest += 1000000000, --seconds;
  const struct timespec times[2] = {{0, UTIME_OMIT}, {static_cast<time_t>(seconds), static_cast<long>(rest)}};
  if (::utimensat(AT_FDCWD, path.c_str(), times, 0) == 0) return {};
  return Words_For(errno);
}

}  // namespace sys
