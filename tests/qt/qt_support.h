// Shared ground for the real-widget tests: a main window on real widgets, with the scripted
// platform in front of the Qt platform, in a folder of its own; and helpers to find widgets by
// their control names.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <string>

#include "form/about_form.h"
#include "form/edit_form.h"
#include "form/recording_platform.h"
#include "qt/main_view.h"
#include "qt/qt_platform.h"
#include "support/files.h"
#include "ui/events.h"

struct Qt_Window {
  Temp_Folder folder;
  qtview::Qt_Platform system;
  Recording_Platform platform{&system};
  Vorlane model{Routes(), platform};
  qtview::Main_View view{model, system};

  Qt_Window() {
    view.Start();
    view.show();
  }
  // Opens these bytes, written under the name, through File > Open.
  void Open(const std::string& name, const Bytes& bytes) {
    platform.Picks.push_back(Dialog_Pick{folder.Write(name, bytes)});
    view.Raise(window::Main, "nOpen", Event::Click);
  }
};

template <class W = QWidget>
W* Named(QWidget* root, const char* name) {
  W* widget = root->findChild<W*>(name);
  if (!widget) qFatal("no widget named %s", name);
  return widget;
}

// A key typed while the widget has the focus of its window, as the window system gives it: to
// the window, which passes it to the widget.
inline void Type(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QVERIFY(QTest::qWaitForWindowActive(widget->window()));
  widget->setFocus();
  QApplication::processEvents();
  QTest::keyClick(widget->window()->windowHandle(), key, modifiers);
}
inline void Type(QWidget* widget, const char* text) {
  QVERIFY(QTest::qWaitForWindowActive(widget->window()));
  widget->setFocus();
  QApplication::processEvents();
  for (const char* c = text; *c; ++c) QTest::keyClick(widget->window()->windowHandle(), *c);
}

// A mouse movement over a widget, without a button held.
inline void Move_Over(QWidget* widget) {
  const QPointF local(widget->width() / 2.0, widget->height() / 2.0);
  QMouseEvent move(QEvent::MouseMove, local, widget->mapToGlobal(local), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &move);
}
