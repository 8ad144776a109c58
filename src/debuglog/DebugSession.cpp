#include "debuglog/DebugSession.h"

#include "debuglog/DebugLog.h"
#include "runtime/Files.h"
#include "runtime/MainWindow.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"

namespace sw {

DebugSession::DebugSession(Options& opts, DebugLog& dbg, Shell& shell, IMainWindow& frmMain)
    : opts(opts), dbg(dbg), shell(shell), frmMain(frmMain) {}

void DebugSession::DebugOpen(bool bClear, bool bQuiet) {
  if (dbg.OpenFile(bClear)) return;
  try {
    opts.Current().bDebug = false;
  } catch (const RuntimeError&) {
  }
  if (!bQuiet) {
    shell.ShowMsg(std::string("Failed to open debug log") + "\n" + "Please check file I/O accessability",
                  MsgButtons::OkOnly, "Error: DebugOpen", "powerup2.mp3");
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
  shell.ShowMsg("Would you like to save the existing log file?", MsgButtons::YesNo, "Close Log File",
                "comp-save debug log.mp3");
  if (shell.gnMsgReturn != MsgAnswer::Yes) {
    try {
      DeleteFile(DebugLog::kFileName);
    } catch (const RuntimeError&) {
      // A log that is already gone is not reported.
    }
  }
}

}  // namespace sw
