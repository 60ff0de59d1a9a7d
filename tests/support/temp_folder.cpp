#include "support/temp_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

namespace fs = std::filesystem;

Temp_Folder::Temp_Folder() {
  std::random_device random;
  root_ = fs::temp_directory_path() / ("vorlane-test-" + std::to_string(random()) + std::to_string(random()));
  fs::create_directories(root_);
}

Temp_Folder::~Temp_Folder() {
  std::error_code ec;
  fs::permissions(root_, fs::perms::owner_all, fs::perm_options::add, ec);
  fs::remove_all(root_, ec);
}

std::string Temp_Folder::Write(const std::string& name, const Bytes& bytes) const {
  const std::string path = Path(name);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return path;
}

std::vector<std::string> Temp_Folder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(root_)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

Bytes Read_File(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}
