// The speech-file reader on arbitrary bytes, kinds and message numbers.
//
// Input: kind selector (1 byte), message number (4 bytes, little-endian, signed), extra length
// (2 bytes), then the file's bytes. The file is those bytes repeated to their own length plus the
// extra length, so that messages far into a file can be reached from a small input.
//
// Invariants: every read stays within the walked span and its two bytes of look-ahead, and within
// the file; the reader throws nothing; its answer is one of its three (nothing changes, the text
// is shown, or the failure road with its one message), and the right one for the file's length;
// a text has at most one character for each byte walked.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "form/vorlane.h"
#include "ui/events.h"

namespace {

const std::string Path = "/speech/d_075.edt";

// Reads of the speech file must fall within [allowed_from, allowed_to) (0-based offsets).
class Checked_Files : public Memory_Files {
 public:
  std::int64_t allowed_from = 0;
  std::int64_t allowed_to = 0;
  int reads = 0;

  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    ++reads;
    const std::int64_t end = offset + static_cast<std::int64_t>(count);
    Require(offset >= allowed_from && end <= allowed_to,
            "read of " + std::to_string(count) + " bytes at " + std::to_string(offset) + " outside [" +
                std::to_string(allowed_from) + ", " + std::to_string(allowed_to) + ")");
    return Memory_Files::Read(path, offset, count);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 7) return 0;
  static constexpr Speech_Kind kinds[] = {Npc_Dialogues, Civilian_Dialogues, Npc_Comments};
  const Speech_Kind kind = kinds[data[0] % 3];
  std::int32_t message = 0;
  std::memcpy(&message, data + 1, 4);
  const std::size_t extra = static_cast<std::size_t>(data[5] | (data[6] << 8));
  const std::vector<std::uint8_t> pattern(data + 7, data + size);

  std::vector<std::uint8_t> file(pattern.size() + (pattern.empty() ? 0 : extra));
  for (std::size_t i = 0; i < file.size(); ++i) file[i] = pattern[i % pattern.size()];
  const auto file_size = static_cast<std::int64_t>(file.size());

  // Where message N lies: walked from F to L (1-based), looking two bytes beyond L.
  const std::int64_t entry = kind == Civilian_Dialogues ? 320 : 480;
  const std::int64_t last = std::int64_t{message} * entry + entry;
  const std::int64_t first = last == entry ? 1 : last - entry;
  const bool beyond_32_bits = last < INT32_MIN || last > INT32_MAX;
  const bool in_file = !beyond_32_bits && file_size >= last;
  const bool failure = beyond_32_bits || (in_file && (last > 32767 || first < 1));

  Recording_Platform platform;
  Checked_Files files;
  files.Content[Path] = file;
  files.allowed_from = first - 1;
  files.allowed_to = std::min(last + 2, file_size);

  Vorlane window(Routes(), platform, files);
  window.Error_Title = "ERROR";
  window.Check.Value = 1;
  window.Com1.Enabled = window.Com2.Enabled = true;
  window.Edt_Kind = kind;
  window.Edt_Path = Path;
  window.L_Message.Caption = std::to_string(message);
  window.L_Edt.Caption = "before";

  try {
    Read_EDT(window);
  } catch (...) {
    Broken("the reader let a failure out");
  }

  if (failure) {
    Require(platform.Messages.size() == 1, "the failure road shows one message");
    const Shown_Message& m = platform.Messages[0];
    Require(m.Prompt == "Ошибка во время чтения файла\r\n" + Path && m.Style == 16 && m.Title == "ERROR",
            "the failure road's message");
    Require(window.L_Edt.Caption.empty() && window.L_Message.Caption == "0", "the failure road empties the pane");
    Require(window.Check.Value == 0 && window.Edt_Kind == 0 && !window.Com1.Enabled && !window.Com2.Enabled,
            "the failure road unticks the pane");
    return 0;
  }
  Require(platform.Messages.empty(), "a message without a failure");
  Require(window.Check.Value == 1 && window.Edt_Kind == kind, "the pane stays on");
  Require(window.L_Message.Caption == std::to_string(message), "the message number stays");
  if (!in_file) {
    Require(files.reads == 0, "a message beyond the file is not read");
    Require(window.L_Edt.Caption == "before", "a message beyond the file changes nothing");
    return 0;
  }
  Require(files.reads == 1, "one read for one message");
  const std::string& shown = window.L_Edt.Caption;
  Require(shown == window.Txt_Free.Text, "the label shows the decoded text");
  Require(text::Length(shown) <= static_cast<std::size_t>(last - first + 1), "at most one character a byte");
  return 0;
}
