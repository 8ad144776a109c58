// Net lag: one step down per turn, and the colour tier the display shows.
#include "game/Game.h"
#include "game/Skitterweb.h"
#include "runtime/NumText.h"

namespace sw {

void Game::LagDown() {
  // Easy has no lag; the timeout is a trap that lasts until the site is laid out again.
  if (Diff() == 1 || frmMain.LagBarColor() == color::Black || gnLag <= 0) return;

  gnLag = static_cast<int16_t>(gnLag - 1);
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "LagDown";
    rec.szVarName[0] = "gnLag";
    rec.vVarValue[0] = gnLag;
    dbg.DebugWrite(rec);
  }

  const char* szColor;
  if (gnLag > 12) {
    szColor = "timeout";
    gbScoreMinLag = 4;
    gnColorLag = -1;
    frmMain.SetLagBarColor(color::Black);
    frmMain.SetLagBarValue(frmMain.LagBarMax());
    frmMain.SetLabelColors(Label::lblNetLag, color::Black, color::White);
    frmMain.SetCaption(Label::lblNetLag, "X");
  } else if (gnLag > 6) {
    szColor = "red";
    if (gbScoreMinLag < 3) gbScoreMinLag = 3;
    gnColorLag = static_cast<int16_t>(gnLag - 6);
    frmMain.SetLagBarColor(color::Red);
    frmMain.SetLagBarValue(gnLag);
    frmMain.SetLabelColors(Label::lblNetLag, color::Red, color::White);
    frmMain.SetCaption(Label::lblNetLag, NumText(int64_t{gnColorLag}));
  } else if (gnLag > 2) {
    szColor = "yellow";
    if (gbScoreMinLag < 2) gbScoreMinLag = 2;
    gnColorLag = static_cast<int16_t>(gnLag - 2);
    frmMain.SetLagBarColor(color::Yellow);
    frmMain.SetLagBarValue(gnLag);
    frmMain.SetLabelColors(Label::lblNetLag, color::Yellow, color::Black);
    frmMain.SetCaption(Label::lblNetLag, NumText(int64_t{gnColorLag}));
  } else {
    szColor = "blue";
    gnColorLag = gnLag;
    frmMain.SetLagBarColor(color::Blue);
    frmMain.SetLagBarValue(gnLag);
    frmMain.SetLabelColors(Label::lblNetLag, color::Blue, color::White);
    frmMain.SetCaption(Label::lblNetLag, NumText(int64_t{gnColorLag}));
  }

  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "LagDown";
    rec.szVarName = {"lag color", "gnColorLag", ""};
    rec.vVarValue[0] = szColor;
    rec.vVarValue[1] = gnColorLag;
    dbg.DebugWrite(rec);
  }
}

}  // namespace sw
