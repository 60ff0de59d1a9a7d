// A platform for tests: it answers message boxes and file dialogs from a script and records
// everything that was shown, beeped or ended.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "store/text.h"
#include "ui/platform.h"

struct Shown_Message {
  std::string Prompt;
  int Style = 0;
  std::string Title;
};

struct Shown_Dialog {
  bool Save = false;       // ShowSave, else ShowOpen
  Common_Dialog Settings;  // the dialog's settings as the program made them
};

// What the user picks in a file dialog; FilterIndex 0 keeps the one the program set.
struct Dialog_Pick {
  std::string FileName;
  int FilterIndex = 0;
};

class Scripted_Platform : public Platform {
 public:
  // Answers to the questions (style 35), in order. Boxes with one button need none.
  std::deque<int> Answers;
  // Picks for the file dialogs, in order; nullopt is Cancel.
  std::deque<std::optional<Dialog_Pick>> Picks;
  Screen_Size Screen_Twips{15360, 11520};

  std::vector<Shown_Message> Messages;
  std::vector<Shown_Dialog> Dialogs;
  std::vector<int> Pointers;
  int Beeps = 0;
  bool Ended = false;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override {
    Messages.push_back({prompt, style, title});
    if (style != msgbox::Question_Yes_No_Cancel) return msgbox::OK;
    if (Answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << prompt;
      return msgbox::Cancel;
    }
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
  }

  bool ShowOpen(Common_Dialog& cd) override { return Show(cd, false); }
  bool ShowSave(Common_Dialog& cd) override { return Show(cd, true); }
  void Beep() override { ++Beeps; }
  Screen_Size Screen() override { return Screen_Twips; }
  void Mouse_Pointer(int shape) override { Pointers.push_back(shape); }
  void End_Program() override { Ended = true; }

  // The prompts shown, in order.
  std::vector<std::string> Prompts() const {
    std::vector<std::string> prompts;
    for (const auto& m : Messages) prompts.push_back(m.Prompt);
    return prompts;
  }

 private:
  bool Show(Common_Dialog& cd, bool save) {
    Dialogs.push_back({save, cd});
    if (Picks.empty()) {
      ADD_FAILURE() << "unexpected file dialog: " << cd.DialogTitle;
      return false;
    }
    const auto pick = Picks.front();
    Picks.pop_front();
    if (!pick) return false;
    cd.FileName = pick->FileName;
    cd.FileTitle = text::File_Title(pick->FileName);
    if (pick->FilterIndex != 0) cd.FilterIndex = pick->FilterIndex;
    return true;
  }
};
