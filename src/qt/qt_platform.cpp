#include "qt/qt_platform.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWidget>

#include "qt/widgets.h"

namespace qtview {

std::vector<Filter_Entry> Filter_Entries(const std::string& filter) {
  const QStringList parts = Q(filter).split('|');
  std::vector<Filter_Entry> entries;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) entries.push_back({parts[i], parts[i + 1]});
  return entries;
}

QStringList Name_Filters(const std::vector<Filter_Entry>& entries) {
  QStringList filters;
  for (const Filter_Entry& entry : entries) filters << entry.Description + " (" + entry.Pattern + ")";
  return filters;
}

int Chosen_Entry(const std::vector<Filter_Entry>& entries, const QString& chosen) {
  const QStringList filters = Name_Filters(entries);
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (filters[static_cast<qsizetype>(i)] == chosen) return static_cast<int>(i) + 1;
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (entries[i].Description == chosen) return static_cast<int>(i) + 1;
  return 0;
}

QWidget* Qt_Platform::Parent() const { return Dialog_Parent ? Dialog_Parent() : QApplication::activeWindow(); }

int Qt_Platform::MsgBox(const std::string& prompt, int style, const std::string& title) {
  if (Before_Modal) Before_Modal();
  QMessageBox box(Parent());
  box.setWindowTitle(Q(title));
  box.setText(Q(prompt).replace("\r\n", "\n"));
  switch (style & 0xF0) {
    case msgbox::Critical:
      box.setIcon(QMessageBox::Critical);
      break;
    case 32:
      box.setIcon(QMessageBox::Question);
      break;
    case msgbox::Warning:
      box.setIcon(QMessageBox::Warning);
      break;
    case msgbox::Information:
      box.setIcon(QMessageBox::Information);
      break;
    default:
      break;
  }
  if ((style & 0x0F) == 3) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Cancel);
  } else {
    box.setStandardButtons(QMessageBox::Ok);
  }
  switch (box.exec()) {
    case QMessageBox::Yes:
      return msgbox::Yes;
    case QMessageBox::No:
      return msgbox::No;
    case QMessageBox::Cancel:
      return msgbox::Cancel;
    default:
      return msgbox::OK;
  }
}

bool Qt_Platform::Show_File_Dialog(Common_Dialog& cd, bool save) {
  if (Before_Modal) Before_Modal();
  QFileDialog dialog(Parent(), Q(cd.DialogTitle));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  constexpr int file_must_exist = 0x1000;
  constexpr int ask_before_overwrite = 0x2;
  dialog.setFileMode(cd.Flags & file_must_exist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !(cd.Flags & ask_before_overwrite));
  const std::vector<Filter_Entry> entries = Filter_Entries(cd.Filter);
  const QStringList filters = Name_Filters(entries);
  dialog.setNameFilters(filters);
  if (cd.FilterIndex >= 1 && cd.FilterIndex <= filters.size()) dialog.selectNameFilter(filters[cd.FilterIndex - 1]);
  if (!cd.FileName.empty()) dialog.selectFile(Q(cd.FileName));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  const QString path = dialog.selectedFiles().first();
  cd.FileName = path.toStdString();
  cd.FileTitle = QFileInfo(path).fileName().toStdString();
  if (const int chosen = Chosen_Entry(entries, dialog.selectedNameFilter())) cd.FilterIndex = chosen;
  return true;
}

bool Qt_Platform::ShowOpen(Common_Dialog& cd) { return Show_File_Dialog(cd, false); }
bool Qt_Platform::ShowSave(Common_Dialog& cd) { return Show_File_Dialog(cd, true); }

void Qt_Platform::Beep() { QApplication::beep(); }

Screen_Size Qt_Platform::Screen() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QRect r = screen->geometry();
  return {Twips(r.width()), Twips(r.height())};
}

void Qt_Platform::Mouse_Pointer(int shape) {
  if (shape == pointer::Hourglass && !hourglass_) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    hourglass_ = true;
  } else if (shape == pointer::Default && hourglass_) {
    QGuiApplication::restoreOverrideCursor();
    hourglass_ = false;
  }
}

void Qt_Platform::End_Program() {
  QApplication::closeAllWindows();
  QCoreApplication::exit(0);
}

}  // namespace qtview
