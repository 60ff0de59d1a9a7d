// The yardstick of the start-up comparison: a bare Qt window with a menu bar and a row of labels,
// made and shown by main() as the editor makes and shows its own.
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Bare");
  QMainWindow window;
  for (const char* title : {"&File", "&View", "&Tools", "&Record", "&About"})
    window.menuBar()->addMenu(title)->addAction("Item");
  auto* row = new QWidget(&window);
  auto* labels = new QHBoxLayout(row);
  for (int n = 1; n <= 32; ++n) labels->addWidget(new QLabel("00", row));
  window.setCentralWidget(row);
  window.show();
  return QApplication::exec();
}
