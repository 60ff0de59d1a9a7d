// Shared ground for the real-widget tests: a main window on real widgets, with the scripted
// platform in front of the Qt platform, and helpers to find widgets by their control names.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <string>

#include "support/scripted_platform.h"
#include "ui/qt/main_view.h"
#include "ui/qt/qt_platform.h"

struct Qt_Window {
  qtview::Qt_Platform system;
  Scripted_Platform platform{&system};
  Vorlane model{platform};
  qtview::Main_View view{model, system};

  Qt_Window() {
    view.Start();
    view.show();
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
