// The windows on Windows: the main window, and the Edit and About windows while the logic holds
// them open, each a Window_View; the message loop, in which the keys reach the windows before
// their controls. What the user does goes to the logic as neutral input, and afterwards every
// window shows its model again.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "form/events.h"
#include "form/vorlane.h"
#include "win32/platform.h"
#include "win32/window_view.h"

namespace win32 {

class App : public Input_Sink {
 public:
  App(Vorlane& model, Win32_Platform& platform);
  ~App() override;

  // Makes the main window, runs its start-up event and shows it.
  void Start();
  // Runs one input of the user, or any handler of the logic as an event, then brings every window
  // up to date.
  void Input(const std::function<void(Vorlane&)>& input) override;
  template <class Handler>
  void Dispatch(Handler&& handler) {
    Fire(model_, std::forward<Handler>(handler));
    Sync();
  }
  // Raises an event of a control, then brings every window up to date.
  bool Raise(std::string_view window, std::string_view control, Event on);
  // The message loop, until the program ends; its exit code.
  int Run();
  // One message on the program's road: the keys to the windows first, then the shortcuts, the
  // dialog keys (Tab), and the control.
  void Process(MSG& message);

  Window_View* Main_Window() const { return main_.get(); }
  Window_View* Edit_Window() const { return edit_.get(); }
  Window_View* About_Window() const { return about_.get(); }

 private:
  void Sync();
  void Render();
  void Follow(std::unique_ptr<Window_View>& view, Form_Window* form);
  Window_View* View_Of(HWND hwnd) const;
  // The keys as the window system gives them, before any control sees them: true when the key
  // goes no further.
  bool Pre_Translate(const MSG& message);

  Vorlane& model_;
  Win32_Platform& platform_;
  std::unique_ptr<Window_View> main_, edit_, about_;
  // Windows whose object is gone: destroyed once the event that closed them is over.
  std::vector<std::unique_ptr<Window_View>> gone_;
  bool quitting_ = false;
  bool syncing_ = false, resync_ = false;
};

}  // namespace win32
