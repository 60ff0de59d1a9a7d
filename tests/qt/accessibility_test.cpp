// The three windows as assistive technology sees them: every control that takes input has a role
// and an action that does what the mouse does, every text on show is exposed, and a tool tip is
// the control's description.
#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleEditableTextInterface>
#include <QAccessibleInterface>
#include <QAccessibleTableInterface>
#include <QAccessibleValueInterface>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "qt/qt_support.h"

namespace {

QAccessibleInterface* A11y(QWidget* widget) { return QAccessible::queryAccessibleInterface(widget); }

void Act(QWidget* widget, const QString& action) { A11y(widget)->actionInterface()->doAction(action); }

const QString Press = QAccessibleActionInterface::pressAction();
const QString Toggle = QAccessibleActionInterface::toggleAction();

// Every label, button, frame and text box on show in the window is read out as it stands.
void Expect_Texts_Exposed(QWidget* window) {
  for (QWidget* w : window->findChildren<QWidget*>()) {
    if (!w->isVisible()) continue;
    QString shown;
    if (auto* label = qobject_cast<QLabel*>(w); label && label->pixmap().isNull()) shown = label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(w)) shown = button->text().remove('&');
    if (auto* frame = qobject_cast<QGroupBox*>(w)) shown = frame->title();
    if (auto* box = qobject_cast<QLineEdit*>(w)) shown = box->text();
    if (shown.isEmpty()) continue;
    const QAccessible::Text kind = qobject_cast<QLineEdit*>(w) ? QAccessible::Value : QAccessible::Name;
    QVERIFY2(A11y(w)->text(kind) == shown,
             qPrintable(w->objectName() + ": " + shown + " read as " + A11y(w)->text(kind)));
  }
}

}  // namespace

class Accessibility_Test : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<Qt_Window> window_;
  Vorlane* model_ = nullptr;
  QWidget* W(const char* name) { return Named(&window_->view, name); }

 private slots:
  void init() {
    window_ = std::make_unique<Qt_Window>();
    model_ = &window_->model;
    window_->Open("075.npc", Bytes(1600, 1));
  }
  void cleanup() { window_.reset(); }

  void the_main_window_is_worked_through_its_accessible_side() {
    QCOMPARE(A11y(W("Slider"))->role(), QAccessible::Slider);
    A11y(W("Slider"))->valueInterface()->setCurrentValue(5);
    QCOMPARE(model_->L_NLine.Caption, std::string("Record #5"));

    QCOMPARE(A11y(W("L_3"))->role(), QAccessible::Cell);
    Act(W("L_3"), Press);
    QCOMPARE(model_->L(4).BackColor, colour::Pale_Yellow);
    QCOMPARE(A11y(W("L_Info_User"))->text(QAccessible::Name), W("L_Info_User")->property("text").toString());
    Move_Over(W("L_Info_User"));
    QCOMPARE(A11y(W("L_Info_User"))->text(QAccessible::Description),
             QString::fromStdString(model_->L_Info_User.Caption));

    QCOMPARE(A11y(W("List"))->role(), QAccessible::List);
    window_->view.Raise(window::Main, "nNPC_Names", Event::Click);
    A11y(W("List"))->tableInterface()->selectRow(2);
    QCOMPARE(model_->List.ListIndex, 2);
    Move_Over(W("List"));
    QCOMPARE(A11y(W("List"))->text(QAccessible::Description), QString("№_2 (02)   Рысь"));

    window_->platform.Picks.push_back(std::nullopt);
    QCOMPARE(A11y(W("Check"))->role(), QAccessible::CheckBox);
    Act(W("Check"), Toggle);
    QCOMPARE(window_->platform.Dialogs.back().Settings.DialogTitle, std::string("VORLANE - OPEN \"EDT\" FILE..."));
    QCOMPARE(model_->Check.Value, 0);  // cancelled: off again

    QCOMPARE(A11y(W("ComExit"))->role(), QAccessible::Button);
    Act(W("ComExit"), Press);
    QTRY_VERIFY(model_->Unloaded);
  }

  void the_byte_cells_open_the_editor_and_its_controls_work() {
    window_->view.Raise(window::Main, "nNext", Event::Click);
    Act(W("L_9"), "Edit");
    QWidget* edit = window_->view.Edit_Window();
    QVERIFY(edit);
    Expect_Texts_Exposed(edit);
    auto* list = Named(edit, "List");
    A11y(list)->tableInterface()->selectRow(1);  // Bytes 03-04
    QCOMPARE(model_->Edit->L_H.Caption, std::string("01 01"));
    QCOMPARE(A11y(Named(edit, "Txt_1"))->role(), QAccessible::EditableText);
    A11y(Named(edit, "Txt_1"))->editableTextInterface()->insertText(0, "300");
    QCOMPARE(model_->Edit->Txt_1.Text, std::string("300"));
    for (const char* option : {"O_1", "O_2"}) {
      QCOMPARE(A11y(Named(edit, option))->role(), QAccessible::RadioButton);
      QVERIFY(A11y(Named(edit, option))->actionInterface()->actionNames().contains(Press));
    }
    Act(Named(edit, "O_1"), Press);
    QCOMPARE(window_->platform.Beeps, 1);  // 300 is no byte
    Act(Named(edit, "O_2"), Toggle);
    QCOMPARE(model_->Edit->Txt_4.Text, std::string("2C 01"));
    QVERIFY(!model_->Edit->O_2.Value && !qobject_cast<QAbstractButton*>(Named(edit, "O_2"))->isChecked());
    Act(Named(edit, "ComApply"), Press);
    QTRY_COMPARE(model_->Edit->New_Byte(3), std::string("2C"));
    Act(Named(edit, "ComOK"), Press);
    QTRY_VERIFY(!model_->Edit);
    QCOMPARE(model_->L(4).Caption, std::string("01"));
  }

  void the_main_window_and_about_expose_their_texts() {
    window_->view.Raise(window::Main, "nNext", Event::Click);
    Move_Over(Named(&window_->view, "L_14"));
    Expect_Texts_Exposed(&window_->view);
    window_->view.Raise(window::Main, "nAbout", Event::Click);
    QWidget* image = Named(window_->view.About_Window(), "Img1");
    QCOMPARE(A11y(image)->role(), QAccessible::Graphic);
    QCOMPARE(A11y(image)->text(QAccessible::Name), QString("Vorlane"));
    Act(image, Press);
    QVERIFY(!model_->About);
  }
};

QTEST_MAIN(Accessibility_Test)
#include "accessibility_test.moc"
