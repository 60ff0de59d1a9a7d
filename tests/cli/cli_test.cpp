// vorlane-cli from end to end: every command on files made byte by byte, against the transcript
// in tests/data/cli_transcript.txt (its "$ vorlane-cli" lines are the commands that are run);
// and its sentences against the editor's.
#include <gtest/gtest.h>

#include <algorithm>
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

TEST(Cli, Every_Command_Says_What_The_Transcript_Says) {
  Temp_Folder folder;
  const Bytes standard = Read_File(Standard);
  Bytes tail = standard;  // bytes 29 to 32 of record 50 in use: a Buka file has no room for them
  std::copy_n(Bytes{1, 2, 3, 4}.begin(), 4, tail.end() - 4);
  Bytes changed = standard;
  changed[32 + 12] = 50;  // record 2, byte 13: leadership 50, not 40
  fs::create_directories(folder.Path("mod/buka"));
  fs::create_directories(folder.Path("out"));
  folder.Write("mod/078.npc", standard);
  folder.Write("mod/086.NPC", Bytes(1600, 0));  // record 6 of 078 passes control to its record 8
  folder.Write("mod/buka/078.npc", Read_File((Examples / "buka/078.npc").string()));
  folder.Write("mod/short.npc", Bytes(1599, 0));
  folder.Write("tail.npc", tail);
  folder.Write("forced.npc", tail);
  folder.Write("changed.npc", changed);
  folder.Write("078.edt", Read_File((Examples / "078.edt").string()));

  std::stringstream expected;
  expected << std::ifstream(Data_Path("cli_transcript.txt")).rdbuf();
  std::string transcript;
  {
    const Working_In here(folder.Path(""));
    std::istringstream lines(expected.str());
    for (std::string line; std::getline(lines, line);)
      if (line.rfind("$ vorlane-cli ", 0) == 0) transcript += Transcribe(line.substr(14)) + "\n";
  }
  if (std::getenv("VORLANE_WRITE_TRANSCRIPT")) std::ofstream(Data_Path("cli_transcript.txt")) << transcript;
  EXPECT_EQ(transcript, expected.str());
  EXPECT_EQ(Read_File(folder.Path("tail.npc")), tail);  // the refused conversion wrote nothing
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
