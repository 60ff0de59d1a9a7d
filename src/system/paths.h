// What the operating system says of a path, in a few words a user can act on: whether it names a
// file that can be read, a folder, something else, or nothing; the names in a folder; the modes
// that new files get. One implementation for POSIX systems (paths.cpp), one for Windows
// (paths_win.cpp).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sys {

// The words for a path that names nothing, a folder, and something that is neither a file nor
// a folder (a pipe, a device).
inline constexpr const char* No_Such_File = "no such file";
inline constexpr const char* A_Folder = "a folder, not a file";
inline constexpr const char* Not_A_Regular_File = "not a regular file";

// What a path names, its links followed.
enum class Kind { Missing, File, Folder, Other };

struct Path_Info {
  Kind What = Kind::Missing;
  std::string Why;    // for Missing: the system's words ("no such file", "permission denied", ...)
  bool Link = false;  // the path itself is a symbolic link
  // Tells two names of one folder or file apart from two different ones.
  std::uint64_t Device = 0, Node = 0;
  unsigned Mode = 0;  // the permission bits; on Windows 0444 for a read-only file, else 0666
};

Path_Info Examine(const std::string& path);

// Why what a path names can't be read as a file, by its kind alone; empty for a file.
inline std::string Why_No_File(const Path_Info& info) {
  if (info.What == Kind::Missing) return info.Why;
  if (info.What == Kind::Folder) return A_Folder;
  if (info.What == Kind::Other) return Not_A_Regular_File;
  return {};
}

// Why the file at `path` can't be read: "no such file", "permission denied", "a folder, not a
// file", "not a regular file", or the system's own words for another failure. Empty when it can
// be opened for reading. Nothing is read, and a pipe is never opened.
std::string Why_Unreadable(const std::string& path);

// The names in a folder, "." and ".." left out, in the order the system gives them; or the
// system's words for why it can't be listed.
struct Listing {
  std::vector<std::string> Names;
  std::string Why;  // empty when the folder was listed
};
Listing List_Folder(const std::string& path);

// The permission bits that this process takes away from every file it makes.
unsigned File_Creation_Mask();

// Whether a name is a plain name of a file or folder on this system: one that stays in its folder
// and means nothing more than itself. Not empty, not "." or "..", no separator, nothing the system
// refuses or treats apart, valid UTF-8 without control characters, not longer than a name may be.
bool Plain_Name(std::string_view name);

// Makes the folder at `path`, with every permission less the process's mask; an existing folder
// is left as it is. The system's words for why it can't be made, or empty.
std::string Make_Folder(const std::string& path);

// Sets the time a file was last changed, in nanoseconds since 1970 (UTC). The system's words for
// why it can't be set, or empty.
std::string Set_Modified(const std::string& path, std::int64_t nanoseconds);

}  // namespace sys
