// The platform on Windows: the system's message boxes and common file dialogs, its beep, its
// screen and its mouse pointer. The documented styles, flags and button codes are the system's
// own numbers, so they pass through as they are.
#pragma once

#include <windows.h>

#include <functional>

#include "form/platform.h"

namespace win32 {

// A Filter, "description|pattern|description|pattern", as the file dialogs take it: each part
// closed by a zero character, the whole by another.
std::wstring Dialog_Filter(const std::string& filter);

class Win32_Platform : public Platform {
 public:
  // Runs before every dialog, so that the windows show the state the question is about.
  std::function<void()> Before_Modal;
  // The window that dialogs belong to.
  std::function<HWND()> Dialog_Owner;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override;
  bool ShowOpen(Common_Dialog& cd) override;
  bool ShowSave(Common_Dialog& cd) override;
  void Beep() override;
  Screen_Size Screen() override;
  void Mouse_Pointer(int shape) override;
  void End_Program() override;

 private:
  bool Show_File_Dialog(Common_Dialog& cd, bool save);
  HWND Owner() const { return Dialog_Owner ? Dialog_Owner() : nullptr; }
};

}  // namespace win32
