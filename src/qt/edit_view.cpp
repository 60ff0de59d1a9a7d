#include "qt/edit_view.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QWindow>

#include <functional>
#include <tuple>

#include "form/layout.h"

namespace qtview {
namespace {

// Txt_1: every key that gives a character goes through the logic's key filter first.
class Number_Box : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<int(int)> Key_Press;
  std::function<void()> Got_Focus;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QString text = event->text();
    // Keys that give no character (arrows, Delete, function keys) raise no key press, and Esc
    // belongs to the window's cancel button before the box sees it.
    if (!text.isEmpty() && text != QString(QChar(0x7F)) && event->key() != Qt::Key_Escape && Key_Press) {
      if (Key_Press(text.at(0).unicode()) == 0) {
        event->accept();
        return;
      }
    }
    QLineEdit::keyPressEvent(event);
  }
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    if (Got_Focus) Got_Focus();
  }
};

const Geometry& Edit_Geometry(std::string_view name) { return *layout::Find(layout::Edit_Controls(), name); }

template <class W>
W* Make(QWidget* parent, std::string_view name) {
  auto* widget = new W(parent);
  const Geometry& g = Edit_Geometry(name);
  Mark_Control(widget, name);
  widget->setGeometry(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height));
  return widget;
}

}  // namespace

bool Edit_View::Raise(std::string_view control, Event on, Event_Args& args) {
  return form_ && sink_.Raise("Edit", control, on, args);
}

bool Edit_View::Raise(std::string_view control, Event on) {
  Event_Args args;
  return Raise(control, on, args);
}

Edit_View::Edit_View(QWidget* owner, Event_Sink& sink, Edit_Form& form, const Screen_Size& screen)
    : QDialog(nullptr), sink_(sink), form_(&form) {
  setObjectName("Edit");
  setAttribute(Qt::WA_DeleteOnClose, false);
  setFont(Default_Font());
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                 Qt::MSWindowsFixedSizeDialogHint);
  setFixedSize(Px(layout::Edit_Client_Width), Px(layout::Edit_Client_Height));
  setModal(false);

  f_1_ = Make<QGroupBox>(this, "F_1");
  list_ = Make<QListWidget>(this, "List");
  list_view_ = List_View(list_);
  f_2_ = Make<QGroupBox>(f_1_, "F_2");
  l_1_ = Label_View(Make<QLabel>(f_2_, "L_1"));
  l_h_ = Label_View(Make<QLabel>(f_2_, "L_H"));
  l_2_ = Label_View(Make<QLabel>(f_2_, "L_2"));
  l_d_ = Label_View(Make<QLabel>(f_2_, "L_D"));
  f_3_ = Make<QGroupBox>(this, "F_3");
  auto* number_box = Make<Number_Box>(this, "Txt_1");
  txt_1_ = number_box;
  txt_4_ = Make<QLineEdit>(this, "Txt_4");
  txt_4_->setReadOnly(true);
  Set_Back_Colour(txt_4_, colour::Light_3D);
  o_2_ = Make<QRadioButton>(this, "O_2");
  o_1_ = Make<QRadioButton>(this, "O_1");
  com_apply_ = Make<QPushButton>(this, "ComApply");
  com_ok_ = Make<QPushButton>(this, "ComOK");
  com_cl_ = Make<QPushButton>(this, "ComCl");
  for (QRadioButton* option : {o_1_, o_2_}) option->setAutoExclusive(false);
  // The window has no default button: Enter presses nothing.
  for (QPushButton* button : {com_apply_, com_ok_, com_cl_}) {
    button->setAutoDefault(false);
    button->setDefault(false);
  }
  f_1_->lower();
  f_3_->lower();
  list_->setAccessibleName("Select byte");
  txt_1_->setAccessibleName("Number");
  txt_4_->setAccessibleName("Encoded");

  // Focus order by the tab indexes: Txt_1, List, ComOK, ComCl, Txt_4, O_1, O_2, ComApply.
  setTabOrder(txt_1_, list_);
  setTabOrder(list_, com_ok_);
  setTabOrder(com_ok_, com_cl_);
  setTabOrder(com_cl_, txt_4_);
  setTabOrder(txt_4_, o_1_);
  setTabOrder(o_1_, o_2_);
  setTabOrder(o_2_, com_apply_);

  connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
    const int row = Selected_Row(list_);
    if (!form_ || row < 0) return;
    form_->List.ListIndex = row;
    Raise("List", Event::Click);
  });
  number_box->Key_Press = [this](int key) {
    Event_Args args{.Key = key};
    Raise("Txt_1", Event::Key_Press, args);
    return args.Key;
  };
  number_box->Got_Focus = [this] {
    Raise("Txt_1", Event::Got_Focus);
    if (form_ && form_->Txt_1.SelLength > 0) txt_1_->setSelection(form_->Txt_1.SelStart, form_->Txt_1.SelLength);
  };
  connect(txt_1_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!form_) return;
    form_->Txt_1.Text = text.toStdString();
    rendered_.txt_1 = form_->Txt_1.Text;
  });
  for (QRadioButton* option : {o_1_, o_2_}) Make_Option(option);
  Wire_Buttons(this, [this](std::string_view control, int) { Raise(control, Event::Click); });

  // The window was placed by its start-up on an estimate of its size; place it on the real one.
  Place_Window(this, form, screen, owner);
  Render();
}

void Edit_View::Render() {
  if (!form_) return;
  Edit_Form& f = *form_;
  Set_If_Changed(rendered_.caption, f.Caption, [&](const std::string& t) { setWindowTitle(Q(t)); });
  for (auto [widget, model, cache] :
       {std::tuple{f_1_, &f.F_1, &rendered_.f_1}, std::tuple{f_2_, &f.F_2, &rendered_.f_2},
        std::tuple{f_3_, &f.F_3, &rendered_.f_3}})
    Set_If_Changed(*cache, model->Caption, [&](const std::string& t) {
      widget->setTitle(Q(t));
      widget->setAccessibleName(Q(t));
    });
  l_1_.Render(f.L_1);
  l_h_.Render(f.L_H);
  l_2_.Render(f.L_2);
  l_d_.Render(f.L_D);
  list_view_.Render(f.List);
  Set_If_Changed(rendered_.txt_1, f.Txt_1.Text, [&](const std::string& t) {
    const QSignalBlocker block(txt_1_);
    txt_1_->setText(Q(t));
  });
  Set_If_Changed(rendered_.txt_4, f.Txt_4.Text, [&](const std::string& t) { txt_4_->setText(Q(t)); });
  for (auto [widget, model, cache] :
       {std::tuple{o_1_, &f.O_1, &rendered_.o_1}, std::tuple{o_2_, &f.O_2, &rendered_.o_2}}) {
    Set_If_Changed(*cache, model->Caption, [&](const std::string& t) { widget->setText(Q(t)); });
    // A click checks the widget before the logic decides, so the widget is what is compared.
    if (widget->isChecked() != model->Value) {
      const QSignalBlocker block(widget);
      widget->setChecked(model->Value);
    }
  }
  for (auto [widget, model, cache] :
       {std::tuple{com_apply_, &f.ComApply, &rendered_.com_apply}, std::tuple{com_ok_, &f.ComOK, &rendered_.com_ok},
        std::tuple{com_cl_, &f.ComCl, &rendered_.com_cl}}) {
    Set_If_Changed(cache->caption, model->Caption, [&](const std::string& t) { widget->setText(Q(t)); });
    Set_If_Changed(cache->enabled, model->Enabled, [&](bool on) { widget->setEnabled(on); });
  }
  Set_If_Changed(rendered_.focus_serial, f.Focus_Serial, [&](unsigned) {
    if (auto* target = findChild<QWidget*>(Q(f.Focus))) {
      activateWindow();
      target->setFocus();
    }
  });
}

void Edit_View::Detach() {
  form_ = nullptr;
  hide();
  deleteLater();
}

void Edit_View::reject() {
  // Esc presses the cancel button.
  if (form_) com_cl_->click();
}

void Edit_View::closeEvent(QCloseEvent* event) {
  event->accept();
  Raise("Edit", Event::Unload);
}

}  // namespace qtview
