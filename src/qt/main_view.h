// The windows on Qt: the main window with its menu bar, and the Edit and About windows while the
// logic holds them open. Each shows its window object through a Form_View; what the user does
// goes to the logic as neutral input, and afterwards every window shows its model again.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "form/events.h"
#include "form/vorlane.h"
#include "qt/form_view.h"
#include "qt/qt_platform.h"

namespace qtview {

// A window other than the main one: Edit or About, made anew each time the logic opens it.
class Window_View : public QWidget {
  Q_OBJECT

 public:
  // Shown above `owner`; what the user does goes to `sink`.
  Window_View(QWidget* owner, Input_Sink& sink, Form_Window& form, const Screen_Size& screen);

  Form_Window& Form() const { return view_->Form(); }
  Form_View& View() const { return *view_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Input_Sink& sink_;
  Form_View* view_;
};

class Main_View : public QMainWindow, public Input_Sink {
  Q_OBJECT

 public:
  // `platform` is the Qt platform that the model's platform shows its dialogs on.
  Main_View(Vorlane& model, Qt_Platform& platform);
  ~Main_View() override;

  // The start-up event, then the first render; the caller shows the window.
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

  Window_View* Edit_Window() const { return edit_view_; }
  Window_View* About_Window() const { return about_view_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Sync();
  void Render();
  // Opens or closes the view of a window to match the model.
  void Follow(QPointer<Window_View>& view, Form_Window* form);

  Vorlane& model_;
  Qt_Platform& platform_;
  Form_View* view_;
  QPointer<Window_View> edit_view_;
  QPointer<Window_View> about_view_;
};

}  // namespace qtview
