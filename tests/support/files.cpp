#include "support/files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

#include "system/failure.h"
#include "system/text.h"

namespace fs = std::filesystem;

Temp_Folder::Temp_Folder() {
  std::random_device random;
  root_ = fs::temp_directory_path() / ("vorlane-test-" + std::to_string(random()) + std::to_string(random()));
  fs::create_directories(root_);
}

Temp_Folder::~Temp_Folder() {
  std::error_code ec;
  fs::permissions(root_, fs::perms::owner_all, fs::perm_options::add, ec);
#ifdef _WIN32
  // Windows removes no read-only file.
  for (const auto& entry : fs::recursive_directory_iterator(root_, ec))
    fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, ec);
#endif
  fs::remove_all(root_, ec);
}

std::string Temp_Folder::Path(const std::string& name) const { return text::Text(root_ / text::Path(name)); }

std::string Temp_Folder::Write(const std::string& name, const Bytes& bytes) const {
  const std::string path = Path(name);
  std::ofstream out(text::Path(path), std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return path;
}

std::vector<std::string> Temp_Folder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(root_)) names.push_back(text::Text(entry.path().filename()));
  std::sort(names.begin(), names.end());
  return names;
}

Bytes Read_File(const std::string& path) {
  std::ifstream in(text::Path(path), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

Bytes Record_Bytes(int k) {
  Bytes record(32);
  for (int n = 0; n < 32; ++n) record[static_cast<std::size_t>(n)] = static_cast<std::uint8_t>((k + n) % 256);
  return record;
}

Bytes Standard_File() {
  Bytes file;
  for (int k = 1; k <= 50; ++k) {
    const Bytes record = Record_Bytes(k);
    file.insert(file.end(), record.begin(), record.end());
  }
  return file;
}

Bytes Buka_File() {
  Bytes file{0x39, 0x00, 0x35, 0x00};
  for (int k = 1; k <= 50; ++k) {
    const Bytes record = Record_Bytes(k);
    file.insert(file.end(), record.begin(), record.begin() + (k == 50 ? 28 : 32));
  }
  return file;
}

void Put_Record(Bytes& file, bool buka, int k, const Bytes& record) {
  const std::size_t offset = (buka ? 4 : 0) + 32 * static_cast<std::size_t>(k - 1);
  const std::size_t count = buka && k == 50 ? 28 : 32;
  std::copy(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(count),
            file.begin() + static_cast<std::ptrdiff_t>(offset));
}

Bytes Slf_Archive(const std::string& library_path, const std::vector<Slf_Entry>& entries,
                  std::optional<std::int32_t> count, std::optional<std::int32_t> used, const std::string& name) {
  const auto put = [](Bytes& to, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) to.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  };
  const auto text = [](Bytes& to, const std::string& value) {
    Bytes field(256, 0);
    std::copy_n(value.begin(), std::min<std::size_t>(value.size(), 256), field.begin());
    to.insert(to.end(), field.begin(), field.end());
  };
  Bytes archive, table;
  text(archive, name);
  text(archive, library_path);
  const auto in_use = std::count_if(entries.begin(), entries.end(), [](const Slf_Entry& e) { return e.state == 0; });
  put(archive, static_cast<std::uint32_t>(count.value_or(static_cast<std::int32_t>(entries.size()))), 4);
  put(archive, static_cast<std::uint32_t>(used.value_or(static_cast<std::int32_t>(in_use))), 4);
  put(archive, 0xFFFF, 2);
  put(archive, 0x0200, 2);
  put(archive, 0, 8);
  for (const Slf_Entry& entry : entries) {
    text(table, entry.path);
    put(table, static_cast<std::uint64_t>(entry.offset < 0 ? static_cast<std::int64_t>(archive.size()) : entry.offset), 4);
    put(table, static_cast<std::uint64_t>(entry.length < 0 ? static_cast<std::int64_t>(entry.bytes.size()) : entry.length), 4);
    put(table, entry.state, 4);
    put(table, entry.time, 8);
    put(table, 0, 4);
    archive.insert(archive.end(), entry.bytes.begin(), entry.bytes.end());
  }
  archive.insert(archive.end(), table.begin(), table.end());
  return archive;
}

void Failing_Disk::Write_Chunk(Native_File fd, const std::uint8_t* data, std::size_t size) {
  Disk_Files::Write_Chunk(fd, data, size / 2);
  throw Run_Time_Error("disk full");
}
