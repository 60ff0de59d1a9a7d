#include "win32/app.h"

#include "form/about_form.h"
#include "form/edit_form.h"
#include "ui/events.h"
#include "win32/accessible.h"

namespace win32 {

App::App(Vorlane& model, Win32_Platform& platform) : model_(model), platform_(platform) {
  platform_.Before_Modal = [this] { Render(); };
  platform_.Dialog_Owner = [this]() -> HWND {
    if (edit_) return edit_->Handle();
    return main_ ? main_->Handle() : nullptr;
  };
}

App::~App() {
  platform_.Before_Modal = nullptr;
  platform_.Dialog_Owner = nullptr;
  about_.reset();
  edit_.reset();
  gone_.clear();
  main_.reset();
}

void App::Start() {
  // The window is made at its real outer size first: the start-up places it by that size.
  main_ = std::make_unique<Window_View>(*this, model_, nullptr, model_.platform.Screen());
  Raise(window::Main, window::Main, Event::Load);
  SetWindowPos(main_->Handle(), nullptr, To_Pixels(model_.Left, main_->Dpi()), To_Pixels(model_.Top, main_->Dpi()), 0,
               0, SWP_NOSIZE | SWP_NOZORDER);
  main_->Show();
  // What assistive technology reads beside the controls' own texts comes once the window is up
  // and waits for input: a timer fires only then.
  SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    Start_Accessible_Annotations();
  });
}

void App::Input(const std::function<void(Vorlane&)>& input) {
  input(model_);
  Sync();
}

bool App::Raise(std::string_view window, std::string_view control, Event on) {
  const bool handled = ::Raise(model_, window, control, on);
  Sync();
  return handled;
}

void App::Render() {
  if (main_) main_->Render();
  if (edit_) edit_->Render();
  if (about_) about_->Render();
}

void App::Follow(std::unique_ptr<Window_View>& view, Form_Window* form) {
  if (view && (!form || &view->Form() != form)) {
    view->Detach();
    ShowWindow(view->Handle(), SW_HIDE);
    gone_.push_back(std::move(view));
  }
  if (form && !view && main_) {
    view = std::make_unique<Window_View>(*this, *form, main_->Handle(), model_.platform.Screen());
    view->Show();
  }
}

void App::Sync() {
  // Making a window or giving a control the focus sends messages that are input of their own
  // (a control that took the focus): their turn comes once this round is over.
  if (syncing_) {
    resync_ = true;
    return;
  }
  syncing_ = true;
  do {
    resync_ = false;
    // The main window first: it is enabled again before a window it owns goes away.
    if (main_) main_->Render();
    Follow(edit_, model_.Edit.get());
    Follow(about_, model_.About.get());
    if (edit_) edit_->Render();
    if (about_) about_->Render();
  } while (resync_);
  syncing_ = false;
  if ((model_.Unloaded || model_.Ended) && !quitting_) {
    quitting_ = true;
    if (main_) ShowWindow(main_->Handle(), SW_HIDE);
    PostQuitMessage(0);
  }
}

Window_View* App::View_Of(HWND hwnd) const {
  HWND root = GetAncestor(hwnd, GA_ROOT);
  for (Window_View* view : {main_.get(), edit_.get(), about_.get()})
    if (view && view->Handle() == root) return view;
  return nullptr;
}

bool App::Pre_Translate(const MSG& message) {
  Window_View* view = View_Of(message.hwnd);
  if (!view) return false;
  const std::string_view window = view->Form().Name;
  std::string_view control = view->Control_Of(message.hwnd);
  if (control.empty()) control = window;
  switch (message.message) {
    case WM_KEYDOWN:
      // Esc is a character of its own here: it never reaches the dialog keys, which would take
      // it for the window's cancel in their own way.
      if (message.wParam == VK_ESCAPE) {
        bool goes_on = true;
        Input([&](Vorlane& main) { goes_on = Key_Down(main, window, control, 27); });
        if (goes_on) DispatchMessageW(&message);
        return true;
      }
      return false;
    case WM_CHAR: {
      bool goes_on = true;
      const int character = static_cast<int>(message.wParam);
      Input([&](Vorlane& main) { goes_on = Key_Down(main, window, control, character); });
      return !goes_on;
    }
    case WM_KEYUP: {
      const int key = static_cast<int>(message.wParam);
      Input([&](Vorlane& main) { Key_Up(main, window, key); });
      return false;
    }
    default:
      return false;
  }
}

void App::Process(MSG& message) {
  if (Pre_Translate(message)) return;
  HWND root = GetAncestor(message.hwnd, GA_ROOT);
  if (main_ && root == main_->Handle() && main_->Accelerators() &&
      TranslateAcceleratorW(root, main_->Accelerators(), &message))
    return;
  if (root && View_Of(root) && IsDialogMessageW(root, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int App::Run() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    Process(message);
    gone_.clear();
  }
  return static_cast<int>(message.wParam);
}

}  // namespace win32
