// Vorlane: an editor for the NPC script files of JA2 and UB.
#include <QApplication>
#include <QIcon>

#include "ui/qt/main_view.h"
#include "ui/qt/qt_platform.h"
#include "ui/vorlane.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Vorlane");
  QApplication::setWindowIcon(QIcon::fromTheme("vorlane"));
  qtview::Qt_Platform platform;
  Vorlane model(platform);
  qtview::Main_View window(model, platform);
  window.Start();
  window.show();
  return QApplication::exec();
}
