// Files for the tests and benchmarks: a folder of its own for each, removed afterwards; files
// read whole; NPC files made byte by byte; disks that fail.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "system/files.h"

using Bytes = std::vector<std::uint8_t>;

class Temp_Folder {
 public:
  Temp_Folder();
  ~Temp_Folder();
  Temp_Folder(const Temp_Folder&) = delete;
  Temp_Folder& operator=(const Temp_Folder&) = delete;

  // The path of a name in it: "" for the folder itself.
  std::string Path(const std::string& name) const;
  std::string Write(const std::string& name, const Bytes& bytes) const;
  // The names of the entries in the folder, sorted.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path root_;
};

Bytes Read_File(const std::string& path);

// A standard file whose record k (1 .. 50) holds the bytes k, k+1, .. k+31 (mod 256): every
// byte tells its record and position.
Bytes Standard_File();
// A Buka file: the mark, then records 1 .. 49 as in Standard_File, then 28 bytes of record 50.
Bytes Buka_File();
// The 32 bytes of record k within a file made by Standard_File / Buka_File.
Bytes Record_Bytes(int k);
// Record k of a file of either kind replaced by these bytes (28 of them for the Buka stump).
void Put_Record(Bytes& file, bool buka, int k, const Bytes& record);

// One entry of an archive made for a test: its path (256 characters or more leave no room for
// the closing NUL), its bytes and state, and where the table says its data lies when that is not
// where its bytes are put.
// A FILETIME: 2004-05-01 12:00:00 UTC, the date of an entry of Slf_Archive unless given.
inline constexpr std::uint64_t Slf_Time = 127278864000000000;
struct Slf_Entry {
  std::string path;
  Bytes bytes;
  std::uint8_t state = 0;
  std::int64_t offset = -1, length = -1;  // -1: where its bytes are, as long as they are
  std::uint64_t time = Slf_Time;
};
// An archive made byte by byte: header, each entry's bytes in turn, then the table. The counts
// are the entries and those in state 0 unless given.
Bytes Slf_Archive(const std::string& library_path, const std::vector<Slf_Entry>& entries,
                  std::optional<std::int32_t> count = {}, std::optional<std::int32_t> used = {},
                  const std::string& name = "NpcData.slf");

// The real disk, except that writing a file fails half way through its bytes.
class Failing_Disk : public Disk_Files {
 protected:
  void Write_Chunk(Native_File fd, const std::uint8_t* data, std::size_t size) override;
};

// While it lives, no new file can take the place of the file at `path`, and a write goes into the
// file itself. On POSIX systems its folder takes no new file: it is immutable, or, where that
// can't be had, it loses its write permission (which root passes). On Windows another program
// holds the file open, as a game or an editor may, and lets it be read and written but not
// replaced.
class Unreplaceable {
 public:
  explicit Unreplaceable(const std::string& path);
  ~Unreplaceable();
  Unreplaceable(const Unreplaceable&) = delete;
  Unreplaceable& operator=(const Unreplaceable&) = delete;

 private:
  std::string folder_;
  Native_File held_;
  bool immutable_ = false;
};

#ifdef _WIN32
// A program run to its end in a folder: what it wrote to its standard output and error, and its
// exit status.
struct Program_Run {
  std::string Out, Err;
  unsigned long Status = 0;
};
Program_Run Run_Program(const std::string& program, const std::vector<std::string>& args, const std::string& folder);

// A program started but held before its first step: a process that is there until it is ended.
class Held_Program {
 public:
  explicit Held_Program(const std::string& program);
  ~Held_Program();
  Held_Program(const Held_Program&) = delete;
  Held_Program& operator=(const Held_Program&) = delete;
  unsigned long Number() const { return number_; }
  // Ends it outright, as the task manager does, and waits until it is gone.
  void Kill();

 private:
  void* process_;
  unsigned long number_;
};

// Gives the file the hidden attribute.
void Hide(const std::string& path);
#endif
