#include "cli/session.h"

#include "fields/explain.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "system/text.h"
#include "ui/navigation.h"
#include "form/record_tests.h"
#include "ui/shell.h"

namespace cli {

Session::Session(std::ostream& err) : err_(err) {
  platform.Quiet = true;
  // The command line reads any message that a speech file holds.
  window.Edt_Last_Position = std::nullopt;
  Event([&] { Form_Load(window); });
}

void Session::Error(const std::string& what) {
  err_ << Program << ": " << text::Printable(file) << ": " << text::Printable(what) << '\n';
  failed = true;
  ++error_lines_;
}

void Session::Pass_On_Boxes() {
  // A box has lines of its own; an error line has one.
  for (const Shown_Message& box : platform.Messages) {
    std::string line = box.Prompt;
    for (std::size_t at; (at = line.find("\r\n")) != std::string::npos;) line.replace(at, 2, " ");
    Error(line);
  }
  platform.Messages.clear();
  if (window.Ended) throw Program_Ended{};
}

bool Session::Open(const std::string& path, std::string* size_message) {
  file = path;
  // What can't be opened is told in the system's words before the window tries: a folder would
  // measure as an empty file, and a pipe must not be opened at all.
  if (const std::string why = files.Why_Unreadable(path); !why.empty()) {
    Error(why);
    return false;
  }
  Open_Result result = Open_Result::Unreadable;
  Fire(window, [&] { result = Open_File(window, path); });
  if (result == Open_Result::Wrong_Size && size_message && !platform.Messages.empty()) {
    *size_message = platform.Messages.back().Prompt;
    platform.Messages.pop_back();
  }
  Pass_On_Boxes();
  if (result == Open_Result::Unreadable) {
    const std::string why = files.Why_Unreadable(path);
    Error(why.empty() ? "can't be read" : why);
  }
  return result == Open_Result::Loaded;
}

std::string Cells(const Vorlane& window, int first, int last) {
  std::string cells;
  for (int n = first; n <= last; ++n) {
    const std::string& caption = window.L(n).Caption;
    if (caption.empty()) continue;
    if (!cells.empty()) cells += ' ';
    cells += caption;
  }
  return cells;
}

Record_View Session::Record(int k) {
  Event([&] { Slider_Set_Value(window, k); });
  Record_View record;
  record.Heading = window.L_NLine.Caption;
  record.Bytes = Cells(window, 1, 32);
  // The gate of the byte grid: a record with empty cells (the stump of a Buka file) is never
  // explained; the window says why in L_Info_User.
  Event([&] { Move_L(window); });
  if (window.Work_Text != "ok") {
    record.Words = window.L_Info_User.Caption;
    for (const Field& field : fields::All())
      record.Fields.push_back({&field, Cells(window, field.First, field.Last()), record.Words, {}, {}});
    return record;
  }
  record.Explained = true;
  record.Fields.reserve(fields::All().size());
  Event([&] { Record_Exsist(window); });
  record.All_Zero = window.Work_Text_2 == "error";
  for (const Field& field : fields::All()) {
    Field_View view{&field, Cells(window, field.First, field.Last()), {}, {}, {}};
    const bool speech = field.Explain == Info_For_Byte_14 && !speech_path_.empty();
    if (speech)
      Explain_Byte_14();
    else
      Event([&] { field.Explain(window); });
    view.Sentence = window.L_Info_User.Caption;
    view.Found = window.Info_Finding;
    if (speech) view.Speech = window.L_Edt.Caption;
    record.Fields.push_back(std::move(view));
  }
  return record;
}

void Session::Explain_Byte_14() {
  // Error lines from here on are about the speech file.
  const std::string npc_file = file;
  file = speech_path_;
  // A pane that went off after a failure is ticked again: one record's failure takes nothing
  // from the next.
  if (window.Check.Value != 1) {
    window.L_Message.Caption = "0";
    Event([&] { Check_Tick_With_File(window, speech_path_, speech_kind_); });
  }
  // The pane keeps what it showed last when it reads nothing: each record starts clean.
  window.L_Edt.Caption.clear();
  Event([&] { Info_For_Byte_14(window); });
  file = npc_file;
}

void Session::Read_Message(std::int64_t n) {
  window.L_Message.Caption = std::to_string(n);
  Event([&] { Read_EDT(window); });
}

bool Session::Speech(const std::string& path, Speech_Kind kind) {
  const std::string npc_file = file;
  file = path;
  const std::size_t lines_before = error_lines_;
  if (const std::string why = files.Why_Unreadable(path); !why.empty()) {
    Error(why);
  } else {
    Event([&] { Check_Tick_With_File(window, path, kind); });
    // One error line for one failure: the pane's own message, when it gave one.
    if (window.Check.Value != 1 && error_lines_ == lines_before) Error("can't be read");
  }
  const bool bound = window.Check.Value == 1 && error_lines_ == lines_before;
  if (bound) {
    speech_path_ = path;
    speech_kind_ = kind;
  }
  file = npc_file;
  return bound;
}

}  // namespace cli
