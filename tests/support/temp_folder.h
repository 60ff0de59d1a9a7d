// A folder of its own for each test or benchmark, removed afterwards, and files read whole.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

class Temp_Folder {
 public:
  Temp_Folder();
  ~Temp_Folder();
  Temp_Folder(const Temp_Folder&) = delete;
  Temp_Folder& operator=(const Temp_Folder&) = delete;

  std::string Path(const std::string& name) const { return (root_ / name).string(); }
  std::string Write(const std::string& name, const Bytes& bytes) const;
  // The names of the entries in the folder, sorted.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path root_;
};

Bytes Read_File(const std::string& path);
