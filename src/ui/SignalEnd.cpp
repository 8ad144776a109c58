#include "ui/SignalEnd.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace swui {

namespace {

int g_wake[2] = {-1, -1};

void OnSignal(int) {
  const char c = 1;
  // Only async-signal-safe work here: one byte down the pipe.
  [[maybe_unused]] const ssize_t n = ::write(g_wake[1], &c, 1);
}

}  // namespace

void CatchEndSignals() {
  if (g_wake[0] >= 0 || ::pipe2(g_wake, O_CLOEXEC | O_NONBLOCK) != 0) return;
  struct sigaction sa {};
  sa.sa_handler = OnSignal;
  sigemptyset(&sa.sa_mask);
  sa.sa_flags = SA_RESTART;
  for (int sig : {SIGTERM, SIGINT, SIGHUP}) sigaction(sig, &sa, nullptr);
}

void EndOnSignals(QObject* owner, std::function<void()> action) {
  CatchEndSignals();
  if (g_wake[0] < 0) return;
  auto* notifier = new QSocketNotifier(g_wake[0], QSocketNotifier::Read, owner);
  QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, action = std::move(action)] {
    char buf[16];
    while (::read(g_wake[0], buf, sizeof buf) > 0) {
    }
    notifier->setEnabled(false);  // once is enough
    action();
  });
}

}  // namespace swui
