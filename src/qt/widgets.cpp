#include "qt/widgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPalette>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSlider>
#include <QVariant>
#include <QTimer>
#include <QWindow>

#include <cmath>

#include "ui/events.h"

namespace qtview {

int Dpi() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? static_cast<int>(std::lround(screen->logicalDotsPerInch())) : 96;
}

QFont Font_Of(const Control_Font& font) {
  QFont qfont;
  // Where "MS Sans Serif" is missing, a sans of the same width, so that captions fit their cells.
  qfont.setFamilies({Q(font.Face), "Microsoft Sans Serif", "Liberation Sans", "Arial"});
  qfont.setStyleHint(QFont::SansSerif);
  qfont.setPointSizeF(font.Size_Hundredths / 100.0);
  if (font.Weight >= 700) qfont.setWeight(QFont::Bold);
  return qfont;
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
      case 8:
        return palette.color(QPalette::Text);  // window text
      case 9:
        return palette.color(QPalette::Active, QPalette::HighlightedText);  // active title bar's text
      case 18:
        return palette.color(QPalette::WindowText);  // button text
      case 22:
        return palette.color(QPalette::Midlight);  // 3D light
      default:
        return palette.color(QPalette::Window);  // button face, borders
    }
  }
  return QColor(static_cast<int>(bits & 0xFF), static_cast<int>((bits >> 8) & 0xFF),
                static_cast<int>((bits >> 16) & 0xFF));
}

void Mark_Control(QWidget* widget, std::string_view name) {
  if (widget->objectName().isEmpty()) widget->setObjectName(Q(name));
  widget->setProperty("control", Q(name));
}

std::string Control_Of(const QObject* object) {
  for (; object; object = object->parent()) {
    const QVariant name = object->property("control");
    if (name.isValid()) return name.toString().toStdString();
    if (object->isWidgetType() && static_cast<const QWidget*>(object)->isWindow()) break;
  }
  return {};
}

std::string Window_Of(const QWidget* widget) {
  const QVariant name = widget ? widget->window()->property("window") : QVariant();
  return name.isValid() ? name.toString().toStdString() : std::string();
}

namespace {

// The accessible side of a control that takes input by the mouse alone (a byte cell, a picture)
// or of an option button: its press action does what a click does and, where the control has
// a double click, an "Edit" action what that does.
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

void Make_Pressable(QWidget* widget, QAccessible::Role role, bool edit) {
  static const bool installed = (QAccessible::installFactory(Pressable_Factory), true);
  (void)installed;
  widget->setProperty("accessible_role", role);
  widget->setProperty("edit_action", edit);
}

bool Has_Route(const Control& row, Event on) { return Find_Route(Routes(), row.Window, row.Name, on) != nullptr; }

// The system colour that a widget of this kind paints itself in: it keeps its own palette where
// its row gives it that colour, since a palette set anew shades a box's frame differently.
std::int32_t Natural_Back(Control_Kind kind) {
  return kind == Control_Kind::Text_Box || kind == Control_Kind::List_Box ? colour::Window_Background
                                                                          : colour::Button_Face;
}

// Gives a widget a back colour and the text colour that reads on it.
void Set_Colours(QWidget* widget, std::int32_t back, std::int32_t text) {
  QPalette palette = widget->palette();
  palette.setColor(QPalette::Window, Colour(back));
  palette.setColor(QPalette::Base, Colour(back));
  palette.setColor(QPalette::WindowText, Colour(text));
  widget->setPalette(palette);
  widget->setAutoFillBackground(true);
}

// A label's caption across and down: a text that breaks into lines stands at the top, as does
// one that hangs from the right edge; a single line on the left is centred down.
Qt::Alignment Alignment_Of(const Control& row) {
  if (row.Wrap) return Qt::AlignLeft | Qt::AlignTop;
  switch (row.Alignment) {
    case Align::Right:
      return Qt::AlignRight | Qt::AlignTop;
    case Align::Center:
      return Qt::AlignCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

QLabel* Make_Label(const Control& row, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Alignment_Of(row));
  label->setWordWrap(row.Wrap);
  if (row.Border) label->setFrameStyle(QFrame::Box | QFrame::Plain);
  if (row.Kind == Control_Kind::Status_Panel) label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  // A label that answers the mouse is a cell of the grid to assistive technology.
  if (Has_Route(row, Event::Click)) Make_Pressable(label, QAccessible::Cell, Has_Route(row, Event::Dbl_Click));
  return label;
}

QWidget* Make_Of_Kind(const Control& row, QWidget* parent) {
  switch (row.Kind) {
    case Control_Kind::Label:
    case Control_Kind::Status_Panel:
      return Make_Label(row, parent);
    case Control_Kind::Image: {
      auto* image = new QLabel(parent);
      image->setAlignment(Qt::AlignLeft | Qt::AlignTop);
      Make_Pressable(image, QAccessible::Graphic, false);
      return image;
    }
    case Control_Kind::Button: {
      auto* button = new QPushButton(parent);
      button->setAutoDefault(row.Default);
      button->setDefault(row.Default);
      return button;
    }
    case Control_Kind::Option_Button: {
      // Momentary: the logic turns it off again after each click.
      auto* option = new QRadioButton(parent);
      option->setAutoExclusive(false);
      Make_Pressable(option, QAccessible::RadioButton, false);
      return option;
    }
    case Control_Kind::Check_Box:
      return new QCheckBox(parent);
    case Control_Kind::Text_Box: {
      auto* box = new QLineEdit(parent);
      box->setReadOnly(row.Locked);
      return box;
    }
    case Control_Kind::List_Box: {
      // One line per row, cut at the box's edge; a line wider than the box is read whole in the
      // tool tip. With rows of one size the view lays out a refill of 500 lines without
      // measuring each of them.
      auto* list = new QListWidget(parent);
      list->setUniformItemSizes(true);
      list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
      list->setTextElideMode(Qt::ElideNone);
      list->viewport()->setMouseTracking(true);
      return list;
    }
    case Control_Kind::Slider: {
      auto* slider = new QSlider(Qt::Horizontal, parent);
      slider->setRange(row.Min, row.Max);
      slider->setSingleStep(row.Small_Change);
      slider->setPageStep(row.Large_Change);
      slider->setTickPosition(QSlider::TicksBelow);
      slider->setTickInterval(1);
      return slider;
    }
    case Control_Kind::Frame:
      return new QGroupBox(parent);
    default:
      return nullptr;
  }
}

}  // namespace

QWidget* Make_Widget(const Control& row, QWidget* parent) {
  QWidget* widget = Make_Of_Kind(row, parent);
  if (!widget) return nullptr;
  Mark_Control(widget, row.Name);
  widget->setGeometry(Px(row.Place.Left), Px(row.Place.Top), Px(row.Place.Width), Px(row.Place.Height));
  widget->setMouseTracking(true);
  if (!row.Font.Face.empty()) widget->setFont(Font_Of(row.Font));
  if (row.Tab_Index < 0) widget->setFocusPolicy(Qt::NoFocus);
  if (!row.Accessible_Name.empty()) widget->setAccessibleName(Q(row.Accessible_Name));
  if (!row.Accessible_Description.empty()) widget->setAccessibleDescription(Q(row.Accessible_Description));
  // The colours of a label follow its model; those of the other kinds are what the row says.
  if (row.Kind != Control_Kind::Label && row.BackColor != Natural_Back(row.Kind))
    Set_Colours(widget, row.BackColor, Text_Colour(row.BackColor, row.ForeColor));
  if (!row.Visible) widget->hide();
  return widget;
}

void Set_Widget(QWidget* widget, const Control& row, const Model& model, const Shown& shown, unsigned what) {
  const QSignalBlocker block(widget);
  // What assistive technology reads: the text on show where the row names nothing else, and the
  // tool tip where there is one.
  const auto name = [&] {
    if (row.Accessible_Name.empty()) widget->setAccessibleName(Q(shown.Text));
  };
  const auto tip = [&] {
    widget->setToolTip(Q(shown.Tip));
    widget->setAccessibleDescription(shown.Tip.empty() ? Q(row.Accessible_Description) : Q(shown.Tip));
  };
  switch (row.Kind) {
    case Control_Kind::Label:
    case Control_Kind::Status_Panel: {
      auto* label = static_cast<QLabel*>(widget);
      if (what & changed::Text) label->setText(Q(shown.Text)), name();
      if (what & (changed::Back_Colour | changed::Text_Colour) && row.Kind == Control_Kind::Label)
        Set_Colours(label, shown.Back_Colour, shown.Text_Colour);
      if (what & changed::Tip) tip();
      break;
    }
    case Control_Kind::Image:
      if (const auto* image = std::get_if<Image*>(&model); image && what == changed::All) {
        const auto picture = (*image)->Picture;
        QImage decoded;
        decoded.loadFromData(picture.data(), static_cast<int>(picture.size()));
        static_cast<QLabel*>(widget)->setPixmap(QPixmap::fromImage(decoded));
      }
      break;
    case Control_Kind::Button:
    case Control_Kind::Option_Button:
    case Control_Kind::Check_Box: {
      auto* button = static_cast<QAbstractButton*>(widget);
      if (what & changed::Text && row.Kind != Control_Kind::Check_Box) button->setText(Q(shown.Text));
      if (what & changed::Value) button->setChecked(shown.Value != 0);
      if (what & changed::Enabled) button->setEnabled(shown.Enabled);
      break;
    }
    case Control_Kind::Text_Box: {
      auto* box = static_cast<QLineEdit*>(widget);
      if (what & changed::Text) box->setText(Q(shown.Text));
      if (what & changed::Selection && shown.Sel_Length > 0) box->setSelection(shown.Sel_Start, shown.Sel_Length);
      break;
    }
    case Control_Kind::List_Box: {
      auto* list = static_cast<QListWidget*>(widget);
      if (what & changed::Items) {
        const auto* box = std::get<List_Box*>(model);
        QStringList lines;
        lines.reserve(static_cast<qsizetype>(box->Items.size()));
        for (const std::string& line : box->Items) lines << Q(line);
        list->clear();
        list->addItems(lines);
      }
      if (what & changed::Index) list->setCurrentRow(shown.Index);
      if (what & changed::Tip) tip();
      break;
    }
    case Control_Kind::Slider:
      if (what & changed::Value) static_cast<QSlider*>(widget)->setValue(shown.Value);
      break;
    case Control_Kind::Frame:
      if (what & changed::Text) static_cast<QGroupBox*>(widget)->setTitle(Q(shown.Text)), name();
      break;
    default:
      break;
  }
}

int Selected_Row(const QWidget* widget) {
  const auto* list = qobject_cast<const QListWidget*>(widget);
  if (!list) return -1;
  const QModelIndexList rows = list->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

int Key_Code(const QKeyEvent* key) {
  const int k = key->key();
  if (key->modifiers() & Qt::KeypadModifier) {
    if (k == Qt::Key_Plus) return 107;
    if (k == Qt::Key_Minus) return 109;
  }
  if (k == Qt::Key_Escape) return 27;
  if ((k >= Qt::Key_0 && k <= Qt::Key_9) || (k >= Qt::Key_A && k <= Qt::Key_Z)) return k;
  if (k >= Qt::Key_F1 && k <= Qt::Key_F12) return 112 + (k - Qt::Key_F1);
  return 0;
}

namespace {

// Places the window again whenever its outer size comes to differ from the one it was placed
// by: the window manager draws the frame only once the window is shown, and the menu bar takes
// its height only then too. A move by the user changes no size, so it stands. A window manager
// that is slow to draw the frame may take a placement for the place of what lies within it:
// a moment after each placement the frame stands where it was put, or is put there again.
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
    form_.Width = Twips(placed_by_.width());
    form_.Height = Twips(placed_by_.height());
    Position::Place_Controls(form_, screen_);
    placed_at_ = QPoint(Px(form_.Left), Px(form_.Top));
    window_->move(placed_at_);
    corrections_ = 5;
    Check_Soon();
  }
  void Check_Soon() {
    QTimer::singleShot(200, this, [this] {
      if (Outer() != placed_by_) {
        Place();
      } else if (window_->isVisible() && window_->frameGeometry().topLeft() != placed_at_ && corrections_-- > 0) {
        window_->move(placed_at_);
        Check_Soon();
      }
    });
  }

  QWidget* window_;
  Form_Window& form_;
  Screen_Size screen_;
  QSize placed_by_;
  QPoint placed_at_;
  int corrections_ = 0;
};

}  // namespace

void Place_Window(QWidget* window, Form_Window& form, const Screen_Size& screen, QWidget* owner) {
  new Placer(window, form, screen);
  if (!owner) return;
  window->winId();
  if (QWindow* handle = window->windowHandle()) handle->setTransientParent(owner->windowHandle());
}

}  // namespace qtview
