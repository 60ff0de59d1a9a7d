// A platform without windows: it answers message boxes and file dialogs from a script and records
// everything that was shown, beeped or ended. What the script has no answer for is a surprise: a
// question is cancelled, a dialog too. The command line drives the window objects on it (Quiet,
// with no script), and so do the tests, the fuzz targets, the benchmarks and the screenshot tool.
// Given the system's own platform, it takes the screen from there and, with Real_Dialogs, shows
// the system's file dialogs.
#pragma once

#include <deque>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "form/platform.h"
#include "system/text.h"

struct Shown_Message {
  std::string Prompt;
  int Style = 0;
  std::string Title;
  bool operator==(const Shown_Message&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Shown_Message& m) {
  return out << '{' << m.Prompt << ", " << m.Style << ", " << m.Title << '}';
}

// What the user picks in a file dialog; FilterIndex 0 keeps the entry the program set.
struct Dialog_Pick {
  std::string FileName;
  int FilterIndex = 0;
};

struct Shown_Dialog {
  bool Save = false;       // ShowSave, else ShowOpen
  Common_Dialog Settings;  // as the program set the dialog up
  Common_Dialog Result;    // as the dialog handed it back
};

class Recording_Platform : public Platform {
 public:
  explicit Recording_Platform(Platform* system = nullptr) : system_(system) {}

  // Answers to the questions (style 35), in order; boxes with one button need none.
  std::deque<int> Answers;
  // Picks for the file dialogs, in order; nullopt is Cancel.
  std::deque<std::optional<Dialog_Pick>> Picks;
  // The file dialogs are the system's, worked by hand (or by a test acting as the user).
  bool Real_Dialogs = false;
  // Questions and dialogs without a scripted answer are cancelled without a word.
  bool Quiet = false;
  Screen_Size Screen_Twips{15360, 11520};  // 1024 x 768 pixels

  std::vector<Shown_Message> Messages;
  std::vector<Shown_Dialog> Dialogs;
  std::vector<int> Pointers;
  std::vector<std::string> Surprises;
  int Beeps = 0;
  bool Ended = false;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override {
    Messages.push_back({prompt, style, title});
    if (style != msgbox::Question_Yes_No_Cancel) return msgbox::OK;
    if (Answers.empty()) {
      if (!Quiet) Surprises.push_back("a question: " + prompt);
      return msgbox::Cancel;
    }
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  bool ShowOpen(Common_Dialog& cd) override { return Show(cd, false); }
  bool ShowSave(Common_Dialog& cd) override { return Show(cd, true); }
  void Beep() override { ++Beeps; }
  Screen_Size Screen() override { return system_ ? system_->Screen() : Screen_Twips; }
  void Mouse_Pointer(int shape) override { Pointers.push_back(shape); }
  void End_Program() override { Ended = true; }

  std::vector<std::string> Prompts() const {
    std::vector<std::string> prompts;
    for (const Shown_Message& m : Messages) prompts.push_back(m.Prompt);
    return prompts;
  }

 private:
  bool Show(Common_Dialog& cd, bool save) {
    Dialogs.push_back({save, cd, {}});
    bool picked = false;
    if (Real_Dialogs && system_) {
      picked = save ? system_->ShowSave(cd) : system_->ShowOpen(cd);
    } else if (Picks.empty()) {
      if (!Quiet) Surprises.push_back("a file dialog: " + cd.DialogTitle);
    } else {
      const std::optional<Dialog_Pick> pick = Picks.front();
      Picks.pop_front();
      if (pick) {
        cd.FileName = pick->FileName;
        cd.FileTitle = text::File_Title(pick->FileName);
        if (pick->FilterIndex != 0) cd.FilterIndex = pick->FilterIndex;
        picked = true;
      }
    }
    Dialogs.back().Result = cd;
    return picked;
  }

  Platform* system_;
};
