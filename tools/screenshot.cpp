// Takes pictures of the windows for the README: the main window at start, and, given an NPC
// file (and a speech file), a record being read with a field lit and the speech pane on, and the
// editor on that record with the lit field chosen.
// Usage: vorlane_screenshot OUT_DIR [NPC_FILE [EDT_FILE RECORD CELL]]
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPixmap>

#include <cstdio>

#include <string_view>

#include "fields/field_map.h"
#include "form/recording_platform.h"
#include "qt/main_view.h"
#include "qt/qt_platform.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/file_commands.h"
#include "tool_files.h"
#include "ui/about.h"
#include "ui/byte_grid.h"
#include "ui/edit.h"
#include "ui/navigation.h"
#include "ui/events.h"

namespace {

// Saves the picture of a window, or with `check` compares it with the one saved before, pixel by
// pixel; false for a picture that differs or can't be read.
bool Picture(QWidget* widget, const QString& path, bool check) {
  const QImage shown = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
  if (!check) return shown.save(path);
  const QImage saved = QImage(path).convertToFormat(QImage::Format_RGB32);
  if (saved == shown) return true;
  std::fprintf(stderr, "vorlane_screenshot: %s is not what the window shows now\n", qPrintable(path));
  return false;
}

}  // namespace

int main(int argc, char* argv[]) {
  // The usage is answered before Qt looks for a display, so that it works anywhere.
  const bool check = argc > 1 && std::string_view(argv[1]) == "--check";
  if (check) --argc, ++argv;
  if (argc < 2 || std::string_view(argv[1]) == "--help")
    return Usage(argc > 1 ? argv[1] : "",
                 "usage: vorlane_screenshot [--check] OUT_DIR [NPC_FILE [EDT_FILE RECORD CELL]]\n"
                 "Saves pictures of the windows into OUT_DIR: main.png and about.png; with an NPC file also\n"
                 "record.png and edit.png, the record RECORD read with the field of byte cell CELL lit and,\n"
                 "with a speech file, its line shown. With --check, compares the windows with the pictures\n"
                 "in OUT_DIR instead, pixel by pixel, and exits 1 where one differs.\n");
  QApplication app(argc, argv);
  const QString out = QString::fromLocal8Bit(argv[1]);
  if (!check) QDir().mkpath(out);
  bool same = true;
  const auto Save = [&](QWidget* widget, const QString& path) { same = Picture(widget, path, check) && same; };
  qtview::Qt_Platform system;
  Recording_Platform platform(&system);
  platform.Quiet = true;
  Vorlane model(Routes(), platform);
  qtview::Main_View window(model, system);
  window.Start();
  window.show();
  QApplication::processEvents();
  Save(&window, out + "/main.png");
  if (argc >= 3) {
    platform.Picks.push_back(Dialog_Pick{argv[2]});
    window.Dispatch([&] { nOpen_Click(model); });
    if (argc >= 6) {
      platform.Picks.push_back(Dialog_Pick{argv[3], 1});
      window.Dispatch([&] { Check_Set_Value(model, 1); });
      window.Dispatch([&] { Slider_Set_Value(model, std::atoi(argv[4])); });
      window.Dispatch([&] { L_MouseMove(model, std::atoi(argv[5])); });
    }
    QApplication::processEvents();
    Save(&window, out + "/record.png");
    window.Dispatch([&] { nEdit_Click(model); });
    if (argc >= 6 && model.Edit) {
      const int cell = std::atoi(argv[5]);
      const auto rows = fields::Edit_Rows();
      for (std::size_t i = 0; i < rows.size(); ++i) {
        if (cell < rows[i].First || cell >= rows[i].First + rows[i].Width) continue;
        model.Edit->List.ListIndex = static_cast<int>(i);
        window.Dispatch([&] { Edit_List_Click(*model.Edit); });
        break;
      }
    }
    QApplication::processEvents();
    if (auto* edit = window.Edit_Window()) Save(edit, out + "/edit.png");
    window.Dispatch([&] {
      if (model.Edit) ComCl_Click(*model.Edit);
    });
  }
  window.Dispatch([&] { nAbout_Click(model); });
  QApplication::processEvents();
  if (auto* about = window.About_Window()) Save(about, out + "/about.png");
  return same ? 0 : 1;
}
