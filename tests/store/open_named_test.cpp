// The editor started with a file name that names no readable file: it says so, and starts empty.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <string>

#include "store/file_commands.h"
#include "support/fixture.h"

namespace {

// The real disk, except that a file named locked.npc can be measured but not read.
class Locked_Disk : public Disk_Files {
 public:
  Bytes Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    if (path.ends_with("locked.npc")) throw Run_Time_Error("permission denied");
    return Disk_Files::Read(path, offset, count);
  }
} locked_disk;

class Open_Named_Test : public Window_Test, public ::testing::WithParamInterface<const char*> {
 protected:
  Open_Named_Test() : Window_Test(locked_disk) {}
};

TEST_P(Open_Named_Test, NoReadableFileGivesTheReadFailureAndAnEmptyWindow) {
  folder.Write("locked.npc", Standard_File());
  std::filesystem::create_directory(folder.Path("a folder"));
#ifndef _WIN32
  ::mkfifo(folder.Path("pipe.npc").c_str(), 0644);
#endif
  Event([&] { Open_Named(window, folder.Path(GetParam())); });
  EXPECT_EQ(platform.Messages, (std::vector<Shown_Message>{{"Ошибка во время чтения файла", 48, "ERROR"}}));
  EXPECT_EQ(window.SBar_2.SimpleText + window.SBar_3.SimpleText + window.HexImage, "");
  EXPECT_FALSE(window.nSave.Enabled);
}

// What is no file: a pipe; on Windows, where a folder holds no pipe, the name of a device, which
// names it in every folder.
#ifdef _WIN32
constexpr const char* Device = "NUL";
#else
constexpr const char* Device = "pipe.npc";
#endif

INSTANTIATE_TEST_SUITE_P(Names, Open_Named_Test, ::testing::Values("missing.npc", "a folder", Device, "locked.npc"),
                         [](const auto& info) { return std::to_string(info.index); });

}  // namespace
