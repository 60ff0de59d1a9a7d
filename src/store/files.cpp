#include "store/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "store/failure.h"
#include "store/text.h"

namespace fs = std::filesystem;

namespace {

bool Is_Regular_File(const std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::is_regular_file(fs::path(path), ec);
}

[[noreturn]] void Fail(const std::string& what, const std::string& path) { throw Run_Time_Error(what + ": " + path); }

}  // namespace

std::int64_t Disk_Files::Length(const std::string& path) {
  std::error_code ec;
  // A folder has no length of its own: it measures as an empty file.
  if (!path.empty() && fs::is_directory(fs::path(path), ec)) return 0;
  if (!Is_Regular_File(path)) Fail("no such file", path);
  const auto size = fs::file_size(fs::path(path), ec);
  if (ec) Fail("can't measure", path);
  return static_cast<std::int64_t>(size);
}

std::string Disk_Files::Dir(const std::string& path) {
  return Is_Regular_File(path) ? text::File_Title(path) : std::string();
}

std::vector<std::uint8_t> Disk_Files::Read(const std::string& path, std::int64_t offset, std::size_t count) {
  if (!Is_Regular_File(path)) Fail("no such file", path);
  std::ifstream in(path, std::ios::binary);
  if (!in) Fail("can't open", path);
  std::vector<std::uint8_t> bytes(count);
  in.seekg(offset);
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
  if (!in || static_cast<std::size_t>(in.gcount()) != count) Fail("can't read", path);
  return bytes;
}

void Disk_Files::Write_Chunk(int fd, const std::uint8_t* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(fd, data, size);
    if (written < 0) {
      if (errno == EINTR) continue;
      throw Run_Time_Error("write failed");
    }
    data += written;
    size -= static_cast<std::size_t>(written);
  }
}

void Disk_Files::Write(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  if (path.empty()) Fail("no name", path);
  // Write through a link to the file it names, so that the link stays a link.
  fs::path target(path);
  std::error_code ec;
  if (fs::is_symlink(target, ec)) target = fs::weakly_canonical(target, ec);
  if (fs::is_directory(target, ec)) Fail("is a folder", path);

  // Keep the permissions of the file being replaced; refuse a file we may not write.
  mode_t mode = 0644;
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) {
    if (::access(target.c_str(), W_OK) != 0) Fail("read-only", path);
    mode = old.st_mode & 07777;
  }

  // The new file's name is short and fixed: a name built from the target's could pass the file
  // system's limit of 255 bytes for a target whose own name is near it.
  std::string temp = (target.parent_path().empty() ? fs::path(".") : target.parent_path()) / ".vorlane-XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) Fail("can't create", path);
  try {
    Write_Chunk(fd, bytes.data(), bytes.size());
    if (::fchmod(fd, mode) != 0 || ::fsync(fd) != 0) throw Run_Time_Error("can't finish");
  } catch (...) {
    ::close(fd);
    ::unlink(temp.c_str());
    throw;
  }
  if (::close(fd) != 0) {
    ::unlink(temp.c_str());
    Fail("can't close", path);
  }
  if (std::rename(temp.c_str(), target.c_str()) != 0) {
    ::unlink(temp.c_str());
    Fail("can't replace", path);
  }
}

Files& Disk() {
  static Disk_Files disk;
  return disk;
}
