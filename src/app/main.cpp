// Vorlane: an editor for the NPC script files of JA2 and UB.
#include <QApplication>
#include <QIcon>

#include "ui/qt/main_view.h"
#include "ui/qt/qt_platform.h"
#include "ui/vorlane.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Vorlane");
  // The desktop entry's name: under Wayland the window is matched to it, and so to its icon.
  QApplication::setDesktopFileName("vorlane");
  // The icon is compiled in: the installed theme icon is the same picture, and looking it up in
  // the desktop's icon theme would cost a good part of the start-up.
  QApplication::setWindowIcon(QIcon(":/vorlane.png"));
  qtview::Qt_Platform platform;
  Vorlane model(platform);
  qtview::Main_View window(model, platform);
  window.Start();
  window.show();
  return QApplication::exec();
}
