// The Windows front end's real windows, driven in their own process as a user drives them: the
// messages a mouse, the keys and the menus send, through the program's own message loop, and the
// system's own message box and file dialog answered as they come up.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "form/about_form.h"
#include "form/control_table.h"
#include "form/edit_form.h"
#include "form/recording_platform.h"
#include "support/files.h"
#include "system/text.h"
#include "system/text_win.h"
#include "ui/events.h"
#include "win32/app.h"

namespace {

std::string Text(HWND hwnd) {
  wchar_t text[1024] = L"";
  GetWindowTextW(hwnd, text, 1024);
  return text::Utf8(text);
}

std::string Status_Text(HWND bar) {
  wchar_t text[1024] = L"";
  SendMessageW(bar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
  return text::Utf8(text);
}

// The tip a control shows in its window's tooltip; none for a control the tooltip doesn't know.
std::optional<std::string> Tip(HWND window, HWND control) {
  struct Search {
    HWND owner, found;
  } search{window, nullptr};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND hwnd, LPARAM data) {
        auto* search = reinterpret_cast<Search*>(data);
        wchar_t kind[64] = L"";
        GetClassNameW(hwnd, kind, 64);
        if (std::wstring_view(kind) != TOOLTIPS_CLASSW || GetWindow(hwnd, GW_OWNER) != search->owner) return TRUE;
        search->found = hwnd;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  if (!search.found) return std::nullopt;
  wchar_t text[1024] = L"";
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.hwnd = window;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  if (!SendMessageW(search.found, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool))) return std::nullopt;
  tool.lpszText = text;
  SendMessageW(search.found, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&tool));
  return text::Utf8(text);
}

// The colour a control is painted in, a pixel in from its corner.
COLORREF Painted(HWND hwnd) {
  UpdateWindow(hwnd);
  HDC dc = GetDC(hwnd);
  const COLORREF colour = GetPixel(dc, 1, 1);
  ReleaseDC(hwnd, dc);
  return colour;
}

// The running program: its windows on the real system, its questions and file dialogs answered
// from a script unless a test answers the system's own.
struct Program {
  explicit Program(Platform* shown_on = nullptr)
      : model(Routes(), shown_on ? *shown_on : static_cast<Platform&>(platform)), app(model, system) {
    platform.Quiet = true;
    app.Start();
    Pump();
  }

  // Runs what waits in the queue through the program's message loop.
  void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) app.Process(message);
  }
  win32::Window_View& View(std::string_view window) {
    win32::Window_View* view = window == window::Main   ? app.Main_Window()
                               : window == window::Edit ? app.Edit_Window()
                                                        : app.About_Window();
    if (!view) throw std::runtime_error("no window " + std::string(window));
    return *view;
  }
  HWND Control(std::string_view window, std::string_view name) { return View(window).Widget(name); }
  // A menu item chosen, or a button, check box or option button clicked.
  void Command(std::string_view window, std::string_view name, WORD code = 0) {
    win32::Window_View& view = View(window);
    SendMessageW(view.Handle(), WM_COMMAND, MAKEWPARAM(view.Command_Id(name), code),
                 reinterpret_cast<LPARAM>(view.Widget(name)));
    Pump();
  }
  void Mouse(std::string_view window, std::string_view name, std::initializer_list<UINT> messages) {
    HWND hwnd = Control(window, name);
    for (UINT message : messages)
      SendMessageW(hwnd, message, message == WM_LBUTTONUP || message == WM_MOUSEMOVE ? 0 : MK_LBUTTON,
                   MAKELPARAM(2, 2));
    Pump();
  }
  // Keys as the keyboard gives them, to the control that has the focus.
  void Keys(HWND focus, std::initializer_list<WPARAM> keys) {
    SetFocus(focus);
    for (WPARAM key : keys) {
      PostMessageW(focus, WM_KEYDOWN, key, 1);
      PostMessageW(focus, WM_KEYUP, key, 0xC0000001);
    }
    Pump();
  }
  void Type(HWND focus, const char* text) {
    SetFocus(focus);
    for (const char* c = text; *c; ++c) PostMessageW(focus, WM_CHAR, static_cast<WPARAM>(*c), 1);
    Pump();
  }

  Temp_Folder folder;
  win32::Win32_Platform system;
  Recording_Platform platform{&system};
  Vorlane model;
  win32::App app;
};

// Answers the system's own dialogs as they come up: a message box with its text read and OK, a
// file dialog with a name typed in and Open. A dialog is answered a moment after it comes up,
// from within its own message loop, once its controls are made.
class Answerer {
 public:
  explicit Answerer(std::function<void(HWND)> answer) {
    current_ = this;
    answer_ = std::move(answer);
    hook_ = SetWindowsHookExW(WH_CBT, Hook, nullptr, GetCurrentThreadId());
  }
  ~Answerer() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
  }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM w, LPARAM l) {
    if (code == HCBT_ACTIVATE && current_) {
      wchar_t name[32] = L"";
      GetClassNameW(reinterpret_cast<HWND>(w), name, 32);
      if (std::wstring(name) == L"#32770") {
        current_->dialog_ = reinterpret_cast<HWND>(w);
        SetTimer(nullptr, 0, 100, Later);
      }
    }
    return CallNextHookEx(nullptr, code, w, l);
  }
  static void CALLBACK Later(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (current_ && IsWindow(current_->dialog_)) current_->answer_(std::exchange(current_->dialog_, nullptr));
  }
  static inline Answerer* current_ = nullptr;
  HWND dialog_ = nullptr;
  std::function<void(HWND)> answer_;
  HHOOK hook_;
};

int Expected_Dpi() {
  const char* dpi = std::getenv("VORLANE_EXPECTED_DPI");
  return dpi ? std::atoi(dpi) : 96;
}

TEST(Windows, AtTheScreensResolutionEveryControlHasItsPlace) {
  Program program;
  win32::Window_View& main = program.View(window::Main);
  ASSERT_EQ(main.Dpi(), Expected_Dpi());
  const int dpi = main.Dpi();
  RECT client;
  GetClientRect(main.Handle(), &client);
  using Size = std::pair<long, long>;
  EXPECT_EQ(Size(client.right, client.bottom), Size(To_Pixels(8910, dpi), To_Pixels(6345, dpi)));
  // Placed by its outer size: centred across, a third of the free height above.
  RECT outer;
  GetWindowRect(main.Handle(), &outer);
  const int free_x = GetSystemMetrics(SM_CXSCREEN) - (outer.right - outer.left);
  const int free_y = GetSystemMetrics(SM_CYSCREEN) - (outer.bottom - outer.top);
  EXPECT_NEAR(outer.left, free_x / 2, 1);
  EXPECT_NEAR(outer.top, free_y / 3, 1);
  RECT cell;
  GetWindowRect(program.Control(window::Main, "L_3"), &cell);
  MapWindowPoints(nullptr, main.Handle(), reinterpret_cast<POINT*>(&cell), 2);
  using Place = std::tuple<long, long, long>;
  EXPECT_EQ(Place(cell.left, cell.top, cell.right - cell.left),
            Place(To_Pixels(720, dpi), To_Pixels(950, dpi), To_Pixels(260, dpi)));
  EXPECT_EQ(Text(main.Handle()), "Vorlane");
  // What the table makes disabled at start stands disabled: controls, and menu items in grey.
  for (const char* name : {"Check", "Com1", "Com2"}) EXPECT_FALSE(IsWindowEnabled(main.Widget(name))) << name;
  for (const char* name : {"List", "ComExit", "Slider"}) EXPECT_TRUE(IsWindowEnabled(main.Widget(name))) << name;
  const auto plain = [](std::string text) {
    text = text.substr(0, text.find('\t'));
    text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
    return text;
  };
  std::vector<std::string> grey, expected_grey;
  const std::function<void(HMENU)> walk = [&](HMENU menu) {
    for (int k = 0; k < GetMenuItemCount(menu); ++k) {
      wchar_t caption[256] = L"";
      GetMenuStringW(menu, static_cast<UINT>(k), caption, 256, MF_BYPOSITION);
      const UINT state = GetMenuState(menu, static_cast<UINT>(k), MF_BYPOSITION);
      if ((state & MF_GRAYED) && !(state & MF_SEPARATOR)) grey.push_back(plain(text::Utf8(caption)));
      if (HMENU sub = GetSubMenu(menu, k)) walk(sub);
    }
  };
  walk(GetMenu(main.Handle()));
  for (const Control& row : controls::Of(window::Main))
    if (row.Kind == Control_Kind::Menu_Item && !row.Enabled) expected_grey.push_back(plain(std::string(row.Caption)));
  std::sort(grey.begin(), grey.end());
  std::sort(expected_grey.begin(), expected_grey.end());
  EXPECT_EQ(grey, expected_grey);
  EXPECT_EQ(grey.size(), 3u);
  // Tab goes round the controls that take the focus in the order of their tab indexes.
  std::vector<std::pair<int, std::string_view>> tab_order;
  for (const Control& row : controls::Of(window::Main)) {
    HWND hwnd = row.Tab_Index < 0 ? nullptr : main.Widget(row.Name);
    if (hwnd && IsWindowVisible(hwnd) && IsWindowEnabled(hwnd)) tab_order.emplace_back(row.Tab_Index, row.Name);
  }
  std::sort(tab_order.begin(), tab_order.end());
  ASSERT_GE(tab_order.size(), 3u);
  HWND at = main.Widget(tab_order.front().second);
  for (std::size_t i = 1; i <= tab_order.size(); ++i) {
    at = GetNextDlgTabItem(main.Handle(), at, FALSE);
    EXPECT_EQ(main.Control_Of(at), tab_order[i % tab_order.size()].second) << i;
  }
  // The window system activates the window a moment after it is shown.
  HWND slider = program.Control(window::Main, "Slider");
  for (int i = 0; i < 100 && GetFocus() != slider; ++i) Sleep(20), program.Pump();
  EXPECT_EQ(GetFocus(), slider);
}

TEST(Windows, ARecordIsReadPinnedEditedAndSaved) {
  Program program;
  const std::string path = program.folder.Write("075.npc", Standard_File());
  program.platform.Picks.push_back(Dialog_Pick{path});
  program.Command(window::Main, "nOpen");
  EXPECT_EQ(Status_Text(program.Control(window::Main, "SBar_2")), path);

  // The slider and the keypad move through the records, whatever has the focus.
  HWND slider = program.Control(window::Main, "Slider");
  SendMessageW(slider, TBM_SETPOS, TRUE, 3);
  SendMessageW(program.View(window::Main).Handle(), WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 3),
               reinterpret_cast<LPARAM>(slider));
  EXPECT_EQ(Text(program.Control(window::Main, "L_NLine")), "Record #3");
  program.Keys(program.Control(window::Main, "List"), {VK_ADD, VK_ADD, VK_SUBTRACT, VK_OEM_PLUS});
  EXPECT_EQ(Text(program.Control(window::Main, "L_NLine")), "Record #4");
  EXPECT_EQ(SendMessageW(slider, TBM_GETPOS, 0, 0), 4);

  // A hover lights the field and says what it means; a click pins it.
  program.Mouse(window::Main, "L_14", {WM_MOUSEMOVE});
  EXPECT_EQ(Text(program.Control(window::Main, "L_NByte")), "Byte 14");
  EXPECT_EQ(Text(program.Control(window::Main, "L_Info_User")), "НПЦ скажет фразу №_17");
  EXPECT_EQ(Text(program.Control(window::Main, "L_Info_Line")), "Click-select / Dbl. Click-edit");
  EXPECT_EQ(Painted(program.Control(window::Main, "L_14")), GetSysColor(COLOR_ACTIVECAPTION));
  // Over the explanation, its sentence is its tip; a control that never had a tip is no tool.
  HWND main = program.View(window::Main).Handle();
  EXPECT_EQ(Tip(main, program.Control(window::Main, "L_Info_User")), std::nullopt);
  program.Mouse(window::Main, "L_Info_User", {WM_MOUSEMOVE});
  EXPECT_EQ(Tip(main, program.Control(window::Main, "L_Info_User")), "НПЦ скажет фразу №_17");
  EXPECT_EQ(Tip(main, program.Control(window::Main, "L_NLine")), std::nullopt);
  program.Mouse(window::Main, "L_14", {WM_LBUTTONDOWN, WM_LBUTTONUP});
  program.Mouse(window::Main, "Help", {WM_MOUSEMOVE});
  EXPECT_EQ(Text(program.Control(window::Main, "L_Info_Line")), "");
  EXPECT_EQ(Painted(program.Control(window::Main, "L_14")), RGB(255, 255, 128));

  // A double click on a cell opens the editor over a disabled main window.
  program.Mouse(window::Main, "L_3", {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP});
  HWND edit = program.View(window::Edit).Handle();
  EXPECT_EQ(Text(edit), "EDIT Record #4");
  EXPECT_FALSE(IsWindowEnabled(program.View(window::Main).Handle()));
  HWND list = program.Control(window::Edit, "List");
  SendMessageW(list, LB_SETCURSEL, 1, 0);  // Bytes 03-04
  program.Command(window::Edit, "List", LBN_SELCHANGE);
  EXPECT_EQ(Text(program.Control(window::Edit, "L_D")), std::to_string(6 + 7 * 256));
  program.Type(program.Control(window::Edit, "Txt_1"), "3a0x0");
  EXPECT_EQ(Text(program.Control(window::Edit, "Txt_1")), "300");
  program.Command(window::Edit, "O_2", BN_CLICKED);
  EXPECT_EQ(Text(program.Control(window::Edit, "Txt_4")), "2C 01");
  EXPECT_EQ(SendMessageW(program.Control(window::Edit, "O_2"), BM_GETCHECK, 0, 0), BST_UNCHECKED);
  program.Command(window::Edit, "ComApply", BN_CLICKED);
  program.Command(window::Edit, "ComOK", BN_CLICKED);
  EXPECT_EQ(program.app.Edit_Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(program.View(window::Main).Handle()));
  EXPECT_EQ(Text(program.Control(window::Main, "L_3")) + Text(program.Control(window::Main, "L_4")), "2C01");

  // Saved: the record's bytes 3 and 4 are the word, nothing else has changed.
  program.Command(window::Main, "nSave");
  Bytes expected = Standard_File();
  expected[32 * 3 + 2] = 0x2C, expected[32 * 3 + 3] = 0x01;
  EXPECT_EQ(Read_File(path), expected);
}

TEST(Windows, AboutIsAnEllipseAboveAllWindowsGoneAtAClick) {
  Program program;
  program.Command(window::Main, "nAbout");
  HWND about = program.View(window::About).Handle();
  const int dpi = program.View(window::About).Dpi();
  EXPECT_FALSE(IsWindowEnabled(program.View(window::Main).Handle()));
  EXPECT_TRUE(GetWindowLongPtrW(about, GWL_EXSTYLE) & WS_EX_TOPMOST);
  HRGN region = CreateRectRgn(0, 0, 0, 0);
  ASSERT_EQ(GetWindowRgn(about, region), COMPLEXREGION);
  const auto inside = [&](int x, int y) { return PtInRegion(region, MulDiv(x, dpi, 96), MulDiv(y, dpi, 96)) != 0; };
  EXPECT_TRUE(inside(195, 182));                         // the middle of the ring
  EXPECT_FALSE(inside(31, 21) || inside(400, 340));      // the corners of the window
  EXPECT_TRUE(inside(31, 182) && inside(195, 21));       // the ellipse's own edges
  DeleteObject(region);
  program.Keys(about, {VK_F5, VK_SHIFT});
  ASSERT_NE(program.app.About_Window(), nullptr);  // keys that give no character leave it
  program.Mouse(window::About, "Img1", {WM_LBUTTONDOWN, WM_LBUTTONUP});
  EXPECT_EQ(program.app.About_Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(program.View(window::Main).Handle()));
}

TEST(Windows, TheSystemsMessageBoxAndFileDialogAnswerTheProgram) {
  win32::Win32_Platform system;
  Program program(&system);
  // The type report with no file open: an information box titled VORLANE.
  std::string title, said;
  {
    Answerer answer([&](HWND box) {
      title = Text(box);
      said = Text(GetDlgItem(box, 0xFFFF));
      PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(box, IDOK)));
    });
    program.Command(window::Main, "nCurrent");
  }
  EXPECT_EQ(title, "VORLANE");
  EXPECT_EQ(said, "Для определения формата файла его нужно сначала открыть!");

  // File > Open: the name typed into the system's dialog is the file opened.
  const std::string path = program.folder.Write("Кармэн.npc", Standard_File());
  std::string dialog_title;
  {
    Answerer answer([&](HWND dialog) {
      dialog_title = Text(dialog);
      SetDlgItemTextW(dialog, 0x047C, text::Wide(path).c_str());  // the name box, a combo box
      SetDlgItemTextW(dialog, 0x0480, text::Wide(path).c_str());  // or an edit box
      PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    });
    program.Command(window::Main, "nOpen");
  }
  EXPECT_EQ(dialog_title, "VORLANE - OPEN FILE...");
  EXPECT_EQ(program.model.SBar_3.SimpleText, "КАРМЭН.NPC");
  EXPECT_EQ(Status_Text(program.Control(window::Main, "SBar_1")), "1600 bytes");
}

}  // namespace
