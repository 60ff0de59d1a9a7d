#include "support/fixture.h"

#include <algorithm>
#include <filesystem>

#include "store/file_commands.h"
#include "system/failure.h"
#include "ui/shell.h"
#include "ui/events.h"

std::string Cells_Text(const Vorlane& vForm) {
  std::string joined;
  for (int n = 1; n <= 32; ++n) joined += vForm.L(n).Caption;
  return joined;
}

void Set_Cells(Vorlane& vForm, const std::string& hex) {
  for (int n = 1; n <= 32; ++n) vForm.L(n).Caption = hex.substr(2 * static_cast<std::size_t>(n - 1), 2);
}

std::string Dialog_Line(const Shown_Dialog& d) {
  const Common_Dialog& s = d.Settings;
  return std::string(d.Save ? "save|" : "open|") + std::to_string(s.Flags) + '|' + s.FileName + '|' + s.Filter + '|' +
         std::to_string(s.FilterIndex) + '|' + s.DialogTitle;
}

Window_Test::Window_Test(Files& files) : window(Routes(), platform, files) {
  window.Width = 9000;
  window.Height = 7000;
  Form_Load(window);
}

void Window_Test::TearDown() {
  for (const std::string& surprise : platform.Surprises) ADD_FAILURE() << "no answer scripted for " << surprise;
}

void Window_Test::Open(const std::string& path) {
  platform.Picks.push_back(Dialog_Pick{path});
  Event([&] { nOpen_Click(window); });
}
