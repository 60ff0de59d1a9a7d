// File access. The editor reads and writes whole small files and spans of large ones; the
// operations raise Run_Time_Error on any failure. Behind an interface so that tests can make
// the disk fail in the middle of a write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "system/failure.h"

struct stat;

class Files {
 public:
  virtual ~Files() = default;

  // Length in bytes of a file (0 for a folder); fails for a missing file.
  virtual std::int64_t Length(const std::string& path) = 0;
  // The bare name of an existing regular file, or the empty text.
  virtual std::string Dir(const std::string& path) = 0;
  // count bytes from the 0-based offset; fails unless all of them could be read.
  virtual std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) = 0;
  // Replaces the whole file by these bytes. A link is followed to the file it names. A file that
  // is not there yet is made with the permission bits `new_mode`, less those that the process's
  // file creation mask takes away; one that is there keeps its own.
  virtual void Write(const std::string& path, const std::vector<std::uint8_t>& bytes,
                     unsigned new_mode = New_File_Mode) = 0;
  // Read and write for everyone, before the mask: the mode of a new file that copies no other.
  static constexpr unsigned New_File_Mode = 0666;
  // Whether two paths name one file: the same file on disk (through links and other names), or
  // the same text for a file that is not there.
  virtual bool Same_File(const std::string& a, const std::string& b) { return a == b; }
};

// An open file as the system knows it: a descriptor, or on Windows a handle.
#ifdef _WIN32
using Native_File = void*;
#else
using Native_File = int;
#endif

// The real disk. A file is written safely where the folder allows it: the bytes go to a new file
// beside the target, which then takes the target's place, so that a failure half way leaves the
// old file as it was. Where no new file may be made in the folder, where the new file can't take
// the old one's place, where the disk has no room for a second copy, or where the target has
// other names (hard links) that must see the new bytes too, the bytes are written into the
// target itself, as a plain write would. A target that is not there yet is only ever made by the
// safe road: a failure leaves no file at all, not an empty or a half one.
//
// The new file beside the target is hidden, .vorlane-PID-XXXXXX. While it is being written, an
// interrupt, a termination or a hang-up (SIGINT, SIGTERM, SIGHUP) removes it before the program
// ends as the signal would have ended it; a signal that was ignored when the write began stays
// ignored. On Windows, Ctrl+C, Ctrl+Break and closing the console window do the same. What a run
// that was killed outright left behind, the next run that writes in that folder removes.
class Disk_Files : public Files {
 public:
  std::int64_t Length(const std::string& path) override;
  std::string Dir(const std::string& path) override;
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override;
  void Write(const std::string& path, const std::vector<std::uint8_t>& bytes,
             unsigned new_mode = New_File_Mode) override;
  bool Same_File(const std::string& a, const std::string& b) override;

 protected:
  // Writes all bytes at the file's position; a test double overrides it to fail half way.
  // Raises No_Room when the disk is full, Run_Time_Error on any other failure.
  virtual void Write_Chunk(Native_File fd, const std::uint8_t* data, std::size_t size);

 private:
  // The safe road; false when it can't be taken, with nothing left behind and the reason in `why`.
#ifdef _WIN32
  // The placed file gets these attributes, and the old file's time of making (0 for none).
  bool Replace(const std::filesystem::path& target, const std::vector<std::uint8_t>& bytes, unsigned long attributes,
               std::uint64_t created, std::string& why);
  void Write_In_Place(const std::filesystem::path& target, const std::vector<std::uint8_t>& bytes);
#else
  // A new file gets `new_mode`.
  bool Replace(const std::filesystem::path& target, const std::vector<std::uint8_t>& bytes, const struct stat* old,
               unsigned new_mode, std::string& why);
  void Write_In_Place(const std::filesystem::path& target, const std::vector<std::uint8_t>& bytes, unsigned mode);
#endif
};

// The disk or the user's quota is full.
struct No_Room : Run_Time_Error {
  using Run_Time_Error::Run_Time_Error;
};

Files& Disk();
