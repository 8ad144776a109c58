#pragma once
// SIGTERM, SIGINT and SIGHUP (a logout, Ctrl+C, a closed terminal) end the
// game cleanly: the handler only wakes the event loop, which then runs the
// given action in the ordinary way.
#include <functional>

class QObject;

namespace swui {

// Installs the handlers. Called first thing, so that a signal that comes
// before anybody listens is kept until the first event loop turns.
void CatchEndSignals();

// `action` runs on the main thread once a signal has come, in whichever event
// loop turns first, for as long as `owner` lives (installs the handlers if
// CatchEndSignals has not).
void EndOnSignals(QObject* owner, std::function<void()> action);

}  // namespace swui
