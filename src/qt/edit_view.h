// The Edit window on Qt widgets: a fixed dialog without minimise or maximise, no task-bar entry,
// not modal (the main window is disabled by the logic instead).
#pragma once

#include <QDialog>

#include <optional>
#include <string>

#include "ui/edit.h"
#include "qt/widgets.h"

class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace qtview {

class Edit_View : public QDialog {
  Q_OBJECT

 public:
  // Shown above `owner`; what the user does goes to `sink`.
  Edit_View(QWidget* owner, Event_Sink& sink, Edit_Form& form, const Screen_Size& screen);

  Edit_Form& Form() const { return *form_; }
  // The form is gone: the view stops rendering and deletes itself.
  void Detach();
  void Render();

 protected:
  void reject() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  bool Raise(std::string_view control, Event on, Event_Args& args);
  bool Raise(std::string_view control, Event on);

  Event_Sink& sink_;
  Edit_Form* form_;
  QGroupBox *f_1_, *f_2_, *f_3_;
  QListWidget* list_;
  List_View list_view_;
  Label_View l_1_, l_h_, l_2_, l_d_;
  QLineEdit *txt_1_, *txt_4_;
  QRadioButton *o_1_, *o_2_;
  QPushButton *com_apply_, *com_ok_, *com_cl_;
  // The last rendered state; empty before the first render.
  struct Rendered {
    struct Button {
      std::optional<std::string> caption;
      std::optional<bool> enabled;
    };
    std::optional<std::string> caption, f_1, f_2, f_3, o_1, o_2, txt_1, txt_4;
    Button com_apply, com_ok, com_cl;
    std::optional<unsigned> focus_serial;
  } rendered_;
};

}  // namespace qtview
