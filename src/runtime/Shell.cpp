#include "runtime/Shell.h"

#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Trace.h"

namespace sw {

Shell::Shell(GameState& game, Options& opts, TraceLog& dbg, IMainWindow& frmMain)
    : game(game), opts(opts), dbg(dbg), frmMain(frmMain) {}

Shell::Pause::Pause(Shell& shell) : shell_(shell) {
  shell_.game.gbSleepOn = true;
  if (++shell_.pauses_ == 1 && shell_.onPause) shell_.onPause();
}

Shell::Pause::~Pause() {
  if (--shell_.pauses_ != 0) return;
  shell_.game.gbSleepOn = false;
  if (shell_.onPause) shell_.onPause();
}

void Shell::SleepTurn(int32_t ms) {
  {
    // The window events let in here may start another pause (a sound's): no
    // turn starts until the last of them ends.
    const Pause pause(*this);
    frmMain.SetPointer(Pointer::Hourglass);
    frmMain.Sleep(ms);
    frmMain.SetPointer(Pointer::Custom);
    frmMain.DoEvents();
  }
  if (dbg.On()) dbg.DebugWrite(Trace("SleepTurn").In("nMilliseconds", ms));
}

bool Shell::Refused() {
  if (!game.Busy()) return false;
  PlaySound("powerup2.mp3");
  return true;
}

void Shell::ShowMsg(const std::string& text, MsgButtons nButtons, const std::string& szTitle,
                    const std::string& szSound) {
  if (dbg.On()) {
    TraceRecord rec = Trace("ShowMsg").In("szTitle", szTitle).In("nButtons", nButtons);
    if (!szSound.empty()) rec.In("szSound", szSound);
    dbg.DebugWrite(rec);
  }
  if (!szSound.empty()) PlaySound(szSound);
  const MsgAnswer answer = frmMain.MsgBox(text, nButtons, szTitle);
  // A box closed without a button keeps the last answer.
  if (answer != MsgAnswer::None) gnMsgReturn = answer;
}

void Shell::PlaySound(const std::string& szFileName) {
  if (!opts.Current().bSound) return;
  if (dbg.On()) dbg.DebugWrite(Trace("PlaySound").In("szFileName", szFileName));
  frmMain.SoundCommand("Stop");
  frmMain.SoundCommand("Close");
  frmMain.SetSoundFileName(std::string(kSoundFolder) + szFileName);
  frmMain.SoundCommand("Open");
  SleepTurn(60);
  frmMain.SoundCommand("Play");
}

void Shell::ReportError(const std::string& szProc, const RuntimeError& err) {
  if (dbg.On()) {
    dbg.DebugWrite(Trace(szProc)
                       .Var("Err.Number", err.Number())
                       .Var("Err.Description", err.Description())
                       .Note("Run-time error trapped"));
  }
  ShowMsg("Run-time error '" + NumText(int64_t{err.Number()}) + "':" + "\n" + err.Description(), MsgButtons::OkOnly,
          "Error: " + szProc, "powerup2.mp3");
}

}  // namespace sw
