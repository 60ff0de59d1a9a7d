// Takes pictures of the Windows program's windows for the README, as the screen shows them, frames
// included: the main window at start and, given an NPC file and a speech file, a record being read
// with a field lit and the speech pane on, the editor on that record, and the About window.
// Usage: vorlane_screenshot.exe OUT_DIR NPC_FILE EDT_FILE RECORD CELL
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "fields/field_map.h"
#include "form/about_form.h"
#include "form/edit_form.h"
#include "form/recording_platform.h"
#include "speech/speech_pane.h"
#include "store/file_commands.h"
#include "system/text_win.h"
#include "png.h"
#include "tool_files.h"
#include "ui/about.h"
#include "ui/byte_grid.h"
#include "ui/edit.h"
#include "ui/events.h"
#include "win32/app.h"

namespace {

// Lets the window system draw what the windows now hold.
void Settle(win32::App& app) {
  for (int i = 0; i < 20; ++i) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) app.Process(message);
    Sleep(25);
  }
}

// The window as the screen shows it, saved as a PNG.
bool Save(HWND window, const std::wstring& path) {
  RECT r;
  GetWindowRect(window, &r);
  const int width = r.right - r.left, height = r.bottom - r.top;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
  GdiFlush();
  std::vector<std::uint8_t> rgb;
  rgb.reserve(static_cast<std::size_t>(width) * height * 3);
  const auto* bgrx = static_cast<const std::uint8_t*>(bits);
  for (int i = 0; i < width * height; ++i, bgrx += 4) rgb.insert(rgb.end(), {bgrx[2], bgrx[1], bgrx[0]});
  const bool saved = png::Write(path, width, height, rgb);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return saved;
}

}  // namespace

int wmain(int argc, wchar_t* argv[]) {
  if (argc != 6)
    return Usage(argc == 2 && std::wstring(argv[1]) == L"--help" ? "--help" : "",
                 "usage: vorlane_screenshot.exe OUT_DIR NPC_FILE EDT_FILE RECORD CELL\n"
                 "Saves pictures of the windows, frames included, into OUT_DIR: windows-main.png, then with\n"
                 "the NPC file open windows-record.png (record RECORD, the field of byte cell CELL lit, the\n"
                 "line it names from the speech file), windows-edit.png and windows-about.png.\n");
  const std::wstring out = argv[1];
  const int record = _wtoi(argv[4]), cell = _wtoi(argv[5]);

  win32::Win32_Platform system;
  Recording_Platform platform(&system);
  platform.Quiet = true;
  Vorlane model(Routes(), platform);
  win32::App app(model, system);
  app.Start();
  Settle(app);
  bool saved = Save(app.Main_Window()->Handle(), out + L"\\windows-main.png");

  platform.Picks.push_back(Dialog_Pick{text::Utf8(argv[2])});
  app.Dispatch([&] { nOpen_Click(model); });
  platform.Picks.push_back(Dialog_Pick{text::Utf8(argv[3]), 1});
  app.Dispatch([&] { Check_Set_Value(model, 1); });
  app.Dispatch([&] { Slider_Set_Value(model, record); });
  app.Dispatch([&] { L_MouseMove(model, cell); });
  Settle(app);
  saved = Save(app.Main_Window()->Handle(), out + L"\\windows-record.png") && saved;

  app.Dispatch([&] { nEdit_Click(model); });
  const auto rows = fields::Edit_Rows();
  for (std::size_t i = 0; i < rows.size() && model.Edit; ++i)
    if (cell >= rows[i].First && cell < rows[i].First + rows[i].Width) {
      app.Dispatch([&] { Input_Value(model, window::Edit, "List", static_cast<int>(i)); });
      break;
    }
  Settle(app);
  if (app.Edit_Window()) saved = Save(app.Edit_Window()->Handle(), out + L"\\windows-edit.png") && saved;
  app.Dispatch([&] {
    if (model.Edit) ComCl_Click(*model.Edit);
  });

  app.Dispatch([&] { nAbout_Click(model); });
  Settle(app);
  if (app.About_Window()) saved = Save(app.About_Window()->Handle(), out + L"\\windows-about.png") && saved;
  return saved ? 0 : 1;
}
