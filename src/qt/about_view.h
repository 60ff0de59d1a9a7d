// The About window on Qt: borderless, cut to an ellipse, above all other windows, no task-bar
// entry; a click on the picture or a character key closes it.
#pragma once

#include <QWidget>

#include "ui/about.h"
#include "qt/widgets.h"

class QLabel;

namespace qtview {

class About_View : public QWidget {
  Q_OBJECT

 public:
  // Shown above `owner`; what the user does goes to `sink`.
  About_View(QWidget* owner, Event_Sink& sink, About_Form& form, const Screen_Size& screen);

  About_Form& Form() const { return *form_; }
  void Detach();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Event_Sink& sink_;
  About_Form* form_;
  QLabel* image_;
};

}  // namespace qtview
