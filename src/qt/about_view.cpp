#include "qt/about_view.h"

#include <QAccessible>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QRegion>
#include <QWindow>

#include "form/layout.h"

namespace qtview {

About_View::About_View(QWidget* owner, Event_Sink& sink, About_Form& form, const Screen_Size& screen)
    : QWidget(nullptr), sink_(sink), form_(&form) {
  Mark_Control(this, "About");
  setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  setFixedSize(Px(layout::About_Client_Width), Px(layout::About_Client_Height));
  setFocusPolicy(Qt::StrongFocus);

  image_ = new QLabel(this);
  Mark_Control(image_, "Img1");
  const Geometry& g = layout::About_Image;
  image_->setGeometry(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height));
  const auto gif = About_Picture();
  QImage picture;
  picture.loadFromData(gif.data(), static_cast<int>(gif.size()), "GIF");
  image_->setPixmap(QPixmap::fromImage(picture));
  image_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  Make_Pressable(image_, QAccessible::Graphic);
  image_->setAccessibleName("Vorlane");
  image_->installEventFilter(this);

  const Ellipse_Region region;
  setMask(QRegion(region.Left, region.Top, region.Right - region.Left, region.Bottom - region.Top, QRegion::Ellipse));

  Place_Window(this, form, screen, owner);
}

void About_View::Detach() {
  form_ = nullptr;
  hide();
  deleteLater();
}

void About_View::keyPressEvent(QKeyEvent* event) {
  // Only a key that gives a character closes the window; F-keys and a lone Shift don't.
  const QString text = event->text();
  if (!form_ || text.isEmpty()) return;
  Event_Args args{.Key = text.at(0).unicode()};
  sink_.Raise("About", "About", Event::Key_Press, args);
}

bool About_View::eventFilter(QObject* watched, QEvent* event) {
  if (watched == image_ && event->type() == QEvent::MouseButtonRelease && form_ &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    sink_.Raise("About", "Img1", Event::Click);
    return true;
  }
  return false;
}

}  // namespace qtview
