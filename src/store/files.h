// File access. The editor reads and writes whole small files and spans of large ones; the
// operations raise Run_Time_Error on any failure. Behind an interface so that tests can make
// the disk fail in the middle of a write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class Files {
 public:
  virtual ~Files() = default;

  // Length in bytes of a file (0 for a folder); fails for a missing file.
  virtual std::int64_t Length(const std::string& path) = 0;
  // The bare name of an existing regular file, or the empty text.
  virtual std::string Dir(const std::string& path) = 0;
  // count bytes from the 0-based offset; fails unless all of them could be read.
  virtual std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) = 0;
  // Replaces the whole file by these bytes. The bytes go to a new file in the same folder that
  // then takes the target's place, so a failure leaves the old file as it was.
  virtual void Write(const std::string& path, const std::vector<std::uint8_t>& bytes) = 0;
};

// The real disk.
class Disk_Files : public Files {
 public:
  std::int64_t Length(const std::string& path) override;
  std::string Dir(const std::string& path) override;
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override;
  void Write(const std::string& path, const std::vector<std::uint8_t>& bytes) override;

 protected:
  // One step of writing the new file; a test double overrides it to fail half way.
  virtual void Write_Chunk(int fd, const std::uint8_t* data, std::size_t size);
};

Files& Disk();
