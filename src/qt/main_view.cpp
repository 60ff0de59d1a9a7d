#include "qt/main_view.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>

#include <tuple>

#include "store/file_commands.h"
#include "form/layout.h"
#include "ui/navigation.h"
#include "qt/about_view.h"
#include "qt/edit_view.h"

namespace qtview {
namespace {

// The client area: the bare window below the menu bar, with its two lines.
class Client_Area : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const int y = Px(layout::Line_Y);
    painter.setPen(QPen(Colour(0x00008080), 2));  // Line1
    painter.drawLine(0, y, Px(layout::Line_X2), y);
    painter.setPen(QPen(Colour(colour::Window_Background), 1));  // Line2
    painter.drawLine(0, y, Px(layout::Line_X2), y);
  }
};

void Place(QWidget* widget, const Geometry& g) {
  Mark_Control(widget, g.Name);
  widget->setGeometry(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height));
  widget->setMouseTracking(true);
}

const Geometry& Main_Geometry(std::string_view name) { return *layout::Find(layout::Main_Controls(), name); }

}  // namespace

Main_View::Main_View(Vorlane& model, Qt_Platform& platform) : model_(model), platform_(platform) {
  setObjectName("Vorlane");
  setFont(Default_Font());
  platform_.Before_Modal = [this] { Render(); };
  platform_.Dialog_Parent = [this]() -> QWidget* {
    if (edit_view_) return edit_view_.data();
    return this;
  };
  Build_Controls();
  Build_Menus();
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
  layout()->setSizeConstraint(QLayout::SetFixedSize);  // the window can't be resized
  // One filter for the whole application: the window sees keys before its controls do, and the
  // mouse events of every control go to the logic's handlers.
  qApp->installEventFilter(this);
}

Main_View::~Main_View() {
  qApp->removeEventFilter(this);
  platform_.Before_Modal = nullptr;
  platform_.Dialog_Parent = nullptr;
  delete edit_view_.data();
  delete about_view_.data();
}

QLabel* Main_View::Make_Label(const std::string& name, Label_View* view) {
  auto* label = new QLabel(client_);
  Place(label, Main_Geometry(name));
  if (view) *view = Label_View(label);
  return label;
}

void Main_View::Build_Controls() {
  client_ = new Client_Area(this);
  client_->setObjectName("client");
  client_->setFixedSize(Px(layout::Main_Client_Width), Px(layout::Main_Client_Height));
  client_->setMouseTracking(true);
  Mark_Control(client_, "Vorlane");
  setCentralWidget(client_);

  slider_ = new QSlider(Qt::Horizontal, client_);
  Place(slider_, Main_Geometry("Slider"));
  slider_->setRange(model_.Slider.Min, model_.Slider.Max);
  slider_->setSingleStep(model_.Slider.SmallChange);
  slider_->setPageStep(model_.Slider.LargeChange);
  slider_->setTickPosition(QSlider::TicksBelow);
  slider_->setTickInterval(1);
  slider_->setAccessibleName("Record");
  connect(slider_, &QSlider::valueChanged, this, [this](int value) {
    Input_Value(model_, "Slider", value);
    Sync();
  });

  Make_Label("L_Info_Line", &l_info_line_);
  Make_Label("L_NLine", &l_nline_)->setAlignment(Qt::AlignRight | Qt::AlignTop);

  for (int n = 1; n <= 32; ++n) {
    auto* cell = new QLabel(client_);
    Place(cell, layout::Cell(n));
    cell->setAlignment(Qt::AlignCenter);
    Make_Pressable(cell, QAccessible::Cell, true);
    cell->setAccessibleDescription(QString("Byte %1").arg(n));
    cells_[static_cast<std::size_t>(n - 1)] = Label_View(cell);
  }

  QLabel* info_user = Make_Label("L_Info_User", &l_info_user_);
  QFont bold = Default_Font();
  bold.setWeight(QFont::Bold);
  info_user->setFont(bold);
  Make_Label("L_NByte", &l_nbyte_)->setAlignment(Qt::AlignRight | Qt::AlignTop);

  for (auto [name, view] : {std::pair{"Help", &help_}, std::pair{"L_Edt", &l_edt_}}) {
    QLabel* boxed = Make_Label(name, view);
    boxed->setFrameStyle(QFrame::Box | QFrame::Plain);
    boxed->setWordWrap(true);
    boxed->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    boxed->setTextFormat(Qt::PlainText);
  }

  // ComExit lies under List, whose rectangle covers it: never seen, pressed by Esc.
  com_exit_ = new QPushButton(client_);
  Place(com_exit_, Main_Geometry("ComExit"));
  com_exit_->setAccessibleName("Exit");
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, [this] { com_exit_->click(); });

  list_ = new QListWidget(client_);
  list_view_ = List_View(list_);
  Place(list_, Main_Geometry("List"));
  Set_Back_Colour(list_, colour::Light_3D);
  list_->viewport()->setMouseTracking(true);
  list_->setAccessibleName("List");
  connect(list_, &QListWidget::itemSelectionChanged, this, [this] { model_.List.ListIndex = Selected_Row(list_); });
  // A list box: one line per row, cut at the box's edge; a line wider than the box is read whole
  // in the tool tip. With rows of one size the view lays out a refill of 500 lines without
  // measuring each of them.
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setTextElideMode(Qt::ElideNone);
  list_->raise();

  check_ = new QCheckBox(client_);
  Place(check_, Main_Geometry("Check"));
  Set_Back_Colour(check_, colour::Active_Border);
  check_->setAccessibleName(Q(model_.L_Fix.Caption));

  Make_Label("L_Fix", &l_fix_);
  Make_Label("L_Fix_1", &l_fix_1_);
  Make_Label("L_Message", &l_message_);

  for (auto [name, button] : {std::pair{"Com1", &com1_}, std::pair{"Com2", &com2_}}) {
    *button = new QPushButton(client_);
    Place(*button, Main_Geometry(name));
  }
  com1_->setAccessibleDescription("Previous message");
  com2_->setAccessibleDescription("Next message");

  for (int i = 0; i < 3; ++i) {
    const std::string name = "SBar_" + std::to_string(i + 1);
    sbar_[i] = new QLabel(client_);
    Place(sbar_[i], Main_Geometry(name));
    sbar_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  }

  txt_free_ = new QLineEdit(client_);
  Place(txt_free_, Main_Geometry("Txt_Free"));
  txt_free_->hide();

  setTabOrder(slider_, list_);
  setTabOrder(list_, check_);
  setTabOrder(check_, com1_);
  setTabOrder(com1_, com2_);
  setTabOrder(com2_, com_exit_);
  for (QWidget* w : client_->findChildren<QLabel*>()) w->setFocusPolicy(Qt::NoFocus);
  Wire_Buttons(client_, [this](std::string_view control, int value) {
    if (control == "Check") {
      Input_Value(model_, control, value);
      Sync();
    } else {
      Raise("Vorlane", control, Event::Click);
    }
  });
}

void Main_View::Build_Menus() {
  std::map<std::string_view, QMenu*> menus;
  for (const Menu_Entry& entry : layout::Main_Menu()) {
    const QString name = QString::fromUtf8(entry.Name.data(), static_cast<qsizetype>(entry.Name.size()));
    const bool has_submenu = std::any_of(layout::Main_Menu().begin(), layout::Main_Menu().end(),
                                         [&](const Menu_Entry& e) { return e.Parent == entry.Name; });
    QAction* action = nullptr;
    if (has_submenu) {
      auto* menu = new QMenu(entry.Parent.empty() ? static_cast<QWidget*>(menuBar()) : menus.at(entry.Parent));
      menu->setObjectName(name);
      menus[entry.Name] = menu;
      action = entry.Parent.empty() ? menuBar()->addMenu(menu) : menus.at(entry.Parent)->addMenu(menu);
    } else if (entry.Caption == "-") {
      action = menus.at(entry.Parent)->addSeparator();
    } else {
      action = entry.Parent.empty() ? menuBar()->addAction(QString()) : menus.at(entry.Parent)->addAction(QString());
      if (!entry.Shortcut.empty())
        action->setShortcut(
            QKeySequence(QString::fromUtf8(entry.Shortcut.data(), static_cast<qsizetype>(entry.Shortcut.size()))));
      connect(action, &QAction::triggered, this, [this, name = entry.Name] { Raise("Vorlane", name, Event::Click); });
    }
    action->setObjectName(name);
    actions_[std::string(entry.Name)] = action;
  }
}

void Main_View::Start() {
  adjustSize();
  model_.Width = width() * layout::Twips_Per_Pixel;
  model_.Height = height() * layout::Twips_Per_Pixel;
  Raise("Vorlane", "Vorlane", Event::Load);
  // The start-up placed the window by its size without a frame; once shown, it is placed again by
  // the frame the window manager draws and the menu bar's real height.
  Place_Window(this, model_, model_.platform.Screen());
  model_.SetFocus("Slider");
  Render();
}


bool Main_View::Raise(std::string_view window, std::string_view control, Event on, Event_Args& args) {
  const bool handled = ::Raise(model_, window, control, on, args);
  Sync();
  return handled;
}

void Main_View::Render() {
  Set_If_Changed(rendered_.enabled, model_.Enabled, [&](bool on) { setEnabled(on); });
  Set_If_Changed(rendered_.caption, model_.Caption, [&](const std::string& t) { setWindowTitle(Q(t)); });
  Set_If_Changed(rendered_.slider, model_.Slider.Value, [&](int value) {
    const QSignalBlocker block(slider_);
    slider_->setValue(value);
  });
  for (int n = 1; n <= 32; ++n) cells_[static_cast<std::size_t>(n - 1)].Render(model_.L(n));
  l_info_line_.Render(model_.L_Info_Line);
  l_nline_.Render(model_.L_NLine);
  l_info_user_.Render(model_.L_Info_User);
  l_nbyte_.Render(model_.L_NByte);
  help_.Render(model_.Help);
  l_edt_.Render(model_.L_Edt);
  l_fix_.Render(model_.L_Fix);
  l_fix_1_.Render(model_.L_Fix_1);
  l_message_.Render(model_.L_Message);

  list_view_.Render(model_.List);

  Set_If_Changed(rendered_.check, model_.Check.Value, [&](int value) {
    const QSignalBlocker block(check_);
    check_->setChecked(value == 1);
  });
  Set_If_Changed(rendered_.check_enabled, model_.Check.Enabled, [&](bool on) { check_->setEnabled(on); });
  for (auto [widget, model, cache] :
       {std::tuple{com1_, &model_.Com1, &rendered_.com1}, std::tuple{com2_, &model_.Com2, &rendered_.com2}}) {
    Set_If_Changed(cache->caption, model->Caption, [&](const std::string& t) { widget->setText(Q(t)); });
    Set_If_Changed(cache->enabled, model->Enabled, [&](bool on) { widget->setEnabled(on); });
  }
  const Status_Bar* bars[3] = {&model_.SBar_1, &model_.SBar_2, &model_.SBar_3};
  for (std::size_t i = 0; i < 3; ++i) {
    Set_If_Changed(rendered_.sbar_text[i], bars[i]->SimpleText, [&](const std::string& t) {
      sbar_[i]->setText(Q(t));
      sbar_[i]->setAccessibleName(Q(t));
    });
    Set_If_Changed(rendered_.sbar_tip[i], bars[i]->ToolTipText, [&](const std::string& t) {
      sbar_[i]->setToolTip(Q(t));
      sbar_[i]->setAccessibleDescription(Q(t));
    });
  }
  Set_If_Changed(rendered_.txt_free, model_.Txt_Free.Text, [&](const std::string& t) {
    const QSignalBlocker block(txt_free_);
    txt_free_->setText(Q(t));
  });
  for (auto& [name, action] : actions_) {
    const Menu_Item& item = *model_.Menu(name);
    Rendered::Button& cache = rendered_.menus[name];
    if (!action->isSeparator())
      Set_If_Changed(cache.caption, item.Caption, [&](const std::string& t) { action->setText(Q(t)); });
    Set_If_Changed(cache.enabled, item.Enabled, [&](bool on) { action->setEnabled(on); });
  }
  Set_If_Changed(rendered_.focus_serial, model_.Focus_Serial, [&](unsigned) {
    // The window that takes the focus back becomes the active one too.
    if (isEnabled() && !isActiveWindow()) activateWindow();
    if (auto* target = client_->findChild<QWidget*>(Q(model_.Focus))) target->setFocus();
  });
}

void Main_View::Sync() {
  if (model_.Edit && (!edit_view_ || &edit_view_->Form() != model_.Edit.get())) {
    if (edit_view_) edit_view_->Detach();
    edit_view_ = new Edit_View(this, *this, *model_.Edit, model_.platform.Screen());
    edit_view_->show();
  } else if (!model_.Edit && edit_view_) {
    edit_view_->Detach();
    edit_view_ = nullptr;
  }
  if (model_.About && (!about_view_ || &about_view_->Form() != model_.About.get())) {
    if (about_view_) about_view_->Detach();
    about_view_ = new About_View(this, *this, *model_.About, model_.platform.Screen());
    about_view_->show();
    // It takes the keys: any character closes it.
    about_view_->activateWindow();
    about_view_->setFocus();
  } else if (!model_.About && about_view_) {
    about_view_->Detach();
    about_view_ = nullptr;
  }
  Render();
  if (edit_view_) edit_view_->Render();
  if (model_.Unloaded) close();
}

bool Main_View::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || widget->window() != this) return false;
  switch (event->type()) {
    case QEvent::KeyRelease: {
      // The window sees the keypad's + and - whatever control has the focus.
      auto* key = static_cast<QKeyEvent*>(event);
      if (!isEnabled() || key->isAutoRepeat() || !(key->modifiers() & Qt::KeypadModifier) ||
          (key->key() != Qt::Key_Plus && key->key() != Qt::Key_Minus))
        return false;
      Event_Args args{.Key = key->key() == Qt::Key_Plus ? key::Keypad_Plus : key::Keypad_Minus};
      Raise("Vorlane", "Vorlane", Event::Key_Up, args);
      return true;
    }
    case QEvent::MouseMove: {
      const std::string control = Control_Of(widget);
      if (control.empty()) return false;
      Raise("Vorlane", control, Event::Mouse_Move);
      // The control took the movement: it goes no further up to the bare window. With a button
      // held it is a drag, which the widget itself needs.
      return static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton;
    }
    case QEvent::MouseButtonRelease: {
      if (!qobject_cast<QLabel*>(widget)) return false;
      auto* mouse = static_cast<QMouseEvent*>(event);
      // A double click comes as press, release, double click, release: the second release is
      // no click of its own.
      const bool second_release = std::exchange(after_double_click_, false);
      if (mouse->button() == Qt::LeftButton && !second_release && widget->rect().contains(mouse->position().toPoint()))
        Raise("Vorlane", Control_Of(widget), Event::Click);
      return true;
    }
    case QEvent::MouseButtonDblClick: {
      if (!qobject_cast<QLabel*>(widget)) return false;
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        after_double_click_ = true;
        Raise("Vorlane", Control_Of(widget), Event::Dbl_Click);
      }
      return true;
    }
    case QEvent::FocusIn:
      if (widget->property("control").isValid()) Raise("Vorlane", Control_Of(widget), Event::Got_Focus);
      return false;
    default:
      return false;
  }
}

void Main_View::closeEvent(QCloseEvent* event) {
  if (model_.Ended || model_.Unloaded) {
    event->accept();
    return;
  }
  ::Raise(model_, "Vorlane", "Vorlane", Event::Unload);
  if (model_.Unloaded || model_.Ended) {
    event->accept();
  } else {
    event->ignore();
    Sync();
  }
}

}  // namespace qtview
