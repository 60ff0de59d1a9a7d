// The About window on Qt: borderless, cut to an ellipse, above all other windows, no task-bar
// entry; a click on the picture or a character key closes it.
#pragma once

#include <QWidget>

#include "ui/about.h"

class QLabel;

namespace qtview {

class Main_View;

class About_View : public QWidget {
  Q_OBJECT

 public:
  About_View(Main_View& owner, About_Form& form);

  About_Form& Form() const { return *form_; }
  void Detach();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Main_View& owner_;
  About_Form* form_;
  QLabel* image_;
};

}  // namespace qtview
