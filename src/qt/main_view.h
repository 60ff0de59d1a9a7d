// The main window on Qt widgets. Every widget carries its control's name as objectName; what the
// user does goes to the logic as (window, control, event), and after each event the model is
// rendered back with the widgets' signals blocked. The view decides nothing.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "ui/events.h"
#include "qt/about_view.h"
#include "qt/edit_view.h"
#include "qt/qt_platform.h"
#include "qt/widgets.h"
#include "form/vorlane.h"

class QAction;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSlider;

namespace qtview {

class Main_View : public QMainWindow, public Event_Sink {
  Q_OBJECT

 public:
  // `platform` is the Qt platform that the model's platform shows its dialogs on.
  Main_View(Vorlane& model, Qt_Platform& platform);
  ~Main_View() override;

  // The start-up event, then the first render; the caller shows the window.
  void Start();
  using Event_Sink::Raise;
  bool Raise(std::string_view window, std::string_view control, Event on, Event_Args& args) override;
  // Runs any handler of the logic as an event, then brings every window up to date.
  template <class Handler>
  void Dispatch(Handler&& handler) {
    Fire(model_, std::forward<Handler>(handler));
    Sync();
  }
  void Render();
  Edit_View* Edit_Window() const { return edit_view_; }
  About_View* About_Window() const { return about_view_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Build_Controls();
  void Build_Menus();
  void Sync();
  QLabel* Make_Label(const std::string& name, Label_View* view = nullptr);

  Vorlane& model_;
  Qt_Platform& platform_;
  QWidget* client_ = nullptr;
  QSlider* slider_ = nullptr;
  QListWidget* list_ = nullptr;
  List_View list_view_;
  QCheckBox* check_ = nullptr;
  QPushButton* com1_ = nullptr;
  QPushButton* com2_ = nullptr;
  QPushButton* com_exit_ = nullptr;
  QLineEdit* txt_free_ = nullptr;
  std::array<Label_View, 32> cells_;
  Label_View l_info_line_, l_nline_, l_info_user_, l_nbyte_, help_, l_edt_, l_fix_, l_fix_1_, l_message_;
  QLabel* sbar_[3] = {};
  std::map<std::string, QAction*> actions_;

  // The last rendered state of what is not a label; empty before the first render.
  struct Rendered {
    struct Button {
      std::optional<std::string> caption;
      std::optional<bool> enabled;
    };
    std::optional<bool> enabled;
    std::optional<std::string> caption;
    std::optional<int> slider;
    std::optional<int> check;
    std::optional<bool> check_enabled;
    Button com1, com2;
    std::array<std::optional<std::string>, 3> sbar_text, sbar_tip;
    std::optional<std::string> txt_free;
    std::map<std::string, Button> menus;
    std::optional<unsigned> focus_serial;
  } rendered_;

  bool after_double_click_ = false;
  QPointer<Edit_View> edit_view_;
  QPointer<About_View> about_view_;
};

}  // namespace qtview
