// Shared ground for the fuzz targets: a quiet platform that records what it was asked to show,
// files held in memory, and a way to stop with a reason when an invariant breaks.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "store/failure.h"
#include "store/files.h"
#include "store/text.h"
#include "ui/platform.h"

// An invariant that does not hold: libFuzzer keeps the input that led here.
[[noreturn]] inline void Broken(const std::string& what) {
  std::fprintf(stderr, "invariant broken: %s\n", what.c_str());
  std::abort();
}

inline void Require(bool holds, const std::string& what) {
  if (!holds) Broken(what);
}

struct Shown_Message {
  std::string Prompt;
  int Style = 0;
  std::string Title;
};

// Answers nothing on its own: file dialogs take the queued picks, questions are cancelled.
class Quiet_Platform : public Platform {
 public:
  std::deque<std::optional<std::string>> Picks;
  std::vector<Shown_Message> Messages;
  int Beeps = 0;
  bool Ended = false;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override {
    Messages.push_back({prompt, style, title});
    return style == msgbox::Question_Yes_No_Cancel ? msgbox::Cancel : msgbox::OK;
  }
  bool ShowOpen(Common_Dialog& cd) override { return Show(cd); }
  bool ShowSave(Common_Dialog& cd) override { return Show(cd); }
  void Beep() override { ++Beeps; }
  Screen_Size Screen() override { return {15360, 11520}; }
  void Mouse_Pointer(int) override {}
  void End_Program() override { Ended = true; }

 private:
  bool Show(Common_Dialog& cd) {
    if (Picks.empty()) Broken("a file dialog nobody expected: " + cd.DialogTitle);
    const auto pick = Picks.front();
    Picks.pop_front();
    if (!pick) return false;
    cd.FileName = *pick;
    cd.FileTitle = text::File_Title(*pick);
    return true;
  }
};

// Files in memory, by path. Writes replace a file whole, as on disk.
class Memory_Files : public Files {
 public:
  std::map<std::string, std::vector<std::uint8_t>> Content;
  int Writes = 0;

  std::int64_t Length(const std::string& path) override { return static_cast<std::int64_t>(File(path).size()); }
  std::string Dir(const std::string& path) override {
    return Content.count(path) != 0 ? text::File_Title(path) : std::string();
  }
  std::vector<std::uint8_t> Read(const std::string& path, std::int64_t offset, std::size_t count) override {
    const auto& bytes = File(path);
    if (offset < 0 || static_cast<std::uint64_t>(offset) + count > bytes.size()) throw Run_Time_Error("can't read");
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
  }
  void Write(const std::string& path, const std::vector<std::uint8_t>& bytes) override {
    ++Writes;
    Content[path] = bytes;
  }

 private:
  const std::vector<std::uint8_t>& File(const std::string& path) {
    const auto found = Content.find(path);
    if (found == Content.end()) throw Run_Time_Error("no such file");
    return found->second;
  }
};
