// The files of a disk with the games' archives opened up: "NpcData.slf/078.npc" names the file
// 078.npc in the archive NpcData.slf (letter case ignored within it), and reads as a file of its
// own, so that everything that reads files through Files (a load, the speech reader, a check of a
// folder) reads an archive's files as it reads loose ones. An archive is only read: a write to a
// file in it fails.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/slf.h"
#include "system/files.h"

class Archive_Files : public Files {
 public:
  explicit Archive_Files(Files& base) : base_(base) {}

  // A path that leads into an archive: the archive's own path, and the path within it ("" for
  // its top), with "/" between folders.
  struct Inside {
    std::string Archive;
    std::string Path;
  };
  // Where the path leads into an archive: the first name ending in .slf (any letter case) that
  // is a file and is followed by a separator. Nothing for a path that doesn't.
  std::optional<Inside> Split(const std::string& path);
  // Whether the path is an archive, or a folder in one: a file named *.slf, or ARCHIVE.slf/DIR.
  bool Is_Archive_Folder(const std::string& path);
  // The archive at this path, read once. Bad_Archive or Run_Time_Error, with its reason, for
  // one that can't be read.
  const slf::Archive& Archive(const std::string& path);
  // The path by which a file of an archive is named: the archive's path, "/", and the entry's
  // path with "/" between folders.
  static std::string Member_Path(const std::string& archive, const slf::Entry& entry);

  // The files in use in an archive or a folder of one, in the table's order; with `deep`, those
  // of its folders too. Each by its path and its path relative to the folder; an entry that
  // can't be read by what it is called and why. Bad_Archive or Run_Time_Error for an archive
  // that can't be read.
  struct Listed {
    std::string Path, Relative;
  };
  struct Listing {
    std::vector<Listed> Files;
    std::vector<Listed> Faults;  // Relative holds the fault
  };
  Listing List(const std::string& folder, bool deep);

  // Why the file can't be read, as sys::Why_Unreadable says it: for a file in an archive, the
  // archive's fault or the entry's, "no such file in the archive", or "a folder, not a file".
  std::string Why_Unreadable(const std::string& path);

  std::int64_t Length(const std::string& path) override;
  std::string Dir(const std::string& path) override;
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override;
  void Write(const std::string& path, const std::vector<std::uint8_t>& bytes,
             unsigned new_mode = New_File_Mode) override;
  bool Same_File(const std::string& a, const std::string& b) override;

 private:
  // The entry that a path names, fit to be read; Run_Time_Error with the reason otherwise.
  const slf::Entry& Member(const std::string& archive, const std::string& path);

  Files& base_;
  struct Opened {
    std::unique_ptr<slf::Archive> archive;
    std::string fault;  // why it could not be read
  };
  std::map<std::string, Opened> opened_;
};
