// Decoding one message of a speech file, case by case from speech.txt, on files made byte by byte.
#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "support/data.h"
#include "support/fixture.h"

namespace {

// "42 00 00*478": the bytes in hex, a run of n where "*n" follows.
Bytes File_Of(const std::string& text) {
  Bytes bytes;
  std::istringstream in(text);
  for (std::string item; in >> item;) {
    const std::size_t star = item.find('*');
    const std::size_t count = star == std::string::npos ? 1 : std::stoul(item.substr(star + 1));
    bytes.insert(bytes.end(), count, static_cast<std::uint8_t>(std::stoul(item.substr(0, 2), nullptr, 16)));
  }
  return bytes;
}

class Speech_Messages : public Window_Test, public testing::WithParamInterface<Data_Row> {};

TEST_P(Speech_Messages, ShowTheirTextOrLeaveThePane) {
  const auto& [kind, message, file, text] = std::tuple(GetParam()[0], GetParam()[1], GetParam()[2], GetParam()[3]);
  window.Edt_Path = file == "-" ? folder.Path("gone.edt") : folder.Write("speech.edt", File_Of(file));
  window.Edt_Kind = static_cast<Speech_Kind>(std::stoi(kind));
  window.Check.Value = 1;
  window.Com1.Enabled = window.Com2.Enabled = true;
  window.L_Message.Caption = message;
  window.L_Edt.Caption = "(old)";

  Event([&] { Read_EDT(window); });
  EXPECT_EQ(window.L_Edt.Caption, text);
  if (GetParam().size() > 4) {  // a read error: its message, then the pane is off
    const Shown_Message error{"Ошибка во время чтения файла\r\n" + window.Edt_Path, 16, "ERROR"};
    EXPECT_EQ(platform.Messages, std::vector{error});
    EXPECT_EQ(std::tuple(window.L_Message.Caption, window.Check.Value, window.Edt_Kind, window.Com1.Enabled,
                         window.Com2.Enabled),
              std::tuple("0", 0, 0, false, false));
  } else {
    EXPECT_TRUE(platform.Messages.empty());
    EXPECT_EQ(std::tuple(window.L_Message.Caption, window.Check.Value), std::tuple(message, 1));
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, Speech_Messages, testing::ValuesIn(Read_Data("speech.txt")));

}  // namespace
