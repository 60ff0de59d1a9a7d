#include "store/archive_files.h"

#include <algorithm>

#include "system/paths.h"
#include "system/text.h"

namespace {

bool Separator(char c) { return c == '/' || c == '\\'; }

bool Archive_Name(const std::string& path) {
  return path.size() > 4 && slf::Key(path.substr(path.size() - 4)) == ".SLF";
}

}  // namespace

std::optional<Archive_Files::Inside> Archive_Files::Split(const std::string& path) {
  for (std::size_t at = path.find('.'); at != std::string::npos && at + 4 < path.size(); at = path.find('.', at + 1)) {
    if (!Separator(path[at + 4]) || slf::Key(path.substr(at, 4)) != ".SLF") continue;
    std::string archive = path.substr(0, at + 4);
    if (opened_.count(archive) == 0 && base_.Dir(archive).empty()) continue;
    std::string inner = path.substr(at + 5);
    std::replace(inner.begin(), inner.end(), '\\', '/');
    return Inside{std::move(archive), std::move(inner)};
  }
  return std::nullopt;
}

const slf::Archive& Archive_Files::Archive(const std::string& path) {
  auto [place, fresh] = opened_.try_emplace(path);
  Opened& opened = place->second;
  if (fresh) {
    try {
      opened.archive = std::make_unique<slf::Archive>(slf::Read(base_, path));
    } catch (const slf::Bad_Archive& bad) {
      opened.fault = bad.what();
    } catch (const Run_Time_Error& failure) {
      // The system's words where it has any: "permission denied" rather than a read that failed.
      const std::string why = sys::Why_Unreadable(path);
      opened.fault = why.empty() ? failure.what() : why;
    }
  }
  if (!opened.archive) throw Run_Time_Error(opened.fault);
  return *opened.archive;
}

bool Archive_Files::Is_Archive_Folder(const std::string& path) {
  if (Archive_Name(path) && !base_.Dir(path).empty()) return true;
  const std::optional<Inside> inside = Split(path);
  if (!inside) return false;
  try {
    return Archive(inside->Archive).Has_Folder(inside->Path);
  } catch (const Run_Time_Error&) {
    return true;  // its fault is told where it is walked
  }
}

std::string Archive_Files::Member_Path(const std::string& archive, const slf::Entry& entry) {
  std::string path = entry.Path;
  std::replace(path.begin(), path.end(), '\\', '/');
  return archive + "/" + path;
}

Archive_Files::Listing Archive_Files::List(const std::string& folder, bool deep) {
  Inside inside{folder, ""};
  if (!Archive_Name(folder) || base_.Dir(folder).empty()) inside = Split(folder).value_or(inside);
  const slf::Archive& archive = Archive(inside.Archive);
  std::string prefix = slf::Key(inside.Path);
  while (!prefix.empty() && prefix.back() == '\\') prefix.pop_back();
  if (!prefix.empty()) prefix += '\\';
  Listing listing;
  for (const slf::Entry& entry : archive.Entries) {
    if (entry.State != slf::In_Use) continue;
    const std::string key = slf::Key(entry.Path);
    // A nameless entry may be anywhere: it is told wherever the archive is read.
    if (!entry.Path.empty() && (key.rfind(prefix, 0) != 0 || (!deep && key.find('\\', prefix.size()) != std::string::npos)))
      continue;
    if (!entry.Fault.empty()) {
      const std::string shown = entry.Path.empty() ? folder + ": entry " + std::to_string(entry.Number)
                                                   : Member_Path(inside.Archive, entry);
      listing.Faults.push_back({shown, entry.Fault});
      continue;
    }
    const std::string path = Member_Path(inside.Archive, entry);
    listing.Files.push_back({path, path.substr(inside.Archive.size() + 1 + prefix.size())});
  }
  return listing;
}

const slf::Entry& Archive_Files::Member(const std::string& archive, const std::string& path) {
  const slf::Archive& opened = Archive(archive);
  const slf::Entry* entry = path.empty() ? nullptr : opened.Find(path);
  if (!entry) throw Run_Time_Error(opened.Has_Folder(path) ? sys::A_Folder : "no such file in the archive");
  if (!entry->Fault.empty()) throw Run_Time_Error(entry->Fault);
  return *entry;
}

std::string Archive_Files::Why_Unreadable(const std::string& path) {
  const std::optional<Inside> inside = Split(path);
  if (!inside) return sys::Why_Unreadable(path);
  try {
    Member(inside->Archive, inside->Path);
    return {};
  } catch (const Run_Time_Error& failure) {
    return failure.what();
  }
}

std::int64_t Archive_Files::Length(const std::string& path) {
  const std::optional<Inside> inside = Split(path);
  if (!inside) return base_.Length(path);
  return Member(inside->Archive, inside->Path).Length;
}

std::string Archive_Files::Dir(const std::string& path) {
  const std::optional<Inside> inside = Split(path);
  if (!inside) return base_.Dir(path);
  try {
    Member(inside->Archive, inside->Path);
    return text::File_Title(inside->Path);
  } catch (const Run_Time_Error&) {
    return {};
  }
}

std::vector<std::uint8_t> Archive_Files::Read(const std::string& path, std::int64_t offset, std::size_t count) {
  const std::optional<Inside> inside = Split(path);
  if (!inside) return base_.Read(path, offset, count);
  const slf::Entry& entry = Member(inside->Archive, inside->Path);
  if (offset < 0 || static_cast<std::uint64_t>(offset) + count > entry.Length)
    throw Run_Time_Error("can't read beyond the file's end: " + path);
  return base_.Read(inside->Archive, entry.Offset + offset, count);
}

void Archive_Files::Write(const std::string& path, const std::vector<std::uint8_t>& bytes, unsigned new_mode) {
  if (Split(path)) throw Run_Time_Error("a file in an archive, which is only read");
  base_.Write(path, bytes, new_mode);
}

bool Archive_Files::Same_File(const std::string& a, const std::string& b) {
  const std::optional<Inside> in_a = Split(a);
  const std::optional<Inside> in_b = Split(b);
  if (!in_a && !in_b) return base_.Same_File(a, b);
  return in_a && in_b && slf::Key(in_a->Path) == slf::Key(in_b->Path) && base_.Same_File(in_a->Archive, in_b->Archive);
}
