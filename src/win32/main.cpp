// Vorlane for Windows: an editor for the NPC script files of JA2 and UB.
#include <windows.h>
#include <commctrl.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "store/file_commands.h"
#include "system/text_win.h"
#include "ui/events.h"
#include "win32/accessible.h"
#include "win32/app.h"
#include "win32/platform.h"

namespace {

// A line on the console that started the program, if one did.
void Say(const std::wstring& line) {
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
  DWORD written = 0;
  WriteConsoleW(GetStdHandle(STD_OUTPUT_HANDLE), line.c_str(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  // The arguments as the C runtime split them (the program is a wide one): the shell's own splitter
  // would load the shell's library at every start.
  std::vector<std::wstring> args(__wargv + 1, __wargv + __argc);
  if (args.size() == 1 && args[0] == L"--help") {
    Say(L"usage: vorlane [FILE]\n");
    return 0;
  }
  if (args.size() == 1 && args[0] == L"--version") {
    Say(L"vorlane " VORLANE_VERSION_W L"\n");
    return 0;
  }
  if (args.size() > 1) {
    Say(L"usage: vorlane [FILE]\n");
    return 2;
  }
  const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES | ICC_STANDARD_CLASSES |
                                                                      ICC_WIN95_CLASSES};
  InitCommonControlsEx(&classes);
  win32::Win32_Platform platform;
  Vorlane model(Routes(), platform);
  win32::App app(model, platform);
  app.Start();
  if (args.size() == 1) app.Dispatch([&] { Open_Named(model, text::Utf8(args[0])); });
  const int status = app.Run();
  win32::End_Accessible_Annotations();
  return status;
}
