// One window object on Qt widgets: its controls made by one loop over its rows of the control
// table, rendered by one loop, and what the user does to them passed to the logic as neutral
// input. It decides nothing.
#pragma once

#include <QObject>

#include <functional>
#include <string_view>
#include <vector>

#include "form/registry.h"
#include "form/vorlane.h"

class QMenuBar;
class QWidget;

namespace qtview {

// Where the views send what the user does: the input runs in the logic, then every window shows
// its model.
class Input_Sink {
 public:
  virtual ~Input_Sink() = default;
  virtual void Input(const std::function<void(Vorlane&)>& input) = 0;
};

class Form_View : public QObject {
 public:
  // Makes the widgets of the window's controls in `client`, which stands for the bare window,
  // and its menus in `menus` where it has any. `top` is the window on the screen.
  Form_View(Input_Sink& sink, Form_Window& form, QWidget* top, QWidget* client, QMenuBar* menus = nullptr);

  // Shows the model: only what changed since the last render is touched.
  void Render();
  // The widget (or menu action) of a control; nullptr for a name the window hasn't.
  QObject* Widget(std::string_view name) const;
  Form_Window& Form() const { return form_; }
  // The window object is gone: from now on the widgets pass nothing on.
  void Detach() { detached_ = true; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build_Menus(QMenuBar* bar);
  void Wire(QWidget* widget, std::size_t row);
  void Set_Window(const Shown& shown, unsigned what);
  template <class Input>
  void Send(Input&& input) {
    if (!detached_) sink_.Input([&](Vorlane& main) { input(main); });
  }

  Input_Sink& sink_;
  Form_Window& form_;
  QWidget* top_;
  std::vector<QObject*> widgets_;  // by row of the window in the control table
  Render_Cache cache_;
  bool detached_ = false;
};

}  // namespace qtview
