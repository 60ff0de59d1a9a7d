#include "win32/window_view.h"

#include <commctrl.h>

#include <algorithm>
#include <numeric>

#include "system/text_win.h"
#include "ui/events.h"
#include "win32/accessible.h"
#include "win32/picture.h"

namespace win32 {
namespace {

// Controls and menu items are numbered by their row; the numbers below are the system's own.
constexpr WORD First_Id = 1000;
constexpr UINT Status_Part = 0;  // a status bar of one part: a panel of its own

const wchar_t* const Window_Class = L"Vorlane.Window";

std::wstring W(std::string_view s) { return text::Wide(s); }

std::string Text_Of(HWND hwnd) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
  return text::Utf8(text);
}

// A colour of the window objects: 0x00BBGGRR is the system's own order; 0x80000000 plus an
// index is a colour of the system's scheme.
COLORREF Colour_Ref(std::int32_t value) {
  const auto bits = static_cast<std::uint32_t>(value);
  if (bits & 0x80000000u) return GetSysColor(static_cast<int>(bits & 0xFFu));
  return static_cast<COLORREF>(bits & 0x00FFFFFFu);
}

// The window's frame and buttons by its styles.
DWORD Style_Of(unsigned styles) {
  using namespace window_style;
  if (styles & No_Border) return WS_POPUP;
  DWORD style = (styles & Owned ? WS_POPUP : WS_OVERLAPPED) | WS_CAPTION | WS_SYSMENU;
  if (styles & Minimize_Button) style |= WS_MINIMIZEBOX;
  if (!(styles & Fixed_Border)) style |= WS_THICKFRAME;
  return style;
}

DWORD Ex_Style_Of(unsigned styles) {
  using namespace window_style;
  if (styles & No_Border) return WS_EX_TOOLWINDOW;
  return styles & Owned ? WS_EX_DLGMODALFRAME : 0;
}

// The class and styles of a control's window by its kind.
struct Made {
  const wchar_t* Class;
  DWORD Style;
  DWORD Ex_Style = 0;
};

Made Made_Of(const Control& row) {
  switch (row.Kind) {
    case Control_Kind::Label: {
      // A caption that breaks into lines stands at the top, as does one that hangs from the right
      // edge; a single line is centred down.
      DWORD style = SS_NOTIFY | SS_NOPREFIX | (row.Border ? WS_BORDER : 0);
      if (row.Wrap)
        style |= SS_LEFT;
      else if (row.Alignment == Align::Right)
        style |= SS_RIGHT;
      else if (row.Alignment == Align::Center)
        style |= SS_CENTER | SS_CENTERIMAGE;
      else
        style |= SS_LEFTNOWORDWRAP | SS_CENTERIMAGE;
      return {WC_STATICW, style};
    }
    case Control_Kind::Image:
      return {WC_STATICW, SS_BITMAP | SS_NOTIFY};
    case Control_Kind::Status_Panel:
      return {STATUSCLASSNAMEW, CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER};
    case Control_Kind::Button:
      return {WC_BUTTONW, static_cast<DWORD>(row.Default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)};
    case Control_Kind::Option_Button:
      // Momentary: the logic keeps it off, so it never checks itself.
      return {WC_BUTTONW, BS_RADIOBUTTON};
    case Control_Kind::Check_Box:
      return {WC_BUTTONW, BS_CHECKBOX};
    case Control_Kind::Frame:
      return {WC_BUTTONW, BS_GROUPBOX};
    case Control_Kind::Text_Box:
      return {WC_EDITW, static_cast<DWORD>(ES_AUTOHSCROLL | (row.Locked ? ES_READONLY : 0)), WS_EX_CLIENTEDGE};
    case Control_Kind::List_Box:
      return {WC_LISTBOXW, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE};
    case Control_Kind::Slider:
      return {TRACKBAR_CLASSW, TBS_HORZ | TBS_AUTOTICKS | TBS_BOTTOM};
    default:
      return {nullptr, 0};
  }
}

// Where a control stands within the window: frames are no containers on Windows, so the place
// within a frame is carried out to the window.
Rect Place_In_Window(const Control& row) {
  Rect place = row.Place;
  for (std::string_view parent = row.Parent; !parent.empty();) {
    const Control* frame = controls::Find(row.Window, parent);
    if (!frame) break;
    place.Left += frame->Place.Left;
    place.Top += frame->Place.Top;
    parent = frame->Parent;
  }
  return place;
}

std::wstring Menu_Text(const Control& item, std::string_view caption) {
  std::wstring text = W(caption);
  if (!item.Shortcut.empty()) text += L"\t" + W(item.Shortcut);
  return text;
}

void Register_Class() {
  static const bool registered = [] {
    WNDCLASSEXW cls{};
    cls.cbSize = sizeof cls;
    cls.style = CS_DBLCLKS;
    cls.lpfnWndProc = DefWindowProcW;  // replaced per window at its creation
    cls.hInstance = GetModuleHandleW(nullptr);
    cls.hIcon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1));
    cls.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    cls.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    cls.lpszClassName = Window_Class;
    return RegisterClassExW(&cls) != 0;
  }();
  (void)registered;
}

}  // namespace

ACCEL Accelerator_Of(const Control& item, WORD command) {
  const Keys keys = Shortcut_Keys(item.Shortcut);
  return ACCEL{static_cast<BYTE>(FVIRTKEY | (keys.Ctrl ? FCONTROL : 0)), static_cast<WORD>(keys.Key), command};
}

Window_View::Window_View(Input_Sink& sink, Form_Window& form, HWND owner, const Screen_Size& screen)
    : sink_(sink), form_(form), name_(form.Name), owner_(owner) {
  Register_Class();
  const Control& row = controls::Window_Row(name_);
  dpi_ = static_cast<int>(GetDpiForSystem());
  if (std::any_of(controls::Of(name_).begin(), controls::Of(name_).end(),
                  [](const Control& c) { return c.Kind == Control_Kind::Menu_Item; }))
    Build_Menus();
  top_ = CreateWindowExW(Ex_Style_Of(row.Styles), Window_Class, W(form_.Caption).c_str(), Style_Of(row.Styles),
                         CW_USEDEFAULT, CW_USEDEFAULT, 100, 100, owner, menu_, GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(top_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(top_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Window_Proc));
  if (const UINT dpi = GetDpiForWindow(top_)) dpi_ = static_cast<int>(dpi);
  Build_Controls();
  Size_Window();
  if (row.Styles & window_style::Topmost) SetWindowPos(top_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
  Place(screen);
  // The controls were made with what their rows give them at start: only what differs by now is
  // set (the slider's value and the focus always).
  cache_.Made_At_Start(form_, changed::Text | changed::Back_Colour | changed::Text_Colour | changed::Tip |
                                  changed::Enabled | changed::Items | changed::Index | changed::Selection);
  Render();
}

Window_View::~Window_View() {
  if (top_) {
    SetWindowLongPtrW(top_, GWLP_USERDATA, 0);
    DestroyWindow(top_);
  }
  if (menu_ && !IsWindow(top_)) DestroyMenu(menu_);
  if (accelerators_) DestroyAcceleratorTable(accelerators_);
  if (picture_) DeleteObject(picture_);
  for (auto& [key, font] : fonts_) DeleteObject(font);
  for (auto& [colour, brush] : brushes_) DeleteObject(brush);
}

int Window_View::Px(std::int32_t twips) const { return To_Pixels(twips, dpi_); }

void Window_View::Build_Menus() {
  const std::span<const Control> rows = controls::Of(name_);
  menu_ = CreateMenu();
  std::map<std::string_view, HMENU> menus;
  std::vector<ACCEL> keys;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Control& row = rows[i];
    if (row.Kind != Control_Kind::Menu_Item) continue;
    HMENU parent = row.Parent.empty() ? menu_ : menus.at(row.Parent);
    const WORD id = static_cast<WORD>(First_Id + i);
    if (controls::Has_Submenu(row)) {
      HMENU submenu = CreatePopupMenu();
      menus[row.Name] = submenu;
      AppendMenuW(parent, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(submenu), W(row.Caption).c_str());
    } else if (row.Caption == "-") {
      AppendMenuW(parent, MF_SEPARATOR, id, nullptr);
    } else {
      AppendMenuW(parent, MF_STRING | (row.Enabled ? 0 : MF_GRAYED), id, Menu_Text(row, row.Caption).c_str());
      if (!row.Shortcut.empty()) keys.push_back(Accelerator_Of(row, id));
    }
  }
  if (!keys.empty()) accelerators_ = CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

void Window_View::Build_Controls() {
  const std::span<const Control> rows = controls::Of(name_);
  widgets_.assign(rows.size(), nullptr);
  tipped_.assign(rows.size(), false);
  widgets_[0] = top_;
  rows_[top_] = 0;
  // Each new control goes below its siblings: made in the stacking order, they stand in it.
  for (const std::size_t i : Stacking_Order()) {
    const Control& row = rows[i];
    const Made made = Made_Of(row);
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | made.Style | (row.Visible ? WS_VISIBLE : 0) |
                        (row.Enabled ? 0 : WS_DISABLED) | (row.Tab_Index >= 0 ? WS_TABSTOP : 0);
    // Made where it stands, in its font: moving a hundred controls afterwards costs as much again.
    const Rect place = Place_In_Window(row);
    HWND hwnd = CreateWindowExW(made.Ex_Style, made.Class, W(row.Caption).c_str(), style, Px(place.Left),
                                Px(place.Top), Px(place.Width), Px(place.Height), top_,
                                reinterpret_cast<HMENU>(static_cast<UINT_PTR>(First_Id + i)),
                                GetModuleHandleW(nullptr), nullptr);
    widgets_[i] = hwnd;
    rows_[hwnd] = i;
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(Font_Of(row)), FALSE);
    SetWindowSubclass(hwnd, Control_Proc, 1, reinterpret_cast<DWORD_PTR>(this));
    switch (row.Kind) {
      case Control_Kind::Status_Panel: {
        int whole = -1;
        SendMessageW(hwnd, SB_SETPARTS, 1, reinterpret_cast<LPARAM>(&whole));
        if (!row.Caption.empty())
          SendMessageW(hwnd, SB_SETTEXTW, Status_Part, reinterpret_cast<LPARAM>(W(row.Caption).c_str()));
        break;
      }
      case Control_Kind::Slider:
        SendMessageW(hwnd, TBM_SETRANGE, FALSE, MAKELPARAM(row.Min, row.Max));
        SendMessageW(hwnd, TBM_SETLINESIZE, 0, row.Small_Change);
        SendMessageW(hwnd, TBM_SETPAGESIZE, 0, row.Large_Change);
        SendMessageW(hwnd, TBM_SETTICFREQ, 1, 0);
        break;
      default:
        break;
    }
    if (!row.Accessible_Name.empty()) Set_Accessible_Name(hwnd, row.Accessible_Name);
    if (!row.Accessible_Description.empty()) Set_Accessible_Description(hwnd, row.Accessible_Description);
  }
}

std::vector<std::size_t> Window_View::Stacking_Order() const {
  // Windows keeps one order of siblings for both stacking and the focus: the controls that take
  // the focus lie above the others in the order of their tab indexes, a lower z-order lies
  // below, a later control over an earlier one, and a frame, which is no container here, below
  // everything it frames, a frame within a larger one included.
  const std::span<const Control> rows = controls::Of(name_);
  std::vector<std::size_t> order;
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (Made_Of(rows[i]).Class) order.push_back(i);
  const auto key = [&](std::size_t i) {
    const Control& row = rows[i];
    if (row.Kind == Control_Kind::Frame) return std::tuple(1, row.Place.Width * row.Place.Height, 0, 0);
    const int order = row.Tab_Index < 0 ? -static_cast<int>(i) : row.Tab_Index;
    return std::tuple(0, -row.Z_Order, row.Tab_Index < 0 ? 1 : 0, order);
  };
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return key(a) < key(b); });
  return order;
}

HFONT Window_View::Font(const Control_Font& font) {
  const auto key = std::tuple(font.Face, font.Size_Hundredths, font.Weight, dpi_);
  if (const auto known = fonts_.find(key); known != fonts_.end()) return known->second;
  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(font.Size_Hundredths, dpi_, 7200);
  wanted.lfWeight = font.Weight;
  wanted.lfCharSet = static_cast<BYTE>(font.Charset ? font.Charset : DEFAULT_CHARSET);
  wanted.lfQuality = CLEARTYPE_QUALITY;
  Face_For(font.Face).copy(wanted.lfFaceName, LF_FACESIZE - 1);
  HFONT made = CreateFontIndirectW(&wanted);
  fonts_[key] = made;
  return made;
}

HBRUSH Window_View::Brush(std::int32_t colour) {
  if (const auto known = brushes_.find(colour); known != brushes_.end()) return known->second;
  return brushes_[colour] = CreateSolidBrush(Colour_Ref(colour));
}

HFONT Window_View::Font_Of(const Control& row) {
  return Font(row.Font.Face.empty() ? controls::Window_Row(name_).Font : row.Font);
}

void Window_View::Layout() {
  const std::span<const Control> rows = controls::Of(name_);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (!widgets_[i]) continue;
    const Rect place = Place_In_Window(rows[i]);
    SetWindowPos(widgets_[i], nullptr, Px(place.Left), Px(place.Top), Px(place.Width), Px(place.Height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageW(widgets_[i], WM_SETFONT, reinterpret_cast<WPARAM>(Font_Of(rows[i])), FALSE);
  }
  Size_Window();
}

void Window_View::Size_Window() {
  const Control& window = controls::Window_Row(name_);
  RECT outer{0, 0, Px(window.Place.Width), Px(window.Place.Height)};
  AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongPtrW(top_, GWL_STYLE)), menu_ != nullptr,
                           static_cast<DWORD>(GetWindowLongPtrW(top_, GWL_EXSTYLE)), static_cast<UINT>(dpi_));
  SetWindowPos(top_, nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (window.Ellipse.Width > 0) {
    const Rect& e = window.Ellipse;
    SetWindowRgn(top_, CreateEllipticRgn(Px(e.Left), Px(e.Top), Px(e.Left + e.Width), Px(e.Top + e.Height)), TRUE);
  }
  if (picture_) DeleteObject(std::exchange(picture_, nullptr));
}

void Window_View::Place(const Screen_Size& screen) {
  RECT outer;
  GetWindowRect(top_, &outer);
  form_.Width = To_Twips(outer.right - outer.left, dpi_);
  form_.Height = To_Twips(outer.bottom - outer.top, dpi_);
  Position::Place_Controls(form_, screen);
  SetWindowPos(top_, nullptr, Px(form_.Left), Px(form_.Top), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string_view Window_View::Control_Of(HWND hwnd) const {
  const auto found = rows_.find(hwnd);
  return found == rows_.end() ? std::string_view() : controls::Of(name_)[found->second].Name;
}

HWND Window_View::Widget(std::string_view name) const {
  const int i = Row_Index(form_, name);
  return i < 0 ? nullptr : widgets_[static_cast<std::size_t>(i)];
}

WORD Window_View::Command_Id(std::string_view name) const {
  return static_cast<WORD>(First_Id + std::max(0, Row_Index(form_, name)));
}

void Window_View::Show() {
  ShowWindow(top_, SW_SHOW);
  UpdateWindow(top_);
  cache_.Forget(0, changed::Focus);
  Render();
}

void Window_View::Render() {
  if (detached_) return;
  rendering_ = true;
  bool menus_changed = false;
  cache_.Render(form_, [&](const Control& row, std::size_t i, const Model& model, const Shown& shown, unsigned what) {
    if (row.Kind == Control_Kind::Window) {
      Set_Window(shown, what);
    } else if (row.Kind == Control_Kind::Menu_Item) {
      const UINT id = static_cast<UINT>(First_Id + i);
      if (what & changed::Text && !controls::Has_Submenu(row) && row.Caption != "-")
        ModifyMenuW(menu_, id, MF_BYCOMMAND | MF_STRING, id, Menu_Text(row, shown.Text).c_str());
      if (what & changed::Enabled) EnableMenuItem(menu_, id, MF_BYCOMMAND | (shown.Enabled ? MF_ENABLED : MF_GRAYED));
      menus_changed = true;
    } else if (widgets_[i]) {
      Set(i, model, shown, what);
    }
  });
  if (menus_changed) DrawMenuBar(top_);
  rendering_ = false;
}

void Window_View::Set(std::size_t i, const Model& model, const Shown& shown, unsigned what) {
  const Control& row = controls::Of(name_)[i];
  HWND hwnd = widgets_[i];
  const auto tip = [&] {
    // A control joins the tooltip when it first has a tip: until then there is nothing to change,
    // and what assistive technology reads of it is still the description it was made with. The
    // tooltip itself is made for the window's first tip.
    if (shown.Tip.empty() && !tipped_[i]) return;
    if (!tips_) {
      tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, top_, nullptr, GetModuleHandleW(nullptr), nullptr);
      SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, 600);
    }
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = top_;
    tool.uId = reinterpret_cast<UINT_PTR>(hwnd);
    std::wstring text = W(shown.Tip);
    tool.lpszText = text.data();
    SendMessageW(tips_, tipped_[i] ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tipped_[i] = true;
    Set_Accessible_Description(hwnd, shown.Tip.empty() ? row.Accessible_Description : std::string_view(shown.Tip));
  };
  switch (row.Kind) {
    case Control_Kind::Label:
      if (what & changed::Text) SetWindowTextW(hwnd, W(shown.Text).c_str());
      if (what & (changed::Back_Colour | changed::Text_Colour)) InvalidateRect(hwnd, nullptr, TRUE);
      if (what & changed::Tip) tip();
      break;
    case Control_Kind::Status_Panel:
      if (what & changed::Text)
        SendMessageW(hwnd, SB_SETTEXTW, Status_Part, reinterpret_cast<LPARAM>(W(shown.Text).c_str()));
      if (what & changed::Tip) tip();
      break;
    case Control_Kind::Image:
      if (const auto* image = std::get_if<Image*>(&model); image && (what == changed::All || !picture_)) {
        if (!picture_) picture_ = Decode_Picture((*image)->Picture, dpi_);
        SendMessageW(hwnd, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(picture_));
      }
      break;
    case Control_Kind::Button:
    case Control_Kind::Option_Button:
    case Control_Kind::Check_Box:
    case Control_Kind::Frame:
      if (what & changed::Text && row.Kind != Control_Kind::Check_Box) SetWindowTextW(hwnd, W(shown.Text).c_str());
      if (what & changed::Value) SendMessageW(hwnd, BM_SETCHECK, shown.Value ? BST_CHECKED : BST_UNCHECKED, 0);
      if (what & changed::Enabled && row.Kind != Control_Kind::Frame) EnableWindow(hwnd, shown.Enabled);
      break;
    case Control_Kind::Text_Box:
      if (what & changed::Text) SetWindowTextW(hwnd, W(shown.Text).c_str());
      if (what & changed::Selection && shown.Sel_Length > 0)
        SendMessageW(hwnd, EM_SETSEL, shown.Sel_Start, shown.Sel_Start + shown.Sel_Length);
      break;
    case Control_Kind::List_Box:
      if (what & changed::Items) {
        const auto* box = std::get<List_Box*>(model);
        SendMessageW(hwnd, WM_SETREDRAW, FALSE, 0);
        SendMessageW(hwnd, LB_RESETCONTENT, 0, 0);
        SendMessageW(hwnd, LB_INITSTORAGE, box->Items.size(), box->Items.size() * 64);
        for (const std::string& line : box->Items)
          SendMessageW(hwnd, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(W(line).c_str()));
        SendMessageW(hwnd, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(hwnd, nullptr, TRUE);
      }
      if (what & changed::Index) SendMessageW(hwnd, LB_SETCURSEL, static_cast<WPARAM>(shown.Index), 0);
      if (what & changed::Tip) tip();
      break;
    case Control_Kind::Slider:
      if (what & changed::Value) SendMessageW(hwnd, TBM_SETPOS, TRUE, shown.Value);
      break;
    default:
      break;
  }
}

void Window_View::Set_Window(const Shown& shown, unsigned what) {
  if (what & changed::Text) SetWindowTextW(top_, W(shown.Text).c_str());
  if (what & changed::Enabled) EnableWindow(top_, shown.Enabled);
  if (what & changed::Focus && shown.Focus != 0) {
    // The window that takes the focus becomes the active one too.
    if (IsWindowEnabled(top_) && IsWindowVisible(top_) && GetActiveWindow() != top_) SetActiveWindow(top_);
    HWND target = Widget(form_.Focus);
    SetFocus(target ? target : top_);
  }
}

void Window_View::Paint_Lines(HDC dc) {
  for (const Control& row : controls::Of(name_)) {
    if (row.Kind != Control_Kind::Line) continue;
    HPEN pen = CreatePen(PS_SOLID, MulDiv(row.Line_Width, dpi_, 96), Colour_Ref(row.ForeColor));
    HGDIOBJ old = SelectObject(dc, pen);
    MoveToEx(dc, Px(row.Place.Left), Px(row.Place.Top), nullptr);
    LineTo(dc, Px(row.Place.Left + row.Place.Width), Px(row.Place.Top + row.Place.Height));
    SelectObject(dc, old);
    DeleteObject(pen);
  }
}

LRESULT Window_View::Colour(HDC dc, HWND control) {
  const auto found = rows_.find(control);
  if (found == rows_.end()) return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
  const Control& row = controls::Of(name_)[found->second];
  // A label's colours are its model's; the other kinds take what their row gives them.
  std::int32_t back = row.BackColor;
  if (const auto* label = std::get_if<Label*>(&form_.Models[found->second])) back = (*label)->BackColor;
  SetTextColor(dc, Colour_Ref(Text_Colour(back, row.ForeColor)));
  SetBkColor(dc, Colour_Ref(back));
  return reinterpret_cast<LRESULT>(Brush(back));
}

LRESULT CALLBACK Window_View::Window_Proc(HWND hwnd, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<Window_View*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
  if (!self) return DefWindowProcW(hwnd, message, w, l);
  return self->Handle(message, w, l);
}

LRESULT Window_View::Handle(UINT message, WPARAM w, LPARAM l) {
  const std::span<const Control> rows = controls::Of(name_);
  const std::string_view window = name_;
  switch (message) {
    case WM_COMMAND: {
      const std::size_t i = LOWORD(w) >= First_Id ? LOWORD(w) - First_Id : rows.size();
      if (i >= rows.size() || rendering_) return 0;
      const std::string_view name = rows[i].Name;
      if (l == 0) {  // a menu item or its shortcut
        Send([&](Vorlane& main) { Raise(main, window, name, Event::Click); });
        return 0;
      }
      const WORD code = HIWORD(w);
      switch (rows[i].Kind) {
        case Control_Kind::Button:
        case Control_Kind::Option_Button:
          if (code == BN_CLICKED) Send([&](Vorlane& main) { Raise(main, window, name, Event::Click); });
          break;
        case Control_Kind::Check_Box:
          // The box doesn't tick itself: the logic's value, turned round, is what the click asks.
          if (code == BN_CLICKED) {
            const auto* check = std::get<Check_Box*>(form_.Models[i]);
            const int value = check->Value ? 0 : 1;
            Send([&](Vorlane& main) { Input_Value(main, window, name, value); });
          }
          break;
        case Control_Kind::List_Box:
          if (code == LBN_SELCHANGE) {
            const int index = static_cast<int>(SendMessageW(widgets_[i], LB_GETCURSEL, 0, 0));
            Send([&](Vorlane& main) { Input_Value(main, window, name, index); });
          }
          break;
        case Control_Kind::Text_Box:
          // The box shows already what the user typed: it is not set again.
          if (code == EN_CHANGE) {
            const std::string text = Text_Of(widgets_[i]);
            Send([&](Vorlane& main) {
              Input_Text(main, window, name, text);
              cache_.Take(form_, i);
            });
          }
          break;
        default:
          break;
      }
      return 0;
    }
    case WM_HSCROLL:
      if (l && !rendering_) {
        const auto found = rows_.find(reinterpret_cast<HWND>(l));
        if (found != rows_.end()) {
          const int value = static_cast<int>(SendMessageW(reinterpret_cast<HWND>(l), TBM_GETPOS, 0, 0));
          const std::string_view name = rows[found->second].Name;
          Send([&](Vorlane& main) { Input_Value(main, window, name, value); });
        }
      }
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      return Colour(reinterpret_cast<HDC>(w), reinterpret_cast<HWND>(l));
    case WM_PAINT: {
      PAINTSTRUCT paint;
      HDC dc = BeginPaint(top_, &paint);
      Paint_Lines(dc);
      EndPaint(top_, &paint);
      return 0;
    }
    case WM_MOUSEMOVE: {
      const bool held = w & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON);
      Send([&](Vorlane& main) { Mouse_Move(main, window, window, held); });
      return 0;
    }
    case WM_CLOSE:
      // The system's close: the logic closes the window, or keeps it.
      Send([&](Vorlane& main) { Close_Window(main, window); });
      return 0;
    case WM_DPICHANGED: {
      dpi_ = HIWORD(w);
      Layout();
      const RECT* suggested = reinterpret_cast<const RECT*>(l);
      SetWindowPos(top_, nullptr, suggested->left, suggested->top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      cache_ = Render_Cache();
      Render();
      return 0;
    }
    default:
      return DefWindowProcW(top_, message, w, l);
  }
}

LRESULT CALLBACK Window_View::Control_Proc(HWND hwnd, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR self) {
  auto* view = reinterpret_cast<Window_View*>(self);
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(hwnd, Control_Proc, 1);
    return DefSubclassProc(hwnd, message, w, l);
  }
  const auto found = view->rows_.find(hwnd);
  if (found == view->rows_.end() || view->detached_) return DefSubclassProc(hwnd, message, w, l);
  return view->Handle_Control(hwnd, found->second, message, w, l);
}

LRESULT Window_View::Handle_Control(HWND hwnd, std::size_t i, UINT message, WPARAM w, LPARAM l) {
  const Control& row = controls::Of(name_)[i];
  const std::string_view window = name_, name = row.Name;
  switch (message) {
    case WM_MOUSEMOVE: {
      const bool held = w & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON);
      Send([&](Vorlane& main) { Mouse_Move(main, window, name, held); });
      break;
    }
    case WM_LBUTTONUP:
      if (controls::Clicked_On_Release(row)) {
        RECT client;
        GetClientRect(hwnd, &client);
        const POINT at{static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
        const bool over = PtInRect(&client, at);
        Send([&](Vorlane& main) { Mouse_Up(main, window, name, over); });
        return 0;
      }
      break;
    case WM_LBUTTONDBLCLK:
      if (controls::Clicked_On_Release(row)) {
        Send([&](Vorlane& main) { Double_Click(main, window, name); });
        return 0;
      }
      break;
    case WM_SETFOCUS:
      // A text box that takes the focus shows the selection the logic gives it.
      cache_.Forget(i, changed::Selection);
      Send([&](Vorlane& main) { Got_Focus(main, window, name); });
      break;
    default:
      break;
  }
  return DefSubclassProc(hwnd, message, w, l);
}

}  // namespace win32
