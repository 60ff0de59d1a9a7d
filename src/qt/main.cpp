// Vorlane: an editor for the NPC script files of JA2 and UB.
#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <cstring>

#include "form/vorlane.h"
#include "qt/main_view.h"
#include "qt/qt_platform.h"
#include "store/file_commands.h"
#include "ui/events.h"

int main(int argc, char* argv[]) {
  const char* const usage = "usage: vorlane [FILE]\n";
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
    std::fputs(usage, stdout);
    return 0;
  }
  QApplication app(argc, argv);
  // Qt has taken its own options out of argv; what is left is at most the file to open.
  if (argc > 2) {
    std::fputs(usage, stderr);
    return 2;
  }
  QApplication::setApplicationName("Vorlane");
  // The desktop entry's name: under Wayland the window is matched to it, and so to its icon.
  QApplication::setDesktopFileName("vorlane");
  // The icon is compiled in: the installed theme icon is the same picture, and looking it up in
  // the desktop's icon theme would cost a good part of the start-up.
  QApplication::setWindowIcon(QIcon(":/vorlane.png"));
  qtview::Qt_Platform platform;
  Vorlane model(Routes(), platform);
  qtview::Main_View window(model, platform);
  window.Start();
  window.show();
  if (argc == 2) window.Dispatch([&] { Open_Named(model, argv[1]); });
  return QApplication::exec();
}
