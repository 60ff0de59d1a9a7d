#include "qt/main_view.h"

#include <QCloseEvent>
#include <QLayout>
#include <QMenuBar>
#include <QPainter>
#include <QRegion>

#include "form/about_form.h"
#include "form/edit_form.h"
#include "qt/widgets.h"
#include "ui/events.h"

namespace qtview {
namespace {

// The bare window of a window object: the client area below the menu bar, with its lines drawn.
class Client_Area : public QWidget {
 public:
  Client_Area(QWidget* parent, std::string_view window) : QWidget(parent), window_(window) {
    const Rect client = controls::Window_Row(window).Place;
    setFixedSize(Px(client.Width), Px(client.Height));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    for (const Control& row : controls::Of(window_)) {
      if (row.Kind != Control_Kind::Line) continue;
      painter.setPen(QPen(Colour(row.ForeColor), row.Line_Width));
      const Rect& r = row.Place;
      painter.drawLine(Px(r.Left), Px(r.Top), Px(r.Left + r.Width), Px(r.Top + r.Height));
    }
  }

 private:
  std::string_view window_;
};

// A window's frame and buttons by its styles.
Qt::WindowFlags Window_Flags(unsigned styles) {
  using namespace window_style;
  Qt::WindowFlags flags = styles & Owned ? (styles & No_Border ? Qt::Tool : Qt::Dialog) : Qt::Window;
  if (styles & No_Border) {
    flags |= Qt::FramelessWindowHint;
  } else {
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (styles & Minimize_Button) flags |= Qt::WindowMinimizeButtonHint;
    if (styles & Fixed_Border) flags |= Qt::MSWindowsFixedSizeDialogHint;
  }
  if (styles & Topmost) flags |= Qt::WindowStaysOnTopHint;
  return flags;
}

}  // namespace

Window_View::Window_View(QWidget* owner, Input_Sink& sink, Form_Window& form, const Screen_Size& screen)
    : QWidget(nullptr), sink_(sink) {
  const Control& row = controls::Window_Row(form.Name);
  setObjectName(Q(form.Name));
  setWindowFlags(Window_Flags(row.Styles));
  setFixedSize(Px(row.Place.Width), Px(row.Place.Height));
  view_ = new Form_View(sink, form, this, this);
  if (row.Ellipse.Width > 0) {
    const Rect& e = row.Ellipse;
    setMask(QRegion(Px(e.Left), Px(e.Top), Px(e.Width), Px(e.Height), QRegion::Ellipse));
  }
  // The window was placed by its start-up on an estimate of its size; place it on the real one.
  Place_Window(this, form, screen, owner);
  view_->Render();
}

void Window_View::closeEvent(QCloseEvent* event) {
  // The system's close: the logic closes the window, or keeps it.
  const std::string_view window = Form().Name;
  bool gone = false;
  sink_.Input([&](Vorlane& main) { gone = Close_Window(main, window); });
  gone ? event->accept() : event->ignore();
}

Main_View::Main_View(Vorlane& model, Qt_Platform& platform) : model_(model), platform_(platform) {
  const Control& row = controls::Window_Row(window::Main);
  setObjectName(Q(window::Main));
  platform_.Before_Modal = [this] { Render(); };
  platform_.Dialog_Parent = [this]() -> QWidget* {
    if (edit_view_) return edit_view_.data();
    return this;
  };
  auto* client = new Client_Area(this, window::Main);
  client->setObjectName("client");
  setCentralWidget(client);
  view_ = new Form_View(*this, model_, this, client, menuBar());
  setWindowFlags(Window_Flags(row.Styles));
  layout()->setSizeConstraint(QLayout::SetFixedSize);  // the window can't be resized
}

Main_View::~Main_View() {
  platform_.Before_Modal = nullptr;
  platform_.Dialog_Parent = nullptr;
  delete edit_view_.data();
  delete about_view_.data();
}

void Main_View::Start() {
  adjustSize();
  model_.Width = Twips(width());
  model_.Height = Twips(height());
  Raise(window::Main, window::Main, Event::Load);
  // The start-up placed the window by its size without a frame; once shown, it is placed again by
  // the frame the window manager draws and the menu bar's real height.
  Place_Window(this, model_, model_.platform.Screen());
  Render();
}

void Main_View::Input(const std::function<void(Vorlane&)>& input) {
  input(model_);
  Sync();
}

bool Main_View::Raise(std::string_view window, std::string_view control, Event on) {
  const bool handled = ::Raise(model_, window, control, on);
  Sync();
  return handled;
}

void Main_View::Follow(QPointer<Window_View>& view, Form_Window* form) {
  if (view && (!form || &view->Form() != form)) {
    // The window object is gone: its widgets go too, once the event that closed it is over.
    view->View().Detach();
    view->hide();
    view->deleteLater();
    view = nullptr;
  }
  if (form && !view) {
    view = new Window_View(this, *this, *form, model_.platform.Screen());
    view->show();
  }
}

void Main_View::Render() {
  view_->Render();
  if (edit_view_) edit_view_->View().Render();
  if (about_view_) about_view_->View().Render();
}

void Main_View::Sync() {
  Follow(edit_view_, model_.Edit.get());
  Follow(about_view_, model_.About.get());
  Render();
  if (model_.Unloaded) close();
}

void Main_View::closeEvent(QCloseEvent* event) {
  if (model_.Ended || model_.Unloaded || Close_Window(model_, window::Main)) {
    event->accept();
  } else {
    event->ignore();
    Sync();
  }
}

}  // namespace qtview
