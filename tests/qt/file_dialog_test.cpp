// The file dialogs on the toolkit's real QFileDialog, worked as a user works them: pick an entry
// in the list of types, type a name, press Enter. What reaches the logic is what the user chose.
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>

#include "qt/qt_support.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/file_commands.h"
#include "store/type_report.h"

namespace fs = std::filesystem;

namespace {

// The user: answers the modal windows as they come up, one step each, in order.
class User : public QObject {
 public:
  User() {
    connect(&timer_, &QTimer::timeout, this, [this] { Look(); }), timer_.start(5);
  }

  template <class W>
  void Then(std::function<void(W*)> step) {
    steps_.push_back({&W::staticMetaObject, [step](QWidget* w) { step(static_cast<W*>(w)); }});
  }
  bool Done() const { return steps_.empty(); }

 private:
  void Look() {
    QWidget* up = QApplication::activeModalWidget();
    if (!up || steps_.empty() || !up->metaObject()->inherits(steps_.front().type)) return;
    for (const QPointer<QWidget>& seen : seen_)
      if (seen == up) return;
    seen_.push_back(up);
    // Run outside the timer's own event: a step may open a window of its own, and a timer
    // doesn't fire again while it is still in its event.
    QTimer::singleShot(0, up, [step = std::move(steps_.front().act), up] { step(up); });
    steps_.pop_front();
  }

  struct Step {
    const QMetaObject* type;
    std::function<void(QWidget*)> act;
  };
  QTimer timer_;
  std::deque<Step> steps_;
  std::vector<QPointer<QWidget>> seen_;
};

// Picks entry `row` (from 0) in the dialog's list of types with the keyboard.
void Pick_Type(QFileDialog* dialog, int row) {
  auto* types = dialog->findChild<QComboBox*>("fileTypeCombo");
  types->setFocus();
  QTest::keyClick(types, Qt::Key_Home);
  for (int i = 0; i < row; ++i) QTest::keyClick(types, Qt::Key_Down);
}

// Goes to the folder of the path, types its name and accepts it.
void Type_Name(QFileDialog* dialog, const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  dialog->setDirectory(file.absolutePath());
  auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
  edit->setFocus();
  edit->selectAll();
  QTest::keyClicks(edit, file.fileName());
  // What Enter and the accept button do; the button itself waits for the folder's listing,
  // which the dialog reads in a thread of its own.
  QMetaObject::invokeMethod(dialog, "accept");
}

// At the next file dialog: this entry of the list, this name, accept.
void Answer(User& user, int row, const std::string& name, std::function<void(QFileDialog*)> look = {}) {
  user.Then<QFileDialog>([=](QFileDialog* dialog) {
    if (look) look(dialog);
    Pick_Type(dialog, row);
    Type_Name(dialog, name);
  });
}

void Press_Yes(User& user) {
  user.Then<QMessageBox>([](QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
}

}  // namespace

class File_Dialog_Test : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<Qt_Window> window_;
  Recording_Platform* platform_ = nullptr;
  Vorlane* model_ = nullptr;

  std::string Path(const std::string& name) { return window_->folder.Path(name); }
  std::string Write(const std::string& name, const Bytes& bytes) { return window_->folder.Write(name, bytes); }
  void Run(const char* menu_item) { window_->view.Raise(window::Main, menu_item, Event::Click); }

 private slots:
  void init() {
    window_ = std::make_unique<Qt_Window>();
    platform_ = &window_->platform;
    platform_->Real_Dialogs = true;
    model_ = &window_->model;
  }
  void cleanup() { window_.reset(); }

  // Open: the entry and the name chosen come back; a name that doesn't exist is not taken.
  void open_hands_back_the_chosen_entry_and_name() {
    const std::string path = Write("078.npc", Bytes(1600, 0));
    for (int row : {0, 1}) {
      User user;
      user.Then<QFileDialog>([=, this](QFileDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("VORLANE - OPEN FILE..."));
        Pick_Type(dialog, row);
        Type_Name(dialog, Path("no such.npc"));  // says so, and stays up
        QVERIFY(dialog->isVisible());
        Type_Name(dialog, path);
      });
      bool said = false;
      user.Then<QMessageBox>([&](QMessageBox* box) {
        said = box->text().contains("no such.npc");
        box->button(QMessageBox::Ok)->click();
      });
      Run("nOpen");
      QVERIFY(user.Done() && said);
      QCOMPARE(platform_->Dialogs.back().Result.FilterIndex, row + 1);
      QCOMPARE(model_->SBar_2.SimpleText, path);
      QCOMPARE(model_->SBar_3.SimpleText, std::string("078.NPC - Кармэн"));
    }
  }

  // Save as: a name without extension is used as typed; an existing name is asked about first.
  void save_as_takes_the_name_as_typed_and_asks_before_overwriting() {
    Run("nNew");
    for (int row : {0, 1}) {
      const std::string name = "plain" + std::to_string(row);
      User user;
      Answer(user, row, Path(name));
      Run("nSaveas");
      QVERIFY(user.Done());
      QCOMPARE(platform_->Dialogs.back().Result.FilterIndex, row + 1);
      QCOMPARE(platform_->Dialogs.back().Result.FileTitle, name);
      QCOMPARE(Read_File(Path(name)), Bytes(1600, 0));
    }
    fs::resize_file(Path("plain0"), 10);
    User user;
    Answer(user, 0, Path("plain0"));
    Press_Yes(user);
    Run("nSaveas");
    QVERIFY(user.Done());
    QCOMPARE(Read_File(Path("plain0")).size(), std::size_t(1600));
  }

  // Change: picking the type the file already has leaves it alone; the other type converts it.
  void conversion_acts_on_the_type_chosen() {
    const Bytes standard = Standard_File();
    const struct {
      Bytes file;
      int row;
      bool converted;
    } cases[] = {{standard, 1, false}, {standard, 0, true}, {Buka_File(), 0, false}, {Buka_File(), 1, true}};
    for (const auto& c : cases) {
      const std::string path = Write("075.npc", c.file);
      fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
      const auto time = fs::last_write_time(path);
      User user;
      Answer(user, 0, path);
      Answer(user, c.row, path);
      Press_Yes(user);  // the proposed name is the file itself
      Run("nChaing");
      QVERIFY(user.Done());
      QCOMPARE(platform_->Dialogs.back().Result.FilterIndex, c.row + 1);
      QCOMPARE(Read_File(path) != c.file, c.converted);
      QCOMPARE(fs::last_write_time(path) != time, c.converted);
    }
  }

  // The speech file: the entry chosen is the kind of file, so the size of a message and the end
  // of a comment. The dialog proposes the NPC file's name with .edt.
  void speech_dialog_entry_is_the_kind_of_file() {
    {
      User user;
      Answer(user, 0, Write("078.npc", Bytes(1600, 0)));
      Run("nOpen");
    }
    const std::string short_file = Write("short.edt", Bytes(300, 0x42));
    // "A", then 00 00 05: the end of the text in a comment, nothing in the other kinds.
    Bytes message{0x42, 0, 0, 5, 0x43};
    message.resize(480);
    const std::string speech = Write("speech.edt", message);
    const std::string both = std::string("A\x04") + "B";
    for (const auto& c :
         {std::tuple{0, 1, "480", both}, {1, 3, "320", both}, {2, 3, "320", both}, {3, 4, "480", "A"}}) {
      const auto& [row, kind, size, text] = c;
      for (const std::string& edt : {short_file, speech}) {
        platform_->Messages.clear();
        User user;
        Answer(user, row, edt, [](QFileDialog* dialog) {
          QCOMPARE(dialog->findChild<QLineEdit*>("fileNameEdit")->text(), QString("078.edt"));
        });
        window_->view.Dispatch([&] { Check_Set_Value(*model_, 1); });
        QVERIFY(user.Done());
        QCOMPARE(platform_->Dialogs.back().Result.FilterIndex, row + 1);
        QCOMPARE(model_->Edt_Kind, kind);
        if (edt == short_file)
          QCOMPARE(platform_->Prompts(), std::vector<std::string>{"File " + edt + " < " + size +
                                                                  "bytes\r\nOne message have size " + size + " bytes"});
        else
          QCOMPARE(model_->L_Edt.Caption, text);
        window_->view.Dispatch([&] { Check_Set_Value(*model_, 0); });
      }
    }
  }

  // A message box hands back the button pressed; Cancel in a file dialog is a dialog that fails.
  void message_boxes_and_cancel_reach_the_logic() {
    for (const auto& [style, pressed, answer] : {std::tuple{35, QMessageBox::Yes, msgbox::Yes},
                                                 {35, QMessageBox::No, msgbox::No},
                                                 {35, QMessageBox::Cancel, msgbox::Cancel},
                                                 {48, QMessageBox::Ok, msgbox::OK}}) {
      User user;
      user.Then<QMessageBox>([&](QMessageBox* box) {
        QCOMPARE(box->windowTitle() + "|" + box->text(), QString("VORLANE|Сохранить\nx?"));
        box->button(pressed)->click();
      });
      QCOMPARE(window_->system.MsgBox("Сохранить\r\nx?", style, "VORLANE"), answer);
      QVERIFY(user.Done());
    }
    User user;
    user.Then<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    Run("nOpen");
    QVERIFY(user.Done() && model_->SBar_1.SimpleText.empty());
  }
};

QTEST_MAIN(File_Dialog_Test)
#include "file_dialog_test.moc"
