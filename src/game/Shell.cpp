#include "game/Shell.h"

#include "debuglog/DebugLog.h"
#include "game/MainWindow.h"
#include "game/Skitterweb.h"
#include "options/Options.h"
#include "runtime/NumText.h"
#include "runtime/RuntimeError.h"

namespace sw {

Shell::Shell(Skitterweb& sw) : opts(sw.opts), dbg(sw.dbg), frmMain(sw.frmMain) {}

void Shell::SleepTurn(int32_t ms) {
  gbSleepOn = -1;
  frmMain.SetPointer(Pointer::Hourglass);
  frmMain.Sleep(ms);
  frmMain.SetPointer(Pointer::Custom);
  frmMain.DoEvents();
  gbSleepOn = 0;
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "SleepTurn";
    rec.szInName[0] = "nMilliseconds";
    rec.vInValue[0] = ms;
    dbg.DebugWrite(rec);
  }
}

void Shell::ShowMsg(const std::string& text, int16_t nButtons, const std::string& szTitle,
                    const std::string& szSound) {
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "ShowMsg";
    rec.szInName[0] = "szTitle";
    rec.vInValue[0] = szTitle;
    rec.szInName[1] = "nButtons";
    rec.vInValue[1] = nButtons;
    if (!szSound.empty()) {
      rec.szInName[2] = "szSound";
      rec.vInValue[2] = szSound;
    }
    dbg.DebugWrite(rec);
  }
  if (!szSound.empty()) PlaySound(szSound);
  const int16_t answer = frmMain.MsgBox(text, nButtons, szTitle);
  // A box closed without a button keeps the last answer.
  if (answer != 0) gnMsgReturn = answer;
}

void Shell::PlaySound(const std::string& szFileName) {
  if (!opts.Current().bSound) return;
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "PlaySound";
    rec.szInName[0] = "szFileName";
    rec.vInValue[0] = szFileName;
    dbg.DebugWrite(rec);
  }
  frmMain.SoundCommand("Stop");
  frmMain.SoundCommand("Close");
  frmMain.SetSoundFileName(std::string(kSoundFolder) + szFileName);
  frmMain.SoundCommand("Open");
  SleepTurn(60);
  frmMain.SoundCommand("Play");
}

void Shell::ReportError(const std::string& szProc, const RuntimeError& err) {
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = szProc;
    rec.szVarName[0] = "Err.Number";
    rec.vVarValue[0] = err.Number();
    rec.szVarName[1] = "Err.Description";
    rec.vVarValue[1] = err.Description();
    rec.szComment = "Run-time error trapped";
    dbg.DebugWrite(rec);
  }
  ShowMsg("Run-time error '" + NumText(int64_t{err.Number()}) + "':" + "\n" + err.Description(), 0,
          "Error: " + szProc, "powerup2.mp3");
}

}  // namespace sw
