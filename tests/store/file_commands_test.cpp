#include <gtest/gtest.h>

#include <filesystem>

#include "store/file_commands.h"
#include "speech/speech.h"
#include "store/image.h"
#include "store/text.h"
#include "support/fixture.h"
#include "ui/navigation.h"
#include "ui/shell.h"
#include "vocab/vocab.h"

namespace {

namespace fs = std::filesystem;

std::string Name_Of(int npc) {
  std::string name = std::to_string(npc);
  Position::Npc_Name(name);
  return name;
}

class File_Commands : public Window_Test {
 protected:
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
  static Bytes Changed_File() {
    Bytes file = Standard_File();
    file[64] = 0xEE;
    return file;
  }
  void Answer(int answer) { platform.Answers.push_back(answer); }
  void Pick(const std::string& path) { platform.Picks.push_back(Dialog_Pick{path}); }
  void Cancel_Dialog() { platform.Picks.push_back(std::nullopt); }
  const Shown_Message& Only_Message() {
    EXPECT_EQ(platform.Messages.size(), 1u);
    return platform.Messages.at(0);
  }
  void Expect_Question(const std::string& path) {
    const Shown_Message& m = Only_Message();
    EXPECT_EQ(m.Prompt, "Сохранить " + path + "?");
    EXPECT_EQ(m.Style, 35);
    EXPECT_EQ(m.Title, "VORLANE");
  }
  std::string other_path() { return folder.Write("other.npc", Buka_File()); }
};

TEST_F(File_Commands, OpenShowsTheFileWithItsCharactersName) {
  const std::string path = folder.Write("075.npc", Standard_File());
  Open(path);
  ASSERT_EQ(platform.Dialogs.size(), 1u);
  const Common_Dialog& dialog = platform.Dialogs[0].Settings;
  EXPECT_FALSE(platform.Dialogs[0].Save);
  EXPECT_EQ(dialog.Flags, 4100);
  EXPECT_EQ(dialog.FileName, "");
  EXPECT_EQ(dialog.Filter, "*.npc|*.npc|все файлы (*.*)|*.*");
  EXPECT_EQ(dialog.FilterIndex, 1);
  EXPECT_EQ(dialog.DialogTitle, "VORLANE - OPEN FILE...");
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(window.SBar_1.SimpleText, "1600 bytes");
  EXPECT_EQ(window.SBar_2.SimpleText, path);
  EXPECT_EQ(window.SBar_3.SimpleText, "075.NPC - " + Name_Of(75));
  EXPECT_EQ(window.File_Path, path);
  EXPECT_EQ(window.Slider.Value, 0);
  EXPECT_TRUE(window.Check.Enabled);
  EXPECT_FALSE(window.nEdit.Enabled);
  EXPECT_TRUE(window.nSave.Enabled);
  EXPECT_TRUE(window.nSaveas.Enabled);
  EXPECT_EQ(image::Bytes_Of(window.HexImage), Standard_File());
}

TEST_F(File_Commands, AFileOfAnyOtherSizeIsRefusedAndTheDialogComesAgain) {
  Open_Bytes("good.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 7); });
  const std::string shown = Cells_Text(window);
  const std::pair<std::string, Bytes> files[] = {
      {"short.npc", Bytes(1599, 1)},
      {"long.npc", Bytes(1601, 2)},
      {"empty.npc", Bytes()},
      {"huge.npc", Bytes(10 << 20, 3)},
  };
  for (const auto& [name, bytes] : files) Pick(folder.Write(name, bytes));
  const std::string a_folder = folder.Path("a folder.npc");
  fs::create_directory(a_folder);
  Pick(a_folder);  // a folder picked as a file
  Cancel_Dialog();
  Event([&] { nOpen_Click(window); });
  EXPECT_EQ(platform.Dialogs.size(), 7u);
  ASSERT_EQ(platform.Messages.size(), 5u);
  for (const auto& m : platform.Messages) {
    EXPECT_EQ(m.Prompt, "Неверный размер файла");
    EXPECT_EQ(m.Style, 48);
    EXPECT_EQ(m.Title, "ERROR");
  }
  EXPECT_EQ(window.SBar_2.SimpleText, folder.Path("good.npc"));
  EXPECT_EQ(window.Slider.Value, 7);
  EXPECT_EQ(Cells_Text(window), shown);
  for (const auto& [name, bytes] : files) EXPECT_TRUE(Read_File(folder.Path(name)) == bytes) << name;
  EXPECT_TRUE(fs::is_directory(a_folder) && fs::is_empty(a_folder));
  EXPECT_EQ(Read_File(folder.Path("good.npc")), Standard_File());
}

TEST_F(File_Commands, CancelInTheOpenDialogChangesNothing) {
  Open_Bytes("075.npc", Standard_File());
  Event([&] { Slider_Set_Value(window, 4); });
  Cancel_Dialog();
  Event([&] { nOpen_Click(window); });
  EXPECT_EQ(window.Slider.Value, 4);
  EXPECT_EQ(Cells_Text(window), image::Hex_Text(Record_Bytes(4)));
  EXPECT_EQ(window.SBar_3.SimpleText, "075.NPC - " + Name_Of(75));
}

TEST_F(File_Commands, OpenOfAChangedFileAsksFirst) {
  struct Row {
    const char* name;
    int answer;
    bool written;  // the changed file reached the disk
    bool loaded;   // the other file is on show afterwards
  };
  for (const Row row : {Row{"Yes", msgbox::Yes, true, true}, Row{"No", msgbox::No, false, true},
                        Row{"Cancel", msgbox::Cancel, false, false}}) {
    SCOPED_TRACE(row.name);
    Temp_Folder here;
    Scripted_Platform p;
    Vorlane w(p);
    w.Width = 9000, w.Height = 7000;
    Form_Load(w);
    const std::string path = here.Write("075.npc", Standard_File());
    const std::string other = here.Write("other.npc", Buka_File());
    p.Picks.push_back(Dialog_Pick{path});
    Fire(w, [&] { nOpen_Click(w); });
    Fire(w, [&] { Slider_Set_Value(w, 3); });
    w.L(1).Caption = "EE";
    Fire(w, [&] { Read_From_File(w); });
    p.Answers.push_back(row.answer);
    p.Picks.push_back(Dialog_Pick{other});
    p.Messages.clear();
    Fire(w, [&] { nOpen_Click(w); });
    ASSERT_EQ(p.Messages.size(), 1u);
    EXPECT_EQ(p.Messages[0].Prompt, "Сохранить " + path + "?");
    EXPECT_EQ(Read_File(path), row.written ? Changed_File() : Standard_File());
    EXPECT_EQ(w.SBar_2.SimpleText, row.loaded ? other : path);
    EXPECT_EQ(w.FileType, row.loaded ? "ja" : "");
    EXPECT_EQ(p.Picks.empty(), row.loaded) << "the open dialog is shown only when leaving succeeded";
    if (!row.loaded) {
      EXPECT_NE(w.HexImage, w.Saved_Image) << "the change is still there";
    }
  }
}

TEST_F(File_Commands, OpenOfAChangedNewFileSavesItUnderTheGivenNameFirst) {
  Event([&] { nNew_Click(window); });
  Change_Record_3();
  Answer(msgbox::Yes);
  const std::string saved = folder.Path("saved.npc");
  Pick(saved);
  const std::string other = other_path();
  Pick(other);
  Event([&] { nOpen_Click(window); });
  Expect_Question("...\\new.npc");
  ASSERT_EQ(platform.Dialogs.size(), 2u);
  EXPECT_TRUE(platform.Dialogs[0].Save);
  EXPECT_EQ(platform.Dialogs[0].Settings.DialogTitle, "VORLANE - SAVE AS...");
  EXPECT_EQ(platform.Dialogs[0].Settings.Flags, 6);
  EXPECT_EQ(platform.Dialogs[0].Settings.FilterIndex, 1);
  EXPECT_EQ(platform.Dialogs[0].Settings.FileName, "");
  Bytes expected(1600, 0);
  expected[64] = 0xEE;
  EXPECT_EQ(Read_File(saved), expected);
  EXPECT_EQ(window.SBar_2.SimpleText, other);
}

TEST_F(File_Commands, CancellingTheSaveDialogWhileLeavingKeepsEverything) {
  Event([&] { nNew_Click(window); });
  Change_Record_3();
  const std::string image = window.HexImage;
  Answer(msgbox::Yes);
  Cancel_Dialog();
  Event([&] { nOpen_Click(window); });
  EXPECT_EQ(platform.Dialogs.size(), 1u) << "no open dialog after the cancelled save";
  EXPECT_EQ(window.HexImage, image);
  EXPECT_EQ(window.SBar_2.SimpleText, "...\\new.npc");
  EXPECT_EQ(window.Slider.Value, 3);
}

TEST_F(File_Commands, AnswerNoThenCancelledOpenKeepsTheFileOnShowWhole) {
  const std::string path = Open_Changed();
  const std::string image = window.HexImage;
  Event([&] { Slider_Set_Value(window, 0); });
  Answer(msgbox::No);
  Cancel_Dialog();
  Event([&] { nOpen_Click(window); });
  EXPECT_EQ(window.HexImage, image) << "the image is never emptied under the file on show";
  EXPECT_NE(window.HexImage, window.Saved_Image);
  Event([&] { Slider_Set_Value(window, 3); });
  EXPECT_EQ(window.L(1).Caption, "EE");
  // Saving now writes the whole changed file, never an empty one.
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(Read_File(path), Changed_File());
}

TEST_F(File_Commands, NewGivesAStandardFileOfZerosThatCountsAsUnchanged) {
  Open_Bytes("075.npc", Buka_File());
  Event([&] { Slider_Set_Value(window, 5); });
  Event([&] { nNew_Click(window); });
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(window.HexImage, std::string(3200, '0'));
  EXPECT_EQ(window.Saved_Image, window.HexImage);
  EXPECT_EQ(window.FileType, "");
  EXPECT_EQ(window.Slider.Value, 0);
  EXPECT_EQ(Cells_Text(window), "");
  EXPECT_EQ(window.SBar_1.SimpleText, "1600 bytes");
  EXPECT_EQ(window.SBar_2.SimpleText, "...\\new.npc");
  EXPECT_EQ(window.SBar_3.SimpleText, "NEW.NPC");
  EXPECT_EQ(window.File_Path, folder.Path("075.npc")) << "File_Path stays as it was";
  // Untouched, it leaves without a question.
  Event([&] { nExit_Click(window); });
  EXPECT_TRUE(window.Unloaded);
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(File_Commands, NewOfAChangedFileAsksAsOpenDoes) {
  const std::string path = Open_Changed();
  Answer(msgbox::Cancel);
  Event([&] { nNew_Click(window); });
  Expect_Question(path);
  EXPECT_EQ(window.SBar_2.SimpleText, path);
  Answer(msgbox::Yes);
  Event([&] { nNew_Click(window); });
  EXPECT_EQ(Read_File(path), Changed_File());
  EXPECT_EQ(window.SBar_3.SimpleText, "NEW.NPC");
}

TEST_F(File_Commands, SaveWritesTheFileAndRenewsTheStatusBars) {
  const std::string path = Open_Changed();
  window.SBar_3.SimpleText = "stale";
  Event([&] { nSave_Click(window); });
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_TRUE(platform.Dialogs.size() == 1u) << "no dialog for a file that exists";
  EXPECT_EQ(Read_File(path), Changed_File());
  EXPECT_EQ(window.Saved_Image, window.HexImage);
  EXPECT_EQ(window.SBar_2.SimpleText, path);
  EXPECT_EQ(window.SBar_3.SimpleText, "075.NPC - " + Name_Of(75));
  EXPECT_EQ(window.Slider.Value, 3);
  EXPECT_EQ(window.L(1).Caption, "EE");
}

TEST_F(File_Commands, SaveOfABukaFileWritesABukaFile) {
  const std::string path = folder.Write("b.npc", Buka_File());
  Open(path);
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(Read_File(path), Buka_File());
  EXPECT_EQ(window.FileType, "ja");
}

TEST_F(File_Commands, SaveOfANewFileAsksForAName) {
  Event([&] { nNew_Click(window); });
  Cancel_Dialog();
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(window.SBar_2.SimpleText, "...\\new.npc");
  EXPECT_EQ(window.Txt_Free.Text, "ERROR$");

  const std::string path = folder.Path("Новый файл.npc");
  Pick(path);
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(Read_File(path), Bytes(1600, 0));
  EXPECT_EQ(window.SBar_2.SimpleText, path);
  EXPECT_EQ(window.SBar_3.SimpleText, "НОВЫЙ ФАЙЛ.NPC");
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(File_Commands, ThePlaceholderPathNeverCountsAsAFile) {
  // Even with a file of that very name in the working folder, a new file is never saved there.
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path(""));
  folder.Write("...\\new.npc", Standard_File());
  Event([&] { nNew_Click(window); });
  Cancel_Dialog();
  Event([&] { nSave_Click(window); });
  fs::current_path(before);
  EXPECT_EQ(platform.Dialogs.size(), 1u);
  EXPECT_TRUE(platform.Dialogs[0].Save);
  EXPECT_EQ(Read_File(folder.Path("...\\new.npc")), Standard_File());
}

TEST_F(File_Commands, SaveOfAFileGoneFromDiskSaysSoThenAsksForAName) {
  const std::string path = Open_Changed();
  fs::remove(path);
  const std::string again = folder.Path("again.npc");
  Pick(again);
  Event([&] { nSave_Click(window); });
  const Shown_Message& m = Only_Message();
  EXPECT_EQ(m.Prompt, "Файл " + path + " не найден!\r\nВозможно он был удален или перемещен");
  EXPECT_EQ(m.Style, 16);
  EXPECT_EQ(m.Title, "ERROR");
  EXPECT_EQ(Read_File(again), Changed_File());
  EXPECT_EQ(window.SBar_2.SimpleText, again);
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(File_Commands, SaveAsGoesOnWithTheNewName) {
  const std::string path = Open_Changed();
  const std::string copy = folder.Path("100.npc");
  Pick(copy);
  Event([&] { nSaveas_Click(window); });
  EXPECT_EQ(Read_File(copy), Changed_File());
  EXPECT_EQ(Read_File(path), Standard_File());
  EXPECT_EQ(window.SBar_2.SimpleText, copy);
  EXPECT_EQ(window.SBar_3.SimpleText, "100.NPC - " + Name_Of(100));
  // A later plain save goes to the new name.
  window.L(2).Caption = "DD";
  Event([&] { Read_From_File(window); });
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(Read_File(copy)[65], 0xDD);
  EXPECT_EQ(Read_File(path), Standard_File());
  // Cancelled, it writes nothing.
  Cancel_Dialog();
  Event([&] { nSaveas_Click(window); });
  EXPECT_EQ(window.Txt_Free.Text, "ERROR$");
  EXPECT_EQ(window.SBar_2.SimpleText, copy);
}

TEST_F(File_Commands, SavingOverALongerFileLeavesExactly1600Bytes) {
  const std::string longer = folder.Write("long.npc", Bytes(5000, 0x77));
  Open_Bytes("075.npc", Standard_File());
  Pick(longer);
  Event([&] { nSaveas_Click(window); });
  EXPECT_EQ(Read_File(longer), Standard_File());
}

TEST_F(File_Commands, AFileReplacedByAShorterOneWhileOnShowIsSavedWhole) {
  const std::string path = Open_Changed();
  folder.Write("075.npc", Bytes(100, 0x55));
  Event([&] { nSave_Click(window); });
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(Read_File(path), Changed_File());
  EXPECT_EQ(window.Saved_Image, window.HexImage);
}

TEST_F(File_Commands, AFailedSaveEndsTheProgramAndLeavesTheOldFile) {
  Open_Changed();
  const std::string folder_target = folder.Path("a folder");
  fs::create_directory(folder_target);
  for (const std::string& target : {folder.Path("missing/x.npc"), folder_target}) {
    SCOPED_TRACE(target);
    window.Ended = false;
    platform.Ended = false;
    platform.Messages.clear();
    Pick(target);
    Event([&] { nSaveas_Click(window); });
    const Shown_Message& m = Only_Message();
    EXPECT_EQ(m.Prompt, "Ошибка во время сохранения файла");
    EXPECT_EQ(m.Style, 16);
    EXPECT_EQ(m.Title, "ERROR");
    EXPECT_TRUE(platform.Ended);
  }
  EXPECT_TRUE(fs::is_directory(folder_target));
  EXPECT_TRUE(fs::is_empty(folder_target));
  EXPECT_EQ(Read_File(folder.Path("075.npc")), Standard_File());
}

// The disk gives out half way through the write: message 8, the program ends, and every file on
// disk is as it was, with no half-written file left beside them.
TEST(File_Save, AWriteThatFailsHalfWayLeavesTheOldFile) {
  struct Row {
    const char* name;
    void (*act)(Vorlane&, Scripted_Platform&, const std::string& other);
    std::size_t questions;
    std::size_t dialogs;  // the open dialog of the file first, then those of the row
  };
  const Row rows[] = {
      {"Save", [](Vorlane& w, Scripted_Platform&, const std::string&) { nSave_Click(w); }, 0, 1},
      {"Save as over another file",
       [](Vorlane& w, Scripted_Platform& p, const std::string& other) {
         p.Picks.push_back(Dialog_Pick{other});
         nSaveas_Click(w);
       },
       0, 2},
      {"Yes when leaving",
       [](Vorlane& w, Scripted_Platform& p, const std::string& other) {
         p.Answers.push_back(msgbox::Yes);
         p.Picks.push_back(Dialog_Pick{other});
         nOpen_Click(w);
       },
       1, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Temp_Folder here;
    Scripted_Platform p;
    Failing_Disk disk;
    Vorlane w(p, disk);
    Form_Load(w);
    const std::string path = here.Write("075.npc", Standard_File());
    const std::string other = here.Write("other.npc", Buka_File());
    p.Picks.push_back(Dialog_Pick{path});
    Fire(w, [&] { nOpen_Click(w); });
    Fire(w, [&] { Slider_Set_Value(w, 3); });
    w.L(1).Caption = "EE";
    Fire(w, [&] { Read_From_File(w); });
    Fire(w, [&] { row.act(w, p, other); });
    ASSERT_EQ(p.Messages.size(), row.questions + 1);
    EXPECT_EQ(p.Messages.back().Prompt, "Ошибка во время сохранения файла");
    EXPECT_EQ(p.Messages.back().Style, 16);
    EXPECT_EQ(p.Messages.back().Title, "ERROR");
    EXPECT_TRUE(p.Ended);
    EXPECT_EQ(p.Dialogs.size(), row.dialogs) << "nothing runs after the failed save";
    EXPECT_EQ(Read_File(path), Standard_File());
    EXPECT_EQ(Read_File(other), Buka_File());
    EXPECT_EQ(std::distance(fs::directory_iterator(here.Path("")), fs::directory_iterator()), 2);
  }
}

TEST_F(File_Commands, ExitFollowsTheQuestion) {
  struct Row {
    const char* name;
    int answer;
    bool ends;
    bool written;
  };
  for (const Row row : {Row{"Yes", msgbox::Yes, true, true}, Row{"No", msgbox::No, true, false},
                        Row{"Cancel", msgbox::Cancel, false, false}}) {
    SCOPED_TRACE(row.name);
    Temp_Folder here;
    Scripted_Platform p;
    Vorlane w(p);
    Form_Load(w);
    const std::string path = here.Write("075.npc", Standard_File());
    p.Picks.push_back(Dialog_Pick{path});
    Fire(w, [&] { nOpen_Click(w); });
    Fire(w, [&] { Slider_Set_Value(w, 3); });
    w.L(1).Caption = "EE";
    Fire(w, [&] { Read_From_File(w); });
    p.Answers.push_back(row.answer);
    bool closed = false;
    Fire(w, [&] { closed = Unload_Main(w); });
    EXPECT_EQ(closed, row.ends);
    EXPECT_EQ(w.Unloaded, row.ends);
    EXPECT_FALSE(p.Ended) << "leaving is no fatal end";
    EXPECT_EQ(Read_File(path), row.written ? Changed_File() : Standard_File());
  }
}

TEST_F(File_Commands, ExitWithoutChangesOrWithoutAFileAsksNothing) {
  Event([&] { ComExit_Click(window); });
  EXPECT_TRUE(window.Unloaded);
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(File_Commands, ExitWithAChangedNewFileAndACancelledSaveDialogStays) {
  Event([&] { nNew_Click(window); });
  Change_Record_3();
  Answer(msgbox::Yes);
  Cancel_Dialog();
  Event([&] { nExit_Click(window); });
  Expect_Question("...\\new.npc");
  EXPECT_FALSE(window.Unloaded);
  EXPECT_EQ(window.Txt_Free.Text, "ERROR$");
}

TEST_F(File_Commands, ExitWithAFileGoneFromDiskGivesTheDialogWithoutTheNotFoundMessage) {
  const std::string path = Open_Changed();
  fs::remove(path);
  Answer(msgbox::Yes);
  const std::string again = folder.Path("again.npc");
  Pick(again);
  Event([&] { nExit_Click(window); });
  Expect_Question(path);
  EXPECT_TRUE(window.Unloaded);
  EXPECT_EQ(Read_File(again), Changed_File());
}

TEST_F(File_Commands, AChangeUndoneCountsAsUnchanged) {
  Open_Changed();
  window.L(1).Caption = "03";  // record 3 starts with byte 3
  Event([&] { Read_From_File(window); });
  Pick(other_path());
  Event([&] { nOpen_Click(window); });
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(window.FileType, "ja");
}

TEST_F(File_Commands, CorrectBarNamesCharacters57To169) {
  const std::pair<std::string, std::string> cases[] = {
      {"056.NPC", "056.NPC"},
      {"057.NPC", "057.NPC - " + Name_Of(57)},
      {"169.NPC", "169.NPC"},  // row 169 exists and is empty: " - " and nothing
      {"170.NPC", "170.NPC"},
      {"ABC.NPC", "ABC.NPC"},
      {"NEW.NPC", "NEW.NPC"},
      {"57..NPC", "57..NPC - " + Name_Of(57)},
      {"", ""},
      {"ЖЖЖ.NPC", "ЖЖЖ.NPC"},
  };
  for (const auto& [bar, shown] : cases) {
    window.SBar_3.SimpleText = bar;
    CorrectBar(window);
    EXPECT_EQ(window.SBar_3.SimpleText, bar == "169.NPC" ? "169.NPC - " : shown) << bar;
  }
}

std::string Times(int count, const std::string& piece) {
  std::string out;
  for (int i = 0; i < count; ++i) out += piece;
  return out;
}

// Names as a user may give them: Cyrillic, with blanks, and as long as the disk allows (255 bytes).
// The status bars, the character's name, the tool tip, the proposed speech file and the save all
// take them whole.
TEST_F(File_Commands, AnyNameWorksThroughout) {
  const struct {
    std::string name;
    std::string bar;
  } rows[] = {
      {"Ёжик в тумане.npc", "ЁЖИК В ТУМАНЕ.NPC"},
      {"075 my file.npc", "075 MY FILE.NPC - " + Name_Of(75)},
      {" 75 x.npc", " 75 X.NPC - " + Name_Of(75)},  // blanks around a number still make one
      {"075" + Times(124, "ж") + ".npc", "075" + Times(124, "Ж") + ".NPC - " + Name_Of(75)},
      {std::string(251, 'x') + ".npc", std::string(251, 'X') + ".NPC"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ASSERT_LE(row.name.size(), 255u);
    platform.Messages.clear();
    const std::string path = folder.Write(row.name, Standard_File());
    Open(path);
    EXPECT_EQ(window.SBar_2.SimpleText, path);
    EXPECT_EQ(window.SBar_3.SimpleText, row.bar);
    Event([&] { SBar_3_MouseMove(window); });
    EXPECT_EQ(window.SBar_3.ToolTipText, text::Length(row.bar) >= 27 ? row.bar : "");

    Cancel_Dialog();
    Event([&] { Check_Set_Value(window, 1); });
    EXPECT_EQ(platform.Dialogs.back().Settings.FileName, row.name.substr(0, row.name.size() - 4) + ".edt");

    Change_Record_3();
    Event([&] { nSave_Click(window); });
    EXPECT_TRUE(platform.Messages.empty());
    EXPECT_EQ(Read_File(path), Changed_File());
    EXPECT_EQ(window.SBar_3.SimpleText, row.bar);
  }
}

// A disk whose file vanishes between the size test and the read.
class Vanishing_Files : public Disk_Files {
 public:
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t, std::size_t) override {
    std::filesystem::remove(path);
    throw Run_Time_Error("gone");
  }
};

TEST(File_Open, AFileThatCannotBeReadLeavesTheFileOnShowAsItWas) {
  Temp_Folder folder;
  Scripted_Platform platform;
  Vanishing_Files files;
  Vorlane window(platform, files);
  Form_Load(window);
  platform.Picks.push_back(Dialog_Pick{folder.Write("a.npc", Standard_File())});
  Fire(window, [&] { nOpen_Click(window); });
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(window.SBar_1.SimpleText, "");
  EXPECT_EQ(window.SBar_2.SimpleText, "");
  EXPECT_EQ(window.HexImage, "");
  EXPECT_FALSE(window.nSave.Enabled);
}

}  // namespace
