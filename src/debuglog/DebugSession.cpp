#include "debuglog/DebugSession.h"

#include "debuglog/DebugLog.h"
#include "game/MainWindow.h"
#include "game/Shell.h"
#include "options/Options.h"
#include "runtime/Files.h"
#include "runtime/RuntimeError.h"

namespace sw {

DebugSession::DebugSession(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score,
                           HighScores& hs, IMainWindow& frmMain)
    : game(game), opts(opts), dbg(dbg), shell(shell), score(score), hs(hs), frmMain(frmMain) {
  dbg.dumpState = [this] { DebugWriteAll(); };
}

DebugSession::~DebugSession() { dbg.dumpState = nullptr; }

void DebugSession::DebugOpen(bool bClear, bool bQuiet) {
  if (dbg.OpenFile(bClear)) return;
  try {
    opts.Current().bDebug = 0;
  } catch (const RuntimeError&) {
  }
  if (!bQuiet) {
    shell.ShowMsg(std::string("Failed to open debug log") + "\n" + "Please check file I/O accessability", 0,
                  "Error: DebugOpen", "powerup2.mp3");
  }
  frmMain.SetMenuChecked(Menu::menUseDL, false);
}

void DebugSession::DebugClear() {
  dbg.DebugExit();
  DebugOpen(true, false);
  dbg.Print("| Log cleared");
  dbg.DebugMark(2);
}

void DebugSession::DebugClose() {
  shell.ShowMsg("Would you like to save the existing log file?", 4, "Close Log File", "comp-save debug log.mp3");
  if (shell.gnMsgReturn != 6) {
    try {
      DeleteFile(DebugLog::kFileName);
    } catch (const RuntimeError&) {
      // A log that is already gone is not reported.
    }
  }
}

}  // namespace sw
