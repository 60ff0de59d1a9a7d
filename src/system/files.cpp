#include "system/files.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <utility>

#include "system/failure.h"
#include "system/paths.h"
#include "system/text.h"

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
      if (errno == ENOSPC || errno == EDQUOT) throw No_Room("no room");
      throw Run_Time_Error("write failed");
    }
    data += written;
    size -= static_cast<std::size_t>(written);
  }
}

namespace {

// A file descriptor that is closed however the block is left.
struct Open_File {
  int fd;
  ~Open_File() {
    if (fd >= 0) ::close(fd);
  }
  // Closes it now; false when closing failed, which can be the last word of a failed write.
  bool Close() {
    const int result = ::close(std::exchange(fd, -1));
    return result == 0;
  }
};

// The new file that is being written beside its target, for the signal handler to remove. Its name
// is set and cleared only while the signals are held back, so the handler never sees half a name.
char Pending_Name[4096];
volatile std::sig_atomic_t Pending = 0;

constexpr int Stop_Signals[] = {SIGINT, SIGTERM, SIGHUP};

extern "C" void Remove_Pending_And_Stop(int signal) {
  if (Pending) ::unlink(Pending_Name);
  // Then the signal's own action: the program ends as it would have without this handler.
  ::signal(signal, SIG_DFL);
  ::raise(signal);
}

// The handler goes in for each signal that would end the program; one that is ignored (as under
// nohup) or handled by someone else is left as it is. Asked at each write: three calls.
void Watch_Stop_Signals() {
  for (const int signal : Stop_Signals) {
    struct sigaction now {};
    if (::sigaction(signal, nullptr, &now) != 0 || now.sa_handler != SIG_DFL) continue;
    struct sigaction handler {};
    handler.sa_handler = Remove_Pending_And_Stop;
    sigemptyset(&handler.sa_mask);
    ::sigaction(signal, &handler, nullptr);
  }
}

// While it lives, the stop signals wait: they arrive when it ends.
class Signals_Held {
 public:
  Signals_Held() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : Stop_Signals) sigaddset(&set, signal);
    ::sigprocmask(SIG_BLOCK, &set, &before_);
  }
  ~Signals_Held() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
  Signals_Held(const Signals_Held&) = delete;
  Signals_Held& operator=(const Signals_Held&) = delete;

 private:
  sigset_t before_;
};

// The hidden new file's name: the process's number, so that a later run can tell its own
// leftovers (after a kill -9, which nothing can catch) from the files of a run still going.
constexpr const char* Temp_Prefix = ".vorlane-";

std::string Temp_Name() { return Temp_Prefix + std::to_string(::getpid()) + "-XXXXXX"; }

// Removes the hidden files that runs which are gone left in the folder: regular files of this
// user, named by the number of a process that no longer exists. Once a folder for each run.
void Remove_Leftovers(const fs::path& folder) {
  static std::set<std::string> cleaned;
  if (!cleaned.insert(folder.string()).second) return;
  const std::string prefix = Temp_Prefix;
  for (const std::string& name : sys::List_Folder(folder.string()).Names) {
    const std::size_t dash = name.find('-', prefix.size());
    if (name.rfind(prefix, 0) != 0 || dash == std::string::npos || name.size() != dash + 7) continue;
    const std::string number = name.substr(prefix.size(), dash - prefix.size());
    if (number.empty() || number.size() > 9 || number.find_first_not_of("0123456789") != std::string::npos) continue;
    const pid_t pid = static_cast<pid_t>(std::stol(number));
    struct stat st {};
    const std::string path = (folder / name).string();
    if (pid == ::getpid() || ::kill(pid, 0) == 0 || errno != ESRCH) continue;
    if (::lstat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && st.st_uid == ::geteuid()) ::unlink(path.c_str());
  }
}

// Makes a new name in the folder last: a folder's own metadata reaches the disk only when the
// folder itself is flushed.
void Flush_Folder(const fs::path& folder) {
  const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

bool Disk_Files::Replace(const fs::path& target, const std::vector<std::uint8_t>& bytes, const struct stat* old,
                         unsigned new_mode, std::string& why) {
  // The new file's name is short: a name built from the target's could pass the file system's
  // limit of 255 bytes for a target whose own name is near it.
  const fs::path folder = target.parent_path();
  const fs::path place = folder.empty() ? fs::path(".") : folder;
  Remove_Leftovers(place);
  std::string temp = (place / Temp_Name()).string();
  Watch_Stop_Signals();
  const bool watched = temp.size() < sizeof Pending_Name;
  Open_File file{-1};
  {
    const Signals_Held held;
    file.fd = ::mkstemp(temp.data());
    if (file.fd < 0) {
      why = errno == ENOSPC || errno == EDQUOT ? "no room on the disk" : "the folder takes no new file";
      return false;
    }
    if (watched) {
      std::memcpy(Pending_Name, temp.c_str(), temp.size() + 1);
      Pending = 1;
    }
  }
  const auto discard = [&] {
    file.Close();
    const Signals_Held held;
    ::unlink(temp.c_str());
    Pending = 0;
  };
  try {
    Write_Chunk(file.fd, bytes.data(), bytes.size());
    // The owner and group stay where the system lets us give them on; elsewhere the file is ours.
    if (old) {
      [[maybe_unused]] const int kept = ::fchown(file.fd, old->st_uid, old->st_gid);
    }
    const unsigned mode = old ? old->st_mode & 07777 : new_mode & ~sys::File_Creation_Mask() & 07777;
    if (::fchmod(file.fd, mode) != 0 || ::fsync(file.fd) != 0) throw Run_Time_Error("can't finish");
  } catch (const No_Room&) {
    discard();
    why = "no room on the disk";
    return false;  // no room for a second copy: the old file's own place may do
  } catch (...) {
    discard();
    throw;
  }
  if (!file.Close()) {
    discard();
    throw Run_Time_Error("can't close");
  }
  {
    const Signals_Held held;
    if (std::rename(temp.c_str(), target.c_str()) != 0) {
      why = "the new file can't take its place";
      ::unlink(temp.c_str());
      Pending = 0;
      return false;
    }
    Pending = 0;
  }
  Flush_Folder(folder);
  return true;
}

void Disk_Files::Write_In_Place(const fs::path& target, const std::vector<std::uint8_t>& bytes, unsigned mode) {
  Open_File file{::open(target.c_str(), O_WRONLY | O_CREAT, mode)};
  if (file.fd < 0) throw Run_Time_Error("can't open");
  Write_Chunk(file.fd, bytes.data(), bytes.size());
  if (::fsync(file.fd) != 0 || ::ftruncate(file.fd, static_cast<off_t>(bytes.size())) != 0 || ::fsync(file.fd) != 0 ||
      !file.Close())
    throw Run_Time_Error("can't finish");
}

void Disk_Files::Write(const std::string& path, const std::vector<std::uint8_t>& bytes, unsigned new_mode) {
  if (path.empty()) Fail("no name", path);
  // Write through a link to the file it names, so that the link stays a link.
  fs::path target(path);
  std::error_code ec;
  if (fs::is_symlink(target, ec)) target = fs::weakly_canonical(target, ec);
  if (fs::is_directory(target, ec)) Fail("is a folder", path);

  struct stat old {};
  const bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && ::access(target.c_str(), W_OK) != 0) Fail("read-only", path);
  std::string why;
  if (!exists) {
    // A new file comes whole or not at all.
    if (!Replace(target, bytes, nullptr, new_mode, why)) Fail(why, path);
    return;
  }
  // A file with other names keeps them only if its own bytes change.
  if (old.st_nlink == 1 && Replace(target, bytes, &old, new_mode, why)) return;
  Write_In_Place(target, bytes, old.st_mode & 07777);
}

bool Disk_Files::Same_File(const std::string& a, const std::string& b) {
  std::error_code ec;
  const bool same = fs::equivalent(a, b, ec);
  return ec ? a == b : same;
}

Files& Disk() {
  static Disk_Files disk;
  return disk;
}
