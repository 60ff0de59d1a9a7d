#include "fields/byte_help.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

std::string Help(std::string caption) {
  Position::Byte_Help(caption);
  return caption;
}

// Each body is one paragraph behind an empty line: exactly two line breaks, right behind the head.
TEST(ByteHelp, HeadLineThenEmptyLineThenBody) {
  const std::pair<const char*, const char*> rows[] = {
      {"Bytes 03-04", "WORD"}, {"Bytes 05-06", "WORD"}, {"Bytes 07-08", "WORD"}, {"Byte 09", "BYTE"},
      {"Byte 10", "BYTE"},     {"Byte 11", "BYTE"},     {"Byte 12", "BYTE"},     {"Byte 13", "BYTE"},
      {"Byte 14", "BYTE"},     {"Byte 15", "BYTE"},     {"Byte 16", "BYTE"},     {"Byte 17", "BYTE"},
      {"Byte 18", "BYTE"},     {"Byte 19", "BYTE"},     {"Byte 20", "BYTE"},     {"Bytes 21-22", "WORD"},
      {"Bytes 23-24", "WORD"}, {"Bytes 25-26", "WORD"}, {"Bytes 27-28", "WORD"}, {"Bytes 29-32", "BYTES"},
  };
  for (const auto& [caption, kind] : rows) {
    const std::string text = Help(caption);
    const std::string head = std::string(caption) + " as " + kind + "\r\n\r\n";
    EXPECT_TRUE(text.starts_with(head)) << caption;
    EXPECT_GT(text.size(), head.size() + 20) << caption;
    EXPECT_EQ(std::ranges::count(text, '\r'), 2) << caption;
    EXPECT_EQ(std::ranges::count(text, '\n'), 2) << caption;
  }
}

// Lines straight under the head line, no empty line, no break at the end; the last line's
// "cработывать" opens with a Latin "c" (63), the second's with a Cyrillic one (D1 81).
TEST(ByteHelp, FireModeTextByteForByte) {
  EXPECT_EQ(Help("Bytes 01-02"),
            "Bytes 01-02 as WORD\r\n"
            "Значение этого слова (2 байта) имеет три возможных значения: 0000, 0200, 0400 и "
            "определяет как сработает запись.\r\n"
            "00 00 - Запись будет \xD1\x81работывать всегда, без передачи на стандартные записи.\r\n"
            "02 00 - Запись сработает только один раз (во всей игре!) и в дальнейшем управление "
            "передастся стандартным записям. (Пример - НПЦ дает игроку квест)\r\n"
            "04 00 - Запись будет \x63работывать всегда и при повторе управление будет "
            "передаваться стандартным записям.");
}

TEST(ByteHelp, TextsKeepTheirOwnSpelling) {
  EXPECT_EQ(Help("Byte 12"),
            "Byte 12 as BYTE\r\n\r\n"
            "Код воздействия. Строго определенное действие игрока по отношению к НПЦ.");
  EXPECT_EQ(Help("Byte 20"),
            "Byte 20 as BYTE\r\n\r\n"
            "У всех существующих НПЦ во всех записях этот байт имеет значение '00'.");
  EXPECT_EQ(Help("Bytes 27-28"),
            "Bytes 27-28 as WORD\r\n\r\n"
            "Код непосредственной реакции НПЦ. (Как стандартной так и индивидуаьной)");
  EXPECT_EQ(Help("Bytes 29-32"),
            "Bytes 29-32 as BYTES\r\n\r\n"
            "Эти байты у всех НПЦ равны '00', видимо, зарезервированы для дальнейшего использования.");
  // A missing blank before the quote, and no full stop at the end of Byte 13 and Bytes 23-24.
  EXPECT_NE(Help("Byte 10").find("будет иметь значение'FF', то данная запись не сработает никогда)."),
            std::string::npos);
  EXPECT_TRUE(Help("Byte 13").ends_with("данный байта имеет значение '00'"));
  EXPECT_TRUE(Help("Bytes 23-24").ends_with("не выполняет индивидуальных условий"));
  EXPECT_NE(Help("Byte 15").find("NpcSpeech.slf"), std::string::npos);
  EXPECT_NE(Help("Byte 16").find("Bynarydata.slf\\Quests.edt"), std::string::npos);
}

TEST(ByteHelp, OnlyExactCaptionsAreKeys) {
  for (const char* text : {"Byte 9", "Byte 0", "Byte 29", "Byte 32", "Bytes 29-31", "Bytes 1-2", "bytes 01-02",
                           "BYTE 09", "Byte 09 ", " Byte 09", "Byte 09 as BYTE", "Byte  09", ""}) {
    EXPECT_EQ(Help(text), text);
  }
  EXPECT_EQ(Help(Help("Byte 09")), Help("Byte 09"));  // the text is no key again
}

}  // namespace
