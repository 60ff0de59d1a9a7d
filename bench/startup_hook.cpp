// Loaded with LD_PRELOAD into a Qt program for the start-up comparison; nothing that ships
// links it. When the process's first window has been painted and put on the screen, it notes the
// time on the system's monotonic clock; once the event loop has then been idle a moment, it
// prints that time, the processor time the process had used by then and its resident memory, and
// ends the program normally:
//   shown_ns=<CLOCK_MONOTONIC in ns> cpu_ns=<CPU time in ns> rss_kb=<VmRSS>
// The launcher took the same clock just before it started the process. Qt calls the hook when
// the program creates its application object.
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <time.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

constexpr int Idle_Ms = 500;

long long Clock_Ns(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec;
}

long Resident_Kb() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
  return -1;
}

class Shown_Watch : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (seen_ || event->type() != QEvent::Paint) return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !widget->isWindow()) return false;
    seen_ = true;
    // A zero timer runs once this paint pass, children and flush to the screen included, is over.
    QTimer::singleShot(0, qApp, [] {
      const long long shown = Clock_Ns(CLOCK_MONOTONIC);
      const long long cpu = Clock_Ns(CLOCK_PROCESS_CPUTIME_ID);
      QTimer::singleShot(Idle_Ms, qApp, [shown, cpu] {
        std::printf("shown_ns=%lld cpu_ns=%lld rss_kb=%ld\n", shown, cpu, Resident_Kb());
        std::fflush(stdout);
        QCoreApplication::exit(0);
      });
    });
    return false;
  }

 private:
  bool seen_ = false;
};

void Watch_First_Window() { qApp->installEventFilter(new Shown_Watch(qApp)); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch_First_Window)
