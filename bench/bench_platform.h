// A platform for the benchmarks: message boxes are answered at once, the file dialogs take their
// answers from a queue, nothing beeps. Base is the platform whose remaining calls are used: the
// headless one below for the logic, qtview::Qt_Platform under the real widgets.
#pragma once

#include <deque>
#include <string>
#include <utility>

#include "ui/platform.h"

struct Bench_Pick {
  std::string FileName;
  int FilterIndex = 0;  // 0 keeps the one the program set
};

template <class Base>
class Bench_Platform : public Base {
 public:
  std::deque<Bench_Pick> Picks;  // an empty queue cancels the dialog

  // The timed steps ask no question; a box is closed at once.
  int MsgBox(const std::string&, int, const std::string&) override { return msgbox::OK; }
  bool ShowOpen(Common_Dialog& cd) override { return Take(cd); }
  bool ShowSave(Common_Dialog& cd) override { return Take(cd); }
  void Beep() override {}

 private:
  bool Take(Common_Dialog& cd) {
    if (Picks.empty()) return false;
    Bench_Pick pick = std::move(Picks.front());
    Picks.pop_front();
    const auto slash = pick.FileName.find_last_of('/');
    cd.FileTitle = slash == std::string::npos ? pick.FileName : pick.FileName.substr(slash + 1);
    cd.FileName = std::move(pick.FileName);
    if (pick.FilterIndex != 0) cd.FilterIndex = pick.FilterIndex;
    return true;
  }
};

// What the logic asks of the window system besides dialogs: a fixed screen, no pointer, no end.
class Headless_Base : public Platform {
 public:
  Screen_Size Screen() override { return {15360, 11520}; }
  void Mouse_Pointer(int) override {}
  void End_Program() override {}
};

using Logic_Platform = Bench_Platform<Headless_Base>;
