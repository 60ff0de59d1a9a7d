#include <gtest/gtest.h>

#include <string>

#include "store/convert.h"
#include "store/error_text.h"
#include "store/failure.h"
#include "store/number.h"
#include "store/text.h"

namespace {

std::string Decoded(std::string text) {
  Position::Sub_DeCode(text);
  return text;
}

std::string Padded(std::string text) {
  Position::Pad_Hex(text);
  return text;
}

TEST(Sub_DeCode, TurnsHexPairsIntoDecimalText) {
  const std::pair<const char*, const char*> cases[] = {
      {"00", "0"},
      {"0A", "10"},
      {"10", "16"},
      {"FF", "255"},
      {"7F", "127"},
      {"A0", "160"},
      // One character is first and last at once; of a longer text only the ends count.
      {"F", "255"},
      {"7", "119"},
      {"1A2", "18"},
  };
  for (const auto& [hex, decimal] : cases) EXPECT_EQ(Decoded(hex), decimal) << hex;
}

TEST(Sub_DeCode, AnythingButCapitalHexIsFatalWithItsOwnMessage) {
  for (const char* bad : {"0a", "", " 1", "G0", "0-", "ff"}) {
    try {
      Decoded(bad);
      ADD_FAILURE() << "no failure for '" << bad << "'";
    } catch (const Fatal_Error& failure) {
      EXPECT_EQ(failure.Text, "Неустранимая ошибка в Sub_DeCode(vForm) X Module(1) X Line 126");
      EXPECT_EQ(failure.Style, 16);
      EXPECT_EQ(failure.Title, "ERROR");
    }
  }
}

TEST(Pad_Hex, PutsAZeroInFrontOfOneCharacterOnly) {
  EXPECT_EQ(Padded("0"), "00");
  EXPECT_EQ(Padded("A"), "0A");
  EXPECT_EQ(Padded(""), "");
  EXPECT_EQ(Padded("FF"), "FF");
  EXPECT_EQ(Padded("1F4"), "1F4");
}

TEST(Hex, BytesAndWords) {
  EXPECT_EQ(hex::Pair(0), "00");
  EXPECT_EQ(hex::Pair(10), "0A");
  EXPECT_EQ(hex::Pair(255), "FF");
  EXPECT_EQ(hex::Bare(500), "1F4");
  for (int value = 0; value < 256; ++value) EXPECT_EQ(hex::Byte_Value(hex::Pair(value)), value);
  // Low byte first, as the bytes stand in a record.
  EXPECT_EQ(hex::Word_Value("02", "01"), 258);
  EXPECT_EQ(hex::Word_Value("FF", "00"), 255);
  EXPECT_EQ(hex::Word_Value("00", "01"), 256);
  EXPECT_EQ(hex::Word_Value("00", "FF"), 65280);
  EXPECT_EQ(hex::Word_Value("FF", "FF"), 65535);
}

TEST(Hex, EditorEncodingsAtTheirLimits) {
  struct Row {
    double number;
    const char* as_byte;
    const char* as_word;
  };
  const Row rows[] = {
      {0, "00", "00 00"},
      {7, "07", "07 00"},
      {255, "FF", "FF 00"},
      {256, "", "00 01"},
      {300, "", "2C 01"},
      {65535, "", "FF FF"},
      {65536, "", ""},
      {99999999999.0, "", ""},
      // Only whole numbers from 0 up can reach a byte.
      {-1, "", ""},
      {3.5, "", ""},
      {255.5, "", ""},
      {100000, "", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(hex::Encode_Byte(row.number), row.as_byte) << row.number;
    EXPECT_EQ(hex::Encode_Word(row.number), row.as_word) << row.number;
  }
}

TEST(Error_Text, EveryCodeHasItsMessageAndOthersStay) {
  const std::pair<const char*, const char*> codes[] = {
      {"1", "Недопустимый ввод данных"},
      {"2", "Программа вызвала неустранимую ошибку в памяти"},
      {"3", "Неверный размер файла"},
      {"4", "FILE NOT SAVE"},
      {"5", "Для определения формата файла его нужно сначала открыть!"},
      {"6", "Ошибка во время чтения файла"},
      {"7", "Ошибка во время создания файла"},
      {"8", "Ошибка во время сохранения файла"},
      {"9", "9"},
      {"", ""},
      {"01", "01"},
  };
  for (const auto& [code, message] : codes) {
    std::string text = code;
    Position::Error_Text(text);
    EXPECT_EQ(text, message) << code;
  }
}

TEST(Number, ReadsTheGeneralNumberForms) {
  EXPECT_EQ(number::Read("12"), 12);
  EXPECT_EQ(number::Read("007"), 7);
  EXPECT_EQ(number::Read(" 57."), 57);
  EXPECT_EQ(number::Read("1e5"), 100000);
  EXPECT_EQ(number::Read("-3.5"), -3.5);
  EXPECT_EQ(number::Read(".5"), 0.5);
  for (const char* bad : {"", " ", "12a", "NEW", "1e", "e5", ".", "-", "0x10", "inf", "nan", "1 2", "٣", "1,5"})
    EXPECT_FALSE(number::Read(bad)) << bad;
  EXPECT_FALSE(number::Read(std::string(400, '9'))) << "too large for a floating-point number";
  EXPECT_TRUE(number::Read(std::string(300, '9')));

  EXPECT_EQ(number::Read_Long("57."), 57);
  EXPECT_EQ(number::Read_Long("2.5"), 2);  // half to even
  EXPECT_EQ(number::Read_Long("3.5"), 4);
  EXPECT_FALSE(number::Read_Long("2147483648"));
  EXPECT_EQ(number::Read_Long("-2147483648"), -2147483647 - 1);
}

TEST(Text, CountsAndCutsByCharacters) {
  const std::string cyrillic = "Файл.npc";
  EXPECT_EQ(text::Length(cyrillic), 8u);
  EXPECT_EQ(text::Left(cyrillic, 3), "Фай");
  EXPECT_EQ(text::Right(cyrillic, 4), ".npc");
  EXPECT_EQ(text::Right("ab", 4), "ab");
  EXPECT_EQ(text::Upper("075.npc"), "075.NPC");
  EXPECT_EQ(text::Upper("дом ёж.Npc"), "ДОМ ЁЖ.NPC");
  EXPECT_EQ(text::File_Title("/home/a b/101.npc"), "101.npc");
  EXPECT_EQ(text::File_Title("new.npc"), "new.npc");
}

}  // namespace
