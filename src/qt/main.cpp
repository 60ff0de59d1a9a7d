// Vorlane: an editor for the NPC script files of JA2 and UB.
#include <QApplication>
#include <QIcon>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "form/vorlane.h"
#include "qt/main_view.h"
#include "qt/qt_platform.h"
#include "store/file_commands.h"
#include "ui/events.h"

namespace {

const char* const Usage = "usage: vorlane [--version] [FILE]\n";
const char* const No_Display =
    "vorlane: no display to show the window on (DISPLAY and WAYLAND_DISPLAY are not set, or the window "
    "system does not answer)\n";

bool Set(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

// Whether a window system can be reached, as far as the environment tells before Qt is started:
// with no platform chosen, Qt takes the X server of DISPLAY or the Wayland compositor of
// WAYLAND_DISPLAY, and with neither it has nothing to show a window on. A platform chosen by
// QT_QPA_PLATFORM or -platform (offscreen, for one) is Qt's to judge.
bool Display_Possible(int argc, char* argv[]) {
  if (Set("QT_QPA_PLATFORM") || Set("DISPLAY") || Set("WAYLAND_DISPLAY")) return true;
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "-platform") == 0 || std::strncmp(argv[i], "-platform=", 10) == 0) return true;
  return false;
}

// While Qt starts: its warnings wait, and a fatal message (no window system after all: a DISPLAY
// with no server behind it) ends the program with one line and status 2 instead of an abort.
std::string Start_Warnings;

void Starting_Messages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) {
    std::fputs(No_Display, stderr);
    std::fflush(stderr);
    std::_Exit(2);
  }
  Start_Warnings += message.toStdString() + '\n';
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
    std::fputs(Usage, stdout);
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("vorlane %s\n", VORLANE_VERSION);
    return 0;
  }
  if (!Display_Possible(argc, argv)) {
    std::fputs(No_Display, stderr);
    return 2;
  }
  const QtMessageHandler before = qInstallMessageHandler(Starting_Messages);
  QApplication app(argc, argv);
  qInstallMessageHandler(before);
  if (!Start_Warnings.empty()) std::fputs(Start_Warnings.c_str(), stderr);
  // Qt has taken its own options out of argv; what is left is at most the file to open.
  if (argc > 2) {
    std::fputs(Usage, stderr);
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
