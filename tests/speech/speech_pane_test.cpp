// The speech pane as the user drives it: tick, pick a file, step, untick.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "fields/explain.h"
#include "speech/speech.h"
#include "store/file_commands.h"
#include "support/fixture.h"

namespace {

const char* const Dialog_Filter =
    "Диалоги НПЦ (<3num>.edt)|*.edt|Диалоги гражданских|*edt|(<Civ+2num>.edt or <Sector>.edt)|*.edt|"
    "Комменнтарии НПЦ (<D_+3num>.edt)|*.edt";

// A speech file of `entries` entries of `size` bytes; entry n reads the letter 'A' + n.
Bytes Speech(std::size_t size, std::size_t entries) {
  Bytes file(size * entries, 0);
  for (std::size_t n = 0; n < entries; ++n) file[n * size] = static_cast<std::uint8_t>('A' + n % 26 + 1);
  return file;
}

std::string Letter(int n) { return std::string(1, static_cast<char>('A' + n % 26)); }

class Speech_Pane : public Window_Test {
 protected:
  Speech_Pane() { Open_Bytes("123.npc", Standard_File()); }

  // Ticks Check and answers the dialog with this pick (nullopt: Cancel).
  void Tick(std::optional<Dialog_Pick> pick) {
    platform.Picks.push_back(std::move(pick));
    Event([&] { Check_Set_Value(window, 1); });
  }
  // Ticks with a speech file written under this name.
  std::string Tick_With(const Bytes& file, int filter_index = 1, const std::string& name = "speech.edt") {
    const std::string path = folder.Write(name, file);
    Tick(Dialog_Pick{path, filter_index});
    return path;
  }
  void Untick() { Event([&] { Check_Set_Value(window, 0); }); }
  void Previous() { Event([&] { Com1_Click(window); }); }
  void Next() { Event([&] { Com2_Click(window); }); }

  const Shown_Dialog& Dialog() {
    EXPECT_FALSE(platform.Dialogs.empty());
    return platform.Dialogs.back();
  }
  void Expect_Off() {
    EXPECT_EQ(window.Check.Value, 0);
    EXPECT_EQ(window.Edt_Kind, 0);
    EXPECT_FALSE(window.Com1.Enabled);
    EXPECT_FALSE(window.Com2.Enabled);
    EXPECT_EQ(window.L_Message.Caption, "0");
    EXPECT_EQ(window.L_Edt.Caption, "");
  }
};

TEST_F(Speech_Pane, TickingAsksForTheSpeechFileAndShowsMessage0) {
  const std::string path = Tick_With(Speech(480, 3));
  ASSERT_EQ(platform.Dialogs.size(), 2u);  // the NPC file's, then this one
  const Common_Dialog& cd = Dialog().Settings;
  EXPECT_FALSE(Dialog().Save);
  EXPECT_EQ(cd.Flags, 4100);
  EXPECT_EQ(cd.FileName, "123.edt");
  EXPECT_EQ(cd.Filter, Dialog_Filter);
  EXPECT_EQ(cd.FilterIndex, 1);
  EXPECT_EQ(cd.DialogTitle, "VORLANE - OPEN \"EDT\" FILE...");

  EXPECT_EQ(window.Check.Value, 1);
  EXPECT_EQ(window.Edt_Path, path);
  EXPECT_EQ(window.Edt_Kind, 1);
  EXPECT_TRUE(window.Com1.Enabled);
  EXPECT_TRUE(window.Com2.Enabled);
  EXPECT_EQ(window.L_Message.Caption, "0");
  EXPECT_EQ(window.L_Edt.Caption, "A");
  EXPECT_TRUE(platform.Messages.empty());
}

// The name proposed in the dialog is the NPC file's bare name with .edt for .npc.
TEST_F(Speech_Pane, ProposedName) {
  const std::pair<const char*, const char*> names[] = {
      {"a.NpC", "a.edt"}, {".npc", ".npc"}, {"x.npc.bak", "x.npc.bak"}, {"файл.npc", "файл.edt"}, {"ж.npc", "ж.edt"},
  };
  for (const auto& [npc, proposed] : names) {
    Open_Bytes(npc, Standard_File());
    Tick(std::nullopt);
    EXPECT_EQ(Dialog().Settings.FileName, proposed) << npc;
  }
  // A new file names no file on disk.
  Event([&] { nNew_Click(window); });
  Tick(std::nullopt);
  EXPECT_EQ(Dialog().Settings.FileName, "");
}

// The filter entry says what kind of file it is and so how large a message is.
TEST_F(Speech_Pane, FilterIndexGivesTheKind) {
  const std::tuple<int, int, std::size_t> kinds[] = {{1, 1, 480}, {2, 3, 320}, {3, 3, 320}, {4, 4, 480}};
  for (const auto& [index, kind, size] : kinds) {
    Tick_With(Speech(size, 3), index);
    EXPECT_EQ(window.Edt_Kind, kind) << index;
    Next();
    EXPECT_EQ(window.L_Message.Caption, "1") << index;
    EXPECT_EQ(window.L_Edt.Caption, "B") << index;
    Untick();
  }
  EXPECT_EQ(platform.Beeps, 0);
}

TEST_F(Speech_Pane, CancelLeavesThePaneOff) {
  window.L_Edt.Caption = "old";
  Tick(std::nullopt);
  Expect_Off();
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Speech_Pane, ChosenFileThatCantBeMeasuredLeavesThePaneOff) {
  Tick(Dialog_Pick{folder.Path("none.edt"), 1});
  Expect_Off();
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Speech_Pane, ShortFileIsTakenAfterAWarning) {
  const std::tuple<int, std::size_t, bool> cases[] = {
      {1, 0, true},   {1, 479, true}, {1, 480, false}, {1, 500, false}, {4, 479, true}, {4, 480, false},
      {2, 319, true}, {2, 320, false}, {3, 319, true}, {3, 480, false},
  };
  for (const auto& [index, length, warned] : cases) {
    platform.Messages.clear();
    const std::string path = Tick_With(Bytes(length, 0x42), index);
    EXPECT_EQ(window.Check.Value, 1);
    if (!warned) {
      EXPECT_TRUE(platform.Messages.empty()) << index << " " << length;
    } else {
      const std::string size = index == 1 || index == 4 ? "480" : "320";
      ASSERT_EQ(platform.Messages.size(), 1u);
      EXPECT_EQ(platform.Messages[0].Prompt,
                "File " + path + " < " + size + "bytes\r\nOne message have size " + size + " bytes");
      EXPECT_EQ(platform.Messages[0].Style, 48);
      EXPECT_EQ(platform.Messages[0].Title, "NOTE!");
      EXPECT_EQ(window.L_Edt.Caption, "");  // nothing to show
      EXPECT_TRUE(window.Com2.Enabled);
    }
    EXPECT_EQ(Read_File(path), Bytes(length, 0x42));
    Untick();
  }
}

TEST_F(Speech_Pane, SteppingStopsAtBothEnds) {
  Tick_With(Speech(480, 3));
  Previous();
  EXPECT_EQ(platform.Beeps, 1);
  EXPECT_EQ(window.L_Message.Caption, "0");

  for (int n = 1; n <= 2; ++n) {
    Next();
    EXPECT_EQ(window.L_Message.Caption, std::to_string(n));
    EXPECT_EQ(window.L_Edt.Caption, Letter(n));
  }
  Next();
  EXPECT_EQ(platform.Beeps, 2);
  EXPECT_EQ(window.L_Message.Caption, "2");
  EXPECT_EQ(window.L_Edt.Caption, "C");

  Previous();
  EXPECT_EQ(window.L_Message.Caption, "1");
  EXPECT_EQ(window.L_Edt.Caption, "B");
  EXPECT_TRUE(platform.Messages.empty());
}

// A message counts only with its whole entry: 959 bytes hold one message of 480.
TEST_F(Speech_Pane, IncompleteLastEntryIsNoMessage) {
  Tick_With(Speech(959, 1));
  Next();
  EXPECT_EQ(platform.Beeps, 1);
  EXPECT_EQ(window.L_Message.Caption, "0");
}

TEST_F(Speech_Pane, VanishedFile) {
  for (const bool forward : {true, false}) {
    platform.Messages.clear();
    const std::string path = Tick_With(Speech(480, 3));
    Next();
    std::filesystem::remove(path);
    forward ? Next() : Previous();
    ASSERT_EQ(platform.Messages.size(), 1u);
    EXPECT_EQ(platform.Messages[0].Prompt,
              "Файл " + path + " не найден!\r\n Возможно он был перемещен или удален");
    EXPECT_EQ(platform.Messages[0].Style, 16);
    EXPECT_EQ(platform.Messages[0].Title, "ERROR");
    Expect_Off();
    EXPECT_EQ(platform.Beeps, 0);
  }
}

TEST_F(Speech_Pane, UntickingLetsTheFileGo) {
  Tick_With(Speech(480, 3));
  Next();
  Untick();
  Expect_Off();
  Next();  // the buttons do nothing while no kind is bound
  Previous();
  EXPECT_EQ(window.L_Message.Caption, "0");
  EXPECT_EQ(platform.Beeps, 0);
}

// Only a new value raises the click: ticking a ticked box asks for no file.
TEST_F(Speech_Pane, SameValueRaisesNoClick) {
  Tick_With(Speech(480, 3));
  Next();
  Event([&] { Check_Set_Value(window, 1); });
  EXPECT_EQ(platform.Dialogs.size(), 2u);
  EXPECT_EQ(window.L_Message.Caption, "1");
  Untick();
  window.L_Message.Caption = "x";
  Untick();
  EXPECT_EQ(window.L_Message.Caption, "x");
}

// The explanation of byte 14 drives a ticked pane.
class Speech_Follows_Record : public Speech_Pane {
 protected:
  void Explain_Byte_14(const char* pair) {
    Set_Cells(window, std::string(64, '0'));
    window.L(1).Caption = "02";
    window.L(14).Caption = pair;
    Event([&] { Info_For_Byte_14(window); });
  }
};

TEST_F(Speech_Follows_Record, MessageOfTheRecordIsShown) {
  Tick_With(Speech(480, 3));
  Explain_Byte_14("02");
  EXPECT_EQ(window.L_Message.Caption, "2");
  EXPECT_EQ(window.L_Edt.Caption, "C");
}

TEST_F(Speech_Follows_Record, NoMessageShowsIgnored) {
  Tick_With(Speech(480, 3));
  Explain_Byte_14("FF");
  EXPECT_EQ(window.L_Info_User.Caption, "НПЦ ничего не скажет");
  EXPECT_EQ(window.L_Edt.Caption, "Игнорируетя");
  EXPECT_EQ(window.L_Message.Caption, "-1");

  // From -1, ">>" goes to message 0 and "<<" beeps.
  Previous();
  EXPECT_EQ(platform.Beeps, 1);
  EXPECT_EQ(window.L_Message.Caption, "-1");
  Next();
  EXPECT_EQ(window.L_Message.Caption, "0");
  EXPECT_EQ(window.L_Edt.Caption, "A");
}

TEST_F(Speech_Follows_Record, UntickedPaneIsLeftAloneButABadRecordEmptiesTheText) {
  window.L_Edt.Caption = "speech";
  Explain_Byte_14("FF");
  EXPECT_EQ(window.L_Edt.Caption, "speech");
  EXPECT_EQ(window.L_Message.Caption, "0");
  Explain_Byte_14("05");
  EXPECT_EQ(window.L_Edt.Caption, "speech");
  EXPECT_EQ(window.L_Message.Caption, "0");

  Set_Cells(window, std::string(64, '0'));
  Event([&] { Info_For_Byte_14(window); });
  EXPECT_EQ(window.L_Info_User.Caption, "Bad record");
  EXPECT_EQ(window.L_Edt.Caption, "");
}

// Message 254 lies beyond what the reader can reach: in a file that holds it, that fails.
TEST_F(Speech_Follows_Record, MessageBeyondTheReachOfTheReader) {
  Tick_With(Speech(480, 3));
  Explain_Byte_14("FE");
  EXPECT_EQ(window.L_Message.Caption, "254");
  EXPECT_EQ(window.L_Edt.Caption, "A");
  EXPECT_EQ(window.Check.Value, 1);
  EXPECT_TRUE(platform.Messages.empty());
  Untick();

  const std::string path = Tick_With(Speech(480, 255), 1, "long.edt");
  Explain_Byte_14("FE");
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "Ошибка во время чтения файла\r\n" + path);
  Expect_Off();
}

}  // namespace
