// vorlane-cli from end to end: every command on files made byte by byte, against the transcript
// in tests/data/cli_transcript.txt (its "$ vorlane-cli" lines are the commands that are run);
// and its sentences against the editor's.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "fields/field_map.h"
#include "support/data.h"
#include "support/fixture.h"
#include "ui/byte_grid.h"
#include "ui/navigation.h"

namespace {

namespace fs = std::filesystem;

const fs::path Examples = fs::path(__FILE__).parent_path() / "../../examples";
const std::string Standard = (Examples / "078.npc").string();

// A command line run, as a transcript shows it: the line, the output, the error lines, the
// exit status.
std::string Transcribe(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream split(line);
  for (std::string word; split >> word;) words.push_back(word);
  std::ostringstream out, err;
  const int status = cli::Run(words, out, err);
  return "$ vorlane-cli " + line + "\n" + out.str() + err.str() + "[exit " + std::to_string(status) + "]\n";
}

// While it lives, the process works in this folder, as a user in a shell would.
struct Working_In {
  fs::path before = fs::current_path();
  explicit Working_In(const fs::path& folder) { fs::current_path(folder); }
  ~Working_In() { fs::current_path(before); }
};

// Runs the transcript's commands in the folder and returns what they said. They run in a process
// of their own, as a user whom permissions stop (root's process becomes nobody's, and the folder
// his), under umask 027.
std::string Run_Transcript(const std::string& commands, const fs::path& folder) {
  if (::geteuid() == 0) {
    ::lchown(folder.c_str(), 65534, 65534);
    for (const auto& entry : fs::recursive_directory_iterator(folder)) ::lchown(entry.path().c_str(), 65534, 65534);
  }
  int pipe[2];
  if (::pipe(pipe) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipe[0]);
    if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
    ::umask(027);
    std::string transcript;
    {
      const Working_In here(folder);
      std::istringstream lines(commands);
      for (std::string line; std::getline(lines, line);)
        if (line.rfind("$ vorlane-cli ", 0) == 0) transcript += Transcribe(line.substr(14)) + "\n";
    }
    for (std::size_t at = 0; at < transcript.size();) {
      const ssize_t written = ::write(pipe[1], transcript.data() + at, transcript.size() - at);
      if (written <= 0) ::_exit(4);
      at += static_cast<std::size_t>(written);
    }
    ::_exit(0);
  }
  ::close(pipe[1]);
  std::string transcript;
  char buffer[65536];
  for (ssize_t got; (got = ::read(pipe[0], buffer, sizeof buffer)) > 0;)
    transcript.append(buffer, static_cast<std::size_t>(got));
  ::close(pipe[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? transcript : "the commands' process failed";
}

// A speech file of 80 NPC messages, "Message N", beyond the editor's 32 KB from message 68 on;
// message 71 holds a line feed, a carriage return and the escape of a terminal's colour.
Bytes Speech_File() {
  Bytes file(80 * 480, 0);
  const auto put = [&](std::size_t n, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) file[n * 480 + 2 * i] = static_cast<std::uint8_t>(text[i] + 1);
  };
  for (std::size_t n = 0; n < 80; ++n) put(n, "Message " + std::to_string(n));
  put(71, "one\ntwo\rthree\x1b[31mred");
  return file;
}

TEST(Cli, Every_Command_Says_What_The_Transcript_Says) {
  Temp_Folder folder;
  const Bytes standard = Read_File(Standard);
  Bytes tail = standard;  // bytes 29 to 32 of record 50 in use: a Buka file has no room for them
  std::copy_n(Bytes{1, 2, 3, 4}.begin(), 4, tail.end() - 4);
  Bytes changed = standard;
  changed[32 + 12] = 50;         // record 2, byte 13: leadership 50, not 40
  Bytes last_in_use = standard;  // record 50 as record 1: a Buka file would not count it
  std::copy_n(standard.begin(), 32, last_in_use.end() - 32);
  Bytes far(1600, 0);  // records 1 to 4 say messages 70, 71, 5 and nothing
  for (std::size_t k = 0; k < 4; ++k) far[32 * k + 13] = Bytes{70, 71, 5, 255}[k], far[32 * k + 14] = 1;
  for (const char* sub : {"mod/buka", "out", "walk/locked"}) fs::create_directories(folder.Path(sub));
  folder.Write("mod/078.npc", standard);
  folder.Write("mod/086.NPC", Bytes(1600, 0));  // record 6 of 078 passes control to its record 8
  folder.Write("mod/buka/078.npc", Read_File((Examples / "buka/078.npc").string()));
  folder.Write("mod/short.npc", Bytes(1599, 0));
  folder.Write("tail.npc", tail);
  folder.Write("forced.npc", tail);
  fs::permissions(folder.Path("forced.npc"), fs::perms(0664));
  folder.Write("changed.npc", changed);
  folder.Write("last.npc", last_in_use);
  folder.Write("far.npc", far);
  folder.Write("odd.npc", Bytes{0x4E, 0x50, 0x43, 0xFF, 0x00});
  folder.Write("empty.npc", {});
  folder.Write("078.edt", Read_File((Examples / "078.edt").string()));
  folder.Write("long.edt", Speech_File());
  // What check and explain can't read, or must not print as it is.
  folder.Write("secret.npc", standard);
  folder.Write("secret.edt", Speech_File());
  folder.Write("walk/locked/x.npc", standard);
  folder.Write("walk/new\nline.npc", {1});
  folder.Write("walk/bad\xE9.npc", {2});
  ::mkfifo(folder.Path("walk/fifo.npc").c_str(), 0644);
  ::mkfifo(folder.Path("walk/fifo").c_str(), 0644);
  fs::create_symlink("fifo", folder.Path("walk/pipe.npc"));
  fs::create_symlink("/dev/null", folder.Path("walk/null.npc"));
  fs::create_symlink("nowhere.npc", folder.Path("walk/dangling.npc"));
  fs::create_symlink("../mod/buka", folder.Path("walk/linked"));
  fs::create_symlink(".", folder.Path("walk/loop"));
  for (const char* hidden : {"secret.npc", "secret.edt", "walk/locked"})
    fs::permissions(folder.Path(hidden), fs::perms::none);

  // Archives: the game's, with both variants, the three kinds of speech file, a folder and
  // entries in every state; one without a library path; the mod that changed one field; and one
  // archive for each fault of a header, of an entry, of a path to extract.
  Bytes civilian(3 * 320, 0), edt = Read_File((Examples / "078.edt").string()), changed_edt = edt;
  for (std::size_t n = 0; n < 3; ++n) civilian[n * 320] = static_cast<std::uint8_t>('A' + n + 1);
  changed_edt[481] = 0x33;
  const Bytes npc_data = Slf_Archive("NpcData\\", {{"078.npc", standard}, {"086.NPC", Bytes(1600, 0)},
      {"Buka\\078.npc", Read_File((Examples / "buka/078.npc").string())}, {"078.edt", edt}, {"CIV01.EDT", civilian},
      {"D_078.edt", edt}, {"078.npc", changed, 1}, {"gone.npc", {}, 0xFE}, {"", {}, 0xFF}, {"odd.npc", {}, 7}});
  folder.Write("NpcData.slf", npc_data);
  folder.Write("Flat.slf", Slf_Archive("", {{"078.npc", standard}}));
  for (const char* sub : {"mymod/NpcData", "arch/flat"}) fs::create_directories(folder.Path(sub));
  folder.Write("mymod/NpcData/078.npc", changed);
  folder.Write("mymod/NpcData/078.edt", changed_edt);
  folder.Write("mymod/NpcData/200.npc", standard);
  const std::string no_end(256, 'N');
  folder.Write("short.slf", Bytes(531, 0));
  folder.Write("no_name.slf", Slf_Archive("", {}, {}, {}, no_end));
  folder.Write("no_path.slf", Slf_Archive(no_end, {}));
  folder.Write("negative.slf", Slf_Archive("", {{"a.npc", standard}}, -1000));
  folder.Write("negative_used.slf", Slf_Archive("", {{"a.npc", standard}}, 1, -1));
  folder.Write("more_used.slf", Slf_Archive("", {{"a.npc", standard}}, 1, 2));
  folder.Write("too_many.slf", Slf_Archive("", {{"a.npc", standard}}, 0x7FFFFFFF, 1));
  folder.Write("entries.slf", Slf_Archive("", {{"good.npc", standard}, {"a.npc", standard}, {"b.npc", {}, 0, 2200, 100},
      {"past.npc", {}, 0, 532, 1000000}, {"far.npc", {}, 0, 4000000000, 10}, {"header.npc", {}, 0, 0, 10},
      {no_end, {}, 1}, {"", {1}}, {"DUP.npc", standard}, {"dup.NPC", standard}}));
  folder.Write("escape.slf", Slf_Archive("", {{"..\\x.npc", standard}, {"C:x.npc", standard}, {"\\x.npc", standard},
      {"a\\\\b.npc", standard}, {"bell\x07.npc", standard}, {"\xE9.npc", standard}, {"ok.npc", standard}}));
  folder.Write("climb.slf", Slf_Archive("..\\..\\", {{"x.npc", standard}}));

  std::stringstream expected;
  expected << std::ifstream(Data_Path("cli_transcript.txt")).rdbuf();
  const std::string transcript = Run_Transcript(expected.str(), folder.Path(""));
  fs::permissions(folder.Path("walk/locked"), fs::perms::owner_all);
  if (std::getenv("VORLANE_WRITE_TRANSCRIPT")) std::ofstream(Data_Path("cli_transcript.txt")) << transcript;
  EXPECT_EQ(transcript, expected.str());
  // The refused conversions wrote nothing; a new file has its source's mode less the umask.
  for (const auto& [name, bytes] : {std::pair{"tail.npc", tail}, {"changed.npc", changed}})
    EXPECT_EQ(Read_File(folder.Path(name)), bytes) << name;
  EXPECT_EQ(fs::status(folder.Path("out/forced.npc")).permissions(), fs::perms(0640));
  // Archives are only read; what is extracted has its bytes and date, and nothing lands outside.
  EXPECT_EQ(Read_File(folder.Path("NpcData.slf")), npc_data);
  EXPECT_EQ(Read_File(folder.Path("arch/NpcData/CIV01.EDT")), civilian);
  struct stat extracted {};
  EXPECT_EQ(::stat(folder.Path("arch/NpcData/Buka/078.npc").c_str(), &extracted), 0);
  EXPECT_EQ(extracted.st_mtime, 1083412800);
  EXPECT_FALSE(fs::exists(folder.Path("x.npc")) || fs::exists(folder.Path("../x.npc")));
}

// A write cut short leaves nothing behind: a new file on a full disk is not made at all, and a
// signal half way through a file's replacement takes the hidden new file with it.
class Stopping_Disk : public Disk_Files {
 public:
  int signal = 0;  // none: the disk is full

 protected:
  void Write_Chunk(int fd, const std::uint8_t* data, std::size_t size) override {
    if (signal == 0) throw No_Room("disk full");
    Disk_Files::Write_Chunk(fd, data, size / 2);
    ::raise(signal);
  }
};

TEST(Cli, A_Write_Cut_Short_Leaves_No_File_Behind) {
  for (const int signal : {0, SIGINT, SIGTERM, SIGHUP}) {
    Temp_Folder folder;
    const std::string old_file = folder.Write("old.npc", Bytes(1600, 1));
    const pid_t child = ::fork();
    if (child == 0) {
      // A shell that started the program in the background may have it ignore SIGINT.
      ::signal(signal, SIG_DFL);
      Stopping_Disk disk;
      disk.signal = signal;
      try {
        disk.Write(signal ? old_file : folder.Path("new.npc"), Bytes(1600, 2));
      } catch (const Run_Time_Error&) {
      }
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(signal ? WIFSIGNALED(status) && WTERMSIG(status) == signal : WIFEXITED(status)) << signal;
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"old.npc"}) << signal;
    EXPECT_EQ(Read_File(old_file), Bytes(1600, 1)) << signal;
  }
}

// What a run killed outright left beside its target goes at the next write in that folder; the
// hidden file of a run still going stays.
TEST(Cli, A_Killed_Runs_Leftover_Goes_At_The_Next_Write) {
  Temp_Folder folder;
  const pid_t gone = ::fork();
  if (gone == 0) ::_exit(0);
  ::waitpid(gone, nullptr, 0);
  const std::string leftover = ".vorlane-" + std::to_string(gone) + "-Ab12Cd";
  const std::string running = ".vorlane-" + std::to_string(::getppid()) + "-Ef34Gh";
  folder.Write(leftover, Bytes(1600, 0));
  folder.Write(running, Bytes(1600, 0));
  Disk().Write(folder.Path("new.npc"), Bytes(1600, 1));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{running, "new.npc"}));
}

// The sentence of every field of every record, as explain prints it and as the editor shows it
// under the mouse.
using Cli_And_Editor = Window_Test;

TEST_F(Cli_And_Editor, Explain_Prints_The_Sentences_The_Editor_Shows) {
  std::ostringstream out, err;
  ASSERT_EQ(cli::Run({"explain", "--all", Standard}, out, err), 0) << err.str();
  std::vector<std::string> printed;
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("Record #", 0) == 0) printed.push_back(line.substr(0, line.find(':')));
    if (line.rfind("  B", 0) == 0) printed.push_back(line.substr(2, line.find("  ", 2) - 2) + ": " + line.substr(28));
  }

  std::vector<std::string> shown;
  Open(Standard);
  for (int k = 1; k <= 50; ++k) {
    Event([&] { Slider_Set_Value(window, k); });
    shown.push_back(window.L_NLine.Caption);
    for (const Field& field : fields::All()) {
      Event([&] { L_MouseMove(window, field.First); });
      shown.push_back(std::string(field.Caption) + ": " + window.L_Info_User.Caption);
    }
  }
  EXPECT_EQ(printed, shown);
}

}  // namespace
