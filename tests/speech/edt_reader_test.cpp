// Decoding one message of a speech file, on files made byte by byte.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "speech/speech.h"
#include "store/text.h"
#include "support/fixture.h"

namespace {

// A sparse file of 100 MB with these bytes at this offset.
std::string Huge_File(const std::string& path, std::streamoff offset = 0, const std::string& bytes = "") {
  std::ofstream(path, std::ios::binary).seekp(offset).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  std::filesystem::resize_file(path, 100'000'000);
  return path;
}

class Edt_Reader : public Window_Test {
 protected:
  // Binds a speech file of this kind with message n on show, as the pane does.
  void Bind(const Bytes& file, int kind, const std::string& message) {
    window.Edt_Path = folder.Write("speech.edt", file);
    window.Edt_Kind = static_cast<std::int16_t>(kind);
    window.L_Message.Caption = message;
    window.L_Edt.Caption = "before";
  }
  std::string Read() {
    Event([&] { Read_EDT(window); });
    return window.L_Edt.Caption;
  }
  // A ticked pane, so that the failure road can be seen to untick it.
  void Tick_Without_Dialog() {
    platform.Messages.clear();
    window.Check.Value = 1;
    window.Com1.Enabled = window.Com2.Enabled = true;
  }
  // The message, then the pane is off: text, number, tick, kind, buttons.
  void Expect_Reading_Failed() {
    EXPECT_EQ(platform.Messages,
              (std::vector<Shown_Message>{{"Ошибка во время чтения файла\r\n" + window.Edt_Path, 16, "ERROR"}}));
    EXPECT_EQ(std::tuple(window.L_Edt.Caption, window.L_Message.Caption, window.Check.Value, window.Edt_Kind,
                         window.Com1.Enabled, window.Com2.Enabled),
              std::tuple("", "0", 0, 0, false, false));
  }
};

struct Decode_Case {
  const char* name;
  int kind;
  std::size_t entries;
  std::vector<std::pair<std::size_t, Bytes>> puts;  // bytes at file offsets
  const char* message;
  std::string expected;
};

std::ostream& operator<<(std::ostream& out, const Decode_Case& c) { return out << c.name; }

const Bytes Worked_1{0x42, 0x00, 0x21, 0x00, 0x43, 0x00, 0x00, 0x00};
const Bytes Worked_2{0xED, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00};
const Bytes Ya_First{0x00, 0x01, 0x42, 0x00, 0x00, 0x00};
const Bytes Zero_Zero_Five{0x42, 0x00, 0x00, 0x05, 0x00, 0x43, 0x00, 0x00, 0x00};
const Bytes B479(479, 0x42);

const Decode_Case Decode_Cases[] = {
    {"WorkedCaseAB_Message0", 1, 1, {{0, Worked_1}}, "0", "A B"},
    {"WorkedCaseAB_Message2", 1, 3, {{960, Worked_1}}, "2", "A B"},
    {"WorkedCaseMYa_Message0", 1, 1, {{0, Worked_2}}, "0", "мя"},
    {"WorkedCaseMYa_Message1", 1, 2, {{480, Worked_2}}, "1", "мя"},
    {"WorkedCaseAB_Kind3_Message1", 3, 2, {{320, Worked_1}}, "1", "A B"},
    // Message 0 has no byte in front of it to see a leading 00 01.
    {"YaFirst_Message0_IsLost", 1, 1, {{0, Ya_First}}, "0", "A"},
    {"YaFirst_Message1_IsShown", 1, 2, {{480, Ya_First}}, "1", "яA"},
    {"TwoYaInARow_GiveOne", 1, 1, {{0, {0x42, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x00}}}, "0", "Aя"},
    {"ZeroZeroFive_Kind1_GoesOn",
     1,
     1,
     {{0, Zero_Zero_Five}},
     "0",
     "A\x04"
     "B"},
    {"ZeroZeroFive_Kind3_GoesOn",
     3,
     1,
     {{0, Zero_Zero_Five}},
     "0",
     "A\x04"
     "B"},
    {"ZeroZeroFive_Kind4_Ends", 4, 1, {{0, Zero_Zero_Five}}, "0", "A"},
    {"Ya_Kind4_IsNoEnd", 4, 1, {{0, {0x42, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00}}}, "0", "Aя"},
    {"Blanks_20And21", 1, 1, {{0, {0x20, 0x00, 0x21, 0x00, 0x42, 0x00, 0x00, 0x00}}}, "0", "  A"},
    {"Code0_AddsNothing", 1, 1, {{0, {0x42, 0x00, 0x01, 0x00, 0x43, 0x00, 0x00, 0x00}}}, "0", "AB"},
    {"Cyrillic",
     1,
     1,
     {{0, {0xC1, 0, 0xE0, 0, 0xE1, 0, 0xA9, 0, 0xB9, 0, 0xBA, 0, 0xFF, 0, 0, 1, 0, 0, 0}}},
     "0",
     "АЯаЁё№юя"},
    {"StrayLastByteOfMessageBefore", 1, 2, {{479, {0x44}}, {480, {0x42, 0x00, 0x00, 0x00}}}, "1", "CA"},
    {"EmptyMessage1", 1, 2, {{0, B479}}, "1", ""},
    {"Message0_TwoLeadingZeros_IsNotEmpty", 1, 1, {{0, {0x00, 0x00, 0x42, 0x00, 0x00, 0x00}}}, "0", "A"},
    {"Message0_ThreeLeadingZeros_IsEmpty", 1, 1, {{0, {0x00, 0x00, 0x00, 0x42, 0x00, 0x00}}}, "0", ""},
    // Without an end mark the walk stops at the entry's last byte; message N starts one early.
    {"NoEndMark_Message0_WholeEntry", 1, 2, {{0, Bytes(960, 0x42)}}, "0", std::string(480, 'A')},
    {"NoEndMark_Message1_EntryAndOneByte", 1, 3, {{0, Bytes(1440, 0x42)}}, "1", std::string(481, 'A')},
    // The look-ahead of the last byte reads the next entry.
    {"LookAheadIntoNextEntry", 1, 2, {{0, B479}, {480, {0x00, 0x01}}}, "0", std::string(479, 'A') + "я"},
    // A 00 with fewer than two bytes behind it in the file ends the text.
    {"ZeroInLastButOnePosition", 1, 1, {{0, Bytes(478, 0x42)}, {479, {0x43}}}, "0", std::string(478, 'A')},
    {"ZeroInLastPosition", 1, 1, {{0, B479}}, "0", std::string(479, 'A')},
};

class Decoding : public Edt_Reader, public testing::WithParamInterface<Decode_Case> {};

TEST_P(Decoding, ShowsTheDecodedMessage) {
  const Decode_Case& c = GetParam();
  Bytes file((c.kind == 3 ? 320 : 480) * c.entries, 0);
  for (const auto& [offset, bytes] : c.puts)
    std::ranges::copy(bytes, file.begin() + static_cast<std::ptrdiff_t>(offset));
  Bind(file, c.kind, c.message);
  EXPECT_EQ(Read(), c.expected);
  EXPECT_EQ(window.L_Message.Caption, c.message);
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Files, Decoding, testing::ValuesIn(Decode_Cases),
                         [](const testing::TestParamInfo<Decode_Case>& info) { return info.param.name; });

// A message is shown only when the file holds its whole entry, else nothing changes, silently.
// Positions are 16-bit: 67 is the last message of 480 bytes and 101 the last of 320.
TEST_F(Edt_Reader, WholeEntryAndLastMessage) {
  for (const auto& [kind, size, last] : {std::tuple{1, 480, 67}, std::tuple{4, 480, 67}, std::tuple{3, 320, 101}}) {
    for (int n : {0, 2, last}) {
      SCOPED_TRACE(std::to_string(kind) + " " + std::to_string(n));
      const std::size_t whole = static_cast<std::size_t>((n + 1) * size);
      Bytes file(whole, 0);
      file[whole - static_cast<std::size_t>(size)] = 0x44;  // entry n reads "C"
      Tick_Without_Dialog();
      Bind(file, kind, std::to_string(n));
      EXPECT_EQ(Read(), "C");
      EXPECT_EQ(std::tuple(window.Edt_Entry_Size, window.Edt_File_Size), std::tuple(size, std::int64_t(whole)));

      file.pop_back();
      Bind(file, kind, std::to_string(n));
      EXPECT_EQ(Read(), "before");
      EXPECT_EQ(window.L_Message.Caption, std::to_string(n));
      EXPECT_TRUE(platform.Messages.empty());
    }
    Bind(Bytes(static_cast<std::size_t>(size * (last + 2)), 0), kind, std::to_string(last + 1));
    Read();
    Expect_Reading_Failed();
  }
}

// Message numbers at the limits of 16 and 32 bits, below 0 and no number at all. Beyond the end
// of a short file nothing happens; within a file long enough for them (100 MB), before the
// file's start, beyond 32 bits or without a number, the failure road.
TEST_F(Edt_Reader, MessageNumbersAtTheLimits) {
  const std::string huge = Huge_File(folder.Path("huge.edt"));
  const std::pair<const char*, bool> rows[] = {
      // number, fails in a short file
      {"32767", false}, {"32768", false}, {"65535", false},     {"65536", false},      {"68", false},
      {"-1", true},     {"-32768", true}, {"2147483647", true}, {"99999999999", true}, {"x", true},
  };
  for (const auto& [number, fails_in_short_file] : rows) {
    for (const bool in_huge : {false, true}) {
      SCOPED_TRACE(std::string(number) + (in_huge ? " in 100 MB" : " in 960 bytes"));
      Tick_Without_Dialog();
      Bind(Bytes(960, 0x42), 1, number);
      if (in_huge) window.Edt_Path = huge;
      Read();
      if (in_huge || fails_in_short_file) {
        Expect_Reading_Failed();
      } else {
        EXPECT_TRUE(platform.Messages.empty());
        EXPECT_EQ(std::tuple(window.L_Edt.Caption, window.L_Message.Caption, window.Check.Value),
                  std::tuple("before", number, 1));
      }
    }
  }
  EXPECT_EQ(Read_File(folder.Path("speech.edt")), Bytes(960, 0x42));
  EXPECT_EQ(std::filesystem::file_size(huge), 100'000'000u);
}

// No kind bound reads nothing; a file that has gone since it was chosen reads as an empty one.
TEST_F(Edt_Reader, NoKindOrVanishedFileIsSilent) {
  Bind(Bytes(480, 0x42), 0, "0");
  window.Txt_Free.Text = "save";
  EXPECT_EQ(Read(), "before");
  EXPECT_EQ(window.Txt_Free.Text, "save");

  Bind(Bytes(480, 0x42), 1, "0");
  std::filesystem::remove(window.Edt_Path);
  EXPECT_EQ(Read(), "before");
  EXPECT_EQ(window.Edt_File_Size, 0);
  EXPECT_TRUE(platform.Messages.empty());
}

// Counts what is read, so that a large file can be seen to be read in part only.
struct Counting_Files : Disk_Files {
  std::size_t bytes_read = 0;
  Bytes Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    bytes_read += count;
    return Disk_Files::Read(path, offset, count);
  }
};

TEST_F(Edt_Reader, LargeFileIsReadInPart) {
  const std::string path = Huge_File(folder.Path("large.edt"), 67 * 480, std::string("\x43\0\x42\0\0\0", 6));
  Counting_Files files;
  Vorlane large{platform, files};
  large.Edt_Path = path;
  large.Edt_Kind = 1;
  large.L_Message.Caption = "67";

  Read_EDT(large);
  EXPECT_EQ(large.L_Edt.Caption, "BA");
  EXPECT_EQ(large.Edt_File_Size, 100'000'000);
  EXPECT_LE(files.bytes_read, 480u + 3u);

  large.L_Message.Caption = "68";  // fails before reading
  Read_EDT(large);
  EXPECT_EQ(large.L_Message.Caption, "0");
  EXPECT_EQ(platform.Messages.size(), 1u);
  EXPECT_LE(files.bytes_read, 480u + 3u);
}

TEST(Cp1251, Characters) {
  const std::pair<unsigned char, const char*> letters[] = {
      {0xC0, "А"}, {0xDF, "Я"}, {0xE0, "а"}, {0xFF, "я"}, {0xA8, "Ё"}, {0xB8, "ё"}, {0xB9, "№"}, {0x80, "Ђ"},
      {0x88, "€"}, {0x96, "–"}, {0x97, "—"}, {0xAB, "«"}, {0xB2, "І"}, {0xBF, "ї"}, {0x41, "A"}, {0x20, " "},
  };
  for (const auto& [code, utf8] : letters) EXPECT_EQ(cp1251::Character(code), utf8) << int{code};
  EXPECT_EQ(cp1251::Character(0), "");
  // Each code of the upper half is one character of its own.
  std::set<std::string> seen;
  for (int code = 0x80; code <= 0xFF; ++code) {
    const std::string& c = cp1251::Character(static_cast<unsigned char>(code));
    EXPECT_EQ(text::Length(c), 1u) << code;
    EXPECT_TRUE(seen.insert(c).second) << code;
  }
}

}  // namespace
