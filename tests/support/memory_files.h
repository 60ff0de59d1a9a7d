// Files in memory, by path, for the fuzz targets and benchmarks that must not wait for a disk.
// A write replaces a file whole, as on disk.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "system/failure.h"
#include "system/files.h"
#include "system/text.h"

class Memory_Files : public Files {
 public:
  std::map<std::string, std::vector<std::uint8_t>> Content;
  int Writes = 0;

  std::int64_t Length(const std::string& path) override { return static_cast<std::int64_t>(File(path).size()); }
  std::string Dir(const std::string& path) override {
    return Content.count(path) != 0 ? text::File_Title(path) : std::string();
  }
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    const auto& bytes = File(path);
    if (offset < 0 || static_cast<std::uint64_t>(offset) + count > bytes.size()) throw Run_Time_Error("can't read");
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
  }
  void Write(const std::string& path, const std::vector<std::uint8_t>& bytes, unsigned = New_File_Mode) override {
    ++Writes;
    Content[path] = bytes;
  }

 private:
  const std::vector<std::uint8_t>& File(const std::string& path) {
    const auto found = Content.find(path);
    if (found == Content.end()) throw Run_Time_Error("no such file");
    return found->second;
  }
};
