#include "store/type_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <tuple>

#include "store/file_commands.h"
#include "store/image.h"
#include "support/fixture.h"
#include "ui/navigation.h"
#include "ui/shell.h"

namespace fs = std::filesystem;

namespace {

using Messages = std::vector<Shown_Message>;
const Bytes kMark{0x39, 0x00, 0x35, 0x00};
constexpr int kToBuka = 1;
constexpr int kToStandard = 2;

Bytes With_Zero_Records(bool buka, std::initializer_list<int> zeroed) {
  Bytes file = buka ? Buka_File() : Standard_File();
  for (int k : zeroed) Put_Record(file, buka, k, Bytes(32, 0));
  return file;
}

using Type_Report = Window_Test;

// With no file the report gives a hint; else it counts the records in memory, before any save.
TEST_F(Type_Report, CountsTheRecordsInMemory) {
  const auto report = [&](const std::string& text) {
    platform.Messages.clear();
    Event([&] { nCurrent_Click(window); });
    EXPECT_EQ(platform.Messages, (Messages{{text, 64, text.starts_with("Type") ? "FILE INFO:" : "VORLANE"}}));
  };
  report("Для определения формата файла его нужно сначала открыть!");
  const std::string standard = "Type: JA2-eng. & UB-any ver. Records exist: ";
  const std::string buka = "Type: Агония Власти. Records exist: ";
  const std::pair<Bytes, std::string> files[] = {
      {Standard_File(), standard + "50 "},
      {Buka_File(), buka + "49 Bad last record"},
      {With_Zero_Records(true, {50}), buka + "49 "},
      {With_Zero_Records(true, {1, 49, 50}), buka + "47 "},
  };
  for (const auto& [file, text] : files) {
    Open_Bytes("075.npc", file);
    report(text);
  }
  // A record emptied counts no more, one filled in counts.
  const std::string path = folder.Write("075.npc", Standard_File());
  Open(path);
  Event([&] { Slider_Set_Value(window, 7); });
  Set_Cells(window, std::string(64, '0'));
  Event([&] { Read_From_File(window); });
  report(standard + "49 ");
  platform.Answers.push_back(msgbox::No);
  Event([&] { nNew_Click(window); });
  report(standard + "0 ");
  Event([&] { Slider_Set_Value(window, 3); });
  Set_Cells(window, "01" + std::string(62, '0'));
  Event([&] { Read_From_File(window); });
  report(standard + "1 ");
  EXPECT_EQ(Read_File(path), Standard_File());
}

// The conversions: the mark put in front and the last four bytes dropped, or the mark dropped and
// four zero bytes put at the end.
Bytes To_Buka(const Bytes& old) {
  Bytes result = kMark;
  result.insert(result.end(), old.begin(), old.begin() + 1596);
  return result;
}
Bytes To_Standard(const Bytes& old) {
  Bytes result(old.begin() + 4, old.end());
  result.resize(1600, 0);
  return result;
}

// A standard file that happens to begin with the Buka mark.
Bytes Marked_Standard() {
  Bytes file = Standard_File();
  std::copy(kMark.begin(), kMark.end(), file.begin());
  return file;
}

// What the window holds; a conversion must leave all of it as it was.
auto State_Of(const Vorlane& w) {
  return std::tuple(w.HexImage, w.Saved_Image, w.FileType, Cells_Text(w), w.SBar_1.SimpleText, w.SBar_2.SimpleText,
                    w.SBar_3.SimpleText, w.Records, w.Current_Record, w.Slider.Value);
}

class Conversion : public Window_Test {
 protected:
  explicit Conversion(Files& files = Disk()) : Window_Test(files) {}
  // Picks the file in the open dialog and the target in the save dialog, then converts.
  void Convert(const std::string& file, std::optional<Dialog_Pick> target) {
    platform.Picks.push_back(Dialog_Pick{file});
    platform.Picks.push_back(std::move(target));
    Event([&] { nChaing_Click(window); });
  }
  void Convert(const std::string& file, int target_type) { Convert(file, Dialog_Pick{file, target_type}); }

  // Dates the file an hour back, so that any rewrite would show in its time.
  static fs::file_time_type Age(const std::string& path) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    return fs::last_write_time(path);
  }
};

TEST_F(Conversion, ConvertsByteForByteAndBack) {
  Bytes there_and_back = Standard_File();
  std::fill(there_and_back.begin() + 1596, there_and_back.end(), 0);  // bytes 29 .. 32 of record 50
  const struct {
    const char* name;
    Bytes file;
    std::vector<int> targets;
    Bytes expected;
  } rows[] = {
      {"standard to Buka", Standard_File(), {kToBuka}, To_Buka(Standard_File())},
      {"Buka to standard", Buka_File(), {kToStandard}, To_Standard(Buka_File())},
      {"marked standard to standard", Marked_Standard(), {kToStandard}, To_Standard(Marked_Standard())},
      {"standard there and back", Standard_File(), {kToBuka, kToStandard}, there_and_back},
      {"Buka there and back", Buka_File(), {kToStandard, kToBuka}, Buka_File()},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string file = folder.Write("075.npc", row.file);
    for (const int target : row.targets) Convert(file, target);
    EXPECT_EQ(Read_File(file), row.expected);
  }
  EXPECT_TRUE(platform.Messages.empty());
}

// Roads that write nothing, not even the same bytes again: Cancel in either dialog, a missing
// file or one of the wrong size, nothing to convert, an unknown type, a write that fails half way.
// The save dialog names the file's type and proposes the other.
struct Quiet_Row {
  const char* name;
  std::optional<Bytes> file;  // nullopt: no such file
  std::optional<int> target;  // picked in the save dialog; nullopt: Cancel
  Messages said = {};
  bool failing = false;  // the disk gives out half way through the write
  bool opened = true;    // false: Cancel in the open dialog
};

Failing_Disk failing_disk;

class Quiet_Conversion : public Conversion, public ::testing::WithParamInterface<Quiet_Row> {
 protected:
  Quiet_Conversion() : Conversion(GetParam().failing ? static_cast<Files&>(failing_disk) : Disk()) {}
};

TEST_P(Quiet_Conversion, WritesNothing) {
  const Quiet_Row& row = GetParam();
  const std::string file = folder.Path("075.npc");
  fs::file_time_type time;
  if (row.file) {
    folder.Write("075.npc", *row.file);
    time = Age(file);
  }
  platform.Picks.push_back(row.opened ? std::optional(Dialog_Pick{file}) : std::nullopt);
  platform.Picks.push_back(row.target ? std::optional(Dialog_Pick{file, *row.target}) : std::nullopt);
  Event([&] { nChaing_Click(window); });
  EXPECT_EQ(platform.Messages, row.said);
  EXPECT_FALSE(window.Ended);
  EXPECT_EQ(folder.Names(), row.file ? std::vector<std::string>{"075.npc"} : std::vector<std::string>{});
  if (row.file) {
    EXPECT_EQ(Read_File(file), *row.file);
    EXPECT_EQ(fs::last_write_time(file), time);
  }
  const bool second = row.opened && row.file && row.file->size() == 1600;
  ASSERT_EQ(platform.Dialogs.size(), second ? 2u : 1u);
  EXPECT_EQ(Dialog_Line(platform.Dialogs[0]),
            "open|4100||*.npc|*.npc|все файлы (*.*)|*.*|1|VORLANE - OPEN FILE FOR CHANGE");
  if (second) {
    const bool buka = std::equal(kMark.begin(), kMark.end(), row.file->begin());
    EXPECT_EQ(Dialog_Line(platform.Dialogs[1]),
              "save|6|" + file + "|Buka:АВ|*.npc|Ja2:eng.,UB:eng.&rus.|*.npc|" +
                  (buka ? "2|VORLANE - CURRENT TYPE: BUKA: АВ. SAVE AS..."
                        : "1|VORLANE - CURRENT TYPE: JA2:ENG.,UB:ENG.&RUS. SAVE AS..."));
  }
}

const Messages kWrongSize{{"Неверный размер файла", 48, "ERROR"}};

INSTANTIATE_TEST_SUITE_P(
    Roads, Quiet_Conversion,
    ::testing::Values(Quiet_Row{"CancelInTheOpenDialog", Standard_File(), kToBuka, {}, false, false},
                      Quiet_Row{"MissingFile", std::nullopt, kToBuka}, Quiet_Row{"Empty", Bytes(), kToBuka, kWrongSize},
                      Quiet_Row{"OneByteShort", Bytes(1599, 7), kToBuka, kWrongSize},
                      Quiet_Row{"OneByteLong", Bytes(1601, 7), kToBuka, kWrongSize},
                      Quiet_Row{"Double", Bytes(3200, 7), kToBuka, kWrongSize},
                      Quiet_Row{"StandardToStandard", Standard_File(), kToStandard},
                      Quiet_Row{"BukaToBuka", Buka_File(), kToBuka},
                      Quiet_Row{"MarkedStandardCountsAsBuka", Marked_Standard(), kToBuka},
                      Quiet_Row{"CancelOnAStandardFile", Standard_File(), std::nullopt},
                      Quiet_Row{"CancelOnABukaFile", Buka_File(), std::nullopt},
                      Quiet_Row{"UnknownType", Standard_File(), 3, {{"FILE NOT SAVE", 16, "ERROR"}}},
                      Quiet_Row{"StandardToBukaFailsHalfWay", Standard_File(), kToBuka, {}, true},
                      Quiet_Row{"BukaToStandardFailsHalfWay", Buka_File(), kToStandard, {}, true}),
    [](const auto& info) { return std::string(info.param.name); });

// The conversion writes as a save does: where the folder takes no new file, through a link,
// into a file with a second name, which sees the converted bytes too.
TEST_F(Conversion, LandsWhereverAPlainWriteWould) {
  const std::string file = folder.Write("075.npc", Standard_File()), link = folder.Path("link.npc");
  fs::create_hard_link(file, folder.Path("second.npc"));
  fs::create_symlink(file, link);
  Convert(link, kToBuka);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Read_File(folder.Path("second.npc")), To_Buka(Standard_File()));
  fs::remove(folder.Path("second.npc"));
  {
    const Folder_Without_New_Files locked(folder.Path(""));
    Convert(file, kToStandard);
  }
  EXPECT_EQ(Read_File(file), To_Standard(To_Buka(Standard_File())));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"075.npc", "link.npc"}));
  EXPECT_TRUE(platform.Messages.empty());
}

// The file on show is refused as a target: the window's image would still hold the old variant,
// and the next save would put it back over the conversion. Another file converts, to a name
// typed in the save dialog, and the window is left alone throughout.
TEST_F(Conversion, FileOnShowIsRefusedAsTarget) {
  const std::string shown = folder.Write("075.npc", Standard_File());
  Open(shown);
  Event([&] { Slider_Set_Value(window, 4); });
  const std::string other = folder.Write("076.npc", Standard_File());
  const auto before = State_Of(window);
  const auto time = Age(shown);
  const std::pair<std::string, std::string> rows[] = {
      {shown, shown}, {shown, folder.Path("./075.npc")}, {other, shown}};  // picked, target
  for (const auto& [picked, target] : rows) {
    SCOPED_TRACE(picked + " to " + target);
    platform.Messages.clear();
    Convert(picked, Dialog_Pick{target, kToBuka});
    EXPECT_EQ(platform.Messages,
              (Messages{{"Файл " + target +
                             " открыт в окне. Сохраните результат под другим именем или сначала откройте другой файл.",
                         48, "ERROR"}}));
    EXPECT_EQ(Read_File(shown), Standard_File());
    EXPECT_EQ(fs::last_write_time(shown), time);
  }
  Convert(other, Dialog_Pick{folder.Path("076_ja.npc"), kToBuka});
  EXPECT_EQ(Read_File(folder.Path("076_ja.npc")), To_Buka(Standard_File()));
  EXPECT_EQ(Read_File(other), Standard_File()) << "the file picked first stays";
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"075.npc", "076.npc", "076_ja.npc"}));
  EXPECT_TRUE(State_Of(window) == before);

  // A new file on show is no file on disk: nothing is refused.
  Event([&] { nNew_Click(window); });
  Convert(shown, kToBuka);
  EXPECT_EQ(Read_File(shown), To_Buka(Standard_File()));
}

}  // namespace
