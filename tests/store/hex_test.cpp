// The conversions between hex pairs, decimal text, numbers and texts, row by row from the data,
// and the character's name added to a file name.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>

#include "form/recording_platform.h"
#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/file_commands.h"
#include "store/hex.h"
#include "store/number.h"
#include "support/data.h"
#include "system/failure.h"
#include "system/text.h"
#include "ui/events.h"

namespace {

using Conversion = std::function<std::string(std::string)>;

std::string Shown(std::optional<double> value) {
  if (!value) return "none";
  std::ostringstream out;
  out.precision(17);
  out << *value;
  return out.str();
}

const std::map<std::string, Conversion>& Conversions() {
  static const std::map<std::string, Conversion> conversions{
      {"sub_decode",
       [](std::string t) {
         try {
           Position::Sub_DeCode(t);
           return t;
         } catch (const Fatal_Error& failure) {
           EXPECT_EQ(failure.Text, "Неустранимая ошибка в Sub_DeCode(vForm) X Module(1) X Line 126");
           EXPECT_EQ(std::pair(failure.Style, failure.Title), std::pair(16, std::string("ERROR")));
           return std::string("fatal");
         }
       }},
      {"pad_hex", [](std::string t) { return Position::Pad_Hex(t), t; }},
      {"word", [](std::string t) { return std::to_string(hex::Word_Value(t.substr(0, 2), t.substr(3))); }},
      {"encode_byte", [](std::string t) { return hex::Encode_Byte(*number::Read(t)); }},
      {"encode_word", [](std::string t) { return hex::Encode_Word(*number::Read(t)); }},
      {"error_text", [](std::string t) { return Position::Error_Text(t), t; }},
      {"number", [](std::string t) { return Shown(number::Read(t)); }},
      {"whole_number", [](std::string t) { return Shown(number::Read_Long(t)); }},
      {"length", [](std::string t) { return std::to_string(text::Length(t)); }},
      {"first_3", [](std::string t) { return text::Left(t, 3); }},
      {"last_4", [](std::string t) { return text::Right(t, 4); }},
      {"upper", [](std::string t) { return text::Upper(t); }},
      {"file_title", [](std::string t) { return text::File_Title(t); }},
      {"correct_bar",  // the file name in SBar_3 gets the character's name
       [](std::string t) {
         Recording_Platform platform;
         Vorlane window(Routes(), platform);
         window.SBar_3.SimpleText = t;
         CorrectBar(window);
         return window.SBar_3.SimpleText;
       }},
  };
  return conversions;
}

TEST(Conversions, EveryRowOfTheTable) {
  for (const Data_Row& row : Read_Data("conversions.txt")) {
    ASSERT_EQ(row.size(), 3u);
    EXPECT_EQ(Conversions().at(row[0])(row[1]), row[2]) << row[0] << " of \"" << row[1] << '"';
  }
}

// Every byte goes to its pair and back; a number too long for a double is none.
TEST(Conversions, EveryByteAndTheLongestNumbers) {
  for (int value = 0; value < 256; ++value) EXPECT_EQ(hex::Byte_Value(hex::Pair(value)), value);
  EXPECT_FALSE(number::Read(std::string(400, '9')));
  EXPECT_TRUE(number::Read(std::string(300, '9')));
}

}  // namespace
