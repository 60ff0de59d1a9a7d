// Shared ground for the real-widget tests: the Qt platform with scripted answers in place of the
// modal dialogs, and helpers to find widgets by their control names.
#pragma once

#include <QApplication>
#include <QFileInfo>
#include <QMouseEvent>
#include <QTest>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "ui/qt/main_view.h"
#include "ui/qt/qt_platform.h"

class Test_Platform : public qtview::Qt_Platform {
 public:
  std::deque<int> Answers;
  std::deque<std::optional<std::string>> Picks;
  std::vector<std::string> Prompts;
  int Beeps = 0;

  int MsgBox(const std::string& prompt, int style, const std::string&) override {
    if (Before_Modal) Before_Modal();
    Prompts.push_back(prompt);
    if (style != msgbox::Question_Yes_No_Cancel || Answers.empty()) return msgbox::OK;
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  bool ShowOpen(Common_Dialog& cd) override { return Pick(cd); }
  bool ShowSave(Common_Dialog& cd) override { return Pick(cd); }
  void Beep() override { ++Beeps; }

 private:
  bool Pick(Common_Dialog& cd) {
    if (Before_Modal) Before_Modal();
    if (Picks.empty() || !Picks.front()) {
      if (!Picks.empty()) Picks.pop_front();
      return false;
    }
    cd.FileName = *Picks.front();
    cd.FileTitle = QFileInfo(QString::fromStdString(cd.FileName)).fileName().toStdString();
    Picks.pop_front();
    return true;
  }
};

template <class W = QWidget>
W* Named(QWidget* root, const char* name) {
  W* widget = root->findChild<W*>(name);
  if (!widget) qFatal("no widget named %s", name);
  return widget;
}

// A mouse movement over a widget, without a button held.
inline void Move_Over(QWidget* widget) {
  const QPointF local(widget->width() / 2.0, widget->height() / 2.0);
  QMouseEvent move(QEvent::MouseMove, local, widget->mapToGlobal(local), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &move);
}
