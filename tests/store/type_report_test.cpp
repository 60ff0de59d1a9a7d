#include "store/type_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "store/file_commands.h"
#include "store/image.h"
#include "support/fixture.h"
#include "ui/navigation.h"
#include "ui/shell.h"

namespace fs = std::filesystem;

namespace {

const Bytes kMark{0x39, 0x00, 0x35, 0x00};
constexpr int kToBuka = 1;
constexpr int kToStandard = 2;

// ---------------------------------------------------------------------------------------------
// File info

struct Report_Case {
  const char* name;
  Bytes file;
  std::string text;
};

std::ostream& operator<<(std::ostream& out, const Report_Case& c) { return out << c.name; }

Bytes Standard_With_Zero_Records(std::initializer_list<int> zeroed) {
  Bytes file = Standard_File();
  for (int k : zeroed) Put_Record(file, false, k, Bytes(32, 0));
  return file;
}

Bytes Buka_With_Zero_Records(std::initializer_list<int> zeroed) {
  Bytes file = Buka_File();
  for (int k : zeroed) Put_Record(file, true, k, Bytes(32, 0));
  return file;
}

const Report_Case kReports[] = {
    {"FullStandard", Standard_File(), "Type: JA2-eng. & UB-any ver. Records exist: 50 "},
    {"StandardLastRecordEmpty", Standard_With_Zero_Records({50}), "Type: JA2-eng. & UB-any ver. Records exist: 49 "},
    {"StandardSomeEmpty", Standard_With_Zero_Records({1, 2, 30}), "Type: JA2-eng. & UB-any ver. Records exist: 47 "},
    {"BukaStumpNotZero", Buka_File(), "Type: Агония Власти. Records exist: 49 Bad last record"},
    {"BukaStumpZero", Buka_With_Zero_Records({50}), "Type: Агония Власти. Records exist: 49 "},
    {"BukaSomeEmpty", Buka_With_Zero_Records({1, 49, 50}), "Type: Агония Власти. Records exist: 47 "},
};

class File_Info : public Window_Test, public ::testing::WithParamInterface<Report_Case> {};

TEST_P(File_Info, ReportsTypeAndRecordsInUse) {
  Open_Bytes("075.npc", GetParam().file);
  Event([&] { nCurrent_Click(window); });
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, GetParam().text);
  EXPECT_EQ(platform.Messages[0].Style, 64);
  EXPECT_EQ(platform.Messages[0].Title, "FILE INFO:");
}

INSTANTIATE_TEST_SUITE_P(Files, File_Info, ::testing::ValuesIn(kReports),
                         [](const auto& info) { return std::string(info.param.name); });

class Type_Report : public Window_Test {};

TEST_F(Type_Report, NoFileGivesTheHint) {
  Event([&] { nCurrent_Click(window); });
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "Для определения формата файла его нужно сначала открыть!");
  EXPECT_EQ(platform.Messages[0].Style, 64);
  EXPECT_EQ(platform.Messages[0].Title, "VORLANE");
}

TEST_F(Type_Report, NewFileHasNoRecords) {
  Event([&] { nNew_Click(window); });
  Event([&] { nCurrent_Click(window); });
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "Type: JA2-eng. & UB-any ver. Records exist: 0 ");
}

// The report counts the records in memory: a record emptied and stored counts no more, before
// any save, and one filled in counts.
TEST_F(Type_Report, CountsStoredChangesBeforeSave) {
  const std::string file = folder.Write("075.npc", Standard_File());
  Open(file);
  Event([&] { Slider_Set_Value(window, 7); });
  Set_Cells(window, std::string(64, '0'));
  Event([&] { Read_From_File(window); });
  ASSERT_NE(window.HexImage, window.Saved_Image);
  Event([&] { nCurrent_Click(window); });

  platform.Answers.push_back(msgbox::No);  // the question on leaving: don't save
  Event([&] { nNew_Click(window); });
  Event([&] { Slider_Set_Value(window, 3); });
  Set_Cells(window, "01" + std::string(62, '0'));
  Event([&] { Read_From_File(window); });
  Event([&] { nCurrent_Click(window); });

  const auto prompts = platform.Prompts();
  ASSERT_EQ(prompts.size(), 3u);
  EXPECT_EQ(prompts[0], "Type: JA2-eng. & UB-any ver. Records exist: 49 ");
  EXPECT_EQ(prompts[2], "Type: JA2-eng. & UB-any ver. Records exist: 1 ");
  EXPECT_EQ(Read_File(file), Standard_File());
}

// ---------------------------------------------------------------------------------------------
// Conversion

// What the window holds; a conversion must leave all of it as it was.
struct Window_State {
  std::string image, saved, type, cells, bar_1, bar_2, bar_3;
  std::array<std::string, 50> records;
  int record = 0, slider = 0;
  bool operator==(const Window_State&) const = default;
};

Window_State State_Of(const Vorlane& w) {
  return {w.HexImage, w.Saved_Image,         w.FileType,          Cells_Text(w), w.SBar_1.SimpleText,
          w.SBar_2.SimpleText, w.SBar_3.SimpleText, w.Records, w.Current_Record, w.Slider.Value};
}

Bytes Converted_To_Buka(const Bytes& old) {
  Bytes result = kMark;
  for (std::size_t i = 0; i < 1596; ++i) result.push_back(old[i]);
  return result;
}

Bytes Converted_To_Standard(const Bytes& old) {
  Bytes result;
  for (std::size_t i = 4; i < 1600; ++i) result.push_back(old[i]);
  result.insert(result.end(), 4, 0);
  return result;
}

// A standard file that happens to begin with the Buka mark.
Bytes Standard_Starting_With_Mark() {
  Bytes file = Standard_File();
  std::copy(kMark.begin(), kMark.end(), file.begin());
  return file;
}

class Conversion : public Window_Test {
 protected:
  // Picks the file in the open dialog and the target in the save dialog, then converts.
  void Convert(const std::string& file, std::optional<Dialog_Pick> target) {
    platform.Picks.push_back(Dialog_Pick{file});
    platform.Picks.push_back(std::move(target));
    Event([&] { nChaing_Click(window); });
  }
  void Convert(const std::string& file, int target_type) { Convert(file, Dialog_Pick{file, target_type}); }

  // Dates the file an hour back, so that any rewrite would show in its time.
  fs::file_time_type Age(const std::string& path) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    return fs::last_write_time(path);
  }

  std::set<std::string> Folder_Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(folder.Path("")))) names.insert(entry.path().filename());
    return names;
  }
};

TEST_F(Conversion, ConvertsBothWaysByteForByte) {
  const struct {
    const char* name;
    Bytes file;
    int target;
    Bytes expected;
  } rows[] = {
      {"standard to Buka", Standard_File(), kToBuka, Converted_To_Buka(Standard_File())},
      {"Buka to standard", Buka_File(), kToStandard, Converted_To_Standard(Buka_File())},
      {"marked standard to standard", Standard_Starting_With_Mark(), kToStandard,
       Converted_To_Standard(Standard_Starting_With_Mark())},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string file = folder.Write("075.npc", row.file);
    Convert(file, row.target);
    EXPECT_EQ(Read_File(file), row.expected);
  }
  // Spot checks of the tables: the mark in front, the record bytes moved by four.
  const Bytes buka = Converted_To_Buka(Standard_File());
  EXPECT_EQ(Bytes(buka.begin(), buka.begin() + 4), kMark);
  EXPECT_EQ(Bytes(buka.begin() + 4, buka.begin() + 36), Record_Bytes(1));
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Conversion, RoundTrips) {
  const std::string file = folder.Write("075.npc", Standard_File());
  Convert(file, kToBuka);
  Convert(file, kToStandard);
  Bytes expected = Standard_File();
  std::fill(expected.begin() + 1596, expected.end(), 0);  // bytes 29 .. 32 of record 50
  EXPECT_EQ(Read_File(file), expected);

  folder.Write("075.npc", Buka_File());
  Convert(file, kToStandard);
  Convert(file, kToBuka);
  EXPECT_EQ(Read_File(file), Buka_File());
}

TEST_F(Conversion, DialogsAsMadeForEachType) {
  const struct {
    const char* name;
    Bytes file;
    std::string title;
    int proposed;
  } rows[] = {
      {"standard", Standard_File(), "VORLANE - CURRENT TYPE: JA2:ENG.,UB:ENG.&RUS. SAVE AS...", kToBuka},
      {"Buka", Buka_File(), "VORLANE - CURRENT TYPE: BUKA: АВ. SAVE AS...", kToStandard},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform.Dialogs.clear();
    const std::string file = folder.Write("075.npc", row.file);
    Convert(file, std::nullopt);
    ASSERT_EQ(platform.Dialogs.size(), 2u);
    const auto& open = platform.Dialogs[0];
    EXPECT_FALSE(open.Save);
    EXPECT_EQ(open.Settings.Flags, 4100);
    EXPECT_EQ(open.Settings.FileName, "");
    EXPECT_EQ(open.Settings.Filter, "*.npc|*.npc|все файлы (*.*)|*.*");
    EXPECT_EQ(open.Settings.FilterIndex, 1);
    EXPECT_EQ(open.Settings.DialogTitle, "VORLANE - OPEN FILE FOR CHANGE");
    const auto& save = platform.Dialogs[1];
    EXPECT_TRUE(save.Save);
    EXPECT_EQ(save.Settings.Flags, 6);
    EXPECT_EQ(save.Settings.FileName, file);  // proposes the file just picked
    EXPECT_EQ(save.Settings.Filter, "Buka:АВ|*.npc|Ja2:eng.,UB:eng.&rus.|*.npc");
    EXPECT_EQ(save.Settings.FilterIndex, row.proposed);
    EXPECT_EQ(save.Settings.DialogTitle, row.title);
  }
}

// Nothing is written, not even the same bytes again, and nothing is said.
TEST_F(Conversion, NoWriteWhenNothingToConvert) {
  const struct {
    const char* name;
    Bytes file;
    std::optional<int> target;  // nullopt: Cancel in the save dialog
  } rows[] = {
      {"standard to standard", Standard_File(), kToStandard},
      {"Buka to Buka", Buka_File(), kToBuka},
      {"marked standard counts as Buka", Standard_Starting_With_Mark(), kToBuka},
      {"cancel on a standard file", Standard_File(), std::nullopt},
      {"cancel on a Buka file", Buka_File(), std::nullopt},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string file = folder.Write("075.npc", row.file);
    const auto time = Age(file);
    if (row.target)
      Convert(file, *row.target);
    else
      Convert(file, std::nullopt);
    EXPECT_EQ(Read_File(file), row.file);
    EXPECT_EQ(fs::last_write_time(file), time);
    EXPECT_EQ(Folder_Names(), std::set<std::string>{"075.npc"});
  }
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Conversion, CancelInTheOpenDialogDoesNothing) {
  platform.Picks.push_back(std::nullopt);
  Event([&] { nChaing_Click(window); });
  EXPECT_EQ(platform.Dialogs.size(), 1u);
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Conversion, WrongSizeGivesOneMessageAndNoSecondDialog) {
  for (std::size_t size : {0, 1599, 1601, 3200}) {
    SCOPED_TRACE(size);
    platform.Messages.clear();
    platform.Dialogs.clear();
    const Bytes bytes(size, 7);
    const std::string file = folder.Write("odd.npc", bytes);
    platform.Picks.push_back(Dialog_Pick{file});
    Event([&] { nChaing_Click(window); });
    EXPECT_EQ(platform.Dialogs.size(), 1u);
    ASSERT_EQ(platform.Messages.size(), 1u);
    EXPECT_EQ(platform.Messages[0].Prompt, "Неверный размер файла");
    EXPECT_EQ(platform.Messages[0].Style, 48);
    EXPECT_EQ(platform.Messages[0].Title, "ERROR");
    EXPECT_EQ(Read_File(file), bytes);
  }
}

TEST_F(Conversion, MissingFileEndsSilently) {
  platform.Picks.push_back(Dialog_Pick{folder.Path("gone.npc")});
  Event([&] { nChaing_Click(window); });
  EXPECT_EQ(platform.Dialogs.size(), 1u);
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_FALSE(fs::exists(folder.Path("gone.npc")));
}

TEST_F(Conversion, UnknownTargetTypeIsNotSaved) {
  const std::string file = folder.Write("075.npc", Standard_File());
  Convert(file, 3);
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "FILE NOT SAVE");
  EXPECT_EQ(platform.Messages[0].Style, 16);
  EXPECT_EQ(platform.Messages[0].Title, "ERROR");
  EXPECT_EQ(Read_File(file), Standard_File());
  EXPECT_FALSE(window.Ended);
}

// A name typed in the save dialog receives the converted file; the file picked first stays.
TEST_F(Conversion, AnotherNameGetsTheConvertedCopy) {
  const std::string file = folder.Write("075.npc", Buka_File());
  const std::string copy = folder.Path("075_eng.npc");
  Convert(file, Dialog_Pick{copy, kToStandard});
  EXPECT_EQ(Read_File(file), Buka_File());
  EXPECT_EQ(Read_File(copy), Converted_To_Standard(Buka_File()));
  EXPECT_EQ(Folder_Names(), (std::set<std::string>{"075.npc", "075_eng.npc"}));
}

TEST_F(Conversion, LeavesTheWindowAlone) {
  Open_Bytes("075.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 4); });
  const Window_State before = State_Of(window);
  const std::string other = folder.Write("076.npc", Standard_File());
  Convert(other, kToBuka);
  EXPECT_EQ(Read_File(other), Converted_To_Buka(Standard_File()));
  EXPECT_TRUE(State_Of(window) == before);
}

// The file on show is refused as a target: the window's image would still hold the old variant,
// and the next save would put it back over the conversion.
TEST_F(Conversion, FileOnShowIsRefusedAsTarget) {
  const std::string shown = folder.Write("075.npc", Standard_File());
  Open(shown);
  const std::string other = folder.Write("076.npc", Standard_File());
  const Window_State before = State_Of(window);
  const auto time = Age(shown);

  const struct {
    const char* name;
    std::string picked;
    std::string target;
  } rows[] = {
      {"in place", shown, shown},
      {"same file by another spelling", shown, folder.Path("./075.npc")},
      {"another file saved over it", other, shown},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform.Messages.clear();
    Convert(row.picked, Dialog_Pick{row.target, kToBuka});
    ASSERT_EQ(platform.Messages.size(), 1u);
    EXPECT_EQ(platform.Messages[0].Style, 48);
    EXPECT_NE(platform.Messages[0].Prompt.find(row.target), std::string::npos);
    EXPECT_EQ(Read_File(shown), Standard_File());
    EXPECT_EQ(fs::last_write_time(shown), time);
  }
  EXPECT_EQ(Read_File(other), Standard_File());
  EXPECT_TRUE(State_Of(window) == before);

  // A new file on show is no file on disk: nothing is refused.
  Event([&] { nNew_Click(window); });
  Convert(shown, kToBuka);
  EXPECT_EQ(Read_File(shown), Converted_To_Buka(Standard_File()));
}

TEST_F(Conversion, FailedWriteLeavesTheOldFile) {
  Failing_Disk disk;
  Vorlane failing{platform, disk};
  failing.Width = 9000;
  failing.Height = 7000;
  Form_Load(failing);
  for (const auto& [file_bytes, target] : {std::pair{Standard_File(), kToBuka}, std::pair{Buka_File(), kToStandard}}) {
    const std::string file = folder.Write("075.npc", file_bytes);
    platform.Picks.push_back(Dialog_Pick{file});
    platform.Picks.push_back(Dialog_Pick{file, target});
    Fire(failing, [&] { nChaing_Click(failing); });
    EXPECT_EQ(Read_File(file), file_bytes);
    EXPECT_EQ(Folder_Names(), std::set<std::string>{"075.npc"});
  }
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_FALSE(failing.Ended);
}

}  // namespace
