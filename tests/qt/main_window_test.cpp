// The windows on real widgets, offscreen: what the user sees, clicks, drags and types.
#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

#include "form/control_table.h"
#include "qt/qt_support.h"
#include "qt/widgets.h"
#include "store/file_commands.h"
#include "store/image.h"

using qtview::Px;

class Main_Window_Test : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<Qt_Window> window_;
  Recording_Platform* platform_ = nullptr;
  Vorlane* model_ = nullptr;
  qtview::Main_View* view_ = nullptr;

  // Opens a standard file and shows this record.
  void Open_At(int record) {
    window_->Open("075.npc", Standard_File());
    Named<QSlider>(view_, "Slider")->setValue(record);
  }
  QLabel* L(const char* name) { return Named<QLabel>(view_, name); }
  QLabel* Cell(int n) { return L(("L_" + std::to_string(n)).c_str()); }
  static QRect Place(const Control& c) {
    return {Px(c.Place.Left), Px(c.Place.Top), Px(c.Place.Width), Px(c.Place.Height)};
  }
  // Every control of a window that is a widget of its own stands at its place.
  static void Expect_Placed(QWidget* window, std::string_view name) {
    for (const Control& c : controls::Of(name))
      if (c.Kind != Control_Kind::Window && c.Kind != Control_Kind::Line && c.Kind != Control_Kind::Menu_Item)
        QCOMPARE(Named(window, std::string(c.Name).c_str())->geometry(), Place(c));
  }

 private slots:
  void init() {
    window_ = std::make_unique<Qt_Window>();
    platform_ = &window_->platform;
    model_ = &window_->model;
    view_ = &window_->view;
    QVERIFY(QTest::qWaitForWindowExposed(view_));
  }
  void cleanup() { window_.reset(); }

  void every_control_stands_at_its_place_with_its_menus() {
    Expect_Placed(view_, window::Main);
    QCOMPARE(view_->centralWidget()->size(), QSize(594, 423));
    QCOMPARE(view_->minimumSize(), view_->maximumSize());
    QVERIFY(L("L_Info_User")->font().bold());
    QVERIFY(Named(view_, "Txt_Free")->isHidden());
    QVERIFY(Named(view_, "Slider")->hasFocus());
    Open_At(0);
    for (const Control& entry : controls::Of(window::Main)) {
      if (entry.Kind != Control_Kind::Menu_Item) continue;
      auto* action = Named<QAction>(view_, std::string(entry.Name).c_str());
      const Menu_Item* item = model_->Menu(entry.Name);
      if (entry.Caption != "-") QCOMPARE(action->text().toStdString(), item->Caption);
      QCOMPARE(action->isEnabled(), item->Enabled);
      QCOMPARE(action->shortcut(), QKeySequence(QString::fromUtf8(entry.Shortcut.data(), entry.Shortcut.size())));
    }
    QCOMPARE(L("SBar_1")->text(), QString("1600 bytes"));
  }

  // Tab moves the focus through the controls that take it, in the order of their tab indexes.
  void tab_goes_round_the_controls_in_their_order() {
    const auto round = [](QWidget* at, int steps) {
      QStringList names{at->objectName()};
      for (int i = 0; i < steps; ++i) {
        Type(at, Qt::Key_Tab);
        at = at->window()->focusWidget();
        names << at->objectName();
      }
      return names.join(' ');
    };
    QCOMPARE(round(Named(view_, "Slider"), 3), QString("Slider List ComExit Slider"));  // the rest are off
    Open_At(3);
    model_->Com1.Enabled = model_->Com2.Enabled = true;
    view_->Dispatch([] {});
    QCOMPARE(round(Named(view_, "Slider"), 6), QString("Slider List Check Com1 Com2 ComExit Slider"));
    view_->Raise(window::Main, "nEdit", Event::Click);
    QCOMPARE(round(Named(view_->Edit_Window(), "Txt_1"), 8),
             QString("Txt_1 List ComOK ComCl Txt_4 O_1 O_2 ComApply Txt_1"));
  }

  // The keypad's + and - reach the window whatever has the focus; the main keyboard's don't.
  // The slider's own keys and a drag with the mouse move through the records too.
  void keys_and_the_mouse_move_through_the_records() {
    Open_At(0);
    auto* slider = Named<QSlider>(view_, "Slider");
    Type(Named(view_, "List"), Qt::Key_Plus, Qt::KeypadModifier);
    Type(slider, Qt::Key_Plus, Qt::KeypadModifier);
    Type(Named(view_, "List"), Qt::Key_Minus, Qt::KeypadModifier);
    Type(Named(view_, "List"), Qt::Key_Plus);
    QCOMPARE(model_->Slider.Value, 1);
    Type(slider, Qt::Key_End);
    QCOMPARE(L("L_NLine")->text(), QString("Record #50"));
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = Qt::Horizontal, option.maximum = 50, option.sliderPosition = option.sliderValue = 50;
    const QPoint handle =
        slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider).center();
    const QPoint quarter(slider->width() / 4, handle.y());
    QTest::mousePress(slider, Qt::LeftButton, {}, handle);
    QMouseEvent drag(QEvent::MouseMove, quarter, slider->mapToGlobal(quarter), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(slider, &drag);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, quarter);
    QVERIFY(model_->Slider.Value > 5 && model_->Slider.Value < 20);
    QCOMPARE(Cell(1)->text().toInt(nullptr, 16), model_->Slider.Value);  // record k begins with k
  }

  void hover_lights_the_field_a_click_pins_it_and_other_controls_clear_the_hint() {
    Open_At(3);
    Move_Over(Cell(3));
    QCOMPARE(Cell(4)->palette().color(QPalette::Window), qtview::Colour(colour::Active_Title_Bar));
    QCOMPARE(Cell(5)->palette().color(QPalette::Window), qtview::Colour(colour::Button_Face));
    QCOMPARE(L("L_NByte")->text(), QString("Bytes 03-04"));
    QCOMPARE(L("L_Info_Line")->text(), QString("Click-select / Dbl. Click-edit"));
    Move_Over(Named(view_, "Help"));
    QCOMPARE(L("L_Info_Line")->text(), QString());
    Move_Over(Named(view_, "Slider"));
    QCOMPARE(L("L_Info_Line")->text(), QString("Choose record (50 lines X 32 bytes)"));
    QTest::mouseClick(Cell(2), Qt::LeftButton);
    QCOMPARE(Cell(1)->palette().color(QPalette::Window), QColor(255, 255, 128));
    QTest::mouseClick(Cell(1), Qt::LeftButton);
    QCOMPARE(model_->Selected_Field, std::string());
  }

  // A real double click opens the editor over a disabled main window; the editor's own widgets
  // carry a value into the cells.
  void an_edit_through_the_real_widgets() {
    Open_At(12);
    QTest::mouseClick(Cell(5), Qt::LeftButton);
    QTest::mouseDClick(Cell(5), Qt::LeftButton);
    QWidget* edit = view_->Edit_Window();
    QVERIFY(edit && edit->isVisible() && !view_->isEnabled());
    QCOMPARE(edit->windowTitle(), QString("EDIT Record #12"));
    QVERIFY(!(edit->windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint)));
    Expect_Placed(edit, window::Edit);
    QCOMPARE(model_->L(5).BackColor, colour::Pale_Yellow);  // the double click's click ran first
    Named<QListWidget>(edit, "List")->setCurrentRow(1);     // Bytes 03-04
    QCOMPARE(Named<QLabel>(edit, "L_D")->text(), QString("3854"));
    auto* txt_1 = Named<QLineEdit>(edit, "Txt_1");
    Type(txt_1, "3a0x0");
    QCOMPARE(txt_1->text(), QString("300"));
    QTest::mouseClick(Named<QRadioButton>(edit, "O_2"), Qt::LeftButton);
    QCOMPARE(Named<QLineEdit>(edit, "Txt_4")->text(), QString("2C 01"));
    QVERIFY(!Named<QRadioButton>(edit, "O_2")->isChecked());
    QTest::mouseClick(Named<QPushButton>(edit, "ComApply"), Qt::LeftButton);
    QTest::mouseClick(Named<QPushButton>(edit, "ComOK"), Qt::LeftButton);
    QVERIFY(!model_->Edit && view_->isEnabled());
    QCOMPARE(Cell(3)->text() + Cell(4)->text(), QString("2C01"));
    // Esc in the editor is Cancel; its title bar's close gives the main window back too.
    view_->Raise(window::Main, "nEdit", Event::Click);
    Type(Named(view_->Edit_Window(), "Txt_1"), Qt::Key_Escape);
    QVERIFY(!model_->Edit);
    view_->Raise(window::Main, "nEdit", Event::Click);
    view_->Edit_Window()->close();
    QVERIFY(!model_->Edit && view_->isEnabled());
  }

  // Esc and the title bar's close take the road out, which asks about unsaved changes.
  void esc_and_close_ask_about_unsaved_changes() {
    Open_At(3);
    model_->L(1).Caption = "EE";
    view_->Dispatch([&] { Read_From_File(*model_); });
    platform_->Answers = {msgbox::Cancel, msgbox::Cancel, msgbox::No};
    Type(Named(view_, "List"), Qt::Key_Escape);
    QVERIFY(!view_->close());
    QVERIFY(view_->isVisible() && !model_->Unloaded);
    QVERIFY(view_->close());
    QCOMPARE(platform_->Messages.size(), std::size_t(3));
    QVERIFY(platform_->Messages[0].Prompt.starts_with("Сохранить "));
  }

  void a_file_named_at_start_opens_as_file_open_does() {
    window_->folder.Write("short.npc", Bytes(1599));
    const std::string full = window_->folder.Write("075.npc", Standard_File());
    QVERIFY(QDir::setCurrent(QString::fromStdString(window_->folder.Path(""))));
    view_->Dispatch([&] { Open_Named(*model_, "short.npc"); });
    QCOMPARE(platform_->Messages, (std::vector<Shown_Message>{{"Неверный размер файла", msgbox::Warning, "ERROR"}}));
    QVERIFY(!Named(view_, "Check")->isEnabled());
    view_->Dispatch([&] { Open_Named(*model_, "075.npc"); });
    QCOMPARE(model_->SBar_2.SimpleText, full);
    QVERIFY(Named(view_, "Check")->isEnabled());
    QDir::setCurrent(QDir::tempPath());  // the folder goes with the test
  }

  void the_about_window_is_an_elliptic_topmost_picture() {
    Named<QAction>(view_, "nAbout")->trigger();
    QWidget* about = view_->About_Window();
    QVERIFY(about && !view_->isEnabled());
    QVERIFY(about->windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(about->windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(about->size(), QSize(417, 357));
    Expect_Placed(about, window::About);
    const QRegion mask = about->mask();
    QVERIFY(mask.contains(QPoint(195, 182)) && !mask.contains(QPoint(31, 21)) && !mask.contains(QPoint(400, 340)));
    Type(about, Qt::Key_F5);
    Type(about, Qt::Key_Shift);
    Type(about, Qt::Key_Delete);
    QVERIFY(model_->About);
    Type(about, Qt::Key_A);
    QVERIFY(!model_->About && view_->isEnabled());
    Named<QAction>(view_, "nAbout")->trigger();
    QTest::mouseClick(Named<QLabel>(view_->About_Window(), "Img1"), Qt::LeftButton);
    QVERIFY(!model_->About);
  }
};

QTEST_MAIN(Main_Window_Test)
#include "main_window_test.moc"
