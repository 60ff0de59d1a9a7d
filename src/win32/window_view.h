// One window object on real Windows controls: the window and its controls made by one loop over
// its rows of the control table, rendered by one loop, and what the user does to them passed to
// the logic as neutral input. It decides nothing.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "form/registry.h"
#include "form/vorlane.h"

namespace win32 {

// Where the views send what the user does: the input runs in the logic, then every window shows
// its model.
class Input_Sink {
 public:
  virtual ~Input_Sink() = default;
  virtual void Input(const std::function<void(Vorlane&)>& input) = 0;
};

class Window_View {
 public:
  // Makes the window of the form, owned by `owner` (nullptr for the main window), and its
  // controls; placed on the screen by the logic's rule from its real outer size, not yet shown.
  Window_View(Input_Sink& sink, Form_Window& form, HWND owner, const Screen_Size& screen);
  ~Window_View();
  Window_View(const Window_View&) = delete;
  Window_View& operator=(const Window_View&) = delete;

  HWND Handle() const { return top_; }
  Form_Window& Form() const { return form_; }
  // Shows the window, and gives the focus to the control that the model says has it.
  void Show();
  // Shows the model: only what changed since the last render is touched.
  void Render();
  // The window object is gone: from now on the window passes nothing on.
  void Detach() { detached_ = true; }
  // The control that a window of ours stands for: the window's own name for the window itself;
  // empty for one that isn't ours.
  std::string_view Control_Of(HWND hwnd) const;
  // The window of a control, nullptr for a name the window hasn't (or a menu item).
  HWND Widget(std::string_view name) const;
  // The number that a control or menu item sends its commands with.
  WORD Command_Id(std::string_view name) const;
  // The window's shortcuts, or nullptr.
  HACCEL Accelerators() const { return accelerators_; }
  int Dpi() const { return dpi_; }

 private:
  static LRESULT CALLBACK Window_Proc(HWND hwnd, UINT message, WPARAM w, LPARAM l);
  static LRESULT CALLBACK Control_Proc(HWND hwnd, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR self);
  LRESULT Handle(UINT message, WPARAM w, LPARAM l);
  LRESULT Handle_Control(HWND hwnd, std::size_t row, UINT message, WPARAM w, LPARAM l);

  void Build_Controls();
  void Build_Menus();
  // The rows that become controls, from the top of the stack down.
  std::vector<std::size_t> Stacking_Order() const;
  // Puts every control at its place, in its font, and sizes the window for its client area, at
  // the dpi.
  void Layout();
  void Size_Window();
  void Place(const Screen_Size& screen);
  void Set(std::size_t row, const Model& model, const Shown& shown, unsigned what);
  void Set_Window(const Shown& shown, unsigned what);
  void Paint_Lines(HDC dc);
  LRESULT Colour(HDC dc, HWND control);
  HFONT Font(const Control_Font& font);
  HFONT Font_Of(const Control& row);  // its own font, or the window's
  HBRUSH Brush(std::int32_t colour);
  int Px(std::int32_t twips) const;
  template <class Input>
  void Send(Input&& input) {
    if (!detached_) sink_.Input([&](Vorlane& main) { input(main); });
  }

  Input_Sink& sink_;
  Form_Window& form_;
  std::string_view name_;
  HWND owner_;
  HWND top_ = nullptr;
  HWND tips_ = nullptr;  // made for the first tip
  HMENU menu_ = nullptr;
  HACCEL accelerators_ = nullptr;
  int dpi_ = 96;
  std::vector<HWND> widgets_;  // by row of the window in the control table
  std::vector<bool> tipped_;   // by row: the control has joined the tooltip
  std::map<HWND, std::size_t> rows_;
  HBITMAP picture_ = nullptr;
  std::map<std::tuple<std::string_view, int, int, int>, HFONT> fonts_;
  std::map<std::int32_t, HBRUSH> brushes_;
  Render_Cache cache_;
  bool rendering_ = false;
  bool detached_ = false;
};

// The Windows key code of a shortcut's keys for an accelerator table.
ACCEL Accelerator_Of(const Control& item, WORD command);

}  // namespace win32
