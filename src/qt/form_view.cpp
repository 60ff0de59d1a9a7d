#include "qt/form_view.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QWindow>

#include <algorithm>
#include <map>
#include <string>

#include "qt/widgets.h"
#include "ui/events.h"

namespace qtview {

Form_View::Form_View(Input_Sink& sink, Form_Window& form, QWidget* top, QWidget* client, QMenuBar* menus)
    : QObject(top), sink_(sink), form_(form), top_(top) {
  const std::span<const Control> rows = controls::Of(form_.Name);
  widgets_.assign(rows.size(), nullptr);
  Mark_Control(client, form_.Name);
  client->setMouseTracking(true);
  client->installEventFilter(this);
  top->setProperty("window", Q(form_.Name));
  top->setFont(Font_Of(rows.front().Font));
  // A window that holds the focus itself (one without controls that take it) takes the keys.
  if (rows.front().Focus == form_.Name) top->setFocusPolicy(Qt::StrongFocus);
  widgets_[0] = top;

  // The controls, each in the frame it lies within or in the bare window.
  for (std::size_t i = 1; i < rows.size(); ++i) {
    QWidget* parent = client;
    if (!rows[i].Parent.empty() && rows[i].Kind != Control_Kind::Menu_Item)
      parent = static_cast<QWidget*>(Widget(rows[i].Parent));
    QWidget* widget = Make_Widget(rows[i], parent);
    if (!widget) continue;
    widgets_[i] = widget;
    Wire(widget, i);
  }
  if (menus) Build_Menus(menus);

  // Siblings stack by their z-order, in table order within one.
  std::vector<std::size_t> order;
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (widgets_[i] && widgets_[i]->isWidgetType()) order.push_back(i);
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return rows[a].Z_Order < rows[b].Z_Order; });
  for (std::size_t i : order) static_cast<QWidget*>(widgets_[i])->raise();

  // The focus moves by the tab indexes.
  std::vector<std::size_t> tabs;
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (rows[i].Tab_Index >= 0 && widgets_[i] && widgets_[i]->isWidgetType()) tabs.push_back(i);
  std::sort(tabs.begin(), tabs.end(),
            [&](std::size_t a, std::size_t b) { return rows[a].Tab_Index < rows[b].Tab_Index; });
  for (std::size_t t = 1; t < tabs.size(); ++t)
    QWidget::setTabOrder(static_cast<QWidget*>(widgets_[tabs[t - 1]]), static_cast<QWidget*>(widgets_[tabs[t]]));

  // Keys come to the window before any of its controls.
  top->winId();
  if (QWindow* handle = top->windowHandle()) handle->installEventFilter(this);
}

QObject* Form_View::Widget(std::string_view name) const {
  const int i = Row_Index(form_, name);
  return i < 0 ? nullptr : widgets_[static_cast<std::size_t>(i)];
}

void Form_View::Build_Menus(QMenuBar* bar) {
  const std::span<const Control> rows = controls::Of(form_.Name);
  std::map<std::string_view, QMenu*> menus;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Control& row = rows[i];
    if (row.Kind != Control_Kind::Menu_Item) continue;
    QAction* action = nullptr;
    if (controls::Has_Submenu(row)) {
      auto* menu = new QMenu(row.Parent.empty() ? static_cast<QWidget*>(bar) : menus.at(row.Parent));
      menu->setObjectName(Q(row.Name));
      menus[row.Name] = menu;
      action = row.Parent.empty() ? bar->addMenu(menu) : menus.at(row.Parent)->addMenu(menu);
    } else if (row.Caption == "-") {
      action = menus.at(row.Parent)->addSeparator();
    } else {
      action = row.Parent.empty() ? bar->addAction(QString()) : menus.at(row.Parent)->addAction(QString());
      if (!row.Shortcut.empty()) action->setShortcut(QKeySequence(Q(row.Shortcut)));
      const std::string_view name = row.Name;
      connect(action, &QAction::triggered, this,
              [this, name] { Send([&](Vorlane& main) { Raise(main, form_.Name, name, Event::Click); }); });
    }
    action->setObjectName(Q(row.Name));
    widgets_[i] = action;
  }
}

void Form_View::Wire(QWidget* widget, std::size_t row) {
  const std::string_view window = form_.Name;
  const std::string_view name = controls::Of(window)[row].Name;
  widget->installEventFilter(this);
  if (auto* list = qobject_cast<QListWidget*>(widget)) {
    list->viewport()->installEventFilter(this);
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list, window, name] {
      Send([&](Vorlane& main) { Input_Value(main, window, name, Selected_Row(list)); });
    });
  } else if (auto* slider = qobject_cast<QSlider*>(widget)) {
    connect(slider, &QSlider::valueChanged, this,
            [this, window, name](int value) { Send([&](Vorlane& main) { Input_Value(main, window, name, value); }); });
  } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
    connect(check, &QAbstractButton::toggled, this, [this, window, name](bool on) {
      Send([&](Vorlane& main) { Input_Value(main, window, name, on ? 1 : 0); });
    });
  } else if (auto* option = qobject_cast<QRadioButton*>(widget)) {
    // A click turns the button on before the logic decides: it is shown anew whatever the logic
    // does.
    connect(option, &QAbstractButton::clicked, this, [this, window, name, row] {
      cache_.Forget(row, changed::Value);
      Send([&](Vorlane& main) { Raise(main, window, name, Event::Click); });
    });
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    connect(button, &QAbstractButton::clicked, this,
            [this, window, name] { Send([&](Vorlane& main) { Raise(main, window, name, Event::Click); }); });
  } else if (auto* box = qobject_cast<QLineEdit*>(widget)) {
    // The box shows already what the user typed: it is not set again.
    connect(box, &QLineEdit::textChanged, this, [this, window, name, row](const QString& text) {
      Send([&](Vorlane& main) {
        Input_Text(main, window, name, text.toStdString());
        cache_.Take(form_, row);
      });
    });
  }
}

void Form_View::Render() {
  if (detached_) return;
  cache_.Render(form_, [&](const Control& row, std::size_t i, const Model& model, const Shown& shown, unsigned what) {
    if (row.Kind == Control_Kind::Window) {
      Set_Window(shown, what);
    } else if (auto* action = qobject_cast<QAction*>(widgets_[i])) {
      if (what & changed::Text && !action->isSeparator()) action->setText(Q(shown.Text));
      if (what & changed::Enabled) action->setEnabled(shown.Enabled);
    } else if (widgets_[i]) {
      Set_Widget(static_cast<QWidget*>(widgets_[i]), row, model, shown, what);
    }
  });
}

void Form_View::Set_Window(const Shown& shown, unsigned what) {
  if (what & changed::Text) top_->setWindowTitle(Q(shown.Text));
  if (what & changed::Enabled) top_->setEnabled(shown.Enabled);
  if (what & changed::Focus && shown.Focus != 0) {
    // The window that takes the focus becomes the active one too.
    if (top_->isEnabled() && !top_->isActiveWindow()) top_->activateWindow();
    if (auto* target = qobject_cast<QWidget*>(Widget(form_.Focus))) target->setFocus();
  }
}

bool Form_View::eventFilter(QObject* watched, QEvent* event) {
  if (detached_) return false;
  const std::string_view window = form_.Name;
  if (watched->isWindowType()) {
    // Keys, as the window system gives them to the window: before any control sees them.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::KeyRelease) {
      // A key held down comes up once, when it is let go.
      if (!key->isAutoRepeat()) Send([&](Vorlane& main) { Key_Up(main, window, Key_Code(key)); });
      return false;
    }
    // The window gives the key to the control that holds its focus.
    const QWidget* focus = top_->focusWidget();
    std::string control = focus ? Control_Of(focus) : std::string();
    if (control.empty()) control = std::string(window);
    const int character = key->text().isEmpty() ? 0 : key->text().at(0).unicode();
    bool goes_on = true;
    Send([&](Vorlane& main) { goes_on = Key_Down(main, window, control, character); });
    return !goes_on;
  }
  auto* widget = static_cast<QWidget*>(watched);
  const std::string control = Control_Of(widget);
  if (control.empty()) return false;
  const Control* row = controls::Find(window, control);
  const bool clicked_by_mouse = row && controls::Clicked_On_Release(*row);
  switch (event->type()) {
    case QEvent::MouseMove: {
      bool taken = false;
      const bool held = static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
      Send([&](Vorlane& main) { taken = Mouse_Move(main, window, control, held); });
      return taken;
    }
    case QEvent::MouseButtonRelease: {
      if (!clicked_by_mouse) return false;
      auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() == Qt::LeftButton) {
        const bool over = widget->rect().contains(mouse->position().toPoint());
        Send([&](Vorlane& main) { Mouse_Up(main, window, control, over); });
      }
      return true;
    }
    case QEvent::MouseButtonDblClick:
      if (!clicked_by_mouse) return false;
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        Send([&](Vorlane& main) { Double_Click(main, window, control); });
      return true;
    case QEvent::FocusIn:
      if (widget->property("control").isValid() && row) {
        // A text box that takes the focus shows the selection the logic gives it.
        cache_.Forget(static_cast<std::size_t>(row - controls::Of(window).data()), changed::Selection);
        Send([&](Vorlane& main) { Got_Focus(main, window, control); });
      }
      return false;
    default:
      return false;
  }
}

}  // namespace qtview
