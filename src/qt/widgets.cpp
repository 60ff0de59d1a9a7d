#include "qt/widgets.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVariant>
#include <QWindow>

namespace qtview {

QFont Default_Font() {
  QFont font;
  // Where "MS Sans Serif" is missing, a sans of the same width, so that captions fit their cells.
  font.setFamilies({"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "Arial"});
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(8.25);
  return font;
}

QColor Colour(std::int32_t value) {
  const QPalette palette = QGuiApplication::palette();
  const auto bits = static_cast<std::uint32_t>(value);
  if (bits & 0x80000000u) {
    switch (bits & 0xFFu) {
      case 2:
        return palette.color(QPalette::Active, QPalette::Highlight);  // active title bar
      case 5:
        return palette.color(QPalette::Base);  // window background
      case 22:
        return palette.color(QPalette::Midlight);  // 3D light
      default:
        return palette.color(QPalette::Window);  // button face, borders
    }
  }
  return QColor(static_cast<int>(bits & 0xFF), static_cast<int>((bits >> 8) & 0xFF),
                static_cast<int>((bits >> 16) & 0xFF));
}

QColor Text_Colour(std::int32_t back) {
  const QPalette palette = QGuiApplication::palette();
  if (back == colour::Active_Title_Bar) return palette.color(QPalette::Active, QPalette::HighlightedText);
  return palette.color(QPalette::WindowText);
}

void Set_Back_Colour(QWidget* widget, std::int32_t back) {
  QPalette palette = widget->palette();
  palette.setColor(QPalette::Window, Colour(back));
  palette.setColor(QPalette::Base, Colour(back));
  palette.setColor(QPalette::WindowText, Text_Colour(back));
  widget->setPalette(palette);
  widget->setAutoFillBackground(true);
}

void Label_View::Render(const Label& model) {
  if (first_ || caption_ != model.Caption) {
    caption_ = model.Caption;
    const QString text = Q(caption_);
    widget_->setText(text);
    widget_->setAccessibleName(text);
  }
  if (first_ || back_ != model.BackColor) {
    back_ = model.BackColor;
    Set_Back_Colour(widget_, back_);
  }
  if (first_) description_ = widget_->accessibleDescription();
  if (first_ || tip_ != model.ToolTipText) {
    tip_ = model.ToolTipText;
    widget_->setToolTip(Q(tip_));
    widget_->setAccessibleDescription(tip_.empty() ? description_ : Q(tip_));
  }
  first_ = false;
}

void List_View::Render(const List_Box& model) {
  const QSignalBlocker block(widget_);
  Set_If_Changed(revision_, model.Revision, [&](unsigned) {
    widget_->clear();
    QStringList lines;
    lines.reserve(static_cast<qsizetype>(model.Items.size()));
    for (const auto& line : model.Items) lines << Q(line);
    widget_->addItems(lines);
    index_.reset();
  });
  Set_If_Changed(index_, model.ListIndex, [&](int row) { widget_->setCurrentRow(row); });
  Set_If_Changed(tip_, model.ToolTipText, [&](const std::string& t) {
    widget_->setToolTip(Q(t));
    widget_->setAccessibleDescription(Q(t));
  });
}

void Mark_Control(QWidget* widget, std::string_view name) {
  const QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
  if (widget->objectName().isEmpty()) widget->setObjectName(text);
  widget->setProperty("control", text);
}

std::string Control_Of(const QObject* object) {
  for (; object; object = object->parent()) {
    const QVariant name = object->property("control");
    if (name.isValid()) return name.toString().toStdString();
    if (object->isWidgetType() && static_cast<const QWidget*>(object)->isWindow()) break;
  }
  return {};
}

namespace {

// Places the window again whenever its outer size comes to differ from the one it was placed
// by: the window manager draws the frame only once the window is shown, and the menu bar takes
// its height only then too. A move by the user changes no size, so it stands.
class Placer : public QObject {
 public:
  Placer(QWidget* window, Form_Window& form, const Screen_Size& screen)
      : QObject(window), window_(window), form_(form), screen_(screen) {
    window->installEventFilter(this);
    Place();
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    const QEvent::Type type = event->type();
    if ((type == QEvent::Show || type == QEvent::Move || type == QEvent::Resize || type == QEvent::Paint) &&
        Outer() != placed_by_)
      Place();
    return false;
  }

 private:
  QSize Outer() const {
    const QMargins frame = window_->windowHandle() ? window_->windowHandle()->frameMargins() : QMargins();
    return window_->size().grownBy(frame);
  }
  void Place() {
    placed_by_ = Outer();
    form_.Width = placed_by_.width() * layout::Twips_Per_Pixel;
    form_.Height = placed_by_.height() * layout::Twips_Per_Pixel;
    Position::Place_Controls(form_, screen_);
    window_->move(Px(form_.Left), Px(form_.Top));
  }

  QWidget* window_;
  Form_Window& form_;
  Screen_Size screen_;
  QSize placed_by_;
};

// The accessible side of a pressable control or an option button.
class Pressable : public QAccessibleWidget {
 public:
  Pressable(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Name)
      if (auto* button = qobject_cast<QAbstractButton*>(widget())) return button->text().remove('&');
    return QAccessibleWidget::text(t);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    if (auto* button = qobject_cast<QAbstractButton*>(widget())) {
      state.checkable = true;
      state.checked = button->isChecked();
    }
    return state;
  }
  QStringList actionNames() const override {
    QStringList names{pressAction()};
    if (qobject_cast<QAbstractButton*>(widget())) names << toggleAction();
    if (widget()->property("edit_action").toBool()) names << QStringLiteral("Edit");
    return names << QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (!widget()->isEnabled()) return;
    if (auto* button = qobject_cast<QAbstractButton*>(widget());
        button && (name == pressAction() || name == toggleAction())) {
      button->click();
    } else if (name == pressAction() || name == QStringLiteral("Edit")) {
      // The same events as the mouse gives, so that they take the mouse's road.
      const QPointF middle(widget()->width() / 2.0, widget()->height() / 2.0);
      const auto send = [&](QEvent::Type type) {
        QMouseEvent event(type, middle, widget()->mapToGlobal(middle), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget(), &event);
      };
      send(QEvent::MouseButtonPress);
      send(QEvent::MouseButtonRelease);
      if (name == QStringLiteral("Edit")) {
        send(QEvent::MouseButtonDblClick);
        send(QEvent::MouseButtonRelease);
      }
    } else {
      QAccessibleWidget::doAction(name);
    }
  }
};

QAccessibleInterface* Pressable_Factory(const QString&, QObject* object) {
  const QVariant role = object->property("accessible_role");
  if (!object->isWidgetType() || !role.isValid()) return nullptr;
  return new Pressable(static_cast<QWidget*>(object), static_cast<QAccessible::Role>(role.toInt()));
}

void Install_Factory() {
  static const bool installed = (QAccessible::installFactory(Pressable_Factory), true);
  (void)installed;
}

}  // namespace

void Place_Window(QWidget* window, Form_Window& form, const Screen_Size& screen, QWidget* owner) {
  new Placer(window, form, screen);
  if (!owner) return;
  window->winId();
  if (QWindow* handle = window->windowHandle()) handle->setTransientParent(owner->windowHandle());
}

void Wire_Buttons(QWidget* root, std::function<void(std::string_view control, int value)> click) {
  for (QAbstractButton* button : root->findChildren<QAbstractButton*>()) {
    const std::string control = Control_Of(button);
    if (qobject_cast<QPushButton*>(button)) {
      QObject::connect(button, &QAbstractButton::clicked, button, [click, control] { click(control, 1); });
    } else {
      const bool option = qobject_cast<QRadioButton*>(button) != nullptr;
      QObject::connect(button, &QAbstractButton::toggled, button, [click, control, option](bool on) {
        if (option && !on) return;
        click(control, on ? 1 : 0);
      });
    }
  }
}

int Selected_Row(const QListWidget* list) {
  const QModelIndexList rows = list->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

void Make_Pressable(QWidget* widget, int role, bool edit) {
  Install_Factory();
  widget->setProperty("accessible_role", role);
  widget->setProperty("edit_action", edit);
}

void Make_Option(QAbstractButton* button) { Make_Pressable(button, QAccessible::RadioButton); }

}  // namespace qtview
