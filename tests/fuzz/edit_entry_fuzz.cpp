// The key filter and the encoders of the Edit window on arbitrary text.
//
// Input: a selector byte (bit 0: encode as word, else as byte; bit 1: the text comes through the
// key filter, one key a byte, as typed; else it is pasted as it is), then the text. The last 8
// bytes also go to the encoders directly as a double.
//
// Invariants: the key filter lets through digits and backspace only, unchanged. After an encoding
// Txt_4 is empty or exactly "HH" / "HH HH" in capital hex whose value is the whole number typed,
// 0 .. 255 / 0 .. 65535; a text that is no number takes the road of message 1 and closes the
// window with the record's bytes as they were.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "fuzz_support.h"
#include "store/convert.h"
#include "store/file_commands.h"
#include "ui/edit.h"
#include "ui/events.h"
#include "ui/navigation.h"
#include "ui/shell.h"
#include "ui/vorlane.h"

namespace {

const std::string Path = "/npc/075.npc";

// Two capital hex digits to their value, or -1.
long Pair_Value(const std::string& pair) {
  if (pair.size() != 2) return -1;
  long value = 0;
  for (const char c : pair) {
    if (c >= '0' && c <= '9')
      value = value * 16 + (c - '0');
    else if (c >= 'A' && c <= 'F')
      value = value * 16 + (c - 'A' + 10);
    else
      return -1;
  }
  return value;
}

// The value of an encoding: "HH" as a byte, "LL HH" as a word; -1 for any other text.
long Encoding_Value(const std::string& encoded, bool word) {
  if (!word) return Pair_Value(encoded);
  if (encoded.size() != 5 || encoded[2] != ' ') return -1;
  const long low = Pair_Value(encoded.substr(0, 2));
  const long high = Pair_Value(encoded.substr(3, 2));
  return low < 0 || high < 0 ? -1 : high * 256 + low;
}

// The text as the C library reads a decimal number, blanks around it allowed; nothing when the
// text has any other character, is no number of that form or too large for a double.
std::optional<double> Decimal_Value(const std::string& typed) {
  const std::size_t from = typed.find_first_not_of(' ');
  if (from == std::string::npos) return std::nullopt;
  const std::string inner = typed.substr(from, typed.find_last_not_of(' ') - from + 1);
  if (inner.find_first_not_of("0123456789+-.eE") != std::string::npos) return std::nullopt;
  char* end = nullptr;
  const double value = std::strtod(inner.c_str(), &end);
  if (end != inner.c_str() + inner.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

void Check_Encoders(double number) {
  for (const bool word : {false, true}) {
    const double limit = word ? 65535 : 255;
    const std::string encoded = word ? hex::Encode_Word(number) : hex::Encode_Byte(number);
    const bool whole_in_range = number >= 0 && number <= limit && number == std::floor(number);
    if (!whole_in_range) {
      Require(encoded.empty(), "an encoding of a number that is no whole number in range");
      continue;
    }
    Require(Encoding_Value(encoded, word) == static_cast<long>(number), "the encoding's value: " + encoded);
  }
}

// A main window with a standard file open and record 7 on show.
struct Setup {
  Scripted_Platform platform;
  Memory_Files files;
  Vorlane window{platform, files};
  std::string cells;

  Setup() {
    std::vector<std::uint8_t> file(1600);
    for (std::size_t i = 0; i < file.size(); ++i) file[i] = static_cast<std::uint8_t>(i * 7 + 1);
    files.Content[Path] = file;
    Form_Load(window);
    platform.Picks.push_back(Dialog_Pick{Path});
    Fire(window, [&] { nOpen_Click(window); });
    Fire(window, [&] { Slider_Set_Value(window, 7); });
    for (int n = 1; n <= 32; ++n) cells += window.L(n).Caption;
    Require(cells.size() == 64 && platform.Messages.empty(), "the window is set up");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  static Setup setup;
  Vorlane& window = setup.window;
  Scripted_Platform& platform = setup.platform;
  const bool word = (data[0] & 1) != 0;
  const bool typed = (data[0] & 2) != 0;
  const std::string input(reinterpret_cast<const char*>(data + 1), size - 1);

  if (size >= 9) {
    double number = 0;
    std::memcpy(&number, data + size - 8, 8);
    Check_Encoders(number);
  }

  // The key filter, one key a byte; the text box takes what passes, backspace takes one back.
  std::string text = input;
  if (typed) {
    text.clear();
    for (const char c : input) {
      const int key = static_cast<unsigned char>(c);
      const int passed = Only_Num(key);
      const bool allowed = (c >= '0' && c <= '9') || c == '\b';
      Require(passed == (allowed ? key : 0), "the key filter on " + std::to_string(key));
      if (passed == '\b') {
        if (!text.empty()) text.pop_back();
      } else if (passed != 0) {
        text += static_cast<char>(passed);
      }
    }
  }

  platform.Messages.clear();
  platform.Beeps = 0;
  Fire(window, [&] { Dbl_Click_All_L(window); });
  Require(window.Edit != nullptr && !window.Enabled, "the Edit window opens");
  Edit_Form& form = *window.Edit;
  form.Txt_1.Text = text;
  Fire(window, [&] { word ? O_2_Click(form) : O_1_Click(form); });
  Require(!platform.Ended, "an encoding never ends the program");

  std::string cells;
  for (int n = 1; n <= 32; ++n) cells += window.L(n).Caption;
  Require(cells == setup.cells, "the record's bytes stay while encoding");

  if (!platform.Messages.empty()) {
    Require(platform.Messages.size() == 1, "one message");
    const Shown_Message& m = platform.Messages[0];
    Require(m.Prompt == "Недопустимый ввод данных" && m.Style == 16 && m.Title == "ERROR", "the message of code 1");
    Require(window.Edit == nullptr && window.Enabled, "the window closes on message 1");
    Require(!Decimal_Value(text) || text.size() > 308, "message 1 only for a text that is no number");
    return 0;
  }
  Require(window.Edit != nullptr, "the window stays open");
  const std::string& encoded = form.Txt_4.Text;
  const double limit = word ? 65535 : 255;
  if (text.empty()) {
    Require(encoded.empty() && platform.Beeps == 1, "an empty number beeps and leaves Txt_4");
  } else {
    const auto value = Decimal_Value(text);
    Require(value.has_value(), "a text that is no number was taken: " + text);
    const bool whole_in_range = *value >= 0 && *value <= limit && *value == std::floor(*value);
    if (whole_in_range) {
      Require(Encoding_Value(encoded, word) == static_cast<long>(*value), "the encoding of " + text + ": " + encoded);
      Require(platform.Beeps == 0, "no beep for a number in range");
    } else {
      Require(encoded.empty(), "no encoding for " + text);
      Require(platform.Beeps == (word ? 0 : 1), "the byte encoding beeps over the limit, the word one never");
    }
  }
  Require(!form.O_1.Value && !form.O_2.Value, "the option buttons are momentary");
  Fire(window, [&] { ComCl_Click(form); });
  Require(window.Edit == nullptr && window.Enabled, "Cancel closes the window");
  return 0;
}
