#include "fields/byte_help.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Help(std::string caption) {
    Position::Byte_Help(caption);
    return caption;
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

bool Ends_With(const std::string& text, const std::string& tail) {
    return text.size() >= tail.size() &&
           text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

struct Caption_Case {
    const char* caption;
    const char* head;
};

class Captions : public testing::TestWithParam<Caption_Case> {};

// Each body is one paragraph behind an empty line, so a text holds exactly two line breaks,
// both right behind the head line.
TEST_P(Captions, HeadLineThenEmptyLineThenBody) {
    const std::string text = Help(GetParam().caption);
    const std::string head = std::string(GetParam().head) + "\r\n\r\n";
    ASSERT_EQ(text.substr(0, head.size()), head);
    EXPECT_GT(text.size(), head.size() + 20);
    EXPECT_EQ(Count(text, "\r"), 2u);
    EXPECT_EQ(Count(text, "\n"), 2u);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Captions,
    testing::Values(Caption_Case{"Bytes 03-04", "Bytes 03-04 as WORD"},
                    Caption_Case{"Bytes 05-06", "Bytes 05-06 as WORD"},
                    Caption_Case{"Bytes 07-08", "Bytes 07-08 as WORD"},
                    Caption_Case{"Byte 09", "Byte 09 as BYTE"},
                    Caption_Case{"Byte 10", "Byte 10 as BYTE"},
                    Caption_Case{"Byte 11", "Byte 11 as BYTE"},
                    Caption_Case{"Byte 12", "Byte 12 as BYTE"},
                    Caption_Case{"Byte 13", "Byte 13 as BYTE"},
                    Caption_Case{"Byte 14", "Byte 14 as BYTE"},
                    Caption_Case{"Byte 15", "Byte 15 as BYTE"},
                    Caption_Case{"Byte 16", "Byte 16 as BYTE"},
                    Caption_Case{"Byte 17", "Byte 17 as BYTE"},
                    Caption_Case{"Byte 18", "Byte 18 as BYTE"},
                    Caption_Case{"Byte 19", "Byte 19 as BYTE"},
                    Caption_Case{"Byte 20", "Byte 20 as BYTE"},
                    Caption_Case{"Bytes 21-22", "Bytes 21-22 as WORD"},
                    Caption_Case{"Bytes 23-24", "Bytes 23-24 as WORD"},
                    Caption_Case{"Bytes 25-26", "Bytes 25-26 as WORD"},
                    Caption_Case{"Bytes 27-28", "Bytes 27-28 as WORD"},
                    Caption_Case{"Bytes 29-32", "Bytes 29-32 as BYTES"}),
    [](const testing::TestParamInfo<Caption_Case>& info) {
        std::string name = info.param.caption;
        for (char& c : name) {
            if (c == ' ' || c == '-') c = '_';
        }
        return name;
    });

TEST(ByteHelp, FireModeTextByteForByte) {
    const std::string expected =
        "Bytes 01-02 as WORD\r\n"
        "Значение этого слова (2 байта) имеет три возможных значения: 0000, 0200, 0400 и "
        "определяет как сработает запись.\r\n"
        "00 00 - Запись будет \xD1\x81работывать всегда, без передачи на стандартные записи.\r\n"
        "02 00 - Запись сработает только один раз (во всей игре!) и в дальнейшем управление "
        "передастся стандартным записям. (Пример - НПЦ дает игроку квест)\r\n"
        "04 00 - Запись будет \x63работывать всегда и при повторе управление будет "
        "передаваться стандартным записям.";
    EXPECT_EQ(Help("Bytes 01-02"), expected);
}

TEST(ByteHelp, FireModeHasNoEmptyLineAndNoBreakAtTheEnd) {
    const std::string text = Help("Bytes 01-02");
    EXPECT_EQ(text.find("\r\n\r\n"), std::string::npos);
    EXPECT_EQ(Count(text, "\r\n"), 4u);
    EXPECT_NE(text.substr(text.size() - 2), "\r\n");
}

TEST(ByteHelp, WholeTextsOfShortBodies) {
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
              "Эти байты у всех НПЦ равны '00', видимо, зарезервированы для дальнейшего "
              "использования.");
}

TEST(ByteHelp, BodiesKeepTheirOwnSpelling) {
    // A missing blank before the quote, and no full stop at the end of Byte 13 and Bytes 23-24.
    EXPECT_NE(Help("Byte 10").find("будет иметь значение'FF', то данная запись не сработает никогда)."),
              std::string::npos);
    EXPECT_TRUE(Ends_With(Help("Byte 13"), "данный байта имеет значение '00'"));
    EXPECT_TRUE(Ends_With(Help("Bytes 23-24"), "не выполняет индивидуальных условий"));
    EXPECT_NE(Help("Byte 15").find("NpcSpeech.slf"), std::string::npos);
    EXPECT_NE(Help("Byte 16").find("Bynarydata.slf\\Quests.edt"), std::string::npos);
}

TEST(ByteHelp, OnlyExactCaptionsAreKeys) {
    for (const char* text : {"Byte 9", "Byte 0", "Byte 29", "Byte 32", "Bytes 29-31", "Bytes 1-2",
                             "bytes 01-02", "BYTE 09", "Byte 09 ", " Byte 09", "Byte 09 as BYTE",
                             "Byte  09", ""}) {
        EXPECT_EQ(Help(text), text);
    }
}

TEST(ByteHelp, TheTextIsNoKeyAgain) {
    const std::string once = Help("Byte 09");
    EXPECT_EQ(Help(once), once);
}

}  // namespace
