// The main window on real widgets, offscreen.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>

#include <fstream>

#include "qt/qt_support.h"
#include "store/file_commands.h"
#include "store/image.h"
#include "ui/layout.h"
#include "ui/navigation.h"

using qtview::Px;

class Main_Window_Test : public QObject {
  Q_OBJECT

 private:
  QTemporaryDir folder_;
  std::unique_ptr<Qt_Window> window_;
  Scripted_Platform* platform_ = nullptr;
  Vorlane* model_ = nullptr;
  qtview::Main_View* view_ = nullptr;

  std::string Write_File(const char* name, std::vector<unsigned char> bytes) {
    const std::string path = folder_.filePath(name).toStdString();
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), 1600);
    return path;
  }
  // A standard file whose record k holds the bytes k, k+1, ...
  std::string Open_Standard_File() {
    std::vector<unsigned char> bytes(1600);
    for (int i = 0; i < 1600; ++i) bytes[static_cast<std::size_t>(i)] = static_cast<unsigned char>(i / 32 + 1 + i % 32);
    const std::string path = Write_File("075.npc", bytes);
    platform_->Picks.push_back(Dialog_Pick{path});
    view_->Dispatch([&] { nOpen_Click(*model_); });
    return path;
  }
  QLabel* Cell(int n) { return Named<QLabel>(view_, ("L_" + std::to_string(n)).c_str()); }
  QWidget* W(const char* name) { return Named(view_, name); }

 private slots:
  void init() {
    window_ = std::make_unique<Qt_Window>();
    platform_ = &window_->platform;
    model_ = &window_->model;
    view_ = &window_->view;
    QVERIFY(QTest::qWaitForWindowExposed(view_));
  }
  void cleanup() { window_.reset(); }

  void every_control_stands_at_its_place_under_its_name() {
    for (const Geometry& g : layout::Main_Controls()) {
      QWidget* widget = W(std::string(g.Name).c_str());
      QCOMPARE(widget->geometry(), QRect(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height)));
    }
    for (int n = 1; n <= 32; ++n) {
      const Geometry g = layout::Cell(n);
      QCOMPARE(Cell(n)->geometry(), QRect(Px(g.Left), Px(g.Top), Px(g.Width), Px(g.Height)));
      QCOMPARE(Cell(n)->text(), QString());
    }
    QCOMPARE(view_->windowTitle(), QString("Vorlane"));
    QCOMPARE(Named<QLabel>(view_, "L_NLine")->text(), QString("Record #0"));
    QCOMPARE(Named<QLabel>(view_, "L_NByte")->text(), QString("Byte 0"));
    QCOMPARE(Named<QLabel>(view_, "L_Fix")->text(), QString("Show NPC speech dialogs"));
    QCOMPARE(Named<QLabel>(view_, "L_Fix_1")->text(), QString("№_"));
    QCOMPARE(Named<QLabel>(view_, "L_Message")->text(), QString("0"));
    QCOMPARE(Named<QPushButton>(view_, "Com1")->text(), QString("<<"));
    QVERIFY(!W("Com1")->isEnabled());
    QVERIFY(!W("Check")->isEnabled());
    QVERIFY(W("Txt_Free")->isHidden());
    QVERIFY(Named<QLabel>(view_, "L_Info_User")->font().bold());
    QCOMPARE(Named<QSlider>(view_, "Slider")->maximum(), 50);
    QCOMPARE(view_->centralWidget()->size(), QSize(594, 423));
    QCOMPARE(view_->minimumSize(), view_->maximumSize());
    QVERIFY(W("Slider")->hasFocus());
  }

  void every_menu_item_has_its_caption_shortcut_and_state() {
    for (const Menu_Entry& entry : layout::Main_Menu()) {
      auto* action = Named<QAction>(view_, std::string(entry.Name).c_str());
      const Menu_Item* item = model_->Menu(entry.Name);
      if (entry.Caption != "-") QCOMPARE(action->text(), QString::fromStdString(item->Caption));
      QCOMPARE(action->isEnabled(), item->Enabled);
      QCOMPARE(action->shortcut(), QKeySequence(QString::fromUtf8(entry.Shortcut.data(), entry.Shortcut.size())));
    }
    QCOMPARE(Named<QAction>(view_, "nNext")->text(), QString("Next\t+"));
    QVERIFY(!Named<QAction>(view_, "nSave")->isEnabled());
    Open_Standard_File();
    QVERIFY(Named<QAction>(view_, "nSave")->isEnabled());
    QCOMPARE(Named<QLabel>(view_, "SBar_1")->text(), QString("1600 bytes"));
  }

  void keypad_plus_reaches_the_window_from_any_focus() {
    auto* list = Named<QListWidget>(view_, "List");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(model_->Slider.Value, 1);
    QCOMPARE(Named<QSlider>(view_, "Slider")->value(), 1);
    QTest::keyClick(W("Slider"), Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(model_->Slider.Value, 2);
    QTest::keyClick(list, Qt::Key_Minus, Qt::KeypadModifier);
    QCOMPARE(model_->Slider.Value, 1);
    QTest::keyClick(list, Qt::Key_Plus);  // the main keyboard's + does nothing
    QCOMPARE(model_->Slider.Value, 1);
    QCOMPARE(Named<QLabel>(view_, "L_NLine")->text(), QString("Record #1"));
  }

  void dragging_the_slider_moves_through_the_records() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(12);
    QCOMPARE(model_->Current_Record, 12);
    QCOMPARE(Cell(1)->text(), QString("0C"));
    QCOMPARE(Cell(32)->text(), QString("2B"));
    QVERIFY(Named<QAction>(view_, "nEdit")->isEnabled());
  }

  void hover_lights_the_field_and_other_controls_clear_the_hint() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(3);
    Move_Over(Cell(3));
    QCOMPARE(model_->L(3).BackColor, colour::Active_Title_Bar);
    QCOMPARE(model_->L(4).BackColor, colour::Active_Title_Bar);
    QCOMPARE(Cell(3)->palette().color(QPalette::Window), qtview::Colour(colour::Active_Title_Bar));
    QCOMPARE(Cell(4)->palette().color(QPalette::Window), qtview::Colour(colour::Active_Title_Bar));
    QCOMPARE(Cell(5)->palette().color(QPalette::Window), qtview::Colour(colour::Button_Face));
    QCOMPARE(Named<QLabel>(view_, "L_NByte")->text(), QString("Bytes 03-04"));
    auto* hint = Named<QLabel>(view_, "L_Info_Line");
    QCOMPARE(hint->text(), QString("Click-select / Dbl. Click-edit"));
    QVERIFY(!Named<QLabel>(view_, "L_Info_User")->text().isEmpty());
    Move_Over(W("Help"));
    QCOMPARE(hint->text(), QString());
    Move_Over(Cell(9));
    Move_Over(view_->centralWidget());
    QCOMPARE(hint->text(), QString());
    Move_Over(W("Slider"));
    QCOMPARE(hint->text(), QString("Choose record (50 lines X 32 bytes)"));
  }

  void a_click_pins_the_field_in_pale_yellow() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(3);
    QTest::mouseClick(Cell(2), Qt::LeftButton);
    QCOMPARE(model_->L(1).BackColor, colour::Pale_Yellow);
    QCOMPARE(Cell(1)->palette().color(QPalette::Window), QColor(255, 255, 128));
    QCOMPARE(model_->Selected_Field, std::string("1"));
    QTest::mouseClick(Cell(1), Qt::LeftButton);
    QCOMPARE(model_->Selected_Field, std::string());
    QCOMPARE(model_->L(2).BackColor, colour::Active_Title_Bar);
  }

  void double_click_opens_edit_and_disables_the_main_window() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(12);
    // A real double click: press, release, then press, double click, release.
    QTest::mouseClick(Cell(5), Qt::LeftButton);
    QTest::mouseDClick(Cell(5), Qt::LeftButton);
    QVERIFY(model_->Edit);
    QVERIFY(!view_->isEnabled());
    QDialog* edit = view_->Edit_Window();
    QVERIFY(edit);
    QVERIFY(edit->isVisible());
    QVERIFY(edit->isEnabled());
    QCOMPARE(edit->windowTitle(), QString("EDIT Record #12"));
    QVERIFY(!(edit->windowFlags() & Qt::WindowMinimizeButtonHint));
    QVERIFY(!(edit->windowFlags() & Qt::WindowMaximizeButtonHint));
    // The double click's click ran first: the field is selected.
    QCOMPARE(model_->L(5).BackColor, colour::Pale_Yellow);

    auto* txt_1 = Named<QLineEdit>(edit, "Txt_1");
    QTest::keyClicks(txt_1, "3a0");
    QCOMPARE(txt_1->text(), QString("30"));
    QCOMPARE(model_->Edit->Txt_1.Text, std::string("30"));
    QTest::keyClick(txt_1, Qt::Key_Escape);
    QVERIFY(!model_->Edit);
    QVERIFY(view_->isEnabled());
    QCOMPARE(model_->HexImage, model_->Saved_Image);
  }

  void an_edit_reaches_the_cells_through_the_real_widgets() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(12);
    Named<QAction>(view_, "nEdit")->trigger();
    QDialog* edit = view_->Edit_Window();
    QVERIFY(edit);
    auto* list = Named<QListWidget>(edit, "List");
    QCOMPARE(list->count(), 24);
    list->setCurrentRow(1);  // Bytes 03-04
    QCOMPARE(Named<QLabel>(edit, "L_H")->text(), QString("0E 0F"));
    QCOMPARE(Named<QLabel>(edit, "L_D")->text(), QString("3854"));
    auto* txt_1 = Named<QLineEdit>(edit, "Txt_1");
    txt_1->clear();
    QTest::keyClicks(txt_1, "300");
    QTest::mouseClick(Named<QRadioButton>(edit, "O_2"), Qt::LeftButton);
    QCOMPARE(Named<QLineEdit>(edit, "Txt_4")->text(), QString("2C 01"));
    QVERIFY(!Named<QRadioButton>(edit, "O_2")->isChecked());
    QTest::mouseClick(Named<QPushButton>(edit, "ComApply"), Qt::LeftButton);
    QTest::mouseClick(Named<QPushButton>(edit, "ComOK"), Qt::LeftButton);
    QVERIFY(!model_->Edit);
    QCOMPARE(Cell(3)->text(), QString("2C"));
    QCOMPARE(Cell(4)->text(), QString("01"));
    QVERIFY(model_->HexImage != model_->Saved_Image);
  }

  void esc_asks_about_unsaved_changes_and_cancel_keeps_the_window() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(3);
    model_->L(1).Caption = "EE";
    view_->Dispatch([&] { Read_From_File(*model_); });
    platform_->Answers.push_back(msgbox::Cancel);
    QTest::keyClick(W("List"), Qt::Key_Escape);
    QCOMPARE(platform_->Messages.size(), std::size_t(1));
    QVERIFY(platform_->Messages[0].Prompt.starts_with("Сохранить "));
    QVERIFY(!model_->Unloaded);
    QVERIFY(view_->isVisible());
    // The title bar's close button takes the same road.
    platform_->Answers.push_back(msgbox::Cancel);
    QVERIFY(!view_->close());
    QVERIFY(view_->isVisible());
    QCOMPARE(platform_->Messages.size(), std::size_t(2));
    platform_->Answers.push_back(msgbox::No);
    QVERIFY(view_->close());
    QVERIFY(model_->Unloaded);
  }

  void esc_with_nothing_changed_closes() {
    QTest::keyClick(W("Slider"), Qt::Key_Escape);
    QVERIFY(model_->Unloaded);
    QVERIFY(!view_->isVisible());
    QVERIFY(platform_->Messages.empty());
  }

  void the_list_shows_its_selected_line_as_tool_tip() {
    Named<QAction>(view_, "nNPC_Names")->trigger();
    auto* list = Named<QListWidget>(view_, "List");
    QCOMPARE(list->count(), 170);
    QCOMPARE(list->item(0)->text(), QString("№_0 (00)   Барри"));
    list->setCurrentRow(2);
    Move_Over(list->viewport());
    QCOMPARE(list->toolTip(), list->item(2)->text());
    Named<QAction>(view_, "nKey_1")->trigger();
    QCOMPARE(list->count(), 10);
    Move_Over(list->viewport());
    QCOMPARE(list->toolTip(), QString());
  }

  void the_about_window_is_an_elliptic_topmost_picture() {
    Named<QAction>(view_, "nAbout")->trigger();
    QWidget* about = view_->About_Window();
    QVERIFY(about);
    QVERIFY(!view_->isEnabled());
    QVERIFY(about->windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(about->windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(about->size(), QSize(417, 357));
    const QRegion mask = about->mask();
    QVERIFY(mask.contains(QPoint(195, 182)));
    QVERIFY(!mask.contains(QPoint(31, 21)));
    QVERIFY(!mask.contains(QPoint(400, 340)));
    auto* image = Named<QLabel>(about, "Img1");
    QCOMPARE(image->pixmap().size(), QSize(341, 343));
    QTest::keyClick(about, Qt::Key_F5);
    QVERIFY(model_->About);
    QTest::keyClick(about, Qt::Key_Shift);
    QVERIFY(model_->About);
    QTest::keyClick(about, Qt::Key_A);
    QVERIFY(!model_->About);
    QVERIFY(view_->isEnabled());
    Named<QAction>(view_, "nAbout")->trigger();
    QTest::mouseClick(Named<QLabel>(view_->About_Window(), "Img1"), Qt::LeftButton);
    QVERIFY(!model_->About);
  }

  void texts_on_show_are_exposed_to_screen_readers() {
    Open_Standard_File();
    Named<QSlider>(view_, "Slider")->setValue(3);
    Move_Over(Cell(3));
    for (const char* name : {"L_Info_User", "L_NByte", "SBar_2", "L_3"})
      QCOMPARE(W(name)->accessibleName(), Named<QLabel>(view_, name)->text());
  }
};

QTEST_MAIN(Main_Window_Test)
#include "main_window_test.moc"
