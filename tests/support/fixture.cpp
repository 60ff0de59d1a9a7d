#include "support/fixture.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "store/failure.h"
#include "store/file_commands.h"
#include "ui/shell.h"

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

void Failing_Disk::Write_Chunk(int fd, const std::uint8_t* data, std::size_t size) {
  Disk_Files::Write_Chunk(fd, data, size / 2);
  throw Run_Time_Error("disk full");
}

Folder_Without_New_Files::Folder_Without_New_Files(const std::string& path)
    : path_(path), fd_(::open(path.c_str(), O_RDONLY | O_DIRECTORY)) {
  int flags = 0;
  if (::ioctl(fd_, FS_IOC_GETFLAGS, &flags) == 0) {
    flags |= FS_IMMUTABLE_FL;
    immutable_ = ::ioctl(fd_, FS_IOC_SETFLAGS, &flags) == 0;
  }
  if (!immutable_)
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
}

Folder_Without_New_Files::~Folder_Without_New_Files() {
  int flags = 0;
  if (immutable_ && ::ioctl(fd_, FS_IOC_GETFLAGS, &flags) == 0) {
    flags &= ~FS_IMMUTABLE_FL;
    ::ioctl(fd_, FS_IOC_SETFLAGS, &flags);
  }
  std::filesystem::permissions(path_, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
  ::close(fd_);
}

std::string Cells_Text(const Vorlane& vForm) {
  std::string joined;
  for (int n = 1; n <= 32; ++n) joined += vForm.L(n).Caption;
  return joined;
}

void Set_Cells(Vorlane& vForm, const std::string& hex) {
  for (int n = 1; n <= 32; ++n) vForm.L(n).Caption = hex.substr(2 * static_cast<std::size_t>(n - 1), 2);
}

std::string Dialog_Line(const Shown_Dialog& d) {
  const Common_Dialog& s = d.Settings;
  return std::string(d.Save ? "save|" : "open|") + std::to_string(s.Flags) + '|' + s.FileName + '|' + s.Filter + '|' +
         std::to_string(s.FilterIndex) + '|' + s.DialogTitle;
}

Window_Test::Window_Test(Files& files) : window(platform, files) {
  window.Width = 9000;
  window.Height = 7000;
  Form_Load(window);
}

void Window_Test::TearDown() {
  for (const std::string& surprise : platform.Surprises) ADD_FAILURE() << "no answer scripted for " << surprise;
}

void Window_Test::Open(const std::string& path) {
  platform.Picks.push_back(Dialog_Pick{path});
  Event([&] { nOpen_Click(window); });
}
