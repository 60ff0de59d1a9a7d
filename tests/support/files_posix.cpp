// The test helpers that use the POSIX system's own calls.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>

#include "support/files.h"
#include "system/text.h"

namespace fs = std::filesystem;

Unreplaceable::Unreplaceable(const std::string& path)
    : folder_(text::Folder_Of(path)), held_(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY)) {
  int flags = 0;
  if (::ioctl(held_, FS_IOC_GETFLAGS, &flags) == 0) {
    flags |= FS_IMMUTABLE_FL;
    immutable_ = ::ioctl(held_, FS_IOC_SETFLAGS, &flags) == 0;
  }
  if (!immutable_) fs::permissions(folder_, fs::perms::owner_write, fs::perm_options::remove);
}

Unreplaceable::~Unreplaceable() {
  int flags = 0;
  if (immutable_ && ::ioctl(held_, FS_IOC_GETFLAGS, &flags) == 0) {
    flags &= ~FS_IMMUTABLE_FL;
    ::ioctl(held_, FS_IOC_SETFLAGS, &flags);
  }
  fs::permissions(folder_, fs::perms::owner_write, fs::perm_options::add);
  ::close(held_);
}
