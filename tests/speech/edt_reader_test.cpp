// Decoding one message of a speech file, on files made byte by byte.
#include <gtest/gtest.h>

#include <chrono>
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

// A zero-filled speech file of `entries` entries, with bytes put at 0-based offsets.
struct Speech_File {
  std::size_t size = 480;
  std::size_t entries = 1;
  std::vector<std::pair<std::size_t, Bytes>> puts;

  Bytes Build() const {
    Bytes file(size * entries, 0);
    for (const auto& [offset, bytes] : puts)
      std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
    return file;
  }
};

// Bytes at the start of entry n of a file with entries of this size.
std::pair<std::size_t, Bytes> Entry(std::size_t size, std::size_t n, Bytes bytes) {
  return {size * n, std::move(bytes)};
}

Bytes Repeated(std::size_t count, std::uint8_t byte) { return Bytes(count, byte); }

std::string Times(std::size_t count, const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < count; ++i) out += text;
  return out;
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
    window.Check.Value = 1;
    window.Com1.Enabled = true;
    window.Com2.Enabled = true;
  }
  void Expect_Reading_Failed() {
    ASSERT_EQ(platform.Messages.size(), 1u);
    EXPECT_EQ(platform.Messages[0].Prompt, "Ошибка во время чтения файла\r\n" + window.Edt_Path);
    EXPECT_EQ(platform.Messages[0].Style, 16);
    EXPECT_EQ(platform.Messages[0].Title, "ERROR");
    EXPECT_EQ(window.L_Edt.Caption, "");
    EXPECT_EQ(window.L_Message.Caption, "0");
    EXPECT_EQ(window.Check.Value, 0);
    EXPECT_EQ(window.Edt_Kind, 0);
    EXPECT_FALSE(window.Com1.Enabled);
    EXPECT_FALSE(window.Com2.Enabled);
  }
};

struct Decode_Case {
  const char* name;
  int kind;
  Speech_File file;
  const char* message;
  std::string expected;
};

std::ostream& operator<<(std::ostream& out, const Decode_Case& c) { return out << c.name; }

const Bytes Worked_1{0x42, 0x00, 0x21, 0x00, 0x43, 0x00, 0x00, 0x00};
const Bytes Worked_2{0xED, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00};
const Bytes Ya_First{0x00, 0x01, 0x42, 0x00, 0x00, 0x00};
const Bytes Zero_Zero_Five{0x42, 0x00, 0x00, 0x05, 0x00, 0x43, 0x00, 0x00, 0x00};

std::vector<Decode_Case> Decode_Cases() {
  return {
      {"WorkedCaseAB_Message0", 1, {480, 1, {Entry(480, 0, Worked_1)}}, "0", "A B"},
      {"WorkedCaseAB_Message2", 1, {480, 3, {Entry(480, 2, Worked_1)}}, "2", "A B"},
      {"WorkedCaseMYa_Message0", 1, {480, 1, {Entry(480, 0, Worked_2)}}, "0", "мя"},
      {"WorkedCaseMYa_Message1", 1, {480, 2, {Entry(480, 1, Worked_2)}}, "1", "мя"},
      {"WorkedCaseAB_Kind3_Message1", 3, {320, 2, {Entry(320, 1, Worked_1)}}, "1", "A B"},
      // Message 0 has no byte in front of it to see a leading 00 01.
      {"YaFirst_Message0_IsLost", 1, {480, 1, {Entry(480, 0, Ya_First)}}, "0", "A"},
      {"YaFirst_Message1_IsShown", 1, {480, 2, {Entry(480, 1, Ya_First)}}, "1", "яA"},
      {"TwoYaInARow_GiveOne", 1, {480, 1, {Entry(480, 0, {0x42, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x00})}}, "0", "Aя"},
      {"ZeroZeroFive_Kind1_GoesOn", 1, {480, 1, {Entry(480, 0, Zero_Zero_Five)}}, "0", "A\x04" "B"},
      {"ZeroZeroFive_Kind3_GoesOn", 3, {320, 1, {Entry(320, 0, Zero_Zero_Five)}}, "0", "A\x04" "B"},
      {"ZeroZeroFive_Kind4_Ends", 4, {480, 1, {Entry(480, 0, Zero_Zero_Five)}}, "0", "A"},
      {"Ya_Kind4_IsNoEnd", 4, {480, 1, {Entry(480, 0, {0x42, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00})}}, "0", "Aя"},
      {"Blanks_20And21", 1, {480, 1, {Entry(480, 0, {0x20, 0x00, 0x21, 0x00, 0x42, 0x00, 0x00, 0x00})}}, "0", "  A"},
      {"Code0_AddsNothing", 1, {480, 1, {Entry(480, 0, {0x42, 0x00, 0x01, 0x00, 0x43, 0x00, 0x00, 0x00})}}, "0", "AB"},
      {"Cyrillic", 1, {480, 1, {Entry(480, 0, {0xC1, 0x00, 0xE0, 0x00, 0xE1, 0x00, 0xA9, 0x00, 0xB9, 0x00, 0xBA, 0x00,
                                                0xFF, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00})}},
       "0", "АЯаЁё№юя"},
      {"StrayLastByteOfMessageBefore", 1, {480, 2, {{479, {0x44}}, Entry(480, 1, {0x42, 0x00, 0x00, 0x00})}}, "1", "CA"},
      {"EmptyMessage1", 1, {480, 2, {Entry(480, 0, Repeated(479, 0x42))}}, "1", ""},
      {"Message0_TwoLeadingZeros_IsNotEmpty", 1, {480, 1, {Entry(480, 0, {0x00, 0x00, 0x42, 0x00, 0x00, 0x00})}}, "0", "A"},
      {"Message0_ThreeLeadingZeros_IsEmpty", 1, {480, 1, {Entry(480, 0, {0x00, 0x00, 0x00, 0x42, 0x00, 0x00})}}, "0", ""},
      // Without an end mark the walk stops at the entry's last byte; message N starts one early.
      {"NoEndMark_Message0_WholeEntry", 1, {480, 2, {Entry(480, 0, Repeated(960, 0x42))}}, "0", Times(480, "A")},
      {"NoEndMark_Message1_EntryAndOneByte", 1, {480, 3, {Entry(480, 0, Repeated(1440, 0x42))}}, "1", Times(481, "A")},
      // The look-ahead of the last byte reads the next entry.
      {"LookAheadIntoNextEntry", 1, {480, 2, {Entry(480, 0, Repeated(479, 0x42)), Entry(480, 1, {0x00, 0x01})}}, "0",
       Times(479, "A") + "я"},
      // A 00 with fewer than two bytes behind it in the file ends the text.
      {"ZeroInLastButOnePosition", 1, {480, 1, {Entry(480, 0, Repeated(478, 0x42)), {479, {0x43}}}}, "0", Times(478, "A")},
      {"ZeroInLastPosition", 1, {480, 1, {Entry(480, 0, Repeated(479, 0x42))}}, "0", Times(479, "A")},
  };
}

class Decoding : public Edt_Reader, public testing::WithParamInterface<Decode_Case> {};

TEST_P(Decoding, ShowsTheDecodedMessage) {
  const Decode_Case& c = GetParam();
  Bind(c.file.Build(), c.kind, c.message);
  EXPECT_EQ(Read(), c.expected);
  EXPECT_EQ(window.L_Message.Caption, c.message);
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Files, Decoding, testing::ValuesIn(Decode_Cases()),
                         [](const testing::TestParamInfo<Decode_Case>& info) { return info.param.name; });

// A message is shown only when the file holds its whole entry; else nothing changes, silently.
TEST_F(Edt_Reader, FileMustHoldTheWholeEntry) {
  for (const auto& [kind, size] : {std::pair{1, 480}, std::pair{3, 320}, std::pair{4, 480}}) {
    for (int n : {0, 2}) {
      const std::size_t whole = static_cast<std::size_t>((n + 1) * size);
      Bytes file(whole, 0);
      file[whole - static_cast<std::size_t>(size)] = 0x42;  // entry n reads "A"
      Bind(file, kind, std::to_string(n));
      EXPECT_EQ(Read(), "A") << kind << " " << n;
      EXPECT_EQ(window.Edt_Entry_Size, size);
      EXPECT_EQ(window.Edt_File_Size, static_cast<std::int64_t>(whole));

      file.pop_back();
      Bind(file, kind, std::to_string(n));
      EXPECT_EQ(Read(), "before") << kind << " " << n;
      EXPECT_EQ(window.L_Message.Caption, std::to_string(n));
    }
  }
  EXPECT_TRUE(platform.Messages.empty());
}

// Positions are 16-bit: 67 is the last message of 480 bytes and 101 the last of 320.
TEST_F(Edt_Reader, LastMessageThatCanBeShown) {
  for (const auto& [kind, size, last] : {std::tuple{1, 480, 67}, std::tuple{4, 480, 67}, std::tuple{3, 320, 101}}) {
    Speech_File file{static_cast<std::size_t>(size), static_cast<std::size_t>(last + 2),
                     {Entry(static_cast<std::size_t>(size), static_cast<std::size_t>(last), {0x44, 0x00, 0x00, 0x00})}};
    Bind(file.Build(), kind, std::to_string(last));
    EXPECT_EQ(Read(), "C") << kind;
    EXPECT_TRUE(platform.Messages.empty());

    platform.Messages.clear();
    Tick_Without_Dialog();
    Bind(file.Build(), kind, std::to_string(last + 1));
    Read();
    Expect_Reading_Failed();
    platform.Messages.clear();
  }
}

// Beyond the limit but beyond the file too: the file is too short, and that is silent.
TEST_F(Edt_Reader, MessageBeyondTheLimitInAShortFileIsSilent) {
  Tick_Without_Dialog();
  Bind(Bytes(68 * 480, 0x42), 1, "68");
  EXPECT_EQ(Read(), "before");
  EXPECT_EQ(window.L_Message.Caption, "68");
  EXPECT_EQ(window.Check.Value, 1);
  EXPECT_TRUE(platform.Messages.empty());
}

// Message numbers at the limits of 16 and 32 bits and below 0. Beyond the end of a short file
// nothing happens; within a file long enough for them (100 MB), before the file's start or
// beyond 32 bits, the failure road.
TEST_F(Edt_Reader, MessageNumbersAtTheLimits) {
  const std::string huge = folder.Path("huge.edt");
  { std::ofstream create(huge, std::ios::binary); }
  std::filesystem::resize_file(huge, 100'000'000);
  const struct {
    const char* number;
    bool fails_in_short_file;
  } rows[] = {
      {"32767", false}, {"32768", false}, {"65535", false},     {"65536", false},
      {"-1", true},     {"-32768", true}, {"2147483647", true}, {"99999999999", true},
  };
  for (const auto& row : rows) {
    for (const bool in_huge : {false, true}) {
      SCOPED_TRACE(std::string(row.number) + (in_huge ? " in 100 MB" : " in 960 bytes"));
      platform.Messages.clear();
      Tick_Without_Dialog();
      Bind(Bytes(960, 0x42), 1, row.number);
      if (in_huge) window.Edt_Path = huge;
      Read();
      if (in_huge || row.fails_in_short_file) {
        Expect_Reading_Failed();
      } else {
        EXPECT_TRUE(platform.Messages.empty());
        EXPECT_EQ(window.L_Edt.Caption, "before");
        EXPECT_EQ(window.L_Message.Caption, row.number);
        EXPECT_EQ(window.Check.Value, 1);
      }
    }
  }
  EXPECT_EQ(Read_File(folder.Path("speech.edt")), Bytes(960, 0x42));
  EXPECT_EQ(std::filesystem::file_size(huge), 100'000'000u);
}

TEST_F(Edt_Reader, ShorterThanOneEntryShowsNothing) {
  Bind(Bytes(479, 0x42), 1, "0");
  EXPECT_EQ(Read(), "before");
  EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(Edt_Reader, NoKindReadsNothing) {
  Bind(Bytes(480, 0x42), 0, "0");
  window.Txt_Free.Text = "save";
  EXPECT_EQ(Read(), "before");
  EXPECT_EQ(window.Txt_Free.Text, "save");
}

// A file that has gone since it was chosen reads as an empty one.
TEST_F(Edt_Reader, VanishedFileIsSilent) {
  Bind(Bytes(480, 0x42), 1, "0");
  std::filesystem::remove(window.Edt_Path);
  EXPECT_EQ(Read(), "before");
  EXPECT_EQ(window.Edt_File_Size, 0);
  EXPECT_TRUE(platform.Messages.empty());
}

// The number comes from the label; a label that holds no number can't be read.
TEST_F(Edt_Reader, MessageNumberThatIsNoNumberFails) {
  Tick_Without_Dialog();
  Bind(Bytes(960, 0x42), 1, "x");
  Read();
  Expect_Reading_Failed();
}

// Counts what is read, so that a large file can be seen to be read in part only.
class Counting_Files : public Disk_Files {
 public:
  std::size_t bytes_read = 0;
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    bytes_read += count;
    return Disk_Files::Read(path, offset, count);
  }
};

TEST_F(Edt_Reader, LargeFileIsReadInPart) {
  const std::string path = folder.Path("large.edt");
  { std::ofstream create(path, std::ios::binary); }
  std::filesystem::resize_file(path, 100'000'000);
  {
    std::fstream out(path, std::ios::binary | std::ios::in | std::ios::out);
    out.seekp(67 * 480);
    const char text[] = {0x43, 0x00, 0x42, 0x00, 0x00, 0x00};
    out.write(text, sizeof text);
  }
  Counting_Files files;
  Vorlane large{platform, files};
  large.Edt_Path = path;
  large.Edt_Kind = 1;
  large.L_Message.Caption = "67";

  const auto start = std::chrono::steady_clock::now();
  Read_EDT(large);
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(large.L_Edt.Caption, "BA");
  EXPECT_EQ(large.Edt_File_Size, 100'000'000);
  EXPECT_LE(files.bytes_read, 480u + 3u);
  EXPECT_LT(took, std::chrono::milliseconds(200));

  large.L_Message.Caption = "68";
  Read_EDT(large);
  EXPECT_EQ(large.L_Message.Caption, "0");
  EXPECT_EQ(large.L_Edt.Caption, "");
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "Ошибка во время чтения файла\r\n" + path);
  EXPECT_LE(files.bytes_read, 480u + 3u);
}

TEST(Cp1251, Characters) {
  const std::pair<unsigned char, const char*> letters[] = {
      {0xC0, "А"}, {0xDF, "Я"}, {0xE0, "а"}, {0xFF, "я"}, {0xA8, "Ё"}, {0xB8, "ё"}, {0xB9, "№"}, {0x80, "Ђ"},
      {0x88, "€"}, {0x96, "–"}, {0x97, "—"}, {0xAB, "«"}, {0xB2, "І"}, {0xBF, "ї"}, {0x41, "A"}, {0x20, " "},
  };
  for (const auto& [code, utf8] : letters) EXPECT_EQ(cp1251::Character(code), utf8) << int{code};
  EXPECT_EQ(cp1251::Character(0), "");
}

// Each code of the upper half is one character of its own.
TEST(Cp1251, UpperHalfIsOneDistinctCharacterEach) {
  std::set<std::string> seen;
  for (int code = 0x80; code <= 0xFF; ++code) {
    const std::string& c = cp1251::Character(static_cast<unsigned char>(code));
    EXPECT_EQ(text::Length(c), 1u) << code;
    EXPECT_TRUE(seen.insert(c).second) << code;
  }
}

}  // namespace
