// Shared ground for the logic tests: a temporary folder, NPC files made byte by byte, and a
// started main window on a scripted platform.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/scripted_platform.h"
#include "support/temp_folder.h"
#include "ui/vorlane.h"

// A standard file whose record k (1 .. 50) holds the bytes k, k+1, .. k+31 (mod 256): every
// byte tells its record and position.
Bytes Standard_File();
// A Buka file: the mark, then records 1 .. 49 as in Standard_File, then 28 bytes of record 50.
Bytes Buka_File();
// The 32 bytes of record k within a file made by Standard_File / Buka_File.
Bytes Record_Bytes(int k);
// Record k of a file of either kind replaced by these bytes (28 of them for the Buka stump).
void Put_Record(Bytes& file, bool buka, int k, const Bytes& record);

// The real disk, except that writing a file fails half way through its bytes.
class Failing_Disk : public Disk_Files {
 protected:
  void Write_Chunk(int fd, const std::uint8_t* data, std::size_t size) override;
};

// While it lives, the folder takes no new file: it is immutable, or, where that can't be had, it
// loses its write permission (which root passes).
class Folder_Without_New_Files {
 public:
  explicit Folder_Without_New_Files(const std::string& path);
  ~Folder_Without_New_Files();

 private:
  std::string path_;
  int fd_;
  bool immutable_ = false;
};

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
  Scripted_Platform platform;
  Vorlane window;
};

#include "ui/events.h"

template <class Handler>
void Window_Test::Event(Handler&& handler) {
  Fire(window, std::forward<Handler>(handler));
}
