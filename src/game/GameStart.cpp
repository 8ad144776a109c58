// Starting a game, laying out a site, and the window and grid geometry that follow the map.
#include <algorithm>

#include "game/Game.h"

#include "debuglog/DebugLog.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/Random.h"
#include "runtime/Shell.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

namespace sw {

void Game::StartGame() {
  // The start-up pass that applies the loaded options starts no game.
  if (game.gbGameInit) return;
  try {
    game.gnGameNum = Add16(game.gnGameNum, 1);
    if (dbg.On() && game.gnGameNum % 50 == 0) dbg.Flush();
    game.gbGameOn = true;

    game.gnSitesHit = opts.Current().nStartSite;
    frmMain.SetCaption(Label::lblSitesHit, NumText(int64_t{game.gnSitesHit}));

    const int16_t nDiff = opts.CheckedDiff();
    score.glScore = 0;
    frmMain.SetCaption(Label::lblScore, FormatThousands(0));
    score.glNextExtraLife = score.glExtraLifeBonus[static_cast<size_t>(nDiff)];

    game.gnReconnects = 2;
    frmMain.SetCaption(Label::lblReconnects, NumText(int64_t{game.gnReconnects}));

    frmMain.SetCaption(Label::lblHighScore, FormatThousands(hs.Entry(HighScores::kAllTime, nDiff, 1).lScore));

    if (game.bSeedFromTimer) rnd.RandomizeTimer();

    if (dbg.On()) {
      dbg.DebugWrite(Trace("StartGame")
                         .Var("gbGameOn", game.gbGameOn)
                         .Var("gnSitesHit", game.gnSitesHit)
                         .Var("gnReconnects", game.gnReconnects)
                         .Note("score is also reset to 0.  gnGameNum=" + NumText(int64_t{game.gnGameNum})),
                     true);
    }

    BuildMap();
    shell.PlaySound("comp-program start.mp3");
  } catch (const RuntimeError& err) {
    shell.ReportError("StartGame", err);
  }
}

void Game::BuildMap() {
  if (dbg.On()) dbg.DebugWrite(Trace("BuildMap").Var("gnMapCols", game.gnMapCols).Var("gnMapRows", game.gnMapRows));
  SetSize();
  SetGrid();
  InitMap();
  frmMain.Refresh();
}

void Game::InitMap() {
  if (dbg.On()) dbg.DebugWrite(Trace("InitMap"));
  game.gbWaitOn = false;
  ResetObjects();
  // (No down servers are placed in this version.)
  PlacePlayer();
  PlaceVirus();
  frmMain.Refresh();

  game.gbScoreNoLinkSite = true;
  game.gnMoveCount = 0;
  game.gbScoreMinLag = 1;
  // The site is ready and no turn is in progress; the first command clears it.
  game.gbEndSite = true;

  if (dbg.On()) {
    dbg.DebugWrite(Trace("InitMap")
                       .Var("gbWaitOn", game.gbWaitOn)
                       .Var("gbEndSite", game.gbEndSite)
                       .Note("reset scoring bonus variables (gnMoveCount, gbScoreNoLinkSite, & gbScoreMinLag)"));
  }
}

void Game::ResetObjects() {
  DrawCell(game.gctPlayerPos, Picture::None);  // nowhere has no cell to clear
  game.gctPlayerPos = CoordPair{-1, -1};

  ClearViruses();
  game.gnVirusLive = 0;
  game.gctVirusPos.assign(1, CoordPair{-1, -1});

  for (int16_t i = 1; i <= game.gnInfectedCount; ++i)
    DrawCell(game.gctInfectedPos[static_cast<size_t>(i)], Picture::None);
  game.gnInfectedCount = 0;
  game.gctInfectedPos.assign(1, CoordPair{-1, -1});

  // Easy has no net lag: its display is left as it is.
  if (Level().bLag) {
    game.gnLag = 0;
    game.gnColorLag = 0;
    game.pbrNetLag.SetValue(0);
    game.pbrNetLag.BarColor = color::Blue;
    ShowLag(color::Silver, color::Black, "0");
  }

  if (dbg.On()) {
    dbg.DebugWrite(Trace("ResetObjects")
                       .Var("gctPlayerPos", game.gctPlayerPos.Text())
                       .Var("gnLag & gnColorLag", NumText(int64_t{game.gnLag}) + "/Blue")
                       .Note("0 = gnVirusLive = gnInfectedCount"));
  }
}

void Game::SetSize() {
  // The window is as wide as the map, but never narrower than its information bar needs.
  const int32_t lWidth = std::max<int32_t>(int32_t{game.gnMapCols} * twips::kCell, twips::kMinWidth);
  const int32_t lHeight = int32_t{game.gnMapRows} * twips::kCell + twips::kInfoBarHeight + twips::kFrameHeight;
  frmMain.SetWindowSize(lWidth, lHeight, lWidth);
  if (dbg.On()) {
    dbg.DebugWrite(Trace("SetSize")
                       .Var("frmMain.Height", lHeight)
                       .Var("frmMain.Width", lWidth)
                       .Var("frmMain..pctInfoBar.Width", lWidth));
  }
}

void Game::SetGrid() {
  const int16_t cols = game.gnMapCols;
  const int16_t rows = game.gnMapRows;
  const int32_t gridW = int32_t{cols} * twips::kCell;
  const int32_t gridH = int32_t{rows} * twips::kCell;
  int16_t nCellSize = twips::kCellGridOff;
  bool bLines = false;
  try {
    bLines = static_cast<bool>(opts.Current().bGrid);
    nCellSize = bLines ? twips::kCellGridOn : twips::kCellGridOff;
  } catch (const RuntimeError& e) {
    shell.ReportError("SetGrid", e);
  }
  frmMain.SetGridLayout(cols, rows, gridW, gridH, nCellSize, bLines);
  if (dbg.On()) {
    dbg.DebugWrite(Trace("SetGrid")
                       .Var("frmMain.grdMap.Cols/Rows", NumText(int64_t{cols}) + "/" + NumText(int64_t{rows}))
                       .Var("frmMain.grdMap.Height/Width", NumText(int64_t{gridH}) + "/" + NumText(int64_t{gridW}))
                       .Var("nCellSize", nCellSize));
  }
}

}  // namespace sw
