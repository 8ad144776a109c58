// Starting a game and laying out a site.
#include "game/Game.h"

#include "game/Skitterweb.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"

namespace sw {

void Game::StartGame() {
  // The start-up pass that applies the loaded options starts no game.
  if (gbGameInit) return;
  try {
    gnGameNum = Add16(gnGameNum, 1);
    if (dbg.On() && gnGameNum % 50 == 0) dbg.Flush();
    gbGameOn = -1;

    gnSitesHit = opts.Current().nStartSite;
    frmMain.SetCaption(Label::lblSitesHit, NumText(int64_t{gnSitesHit}));

    const int16_t nDiff = opts.CheckedDiff();
    score.glScore = 0;
    frmMain.SetCaption(Label::lblScore, FormatThousands(0));
    score.glNextExtraLife = score.glExtraLifeBonus[static_cast<size_t>(nDiff)];

    gnReconnects = 2;
    frmMain.SetCaption(Label::lblReconnects, NumText(int64_t{gnReconnects}));

    frmMain.SetCaption(Label::lblHighScore,
                       FormatThousands(static_cast<double>(hs.Entry(HighScores::kAllTime, nDiff, 1).lScore)));

    if (bSeedFromTimer) rnd.RandomizeTimer();

    if (dbg.On()) {
      dbg.DebugWrite(Trace("StartGame")
                         .Var("gbGameOn", gbGameOn)
                         .Var("gnSitesHit", gnSitesHit)
                         .Var("gnReconnects", gnReconnects)
                         .Note("score is also reset to 0.  gnGameNum=" + NumText(int64_t{gnGameNum})),
                     true);
    }

    BuildMap();
    shell.PlaySound("comp-program start.mp3");
  } catch (const RuntimeError& err) {
    shell.ReportError("StartGame", err);
  }
}

void Game::BuildMap() {
  if (dbg.On()) dbg.DebugWrite(Trace("BuildMap").Var("gnMapCols", gnMapCols).Var("gnMapRows", gnMapRows));
  frmMain.SetSize();
  frmMain.SetGrid();
  InitMap();
  frmMain.Refresh();
}

void Game::InitMap() {
  if (dbg.On()) dbg.DebugWrite(Trace("InitMap"));
  gbWaitOn = 0;
  ResetObjects();
  // (No down servers are placed in this version.)
  PlacePlayer();
  PlaceVirus();
  frmMain.Refresh();

  gbScoreNoLinkSite = -1;
  gnMoveCount = 0;
  gbScoreMinLag = 1;
  // The site is ready and no turn is in progress; the first command clears it.
  gbEndSite = -1;

  if (dbg.On()) {
    dbg.DebugWrite(Trace("InitMap")
                       .Var("gbWaitOn", gbWaitOn)
                       .Var("gbEndSite", gbEndSite)
                       .Note("reset scoring bonus variables (gnMoveCount, gbScoreNoLinkSite, & gbScoreMinLag)"));
  }
}

void Game::ResetObjects() {
  if (gctPlayerPos.nCol != -1 && gctPlayerPos.nRow != -1) DrawCell(gctPlayerPos, Picture::None);
  gctPlayerPos = CoordPair{-1, -1};

  ClearViruses();
  gnVirusLive = 0;
  gctVirusPos.assign(1, CoordPair{-1, -1});

  for (int16_t i = 1; i <= gnInfectedCount; ++i) DrawCell(gctInfectedPos[static_cast<size_t>(i)], Picture::None);
  gnInfectedCount = 0;
  gctInfectedPos.assign(1, CoordPair{-1, -1});

  // Easy has no net lag: its display is left as it is.
  if (Diff() != 1) {
    gnLag = 0;
    gnColorLag = 0;
    frmMain.SetCaption(Label::lblNetLag, "0");
    frmMain.SetLabelColors(Label::lblNetLag, color::Silver, color::Black);
    frmMain.SetLagBarValue(0);
    frmMain.SetLagBarColor(color::Blue);
  }

  if (dbg.On()) {
    dbg.DebugWrite(Trace("ResetObjects")
                       .Var("gctPlayerPos", gctPlayerPos.Text())
                       .Var("gnLag & gnColorLag", NumText(int64_t{gnLag}) + "/Blue")
                       .Note("0 = gnVirusLive = gnInfectedCount"));
  }
}

}  // namespace sw
