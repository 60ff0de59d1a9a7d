// The games' resource archives, .slf files: a header, the files' data, and at the very end a
// table of one entry per file. Little-endian throughout. An archive comes from anywhere, so every
// number in it is checked against the file before it is used: a bad header makes the whole
// archive unreadable, a bad entry only itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "system/failure.h"

class Files;

namespace slf {

// The header: library name, library path, number of entries, number in use, sort word, version
// word, "contains subfolders", 7 bytes unused.
inline constexpr std::int64_t Header_Size = 532;
// An entry: path, offset, length, state, 3 bytes padding, FILETIME, 4 bytes unused.
inline constexpr std::int64_t Entry_Size = 280;
// The library name, the library path and an entry's path: NUL-terminated in this many bytes.
inline constexpr std::size_t Name_Size = 256;

// The states of an entry. Only an entry in use is one of the game's files; 0xFE and 0xFF mark
// entries that are not used.
inline constexpr std::uint8_t In_Use = 0;
inline constexpr std::uint8_t Older_Copy = 1;

struct Entry {
  std::size_t Number = 0;  // its place in the table, from 1
  std::string Path;        // relative to the library path, "\" between folders
  std::uint32_t Offset = 0;
  std::uint32_t Length = 0;
  std::uint8_t State = 0;
  std::uint64_t Time = 0;  // a Windows FILETIME: 100 ns since 1601, UTC
  std::string Fault;       // why it can't be read; empty for an entry that can
};

struct Archive {
  std::string Library_Name;
  std::string Library_Path;  // relative to the game's data folder: empty or ending in "\"
  std::int32_t Count = 0;
  std::int32_t Used = 0;
  std::uint16_t Sort = 0;
  std::uint16_t Version = 0;
  bool Subfolders = false;
  std::vector<Entry> Entries;  // in the table's order

  // The entry in use of this path, in any letter case and with "/" or "\" between folders;
  // nullptr for none. An entry that shares its name is faulty, so a name never picks one of two.
  const Entry* Find(std::string_view path) const;
  // Whether entries in use lie in this folder of the archive ("" is its top).
  bool Has_Folder(std::string_view path) const;

  std::unordered_map<std::string, std::size_t> By_Key;  // Key of a path in use -> its entry
};

// An archive that can't be read at all; what() is the reason, in a user's words.
struct Bad_Archive : Run_Time_Error {
  using Run_Time_Error::Run_Time_Error;
};

// Reads the header and the table of the archive at `path` through `files`: two reads, whatever
// the numbers in the file say. Bad_Archive for a file that is no archive; Run_Time_Error when
// the file can't be read.
Archive Read(Files& files, const std::string& path);

// A path of the archive as it is looked up: ASCII capitals, "\" between folders.
std::string Key(std::string_view path);

// What the listing says of a state: nothing for an entry in use, "older copy", "unused", or the
// number of a state that has no name.
std::string State_Words(std::uint8_t state);

// A FILETIME as "2004-05-01 12:00:00" (UTC); "no date" for 0.
std::string Date_Text(std::uint64_t filetime);
// A FILETIME in nanoseconds since 1970 (UTC); nothing for 0, the entry that has no date, and for a
// date those can't hold (before 21 September 1677 or after 11 April 2262).
std::optional<std::int64_t> Unix_Nanoseconds(std::uint64_t filetime);

// A path of the archive cut into its names, for writing it under a folder of one's own; or why
// it would land outside that folder: a name "..", a drive letter, a leading separator, an empty
// name between two separators.
struct Parts {
  std::vector<std::string> Names;
  std::string Fault;
};
Parts Split(std::string_view path);

}  // namespace slf
