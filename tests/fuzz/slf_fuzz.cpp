// The archive reader on arbitrary bytes: the header and table of an .slf file, its entries read
// as files, and the paths that extract would write.
//
// Input: the bytes of the archive file.
//
// Invariants: the reader either refuses the archive as a whole (one reason, no other failure) or
// gives every entry of its table; each entry in use that it calls readable lies within the data
// between header and table, overlaps no other readable entry and has a name that no other entry
// in use has in any letter case; each such entry is found by its name and reads, as a file of
// the archive, as exactly its bytes; an entry it calls faulty can't be read; and a path cut for
// extraction holds no name that leads out of its folder.
#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "store/archive_files.h"
#include "store/slf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Memory_Files memory;
  const std::vector<std::uint8_t> bytes(data, data + size);
  memory.Content["a.slf"] = bytes;
  slf::Archive archive;
  try {
    archive = slf::Read(memory, "a.slf");
  } catch (const slf::Bad_Archive& bad) {
    Require(std::string(bad.what()).find('\n') == std::string::npos, "a reason of more than one line");
    return 0;
  }
  const auto end = static_cast<std::int64_t>(size) - archive.Count * slf::Entry_Size;
  Require(archive.Count >= 0 && archive.Entries.size() == static_cast<std::size_t>(archive.Count) && end >= 532,
          "a table that doesn't fit the file");

  Archive_Files files(memory);
  std::vector<std::pair<std::int64_t, std::int64_t>> spans;
  std::set<std::string> names;
  for (const slf::Entry& entry : archive.Entries) {
    const std::string path = Archive_Files::Member_Path("a.slf", entry);
    const bool readable = entry.State == slf::In_Use && entry.Fault.empty();
    if (entry.State == slf::In_Use && !entry.Path.empty())
      Require(archive.Find(entry.Path) != nullptr, "an entry in use that its name doesn't find");
    if (!readable) {
      if (entry.State == slf::In_Use && !entry.Path.empty())
        Require(!files.Why_Unreadable(path).empty(), "a faulty entry that reads: " + path);
      continue;
    }
    const std::int64_t first = entry.Offset, last = first + entry.Length;
    Require(first >= 532 && last <= end, "readable data outside the archive's data");
    Require(names.insert(slf::Key(entry.Path)).second, "two readable entries of one name");
    Require(archive.Find(entry.Path) == &entry, "a name that finds another entry");
    if (entry.Length > 0) spans.emplace_back(first, last);
    const auto read = files.Read(path, 0, entry.Length);
    Require(std::equal(read.begin(), read.end(), bytes.begin() + first), "an entry that reads other bytes");
    const slf::Parts parts = slf::Split(entry.Path);
    for (const std::string& name : parts.Names)
      Require(!name.empty() && name != ".." && name.find_first_of("/\\") == std::string::npos,
              "a name cut for extraction that leads out: " + name);
  }
  std::sort(spans.begin(), spans.end());
  for (std::size_t i = 1; i < spans.size(); ++i)
    Require(spans[i].first >= spans[i - 1].second, "two readable entries that overlap");
  return 0;
}
