// Shared ground for the logic tests: a started main window on the scripted platform, in a
// temporary folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "form/recording_platform.h"
#include "form/vorlane.h"
#include "support/files.h"

// The 32 captions of the byte cells joined, "" for an empty cell.
std::string Cells_Text(const Vorlane& vForm);
// Sets the captions of the byte cells from hex text ("0A0B..."), 64 characters.
void Set_Cells(Vorlane& vForm, const std::string& hex);

// A file dialog's kind and settings in one line: "open|4100|<FileName>|<Filter>|1|<title>".
std::string Dialog_Line(const Shown_Dialog& dialog);

// A main window after its start-up, on a scripted platform.
class Window_Test : public ::testing::Test {
 protected:
  explicit Window_Test(Files& files = Disk());

  // Opens a file through File > Open, as the user would pick it.
  void Open(const std::string& path);
  // Writes these bytes under the name and opens them.
  void Open_Bytes(const std::string& name, const Bytes& bytes) { Open(folder.Write(name, bytes)); }
  // Runs a handler as an event of the window (fatal failures end the program there).
  template <class Handler>
  void Event(Handler&& handler);
  // Every question and dialog had its scripted answer.
  void TearDown() override;

  Temp_Folder folder;
  Recording_Platform platform;
  Vorlane window;
};

#include "ui/events.h"

template <class Handler>
void Window_Test::Event(Handler&& handler) {
  Fire(window, std::forward<Handler>(handler));
}
