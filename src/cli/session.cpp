#include "cli/session.h"

#include <filesystem>

#include "fields/explain.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "ui/navigation.h"
#include "form/record_tests.h"
#include "ui/shell.h"

namespace cli {

Session::Session(std::ostream& err) : err_(err) {
  platform.Quiet = true;
  Event([&] { Form_Load(window); });
}

void Session::Error(const std::string& what) {
  err_ << Program << ": " << file << ": " << what << '\n';
  failed = true;
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
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    Error("a folder, not a file");
    return false;
  }
  Open_Result result = Open_Result::Unreadable;
  Fire(window, [&] { result = Open_File(window, path); });
  if (result == Open_Result::Wrong_Size && size_message && !platform.Messages.empty()) {
    *size_message = platform.Messages.back().Prompt;
    platform.Messages.pop_back();
  }
  Pass_On_Boxes();
  if (result == Open_Result::Unreadable) Error(std::filesystem::exists(path, ec) ? "can't be read" : "no such file");
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
    // The speech pane keeps what it showed last when it reads nothing: each record starts clean.
    const bool speech = field.Explain == Info_For_Byte_14 && window.Check.Value == 1;
    if (speech) window.L_Edt.Caption.clear();
    Event([&] { field.Explain(window); });
    view.Sentence = window.L_Info_User.Caption;
    view.Found = window.Info_Finding;
    if (speech) view.Speech = window.L_Edt.Caption;
    record.Fields.push_back(std::move(view));
  }
  return record;
}

bool Session::Speech(const std::string& path, Speech_Kind kind) {
  const std::string npc_file = file;
  file = path;
  Event([&] { Check_Tick_With_File(window, path, kind); });
  std::error_code ec;
  if (window.Check.Value != 1) Error(std::filesystem::exists(path, ec) ? "can't be read" : "no such file");
  const bool bound = window.Check.Value == 1;
  file = npc_file;
  return bound;
}

}  // namespace cli
