#include "win32/platform.h"

#include <commdlg.h>

#include <vector>

#include "form/control_table.h"
#include "system/text.h"
#include "system/text_win.h"

namespace win32 {

std::wstring Dialog_Filter(const std::string& filter) {
  std::wstring parts = text::Wide(filter);
  for (wchar_t& c : parts)
    if (c == L'|') c = L'\0';
  return parts + std::wstring(2, L'\0');
}

int Win32_Platform::MsgBox(const std::string& prompt, int style, const std::string& title) {
  if (Before_Modal) Before_Modal();
  return MessageBoxW(Owner(), text::Wide(prompt).c_str(), text::Wide(title).c_str(), static_cast<UINT>(style));
}

bool Win32_Platform::Show_File_Dialog(Common_Dialog& cd, bool save) {
  if (Before_Modal) Before_Modal();
  const std::wstring filter = Dialog_Filter(cd.Filter);
  const std::wstring title = text::Wide(cd.DialogTitle);
  std::vector<wchar_t> file(32768, L'\0'), file_title(MAX_PATH, L'\0');
  const std::wstring name = text::Wide(cd.FileName);
  name.copy(file.data(), file.size() - 1);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = Owner();
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(cd.FilterIndex);
  dialog.lpstrFile = file.data();
  dialog.nMaxFile = static_cast<DWORD>(file.size());
  dialog.lpstrFileTitle = file_title.data();
  dialog.nMaxFileTitle = static_cast<DWORD>(file_title.size());
  dialog.lpstrTitle = title.c_str();
  dialog.Flags = static_cast<DWORD>(cd.Flags) | OFN_EXPLORER;
  if (!(save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog))) return false;
  cd.FileName = text::Utf8(file.data());
  cd.FileTitle = text::Utf8(file_title.data());
  cd.FilterIndex = static_cast<int>(dialog.nFilterIndex);
  return true;
}

bool Win32_Platform::ShowOpen(Common_Dialog& cd) { return Show_File_Dialog(cd, false); }
bool Win32_Platform::ShowSave(Common_Dialog& cd) { return Show_File_Dialog(cd, true); }

void Win32_Platform::Beep() { MessageBeep(MB_OK); }

Screen_Size Win32_Platform::Screen() {
  const int dpi = static_cast<int>(GetDpiForSystem());
  return {To_Twips(GetSystemMetrics(SM_CXSCREEN), dpi), To_Twips(GetSystemMetrics(SM_CYSCREEN), dpi)};
}

void Win32_Platform::Mouse_Pointer(int shape) {
  SetCursor(LoadCursorW(nullptr, shape == pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
}

void Win32_Platform::End_Program() { PostQuitMessage(0); }

}  // namespace win32
