// The platform on Qt: message boxes, the toolkit's own file dialogs, the beep, the screen.
#pragma once

#include <QStringList>

#include <functional>

#include "ui/platform.h"

class QWidget;

namespace qtview {

// "desc|pattern|desc|pattern" as the file dialog's name filters, "desc (pattern)" each.
QStringList Name_Filters(const std::string& filter);

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
