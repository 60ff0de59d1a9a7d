#include "ui/qt/widgets.h"

#include <QGuiApplication>
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
  if (first_ || tip_ != model.ToolTipText) {
    tip_ = model.ToolTipText;
    widget_->setToolTip(Q(tip_));
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
  Set_If_Changed(tip_, model.ToolTipText, [&](const std::string& t) { widget_->setToolTip(Q(t)); });
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

void Place_Window(QWidget* window, Form_Window& form, const Screen_Size& screen, QWidget* owner) {
  form.Width = window->width() * layout::Twips_Per_Pixel;
  form.Height = window->height() * layout::Twips_Per_Pixel;
  Position::Place_Controls(form, screen);
  window->move(Px(form.Left), Px(form.Top));
  window->winId();
  if (QWindow* handle = window->windowHandle()) handle->setTransientParent(owner->windowHandle());
}

}  // namespace qtview
