// The yardstick of the Windows start-up comparison: a bare Win32 window with a menu and a row of
// labels, made and shown by its main as the editor makes and shows its own.
#define UNICODE
#define _UNICODE
#include <windows.h>

#include <initializer_list>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  WNDCLASSEXW cls{};
  cls.cbSize = sizeof cls;
  cls.lpfnWndProc = [](HWND hwnd, UINT message, WPARAM w, LPARAM l) -> LRESULT {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(hwnd, message, w, l);
  };
  cls.hInstance = instance;
  cls.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  cls.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  cls.lpszClassName = L"Bare";
  RegisterClassExW(&cls);
  HMENU bar = CreateMenu();
  for (const wchar_t* title : {L"&File", L"&View", L"&Tools", L"&Record", L"&About"}) {
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"Item");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), title);
  }
  HWND window = CreateWindowExW(0, L"Bare", L"Bare", WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX,
                                CW_USEDEFAULT, CW_USEDEFAULT, 600, 460, nullptr, bar, instance, nullptr);
  for (int n = 0; n < 32; ++n)
    CreateWindowExW(0, L"STATIC", L"00", WS_CHILD | WS_VISIBLE | SS_CENTER, 12 + 18 * n, 63, 14, 13, window, nullptr,
                    instance, nullptr);
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
