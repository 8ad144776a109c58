#pragma once
// SIGTERM, SIGINT and SIGHUP (a logout, Ctrl+C, a closed terminal) end the
// game cleanly: the handler only wakes the event loop, which then runs the
// given action in the ordinary way.
#include <functional>

class QObject;

namespace swui {

// Installs the handlers; `action` runs on the main thread after a signal
// arrives, for as long as `owner` lives.
void EndOnSignals(QObject* owner, std::function<void()> action);

}  // namespace swui
