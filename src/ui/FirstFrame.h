#pragma once
// A probe for the start-up benchmark, kept out of the way of play: with
// SKITTERWEB_FIRST_FRAME=FD in the environment, the program writes one line
// "<monotonic clock ns> <process CPU ns> <frames painted> <user CPU ns> <page faults>" to file descriptor
// FD once its first frame is on screen, and then ends. Header-only, Qt only,
// so that the bare window the benchmark compares against carries the same probe.
#include <sys/resource.h>
#include <unistd.h>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <ctime>
// Under callgrind the profile is cut at the first frame: its first part is the start by itself.
#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define SWUI_FIRST_FRAME_CUT() CALLGRIND_DUMP_STATS_AT("first frame")
#else
#define SWUI_FIRST_FRAME_CUT() ((void)0)
#endif

namespace swui {

class FirstFrame : public QObject {
 public:
  // Watches `window` (a top-level widget whose native window exists) when the probe is asked for.
  static void Watch(QWidget& window) {
    const char* fd = std::getenv("SKITTERWEB_FIRST_FRAME");
    if (fd == nullptr) return;
    auto* probe = new FirstFrame(std::atoi(fd), window);
    window.winId();
    window.windowHandle()->installEventFilter(probe);
    window.installEventFilter(probe);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override {
    if (e->type() == QEvent::Paint && watched == &window_) ++paints_;
    if (e->type() == QEvent::Expose && !reported_ && window_.windowHandle()->isExposed()) {
      reported_ = true;
      // The exposed window is painted and flushed before the event loop turns again.
      QTimer::singleShot(0, this, [this] {
        SWUI_FIRST_FRAME_CUT();
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        rusage ru{};
        getrusage(RUSAGE_SELF, &ru);
        const long long cpu = (ru.ru_utime.tv_sec + ru.ru_stime.tv_sec) * 1000000000LL +
                              (ru.ru_utime.tv_usec + ru.ru_stime.tv_usec) * 1000LL;
        const long long user = ru.ru_utime.tv_sec * 1000000000LL + ru.ru_utime.tv_usec * 1000LL;
        const long faults = ru.ru_minflt + ru.ru_majflt;
        // Frames are counted a little longer: a second full paint would show here.
        QTimer::singleShot(300, this, [this, now, cpu, user, faults] {
          char line[128];
          const int n = std::snprintf(line, sizeof line, "%lld %lld %d %lld %ld\n",
                                      now.tv_sec * 1000000000LL + now.tv_nsec, cpu, paints_, user, faults);
          if (n > 0 && write(fd_, line, static_cast<size_t>(n)) < 0) std::perror("first frame probe");
          QCoreApplication::exit(0);
        });
      });
    }
    return false;
  }

 private:
  FirstFrame(int fd, QWidget& window) : QObject(&window), fd_(fd), window_(window) {}
  int fd_;
  QWidget& window_;
  bool reported_ = false;
  int paints_ = 0;
};

}  // namespace swui
