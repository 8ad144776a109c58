#pragma once
// The debug log as the player meets it: opening it (with a message when that
// fails), clearing it, and closing it with the choice to keep it.
#include <cstdint>

namespace sw {

class Options;
class DebugLog;
class Shell;
class IMainWindow;

class DebugSession {
 public:
  DebugSession(Options& opts, DebugLog& dbg, Shell& shell, IMainWindow& frmMain);
  DebugSession(const DebugSession&) = delete;
  DebugSession& operator=(const DebugSession&) = delete;

  // Opens "SWDebug.log" (truncating it when bClear) and writes the header. On
  // failure logging is switched off, the player is told unless bQuiet, and the
  // menu entry loses its check mark.
  void DebugOpen(bool bClear, bool bQuiet);
  // Empties the log: the exit block, then a fresh file with its header.
  void DebugClear();
  // After the log is closed: asks whether to keep it, and deletes it if not.
  void DebugClose();

 private:
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  IMainWindow& frmMain;
};

}  // namespace sw
