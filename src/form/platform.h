// What the window system does beyond holding controls. The Qt binding implements it on real
// dialogs; tests use a scripted one that answers and records.
#pragma once

#include <cstdint>
#include <string>

#include "form/controls.h"

namespace msgbox {
constexpr int Critical = 16;
constexpr int Question_Yes_No_Cancel = 35;
constexpr int Warning = 48;
constexpr int Information = 64;
constexpr int OK = 1;
constexpr int Cancel = 2;
constexpr int Yes = 6;
constexpr int No = 7;
}  // namespace msgbox

namespace pointer {
constexpr int Default = 0;
constexpr int Hourglass = 11;
}  // namespace pointer

struct Screen_Size {
  std::int32_t Width = 0;   // twips
  std::int32_t Height = 0;  // twips
};

class Platform {
 public:
  virtual ~Platform() = default;

  // Shows a message box and returns the button pressed (msgbox::Yes, ...).
  virtual int MsgBox(const std::string& prompt, int style, const std::string& title) = 0;
  // The file dialogs fill FileName, FileTitle and FilterIndex; false when the user cancels.
  virtual bool ShowOpen(Common_Dialog& cd) = 0;
  virtual bool ShowSave(Common_Dialog& cd) = 0;
  virtual void Beep() = 0;
  virtual Screen_Size Screen() = 0;
  virtual void Mouse_Pointer(int shape) = 0;
  // Closes all windows without their unload events and ends the program.
  virtual void End_Program() = 0;
};
