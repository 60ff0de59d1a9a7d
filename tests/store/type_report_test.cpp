// The type report of the file on show, and the conversion of a file on disk between the variants.
#include "store/type_report.h"
#include "store/conversion.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <tuple>

#include "store/file_commands.h"
#include "store/image.h"
#include "support/fixture.h"
#include "system/text.h"
#include "ui/navigation.h"

namespace fs = std::filesystem;

namespace {

using Messages = std::vector<Shown_Message>;
const Bytes Mark{0x39, 0x00, 0x35, 0x00};
constexpr int To_Buka_Type = 1, To_Standard_Type = 2;

Bytes To_Buka(const Bytes& old) {
  Bytes result = Mark;
  result.insert(result.end(), old.begin(), old.begin() + 1596);
  return result;
}
Bytes To_Standard(const Bytes& old) {
  Bytes result(old.begin() + 4, old.end());
  result.resize(1600, 0);
  return result;
}
Bytes Marked_Standard() {
  Bytes file = Standard_File();
  std::copy(Mark.begin(), Mark.end(), file.begin());
  return file;
}

// With no file the report gives a hint; else it counts the records in memory, before any save.
TEST_F(Window_Test, TheTypeReportCountsTheRecordsInMemory) {
  const auto report = [&](const std::string& text) {
    platform.Messages.clear();
    Event([&] { nCurrent_Click(window); });
    EXPECT_EQ(platform.Messages, (Messages{{text, 64, text.starts_with("Type") ? "FILE INFO:" : "VORLANE"}}));
  };
  report("Для определения формата файла его нужно сначала открыть!");
  const std::string standard = "Type: JA2-eng. & UB-any ver. Records exist: ",
                    buka = "Type: Агония Власти. Records exist: ";
  Bytes stump_zero = Buka_File(), three_zero = Buka_File();
  Put_Record(stump_zero, true, 50, Bytes(32, 0));
  for (const int k : {1, 49, 50}) Put_Record(three_zero, true, k, Bytes(32, 0));
  for (const auto& [file, text] : {std::pair{Standard_File(), standard + "50 "},
                                   {Buka_File(), buka + "49 Bad last record"},
                                   {stump_zero, buka + "49 "},
                                   {three_zero, buka + "47 "}}) {
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
  Event([&] { Slider_Set_Value(window, 3); });
  Set_Cells(window, "01" + std::string(62, '0'));
  Event([&] { Read_From_File(window); });
  report(standard + "1 ");
  EXPECT_EQ(Read_File(path), Standard_File());
}

class Conversion : public Window_Test {
 protected:
  explicit Conversion(Files& files = Disk()) : Window_Test(files) {}
  // Picks the file in the open dialog and the target in the save dialog, then converts.
  void Convert(const std::string& file, std::optional<Dialog_Pick> target, bool opened = true) {
    platform.Picks.push_back(opened ? std::optional(Dialog_Pick{file}) : std::nullopt);
    if (opened) platform.Picks.push_back(std::move(target));
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
  const std::tuple<Bytes, std::vector<int>, Bytes> rows[] = {
      {Standard_File(), {To_Buka_Type}, To_Buka(Standard_File())},
      {Buka_File(), {To_Standard_Type}, To_Standard(Buka_File())},
      {Marked_Standard(), {To_Standard_Type}, To_Standard(Marked_Standard())},
      {Standard_File(), {To_Buka_Type, To_Standard_Type}, there_and_back},
      {Buka_File(), {To_Standard_Type, To_Buka_Type}, Buka_File()},
  };
  for (const auto& [file, targets, expected] : rows) {
    const std::string path = folder.Write("075.npc", file);
    for (const int target : targets) Convert(path, target);
    EXPECT_EQ(Read_File(path), expected);
  }
  EXPECT_TRUE(platform.Messages.empty());
}

// Roads that write nothing, not even the same bytes again: Cancel in either dialog, a missing
// file or one of the wrong size, nothing to convert, an unknown type, a write that fails half way.
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
  if (row.file) folder.Write("075.npc", *row.file), time = Age(file);
  Convert(file, row.target ? std::optional(Dialog_Pick{file, *row.target}) : std::nullopt, row.opened);
  EXPECT_EQ(platform.Messages, row.said);
  EXPECT_FALSE(window.Ended);
  EXPECT_EQ(folder.Names(), row.file ? std::vector<std::string>{"075.npc"} : std::vector<std::string>{});
  if (row.file) {
    EXPECT_TRUE(Read_File(file) == *row.file && fs::last_write_time(file) == time);
  }
  // The save dialog comes for a file of the right size only: it names the file's type.
  const bool second = row.opened && row.file && row.file->size() == 1600;
  ASSERT_EQ(platform.Dialogs.size(), second ? 2u : 1u);
  EXPECT_EQ(Dialog_Line(platform.Dialogs[0]),
            "open|4100||*.npc|*.npc|все файлы (*.*)|*.*|1|VORLANE - OPEN FILE FOR CHANGE");
  if (!second) return;
  EXPECT_EQ(Dialog_Line(platform.Dialogs[1]), "save|6|" + file + "|Buka:АВ|*.npc|Ja2:eng.,UB:eng.&rus.|*.npc|" +
                                                  (std::equal(Mark.begin(), Mark.end(), row.file->begin())
                                                       ? "2|VORLANE - CURRENT TYPE: BUKA: АВ. SAVE AS..."
                                                       : "1|VORLANE - CURRENT TYPE: JA2:ENG.,UB:ENG.&RUS. SAVE AS..."));
}

const Messages Wrong_Size{{"Неверный размер файла", 48, "ERROR"}};

INSTANTIATE_TEST_SUITE_P(
    Roads, Quiet_Conversion,
    ::testing::Values(Quiet_Row{"CancelInTheOpenDialog", Standard_File(), To_Buka_Type, {}, false, false},
                      Quiet_Row{"MissingFile", std::nullopt, To_Buka_Type},
                      Quiet_Row{"OneByteShort", Bytes(1599, 7), To_Buka_Type, Wrong_Size},
                      Quiet_Row{"OneByteLong", Bytes(1601, 7), To_Buka_Type, Wrong_Size},
                      Quiet_Row{"StandardToStandard", Standard_File(), To_Standard_Type},
                      Quiet_Row{"BukaToBuka", Buka_File(), To_Buka_Type},
                      Quiet_Row{"MarkedStandardCountsAsBuka", Marked_Standard(), To_Buka_Type},
                      Quiet_Row{"CancelOnAStandardFile", Standard_File(), std::nullopt},
                      Quiet_Row{"CancelOnABukaFile", Buka_File(), std::nullopt},
                      Quiet_Row{"UnknownType", Standard_File(), 3, {{"FILE NOT SAVE", 16, "ERROR"}}},
                      Quiet_Row{"StandardToBukaFailsHalfWay", Standard_File(), To_Buka_Type, {}, true},
                      Quiet_Row{"BukaToStandardFailsHalfWay", Buka_File(), To_Standard_Type, {}, true}),
    [](const auto& info) { return std::string(info.param.name); });

// The conversion writes as a save does: where no new file can take the file's place, through a
// link, into a file with a second name, which sees the converted bytes too.
TEST_F(Conversion, LandsWhereverAPlainWriteWould) {
  const std::string file = folder.Write("075.npc", Standard_File());
#ifdef _WIN32
  // Wine makes no symbolic links: the conversion goes to the file by its own name.
  const std::string link = file;
  const std::vector<std::string> names{"075.npc"};
#else
  const std::string link = folder.Path("link.npc");
  const std::vector<std::string> names{"075.npc", "link.npc"};
  fs::create_symlink(file, link);
#endif
  fs::create_hard_link(text::Path(file), text::Path(folder.Path("second.npc")));
  Convert(link, To_Buka_Type);
  EXPECT_EQ(fs::is_symlink(text::Path(link)), link != file);
  EXPECT_EQ(Read_File(folder.Path("second.npc")), To_Buka(Standard_File()));
  fs::remove(text::Path(folder.Path("second.npc")));
  {
    const Unreplaceable held(file);
    Convert(file, To_Standard_Type);
  }
  EXPECT_EQ(Read_File(file), To_Standard(To_Buka(Standard_File())));
  EXPECT_EQ(folder.Names(), names);
  EXPECT_TRUE(platform.Messages.empty());
}

// The file on show is refused as a target: the window's image would still hold the old variant,
// and the next save would put it back over the conversion. Another file converts, to a name
// typed in the save dialog, and the window is left alone throughout.
TEST_F(Conversion, FileOnShowIsRefusedAsTarget) {
  const std::string shown = folder.Write("075.npc", Standard_File()), other = folder.Write("076.npc", Standard_File());
  Open(shown);
  Event([&] { Slider_Set_Value(window, 4); });
  const auto before = std::tuple(window.HexImage, window.FileType, Cells_Text(window), window.SBar_2.SimpleText,
                                 window.Records, window.Current_Record);
  const auto time = Age(shown);
  for (const auto& [picked, target] : {std::pair{shown, shown}, {shown, folder.Path("./075.npc")}, {other, shown}}) {
    platform.Messages.clear();
    Convert(picked, Dialog_Pick{target, To_Buka_Type});
    EXPECT_EQ(platform.Messages, (Messages{{"Файл " + target +
                                                " открыт в окне. Сохраните результат под другим именем или "
                                                "сначала откройте другой файл.",
                                            48, "ERROR"}}));
    EXPECT_TRUE(Read_File(shown) == Standard_File() && fs::last_write_time(shown) == time);
  }
  Convert(other, Dialog_Pick{folder.Path("076_ja.npc"), To_Buka_Type});
  EXPECT_EQ(Read_File(folder.Path("076_ja.npc")), To_Buka(Standard_File()));
  EXPECT_EQ(Read_File(other), Standard_File()) << "the file picked first stays";
  EXPECT_TRUE(std::tuple(window.HexImage, window.FileType, Cells_Text(window), window.SBar_2.SimpleText, window.Records,
                         window.Current_Record) == before);
  // A new file on show is no file on disk: nothing is refused.
  Event([&] { nNew_Click(window); });
  Convert(shown, To_Buka_Type);
  EXPECT_EQ(Read_File(shown), To_Buka(Standard_File()));
}

}  // namespace
