// The speech pane as the user drives it: tick, pick a file, step, untick, and the record's byte 14.
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "fields/explain.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
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

  // A click on Check that gives it this value.
  void Set_Check(int value) { Input_Value(window, window::Main, "Check", value); }
  // Ticks Check; the dialog gives this pick (nullopt: Cancel).
  void Tick(std::optional<Dialog_Pick> pick) {
    platform.Picks.push_back(std::move(pick));
    Set_Check(1);
  }
  std::string Tick_With(const Bytes& file, int filter_index = 1) {
    const std::string path = folder.Write("speech.edt", file);
    Tick(Dialog_Pick{path, filter_index});
    return path;
  }
  void Untick() { Set_Check(0); }
  void Step(bool forward) { Raise(window, window::Main, forward ? "Com2" : "Com1", Event::Click); }
  // The message number and the text on show.
  Pair Shown() const { return {window.L_Message.Caption, window.L_Edt.Caption}; }
  // Explains byte 14 of a record with this pair there (and 02 in byte 1), or of an empty record.
  void Explain_Byte_14(const char* pair) {
    Set_Cells(window, std::string(64, '0'));
    if (pair) window.L(1).Caption = "02", window.L(14).Caption = pair;
    Event([&] { Info_For_Byte_14(window); });
  }
  void Expect_Off() {
    EXPECT_EQ(std::tuple(window.Check.Value, window.Edt_Kind, window.Com1.Enabled, window.Com2.Enabled),
              std::tuple(0, 0, false, false));
    EXPECT_EQ(Shown(), Pair("0", ""));
  }
};

// The dialog proposes the NPC file's bare name with .edt for .npc (none for a new file). Cancel,
// or a chosen file that isn't there, leaves the pane off without a word.
TEST_F(Speech_Pane, ProposedNameAndNoFile) {
  const std::pair<const char*, const char*> names[] = {
      {"a.NpC", "a.edt"}, {".npc", ".npc"}, {"x.npc.bak", "x.npc.bak"}, {"ж.npc", "ж.edt"}, {nullptr, ""}};
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

// Ticking asks for the speech file and shows message 0. The filter entry chosen tells the kind
// of file and so the size of a message: ">>" goes to message 1 only when its entry is whole. A
// file shorter than one message is taken after a warning.
TEST_F(Speech_Pane, TickingBindsAFileOfTheKindChosen) {
  const std::tuple<int, Bytes, int, int, Pair> cases[] = {
      // filter index, file, kind, size in the warning (0: none), what ">>" shows
      {1, Speech(480, 2), 1, 0, {"1", "B"}},  {1, Speech(480, 1), 1, 0, {"0", "A"}},
      {1, Speech(959, 1), 1, 0, {"0", "A"}},  {1, Speech(320, 2), 1, 0, {"0", "A"}},
      {1, Speech(479, 1), 1, 480, {"0", ""}}, {2, Speech(320, 2), 3, 0, {"1", "B"}},
      {2, Speech(319, 1), 3, 320, {"0", ""}}, {3, Speech(320, 2), 3, 0, {"1", "B"}},
      {3, Speech(319, 1), 3, 320, {"0", ""}}, {4, Speech(480, 2), 4, 0, {"1", "B"}},
      {4, Speech(479, 1), 4, 480, {"0", ""}}, {4, Bytes{}, 4, 480, {"0", ""}}};
  for (const auto& [index, file, kind, size, next] : cases) {
    SCOPED_TRACE(std::to_string(index) + ", " + std::to_string(file.size()) + " bytes");
    platform.Messages.clear();
    const std::string path = Tick_With(file, index);
    EXPECT_EQ(Dialog_Line(platform.Dialogs.back()),
              "open|4100|123.edt|Диалоги НПЦ (<3num>.edt)|*.edt|Диалоги гражданских|*edt|"
              "(<Civ+2num>.edt or <Sector>.edt)|*.edt|Комменнтарии НПЦ (<D_+3num>.edt)|*.edt|1|"
              "VORLANE - OPEN \"EDT\" FILE...");
    const std::string n = std::to_string(size);
    std::vector<Shown_Message> note;
    if (size)
      note.push_back({"File " + path + " < " + n + "bytes\r\nOne message have size " + n + " bytes", 48, "NOTE!"});
    EXPECT_EQ(platform.Messages, note);
    EXPECT_EQ(
        std::tuple(window.Check.Value, window.Edt_Kind, window.Edt_Path, window.Com1.Enabled, window.Com2.Enabled),
        std::tuple(1, kind, path, true, true));
    Step(true);
    EXPECT_EQ(Shown(), next);
    Untick();
  }
}

// Stepping beeps at both ends. Unticking lets the file go, and the buttons do nothing then.
// Only a new value is a click: ticking a ticked box asks for no file.
TEST_F(Speech_Pane, SteppingAndUnticking) {
  Tick_With(Speech(480, 3));
  const std::tuple<bool, Pair, int> steps[] = {
      // forward, shown, beeps
      {false, {"0", "A"}, 1}, {true, {"1", "B"}, 1},  {true, {"2", "C"}, 1},
      {true, {"2", "C"}, 2},  {false, {"1", "B"}, 2},
  };
  for (const auto& [forward, shown, beeps] : steps) {
    Step(forward);
    EXPECT_EQ(std::tuple(Shown(), platform.Beeps), std::tuple(shown, beeps));
  }
  Set_Check(1);
  EXPECT_EQ(std::tuple(platform.Dialogs.size(), Shown()), std::tuple(2u, Pair("1", "B")));
  Untick();
  Expect_Off();
  Step(true);
  Step(false);
  EXPECT_EQ(std::tuple(Shown(), platform.Beeps), std::tuple(Pair("0", ""), 2));
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Speech_Pane, AVanishedFileIsNamedAndThePaneGoesOff) {
  for (const bool forward : {true, false}) {
    platform.Messages.clear();
    const std::string path = Tick_With(Speech(480, 3));
    Step(true);
    std::filesystem::remove(path);
    Step(forward);
    const Shown_Message gone{"Файл " + path + " не найден!\r\n Возможно он был перемещен или удален", 16, "ERROR"};
    EXPECT_EQ(platform.Messages, std::vector{gone});
    Expect_Off();
    EXPECT_EQ(platform.Beeps, 0);
  }
}

// Ticked, the explanation of byte 14 shows the record's message; FF says that there is none.
TEST_F(Speech_Pane, ByteFourteenOfTheRecord) {
  Tick_With(Speech(480, 3));
  Explain_Byte_14("02");
  EXPECT_EQ(Shown(), Pair("2", "C"));
  Explain_Byte_14("FF");
  EXPECT_EQ(Shown(), Pair("-1", "Игнорируетя"));
  Step(false);  // from -1, "<<" beeps and ">>" goes to message 0
  EXPECT_EQ(std::tuple(window.L_Message.Caption, platform.Beeps), std::tuple("-1", 1));
  Step(true);
  EXPECT_EQ(Shown(), Pair("0", "A"));
  Explain_Byte_14(nullptr);  // no record: the text goes, the number stays
  EXPECT_EQ(Shown(), Pair("0", ""));

  // Message 254 is beyond what can be read: a short file leaves the text, a long one fails.
  Explain_Byte_14("01");
  Explain_Byte_14("FE");
  EXPECT_EQ(std::tuple(Shown(), window.Check.Value, platform.Messages.size()), std::tuple(Pair("254", "B"), 1, 0u));
  const std::string path = folder.Write("speech.edt", Speech(480, 255));
  Explain_Byte_14("FE");
  EXPECT_EQ(platform.Messages, (std::vector<Shown_Message>{{"Ошибка во время чтения файла\r\n" + path, 16, "ERROR"}}));
  Expect_Off();
}

}  // namespace
