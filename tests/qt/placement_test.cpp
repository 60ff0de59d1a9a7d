// Under a window manager, the three windows stand where the logic places them by their real
// outer size, frame and menu bar included: centred across the screen, a third of the free
// height above them. Run on a real X server with a window manager (with_window_manager.sh).
#include <QScreen>
#include <QWindow>

#include "qt/qt_support.h"

namespace {

// The frame is drawn (the About window has none), and the window stands at its place within a
// pixel.
void Expect_Placed(QWidget* window, bool framed = true) {
  if (framed) QTRY_VERIFY2(!window->windowHandle()->frameMargins().isNull(), "no window manager draws a frame");
  const QRect screen = window->screen()->geometry();
  const auto placed = [&] {
    const QRect frame = window->frameGeometry();
    return std::abs(frame.top() - (screen.height() - frame.height()) / 3) <= 1 &&
           std::abs(frame.left() - (screen.width() - frame.width()) / 2) <= 1;
  };
  QTRY_VERIFY2(placed(),
               qPrintable(window->objectName() + " stands at " +
                          QString("%1,%2").arg(window->frameGeometry().left()).arg(window->frameGeometry().top())));
}

}  // namespace

class Placement_Test : public QObject {
  Q_OBJECT

 private slots:
  void every_window_stands_a_third_of_the_free_height_down() {
    Qt_Window window;
    Expect_Placed(&window.view);
    window.view.Raise(window::Main, "nNew", Event::Click);
    window.view.Raise(window::Main, "nNext", Event::Click);
    window.view.Raise(window::Main, "nEdit", Event::Click);
    Expect_Placed(window.view.Edit_Window());
    window.view.Raise(window::Edit, "ComCl", Event::Click);
    window.view.Raise(window::Main, "nAbout", Event::Click);
    Expect_Placed(window.view.About_Window(), false);
  }
};

QTEST_MAIN(Placement_Test)
#include "placement_test.moc"
