#include "store/slf.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "system/files.h"

namespace slf {
namespace {

std::uint32_t U32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return static_cast<std::uint32_t>(b[at]) | static_cast<std::uint32_t>(b[at + 1]) << 8 |
         static_cast<std::uint32_t>(b[at + 2]) << 16 | static_cast<std::uint32_t>(b[at + 3]) << 24;
}

std::uint16_t U16(const std::vector<std::uint8_t>& b, std::size_t at) {
  return static_cast<std::uint16_t>(b[at] | b[at + 1] << 8);
}

// The text before the first NUL of a name field; nothing when the field has no NUL.
std::optional<std::string> Name_At(const std::vector<std::uint8_t>& b, std::size_t at) {
  const auto begin = b.begin() + static_cast<std::ptrdiff_t>(at);
  const auto end = begin + static_cast<std::ptrdiff_t>(Name_Size);
  const auto nul = std::find(begin, end, 0);
  if (nul == end) return std::nullopt;
  return std::string(begin, nul);
}

bool Separator(char c) { return c == '\\' || c == '/'; }

// Seconds from 1601 to 1970.
constexpr std::int64_t Epoch_Difference = 11644473600;

// The date of a day counted from 1970-01-01.
void Civil(std::int64_t days, std::int64_t& year, unsigned& month, unsigned& day) {
  days += 719468;
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const auto doe = static_cast<unsigned>(days - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  day = doy - (153 * mp + 2) / 5 + 1;
  month = mp < 10 ? mp + 3 : mp - 9;
  year = static_cast<std::int64_t>(yoe) + era * 400 + (month <= 2 ? 1 : 0);
}

}  // namespace

std::string Key(std::string_view path) {
  std::string key(path);
  for (char& c : key) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c == '/') c = '\\';
  }
  return key;
}

const Entry* Archive::Find(std::string_view path) const {
  const auto found = By_Key.find(Key(path));
  return found == By_Key.end() ? nullptr : &Entries[found->second];
}

bool Archive::Has_Folder(std::string_view path) const {
  std::string prefix = Key(path);
  while (!prefix.empty() && prefix.back() == '\\') prefix.pop_back();
  if (prefix.empty()) return true;
  prefix += '\\';
  return std::any_of(By_Key.begin(), By_Key.end(), [&](const auto& entry) { return entry.first.rfind(prefix, 0) == 0; });
}

Archive Read(Files& files, const std::string& path) {
  const std::int64_t size = files.Length(path);
  if (size < Header_Size)
    throw Bad_Archive("too short for an archive: " + std::to_string(size) + " bytes, and its header alone is " +
                      std::to_string(Header_Size));
  const std::vector<std::uint8_t> header = files.Read(path, 0, Header_Size);
  Archive archive;
  const std::optional<std::string> name = Name_At(header, 0);
  const std::optional<std::string> library_path = Name_At(header, Name_Size);
  if (!name) throw Bad_Archive("the library name has no end: no NUL in its 256 bytes");
  if (!library_path) throw Bad_Archive("the library path has no end: no NUL in its 256 bytes");
  archive.Library_Name = *name;
  archive.Library_Path = *library_path;
  archive.Count = static_cast<std::int32_t>(U32(header, 512));
  archive.Used = static_cast<std::int32_t>(U32(header, 516));
  archive.Sort = U16(header, 520);
  archive.Version = U16(header, 522);
  archive.Subfolders = header[524] != 0;
  if (archive.Count < 0) throw Bad_Archive("a negative number of entries: " + std::to_string(archive.Count));
  if (archive.Used < 0) throw Bad_Archive("a negative number of entries in use: " + std::to_string(archive.Used));
  if (archive.Used > archive.Count)
    throw Bad_Archive("more entries in use (" + std::to_string(archive.Used) + ") than entries (" +
                      std::to_string(archive.Count) + ")");
  // The table is read only once it is known to fit: a count can't make it allocate more than
  // the file holds.
  const std::int64_t table = archive.Count * Entry_Size;
  if (Header_Size + table > size)
    throw Bad_Archive(std::to_string(archive.Count) + " entries of " + std::to_string(Entry_Size) +
                      " bytes don't fit in its " + std::to_string(size) + " bytes");
  const std::int64_t data_end = size - table;
  const std::vector<std::uint8_t> bytes = files.Read(path, data_end, static_cast<std::size_t>(table));

  archive.Entries.resize(static_cast<std::size_t>(archive.Count));
  std::vector<std::size_t> readable;  // entries in use whose data is worth comparing
  for (std::size_t i = 0; i < archive.Entries.size(); ++i) {
    Entry& entry = archive.Entries[i];
    const std::size_t at = i * Entry_Size;
    entry.Number = i + 1;
    entry.Offset = U32(bytes, at + 256);
    entry.Length = U32(bytes, at + 260);
    entry.State = bytes[at + 264];
    entry.Time = static_cast<std::uint64_t>(U32(bytes, at + 268)) | static_cast<std::uint64_t>(U32(bytes, at + 272)) << 32;
    const std::optional<std::string> entry_path = Name_At(bytes, at);
    if (!entry_path) {
      entry.Fault = "its name has no end: no NUL in its 256 bytes";
      continue;
    }
    entry.Path = *entry_path;
    if (entry.State != In_Use) continue;
    const std::int64_t end = static_cast<std::int64_t>(entry.Offset) + entry.Length;
    if (entry.Path.empty())
      entry.Fault = "an entry in use without a name";
    else if (entry.Offset < Header_Size || end > data_end)
      entry.Fault = "its " + std::to_string(entry.Length) + " bytes at offset " + std::to_string(entry.Offset) +
                    " lie outside the archive's data, offsets " + std::to_string(Header_Size) + " to " +
                    std::to_string(data_end);
    else if (entry.Length > 0)
      readable.push_back(i);
  }

  // Two entries whose data overlap: neither can be trusted. In the order of their offsets, an
  // entry overlaps an earlier one when it starts before the furthest end so far.
  std::sort(readable.begin(), readable.end(), [&](std::size_t a, std::size_t b) {
    return archive.Entries[a].Offset < archive.Entries[b].Offset;
  });
  std::int64_t reach = 0;
  std::size_t reacher = 0;
  for (const std::size_t i : readable) {
    Entry& entry = archive.Entries[i];
    const std::int64_t end = static_cast<std::int64_t>(entry.Offset) + entry.Length;
    if (entry.Offset < reach) {
      Entry& other = archive.Entries[reacher];
      entry.Fault = "its data overlaps that of " + other.Path;
      if (other.Fault.empty()) other.Fault = "its data overlaps that of " + entry.Path;
    }
    if (end > reach) reach = end, reacher = i;
  }

  // Names in use, in any letter case: two of one name are both faulty, so that neither is taken
  // for the other.
  std::unordered_map<std::string, std::size_t> first_of;
  for (std::size_t i = 0; i < archive.Entries.size(); ++i) {
    Entry& entry = archive.Entries[i];
    if (entry.State != In_Use || entry.Path.empty()) continue;
    const auto [found, fresh] = first_of.try_emplace(Key(entry.Path), i);
    if (fresh) continue;
    Entry& first = archive.Entries[found->second];
    const std::string words = "two entries in use of one name, entries " + std::to_string(first.Number) + " and ";
    if (entry.Fault.empty()) entry.Fault = words + std::to_string(entry.Number);
    if (first.Fault.empty()) first.Fault = words + std::to_string(entry.Number);
  }
  archive.By_Key = std::move(first_of);
  return archive;
}

std::string State_Words(std::uint8_t state) {
  if (state == In_Use) return {};
  if (state == Older_Copy) return "older copy";
  if (state == 0xFE || state == 0xFF) return "unused";
  char words[16];
  std::snprintf(words, sizeof words, "state %02X", state);
  return words;
}

std::optional<std::int64_t> Unix_Nanoseconds(std::uint64_t filetime) {
  if (filetime == 0) return std::nullopt;
  // 100 ns steps: up to 2^64 of them, which in nanoseconds from 1970 would pass 64 bits.
  const auto seconds = static_cast<std::int64_t>(filetime / 10000000) - Epoch_Difference;
  if (seconds > INT64_MAX / 1000000000 - 1 || seconds < INT64_MIN / 1000000000) return std::nullopt;
  return seconds * 1000000000 + static_cast<std::int64_t>(filetime % 10000000) * 100;
}

std::string Date_Text(std::uint64_t filetime) {
  if (filetime == 0) return "no date";
  const auto seconds = static_cast<std::int64_t>(filetime / 10000000) - Epoch_Difference;
  const std::int64_t days = (seconds >= 0 ? seconds : seconds - 86399) / 86400;
  const std::int64_t in_day = seconds - days * 86400;
  std::int64_t year = 0;
  unsigned month = 0, day = 0;
  Civil(days, year, month, day);
  char text[48];
  std::snprintf(text, sizeof text, "%04lld-%02u-%02u %02lld:%02lld:%02lld", static_cast<long long>(year), month, day,
                static_cast<long long>(in_day / 3600), static_cast<long long>(in_day / 60 % 60),
                static_cast<long long>(in_day % 60));
  return text;
}

Parts Split(std::string_view path) {
  Parts parts;
  if (path.empty()) {
    parts.Fault = "an empty path";
  } else if (Separator(path.front())) {
    parts.Fault = "it starts at the top of a disk (\"" + std::string(1, path.front()) + "\")";
  } else if (path.size() >= 2 && path[1] == ':' && ((path[0] | 0x20) >= 'a' && (path[0] | 0x20) <= 'z')) {
    parts.Fault = "it names a drive (\"" + std::string(path.substr(0, 2)) + "\")";
  }
  if (!parts.Fault.empty()) return parts;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= path.size(); ++i) {
    if (i < path.size() && !Separator(path[i])) continue;
    const std::string_view name = path.substr(start, i - start);
    start = i + 1;
    // A trailing separator ends a folder's path, as the library path's does.
    if (name.empty() && i == path.size() && !parts.Names.empty()) break;
    if (name == "..") parts.Fault = "it climbs out of its folder (\"..\")";
    if (name.empty()) parts.Fault = "an empty name between two separators";
    if (!parts.Fault.empty()) {
      parts.Names.clear();
      return parts;
    }
    parts.Names.emplace_back(name);
  }
  return parts;
}

}  // namespace slf
