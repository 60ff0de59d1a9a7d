// The platform on Qt: message boxes, the toolkit's own file dialogs, the beep, the screen.
#pragma once

#include <QStringList>

#include <functional>
#include <string>
#include <vector>

#include "form/platform.h"

class QWidget;

namespace qtview {

// One entry of a file dialog's list of types.
struct Filter_Entry {
  QString Description;
  QString Pattern;
};
// The entries of a Filter, "description|pattern|description|pattern".
std::vector<Filter_Entry> Filter_Entries(const std::string& filter);
// The entries as the toolkit's name filters, "description (pattern)" each.
QStringList Name_Filters(const std::vector<Filter_Entry>& entries);
// The 1-based index of the entry that the dialog reports as chosen, 0 for none. The toolkit
// reports an entry whole or, when it hides the patterns, by its description alone; patterns
// repeat from entry to entry ("*.edt" three times), descriptions don't.
int Chosen_Entry(const std::vector<Filter_Entry>& entries, const QString& chosen);

class Qt_Platform : public Platform {
 public:
  // Runs before every dialog, so that the window shows the state the question is about.
  std::function<void()> Before_Modal;
  // The window that dialogs belong to.
  std::function<QWidget*()> Dialog_Parent;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override;
  bool ShowOpen(Common_Dialog& cd) override;
  bool ShowSave(Common_Dialog& cd) override;
  void Beep() override;
  Screen_Size Screen() override;
  void Mouse_Pointer(int shape) override;
  void End_Program() override;

 private:
  bool Show_File_Dialog(Common_Dialog& cd, bool save);
  QWidget* Parent() const;
  bool hourglass_ = false;
};

}  // namespace qtview
