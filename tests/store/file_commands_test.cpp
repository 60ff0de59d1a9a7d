// Open, new, save, save as and leaving, as the user drives them, down to the bytes on disk.
#include "store/file_commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <tuple>

#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/image.h"
#include "support/fixture.h"
#include "ui/navigation.h"
#include "ui/shell.h"

namespace {

namespace fs = std::filesystem;
using Messages = std::vector<Shown_Message>;

const std::string Filter = "*.npc|*.npc|все файлы (*.*)|*.*";
const std::string Open_Dialog = "open|4100||" + Filter + "|1|VORLANE - OPEN FILE...";
const std::string Save_As_Dialog = "save|6||" + Filter + "|1|VORLANE - SAVE AS...";
const Shown_Message Save_Failed{"Ошибка во время сохранения файла", 16, "ERROR"};

// The file with byte 1 of record 3 made EE, as Change_Record_3 does.
Bytes Changed(Bytes file = Standard_File()) {
  file[64] = 0xEE;
  return file;
}

Messages Question(const std::string& shown) { return {{"Сохранить " + shown + "?", 35, "VORLANE"}}; }

class File_Commands : public Window_Test {
 protected:
  explicit File_Commands(Files& files = Disk()) : Window_Test(files) {}

  // Opens a standard file 075.npc and changes byte 1 of record 3 to EE.
  std::string Open_Changed() {
    const std::string path = folder.Write("075.npc", Standard_File());
    Open(path);
    Change_Record_3();
    return path;
  }
  void Change_Record_3() {
    Event([&] { Slider_Set_Value(window, 3); });
    window.L(1).Caption = "EE";
    Event([&] { Read_From_File(window); });
    ASSERT_NE(window.HexImage, window.Saved_Image);
  }
  void Answer(int answer) { platform.Answers.push_back(answer); }
  // A name picked in the next file dialog; nullopt is Cancel.
  void Pick(const std::optional<std::string>& path) {
    platform.Picks.push_back(path ? std::optional(Dialog_Pick{*path}) : std::nullopt);
  }
  void Run(void (*command)(Vorlane&)) {
    Event([&] { command(window); });
  }
  std::string Bars() const {
    return window.SBar_1.SimpleText + "|" + window.SBar_2.SimpleText + "|" + window.SBar_3.SimpleText;
  }
};

// Open shows the file with its character's name; every file of another size is refused and
// brings the dialog again, and Cancel at last leaves the file on show as it was.
TEST_F(File_Commands, OpenShowsTheFileAndRefusesAnyOtherSize) {
  const std::string path = folder.Write("075.npc", Standard_File());
  Open(path);
  EXPECT_EQ(Dialog_Line(platform.Dialogs.at(0)), Open_Dialog);
  EXPECT_EQ(Bars(), "1600 bytes|" + path + "|075.NPC - Дейдрана|Моррис");
  EXPECT_EQ(window.File_Path, path);
  EXPECT_TRUE(window.Check.Enabled && window.nSave.Enabled && window.nSaveas.Enabled && !window.nEdit.Enabled);
  EXPECT_EQ(image::Bytes_Of(window.HexImage), Standard_File());
  Event([&] { Slider_Set_Value(window, 7); });
  const std::string bars = Bars(), cells = Cells_Text(window);
  for (const auto& [name, bytes] :
       {std::pair{"short.npc", Bytes(1599, 1)}, {"long.npc", Bytes(1601, 2)}, {"0.npc", Bytes()}})
    Pick(folder.Write(name, bytes));
  fs::create_directory(folder.Path("a folder.npc"));
  Pick(folder.Path("a folder.npc"));
  Pick(std::nullopt);
  Run(nOpen_Click);
  EXPECT_EQ(platform.Dialogs.size(), 6u);
  EXPECT_EQ(platform.Messages, Messages(4, {"Неверный размер файла", 48, "ERROR"}));
  EXPECT_EQ(std::tuple(Bars(), Cells_Text(window), window.Slider.Value), std::tuple(bars, cells, 7));
}

// Open, New and Exit with a changed file ask first, and go on or stay as the answer says.
struct Leave_Row {
  const char* name;
  void (*command)(Vorlane&);
  int answer;
  const char* shown;  // afterwards: a name in the folder, or the new file
  bool unloaded;
};

class Leaving : public File_Commands, public ::testing::WithParamInterface<Leave_Row> {};

TEST_P(Leaving, AChangedFileFollowsTheAnswer) {
  const Leave_Row& row = GetParam();
  const std::string path = Open_Changed();
  const bool open = row.command == nOpen_Click, goes_on = row.answer != msgbox::Cancel;
  Answer(row.answer);
  if (open) Pick(folder.Write("other.npc", Buka_File()));
  Run(row.command);
  EXPECT_EQ(platform.Messages, Question(path));
  EXPECT_EQ(Read_File(path), row.answer == msgbox::Yes ? Changed() : Standard_File());
  EXPECT_EQ(window.SBar_2.SimpleText, row.shown == std::string(New_File_Path) ? row.shown : folder.Path(row.shown));
  EXPECT_EQ(window.Unloaded, row.unloaded);
  EXPECT_FALSE(platform.Ended) << "leaving is no fatal end";
  EXPECT_EQ(platform.Dialogs.size(), open && goes_on ? 2u : 1u) << "the open dialog only once the file is left";
  if (!goes_on) {
    EXPECT_NE(window.HexImage, window.Saved_Image) << "a cancelled road keeps the change";
  }
}

INSTANTIATE_TEST_SUITE_P(Answers, Leaving,
                         ::testing::Values(Leave_Row{"OpenYes", nOpen_Click, msgbox::Yes, "other.npc", false},
                                           Leave_Row{"OpenNo", nOpen_Click, msgbox::No, "other.npc", false},
                                           Leave_Row{"OpenCancel", nOpen_Click, msgbox::Cancel, "075.npc", false},
                                           Leave_Row{"NewYes", nNew_Click, msgbox::Yes, New_File_Path, false},
                                           Leave_Row{"NewNo", nNew_Click, msgbox::No, New_File_Path, false},
                                           Leave_Row{"NewCancel", nNew_Click, msgbox::Cancel, "075.npc", false},
                                           Leave_Row{"ExitYes", nExit_Click, msgbox::Yes, "075.npc", true},
                                           Leave_Row{"ExitNo", nExit_Click, msgbox::No, "075.npc", true},
                                           Leave_Row{"ExitCancel", nExit_Click, msgbox::Cancel, "075.npc", false}),
                         [](const auto& info) { return std::string(info.param.name); });

// Yes for a changed file with no place on disk (a new file, or one gone from disk) brings the
// save-as dialog without a word of the missing file; Cancel there keeps everything as it was.
class Yes_Without_A_File : public File_Commands, public ::testing::WithParamInterface<std::tuple<bool, bool, bool>> {};

TEST_P(Yes_Without_A_File, AsksForANameFirst) {
  const auto [gone, exit, picked] = GetParam();
  std::string shown = New_File_Path;
  if (gone) {
    shown = Open_Changed();
    fs::remove(shown);
  } else {
    Run(nNew_Click);
    Change_Record_3();
  }
  const std::string image = window.HexImage, saved = folder.Path("saved.npc");
  const std::string other = folder.Write("other.npc", Buka_File());
  const std::size_t dialogs = platform.Dialogs.size();
  Answer(msgbox::Yes);
  Pick(picked ? std::optional(saved) : std::nullopt);
  if (picked && !exit) Pick(other);
  Run(exit ? nExit_Click : nOpen_Click);
  EXPECT_EQ(platform.Messages, Question(shown));
  ASSERT_EQ(platform.Dialogs.size(), dialogs + (picked && !exit ? 2 : 1));
  EXPECT_EQ(Dialog_Line(platform.Dialogs[dialogs]), Save_As_Dialog);
  EXPECT_EQ(window.Unloaded, picked && exit);
  if (picked) {
    EXPECT_EQ(Read_File(saved), Changed(gone ? Standard_File() : Bytes(1600, 0)));
    EXPECT_EQ(window.SBar_2.SimpleText, exit ? saved : other);
  } else {
    EXPECT_EQ(window.HexImage, image);
    EXPECT_EQ(window.SBar_2.SimpleText, shown);
    EXPECT_EQ(window.Slider.Value, 3);
    EXPECT_EQ(window.Txt_Free.Text, "ERROR$");
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, Yes_Without_A_File,
                         ::testing::Combine(::testing::Bool(), ::testing::Bool(), ::testing::Bool()));

TEST_F(File_Commands, AnswerNoThenCancelledOpenKeepsTheFileOnShowWhole) {
  const std::string path = Open_Changed();
  const std::string image = window.HexImage;
  Event([&] { Slider_Set_Value(window, 0); });
  Answer(msgbox::No);
  Pick(std::nullopt);
  Run(nOpen_Click);
  EXPECT_EQ(window.HexImage, image) << "the image is never emptied under the file on show";
  Event([&] { Slider_Set_Value(window, 3); });
  EXPECT_EQ(window.L(1).Caption, "EE");
  Run(nSave_Click);
  EXPECT_EQ(Read_File(path), Changed());
}

TEST_F(File_Commands, NewGivesAStandardFileOfZerosThatCountsAsUnchanged) {
  Open_Bytes("075.npc", Buka_File());
  Event([&] { Slider_Set_Value(window, 5); });
  Run(nNew_Click);
  EXPECT_EQ(window.HexImage, std::string(3200, '0'));
  EXPECT_EQ(window.Saved_Image, window.HexImage);
  EXPECT_EQ(window.FileType, "");
  EXPECT_EQ(window.Slider.Value, 0);
  EXPECT_EQ(Cells_Text(window), "");
  EXPECT_EQ(Bars(), "1600 bytes|...\\new.npc|NEW.NPC");
  EXPECT_EQ(window.File_Path, folder.Path("075.npc")) << "File_Path stays as it was";
  Run(ComExit_Click);
  EXPECT_TRUE(window.Unloaded);
  EXPECT_TRUE(platform.Messages.empty());
}

// Save writes the whole file even over a shorter one and renews the status bars; a file gone
// from disk is named, then a name asked for; Save as goes on with the new name, cut to 1600 bytes
// over a longer file; Cancel there changes nothing.
TEST_F(File_Commands, SaveAndSaveAs) {
  const std::string path = Open_Changed();
  folder.Write("075.npc", Bytes(100, 0x55));
  window.SBar_3.SimpleText = "stale";
  Run(nSave_Click);
  EXPECT_EQ(Read_File(path), Changed());
  EXPECT_EQ(window.Saved_Image, window.HexImage);
  EXPECT_EQ(Bars(), "1600 bytes|" + path + "|075.NPC - Дейдрана|Моррис");
  EXPECT_EQ(Cells_Text(window).substr(0, 2), "EE");

  fs::remove(path);
  const std::string copy = folder.Write("100.npc", Bytes(5000, 0x77));
  Pick(copy);
  Run(nSave_Click);
  EXPECT_EQ(platform.Messages,
            (Messages{{"Файл " + path + " не найден!\r\nВозможно он был удален или перемещен", 16, "ERROR"}}));
  EXPECT_EQ(Dialog_Line(platform.Dialogs.back()), Save_As_Dialog);
  EXPECT_EQ(Read_File(copy), Changed());
  EXPECT_EQ(window.SBar_3.SimpleText, "100.NPC - Отец Джон Уокер");
  window.L(2).Caption = "DD";
  Event([&] { Read_From_File(window); });
  Run(nSave_Click);
  EXPECT_EQ(Read_File(copy)[65], 0xDD);
  Pick(std::nullopt);
  Run(nSaveas_Click);
  EXPECT_EQ(std::tuple(window.Txt_Free.Text, window.SBar_2.SimpleText), std::tuple("ERROR$", copy));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"100.npc"});
}

// Even with a file of the placeholder's very name in the working folder, a new file is never
// saved there: the dialog asks for a name. (On Windows the placeholder names no file: a folder's
// name can't be three dots.)
TEST_F(File_Commands, SaveOfANewFileAsksForAName) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path(""));
#ifndef _WIN32
  folder.Write(New_File_Path, Standard_File());
#endif
  Run(nNew_Click);
  Pick(std::nullopt);
  Run(nSave_Click);
  fs::current_path(before);
  EXPECT_EQ(Dialog_Line(platform.Dialogs.at(0)), Save_As_Dialog);
#ifndef _WIN32
  EXPECT_EQ(Read_File(folder.Path(New_File_Path)), Standard_File());
#endif
  const std::string path = folder.Path("Новый файл.npc");
  Pick(path);
  Run(nSave_Click);
  EXPECT_EQ(Read_File(path), Bytes(1600, 0));
  EXPECT_EQ(std::tuple(window.SBar_2.SimpleText, window.SBar_3.SimpleText), std::tuple(path, "НОВЫЙ ФАЙЛ.NPC"));
  EXPECT_TRUE(platform.Messages.empty());
}

// A save that fails, half way through the bytes or refused outright: message 8, the program
// ends, nothing runs after it, and every file on disk is as it was with nothing left beside them.
Failing_Disk failing_disk;

struct Failure_Row {
  const char* name;
  bool half_way;
  void (*command)(Vorlane&);
  const char* target;      // picked in the save dialog, if one comes
  std::size_t dialogs;     // the open dialog of the file first, then those of the command
  bool read_only = false;  // the other file is read-only
};

const Failure_Row Failure_Rows[] = {
    {"Save", true, nSave_Click, "", 1},
    {"SaveAsOverAnotherFile", true, nSaveas_Click, "other.npc", 2},
    {"YesWhenLeaving", true, nOpen_Click, "other.npc", 1},
    {"IntoAMissingFolder", false, nSaveas_Click, "missing/x.npc", 2},
    {"OntoAFolder", false, nSaveas_Click, "a folder", 2},
#ifdef _WIN32
    // Windows keeps everyone from writing a read-only file; a POSIX system lets root write it.
    {"OntoAReadOnlyFile", false, nSaveas_Click, "other.npc", 2, true},
#endif
};

class Failed_Save : public File_Commands, public ::testing::WithParamInterface<Failure_Row> {
 protected:
  Failed_Save() : File_Commands(GetParam().half_way ? static_cast<Files&>(failing_disk) : Disk()) {}
};

TEST_P(Failed_Save, EndsTheProgramAndLeavesTheOldFiles) {
  const Failure_Row& row = GetParam();
  const std::string path = Open_Changed();
  const std::string other = folder.Write("other.npc", Buka_File());
  if (row.read_only) fs::permissions(text::Path(other), fs::perms::owner_write, fs::perm_options::remove);
  fs::create_directory(folder.Path("a folder"));
  Answer(msgbox::Yes);
  Pick(folder.Path(row.target));
  Run(row.command);
  Messages expected = row.command == nOpen_Click ? Question(path) : Messages{};
  expected.push_back(Save_Failed);
  EXPECT_EQ(platform.Messages, expected);
  EXPECT_TRUE(platform.Ended);
  EXPECT_EQ(platform.Dialogs.size(), row.dialogs);
  EXPECT_EQ(Read_File(path), Standard_File());
  EXPECT_EQ(Read_File(other), Buka_File());
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"075.npc", "a folder", "other.npc"}));
}

INSTANTIATE_TEST_SUITE_P(Roads, Failed_Save, ::testing::ValuesIn(Failure_Rows),
                         [](const auto& info) { return std::string(info.param.name); });

// A disk without room for a second copy: the first write, to the new file, finds it full.
class Full_Disk : public Disk_Files {
 public:
  int Writes = 0;

 protected:
  void Write_Chunk(Native_File fd, const std::uint8_t* data, std::size_t size) override {
    if (++Writes == 1) throw No_Room("disk full");
    Disk_Files::Write_Chunk(fd, data, size);
  }
} full_disk;

// A save lands wherever a plain write would: where no new file can take the file's place, on a
// disk with no room for a second copy, through a link, and into a file with a second name, which
// must see the new bytes too. Nothing is left beside the file.
TEST_F(File_Commands, SaveLandsWhereverAPlainWriteWould) {
  const std::string path = Open_Changed();
  const std::string second = folder.Path("second name.npc");
#ifdef _WIN32
  // Wine makes no symbolic links: the save goes to the file by its own name.
  const std::string link = path;
  const std::vector<std::string> names{"075.npc"};
#else
  const std::string link = folder.Path("link.npc");
  const std::vector<std::string> names{"075.npc", "link.npc"};
  fs::create_symlink(path, link);
#endif
  fs::create_hard_link(text::Path(path), text::Path(second));
  Pick(link);
  Run(nSaveas_Click);
  EXPECT_EQ(fs::is_symlink(text::Path(link)), link != path);
  EXPECT_EQ(Read_File(second), Changed()) << "through a link, into the file with two names";

  window.L(2).Caption = "DD";
  Event([&] { Read_From_File(window); });
  fs::remove(text::Path(second));
  {
    const Unreplaceable held(path);
    Run(nSave_Click);
  }
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(Read_File(path)[65], 0xDD);

  Disk_Files& disk = full_disk;
  disk.Write(path, Standard_File());
  EXPECT_EQ(full_disk.Writes, 2);
  EXPECT_EQ(Read_File(path), Standard_File());
  EXPECT_EQ(folder.Names(), names);
}

// Names as a user may give them: Cyrillic, with blanks, and as long as the disk allows (255 bytes).
// The status bars, the character's name, the tool tip, the proposed speech file and the save all
// take them whole.
TEST_F(File_Commands, AnyNameWorksThroughout) {
  std::string long_name = "075", long_bar = "075";
  for (int i = 0; i < 124; ++i) long_name += "ж", long_bar += "Ж";
  const std::pair<std::string, std::string> rows[] = {
      {"Ёжик в тумане.npc", "ЁЖИК В ТУМАНЕ.NPC"},
      {" 75 x.npc", " 75 X.NPC - Дейдрана|Моррис"},  // blanks around a number still make one
      {long_name + ".npc", long_bar + ".NPC - Дейдрана|Моррис"},
      {std::string(251, 'x') + ".npc", std::string(251, 'X') + ".NPC"},
  };
  for (const auto& [name, bar] : rows) {
    const std::string path = folder.Write(name, Standard_File());
    Open(path);
    Event([&] { SBar_3_MouseMove(window); });
    EXPECT_EQ(window.SBar_3.SimpleText + "|" + window.SBar_3.ToolTipText,
              bar + "|" + (text::Length(bar) >= 27 ? bar : ""));
    Pick(std::nullopt);
    Event([&] { Check_Set_Value(window, 1); });
    EXPECT_EQ(platform.Dialogs.back().Settings.FileName, name.substr(0, name.size() - 4) + ".edt");
    Change_Record_3();
    Run(nSave_Click);
    EXPECT_TRUE(platform.Messages.empty() && Read_File(path) == Changed()) << name;
  }
}

// A disk whose file vanishes between the size test and the read.
class Vanishing_Files : public Disk_Files {
 public:
  Bytes Read(const std::string& path, std::int64_t, std::size_t) override {
    fs::remove(path);
    throw Run_Time_Error("gone");
  }
} vanishing_files;

class Unreadable_File : public File_Commands {
 protected:
  Unreadable_File() : File_Commands(vanishing_files) {}
};

TEST_F(Unreadable_File, LeavesTheWindowAsItWas) {
  Open_Bytes("a.npc", Standard_File());
  EXPECT_TRUE(platform.Messages.empty() && Bars() == "||" && !window.nSave.Enabled);
}

}  // namespace
