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

// A speech file of `entries` entries of `size` bytes; entry n reads the letter 'A' + n.
Bytes Speech(std::size_t size, std::size_t entries) {
  Bytes file(size * entries, 0);
  for (std::size_t n = 0; n < entries; ++n) file[n * size] = static_cast<std::uint8_t>('A' + n + 1);
  return file;
}

using Pair = std::pair<std::string, std::string>;

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
  void Untick() {
    Event([&] { Check_Set_Value(window, 0); });
  }
  void Previous() {
    Event([&] { Com1_Click(window); });
  }
  void Next() {
    Event([&] { Com2_Click(window); });
  }
  // The message number and text on show.
  Pair Shown() { return {window.L_Message.Caption, window.L_Edt.Caption}; }
  void Explain_Byte_14(const char* pair) {
    Set_Cells(window, std::string(64, '0'));
    window.L(1).Caption = "02";
    window.L(14).Caption = pair;
    Event([&] { Info_For_Byte_14(window); });
  }
  void Expect_Off() {
    EXPECT_EQ(std::tuple(window.Check.Value, window.Edt_Kind, window.Com1.Enabled, window.Com2.Enabled),
              std::tuple(0, 0, false, false));
    EXPECT_EQ(Shown(), Pair("0", ""));
  }
};

TEST_F(Speech_Pane, TickingAsksForTheSpeechFileAndShowsMessage0) {
  const std::string path = Tick_With(Speech(480, 3));
  ASSERT_EQ(platform.Dialogs.size(), 2u);  // the NPC file's, then this one
  EXPECT_EQ(Dialog_Line(platform.Dialogs.back()),
            "open|4100|123.edt|Диалоги НПЦ (<3num>.edt)|*.edt|Диалоги гражданских|*edt|"
            "(<Civ+2num>.edt or <Sector>.edt)|*.edt|Комменнтарии НПЦ (<D_+3num>.edt)|*.edt|1|"
            "VORLANE - OPEN \"EDT\" FILE...");

  EXPECT_EQ(std::tuple(window.Check.Value, window.Edt_Path, window.Edt_Kind, window.Com1.Enabled, window.Com2.Enabled),
            std::tuple(1, path, 1, true, true));
  EXPECT_EQ(Shown(), Pair("0", "A"));
  EXPECT_TRUE(platform.Messages.empty());
}

// The name proposed in the dialog is the NPC file's bare name with .edt for .npc; none for a new
// file. Cancel, or a chosen file that can't be measured, leaves the pane off without a word.
TEST_F(Speech_Pane, ProposedNameAndNoFile) {
  const std::pair<const char*, const char*> names[] = {
      {"a.NpC", "a.edt"},       {".npc", ".npc"},   {"x.npc.bak", "x.npc.bak"},
      {"файл.npc", "файл.edt"}, {"ж.npc", "ж.edt"}, {nullptr, ""},
  };
  for (const auto& [npc, proposed] : names) {
    npc ? Open_Bytes(npc, Standard_File()) : Event([&] { nNew_Click(window); });
    window.L_Edt.Caption = "old";
    Tick(std::nullopt);
    EXPECT_EQ(platform.Dialogs.back().Settings.FileName, proposed) << (npc ? npc : "new");
    Expect_Off();
  }
  Tick(Dialog_Pick{folder.Path("none.edt"), 1});
  Expect_Off();
  EXPECT_TRUE(platform.Messages.empty());
}

// The filter entry says what kind of file it is and so how large a message is.
TEST_F(Speech_Pane, FilterIndexGivesTheKind) {
  for (const auto& [index, kind, size] :
       {std::tuple{1, 1, 480}, std::tuple{2, 3, 320}, std::tuple{3, 3, 320}, std::tuple{4, 4, 480}}) {
    Tick_With(Speech(static_cast<std::size_t>(size), 3), index);
    EXPECT_EQ(window.Edt_Kind, kind) << index;
    Next();
    EXPECT_EQ(Shown(), Pair("1", "B")) << index;
    Untick();
  }
  EXPECT_EQ(platform.Beeps, 0);
}

TEST_F(Speech_Pane, ShortFileIsTakenAfterAWarning) {
  const std::tuple<int, std::size_t, bool> cases[] = {
      {1, 0, true},    {1, 479, true}, {1, 480, false}, {1, 500, false}, {4, 479, true},
      {4, 480, false}, {2, 319, true}, {2, 320, false}, {3, 319, true},  {3, 480, false},
  };
  for (const auto& [index, length, warned] : cases) {
    SCOPED_TRACE(std::to_string(index) + " " + std::to_string(length));
    Untick();
    platform.Messages.clear();
    const std::string path = Tick_With(Bytes(length, 0x42), index);
    EXPECT_EQ(window.Check.Value, 1);
    EXPECT_TRUE(window.Com2.Enabled);
    EXPECT_EQ(Read_File(path), Bytes(length, 0x42));
    const std::string size = index == 1 || index == 4 ? "480" : "320";
    const Shown_Message note{"File " + path + " < " + size + "bytes\r\nOne message have size " + size + " bytes", 48,
                             "NOTE!"};
    EXPECT_EQ(platform.Messages, warned ? std::vector{note} : std::vector<Shown_Message>{});
    if (warned) {
      EXPECT_EQ(window.L_Edt.Caption, "");  // nothing to show
    }
  }
}

TEST_F(Speech_Pane, SteppingStopsAtBothEnds) {
  Tick_With(Speech(480, 3));
  const std::tuple<bool, Pair, int> steps[] = {
      // forward, shown, beeps
      {false, {"0", "A"}, 1}, {true, {"1", "B"}, 1},  {true, {"2", "C"}, 1},
      {true, {"2", "C"}, 2},  {false, {"1", "B"}, 2},
  };
  for (const auto& [forward, shown, beeps] : steps) {
    forward ? Next() : Previous();
    EXPECT_EQ(std::tuple(Shown(), platform.Beeps), std::tuple(shown, beeps));
  }
  EXPECT_TRUE(platform.Messages.empty());

  // A message counts only with its whole entry: 959 bytes hold one message of 480.
  Untick();
  Tick_With(Speech(959, 1));
  Next();
  EXPECT_EQ(std::tuple(window.L_Message.Caption, platform.Beeps), std::tuple("0", 3));
}

TEST_F(Speech_Pane, VanishedFile) {
  for (const bool forward : {true, false}) {
    platform.Messages.clear();
    const std::string path = Tick_With(Speech(480, 3));
    Next();
    std::filesystem::remove(path);
    forward ? Next() : Previous();
    EXPECT_EQ(platform.Messages,
              (std::vector<Shown_Message>{
                  {"Файл " + path + " не найден!\r\n Возможно он был перемещен или удален", 16, "ERROR"}}));
    Expect_Off();
    EXPECT_EQ(platform.Beeps, 0);
  }
}

// Unticking lets the file go: the buttons do nothing while no kind is bound. Only a new value
// raises the click: ticking a ticked box asks for no file, unticking an unticked one does nothing.
TEST_F(Speech_Pane, UntickingAndSameValue) {
  Tick_With(Speech(480, 3));
  Next();
  Event([&] { Check_Set_Value(window, 1); });
  EXPECT_EQ(std::tuple(platform.Dialogs.size(), window.L_Message.Caption), std::tuple(2u, "1"));
  Untick();
  Expect_Off();
  Next();
  Previous();
  EXPECT_EQ(std::tuple(window.L_Message.Caption, platform.Beeps), std::tuple("0", 0));
  window.L_Message.Caption = "x";
  Untick();
  EXPECT_EQ(window.L_Message.Caption, "x");
}

// The explanation of byte 14 drives a ticked pane; FF touches it only while ticked.
TEST_F(Speech_Pane, ByteFourteenOfTheRecord) {
  window.L_Edt.Caption = "speech";
  Explain_Byte_14("FF");
  EXPECT_EQ(Shown(), Pair("0", "speech"));

  Tick_With(Speech(480, 3));
  Explain_Byte_14("02");
  EXPECT_EQ(Shown(), Pair("2", "C"));
  Explain_Byte_14("FF");
  EXPECT_EQ(window.L_Info_User.Caption, "НПЦ ничего не скажет");
  EXPECT_EQ(Shown(), Pair("-1", "Игнорируетя"));
  Previous();  // from -1, "<<" beeps and ">>" goes to message 0
  EXPECT_EQ(std::tuple(window.L_Message.Caption, platform.Beeps), std::tuple("-1", 1));
  Next();
  EXPECT_EQ(Shown(), Pair("0", "A"));

  // Message 254 lies beyond what the reader can reach: in a file that holds it, that fails.
  Explain_Byte_14("FE");
  EXPECT_EQ(std::tuple(Shown(), window.Check.Value, platform.Messages.size()), std::tuple(Pair("254", "A"), 1, 0u));
  const std::string path = folder.Write("speech.edt", Speech(480, 255));
  Explain_Byte_14("FE");
  EXPECT_EQ(platform.Messages, (std::vector<Shown_Message>{{"Ошибка во время чтения файла\r\n" + path, 16, "ERROR"}}));
  Expect_Off();
}

}  // namespace
