#include "ui/qt/about_view.h"

#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QRegion>
#include <QWindow>

#include "ui/layout.h"
#include "ui/qt/main_view.h"
#include "ui/shell.h"

namespace qtview {

About_View::About_View(Main_View& owner, About_Form& form) : QWidget(nullptr), owner_(owner), form_(&form) {
  setObjectName("About");
  setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  setFixedSize(Px(layout::About_Client_Width), Px(layout::About_Client_Height));
  setFocusPolicy(Qt::StrongFocus);

  image_ = new QLabel(this);
  image_->setObjectName("Img1");
  const Geometry& g = layout::About_Image;
  image_->setGeometry(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height));
  const auto& gif = About_Picture();
  QImage picture;
  picture.loadFromData(gif.data(), static_cast<int>(gif.size()), "GIF");
  image_->setPixmap(QPixmap::fromImage(picture));
  image_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  image_->setAccessibleName("Vorlane");
  image_->installEventFilter(this);

  const Ellipse_Region region;
  setMask(QRegion(region.Left, region.Top, region.Right - region.Left, region.Bottom - region.Top, QRegion::Ellipse));

  Place_Window(this, form, owner_.Model().platform.Screen(), &owner_);
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
  const int code = text.at(0).unicode();
  owner_.Dispatch([&] { About_KeyPress(*form_, code); });
}

bool About_View::eventFilter(QObject* watched, QEvent* event) {
  if (watched == image_ && event->type() == QEvent::MouseButtonRelease && form_ &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    owner_.Dispatch([&] { Img1_Click(*form_); });
    return true;
  }
  return false;
}

}  // namespace qtview
