// The viruses: placement, their turn, the chase, crashes, infections and deaths.
#include <algorithm>

#include "game/Game.h"
#include "game/Skitterweb.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"

namespace sw {

void Game::PlaceVirus() {
  gnVirusMax = std::min<int16_t>(Add16(gnSitesHit, 7), 30);
  gnVirusLive = gnVirusMax;
  frmMain.SetCaption(Label::lblVirus, NumText(int64_t{gnVirusLive}));

  // Unplaced entries stay off the map so that they never match a cell.
  gctVirusPos.assign(static_cast<size_t>(std::max<int16_t>(gnVirusMax, 0)) + 1, CoordPair{-1, -1});
  for (int16_t i = 1; i <= gnVirusMax; ++i) {
    CoordPair ct;
    do {
      ct = RandomCell();
    } while (!CanVirusEnter(ct, -1));
    gctVirusPos[static_cast<size_t>(i)] = ct;
  }
  DrawViruses();

  if (dbg.On()) {
    std::string list = "{ ";
    for (int16_t i = 1; i <= gnVirusMax; ++i) {
      if (i > 1) list += " - ";
      list += NumText(int64_t{i}) + ":" + gctVirusPos[static_cast<size_t>(i)].Text();
    }
    list += " }";
    TraceRecord rec;
    rec.szProc = "PlaceVirus";
    rec.szVarName = {"gnVirusMax", "gctVirusPos", ""};
    rec.vVarValue[0] = gnVirusMax;
    rec.vVarValue[1] = list;
    dbg.DebugWrite(rec);
  }
}

void Game::VirusTurn() {
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "VirusTurn";
    rec.szVarName = {"gbEndSite", "gbWaitOn", "gbLinkOn"};
    rec.vVarValue[0] = gbEndSite;
    rec.vVarValue[1] = gbWaitOn;
    rec.vVarValue[2] = gbLinkOn;
    dbg.DebugWrite(rec);
  }
  if (!gbEndSite) VirusPhase();
  // Nightmare: the viruses move twice for each command, but not after a link.
  if (Diff() == 4 && !gbEndSite && !gbLinkOn) {
    frmMain.Refresh();
    shell.SleepTurn(300);
    LagDown();
    VirusPhase();
  }
  // Wait: the viruses keep moving until the site ends.
  while (!gbEndSite && gbWaitOn) {
    frmMain.Refresh();
    shell.SleepTurn(200);
    LagDown();
    VirusPhase();
  }
}

void Game::VirusPhase() {
  ClearViruses();
  MoveVirus();
  CheckVirusCrash();
  CheckVirusInfected();
  const int16_t n = CheckVirus(gctPlayerPos, 0);
  DrawViruses();
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "VirusPhase";
    rec.szVarName = {"gnVirusLive", "gnInfectedCount", "gctVirusPos - index"};
    rec.vVarValue[0] = gnVirusLive;
    rec.vVarValue[1] = gnInfectedCount;
    rec.vVarValue[2] = n;
    dbg.DebugWrite(rec);
  }
  if (n != 0) {
    PlayerDead(gbWaitOn ? kSleepingMouse : kVirusReachedMouse);
  } else {
    score.WriteScoreMesg();
  }
}

void Game::MoveVirus() {
  const int16_t px = gctPlayerPos.nCol;
  const int16_t py = gctPlayerPos.nRow;
  const int16_t nLive = gnVirusLive;  // the bound is read once
  for (int16_t i = 1; i <= nLive; ++i) {
    CoordPair& v = gctVirusPos[static_cast<size_t>(i)];
    const bool up = py < v.nRow;
    const bool down = py > v.nRow;
    const bool right = v.nCol < px;
    const bool left = v.nCol > px;
    int16_t nDir = 5;
    if (up) {
      nDir = right ? 9 : (left ? 7 : 8);
    } else if (down) {
      nDir = right ? 3 : (left ? 1 : 2);
    } else {
      nDir = right ? 6 : (left ? 4 : 5);
    }
    CoordPair ct = v;
    MoveNumDir(ct, nDir);
    if (CanVirusEnter(ct, 0)) gctVirusPos[static_cast<size_t>(i)] = ct;
  }
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "MoveVirus";
    rec.szVarName = {"gnVirusLive", "gctPlayerPos", ""};
    rec.vVarValue[0] = gnVirusLive;
    rec.vVarValue[1] = gctPlayerPos.Text();
    dbg.DebugWrite(rec);
  }
}

void Game::CheckVirusCrash() {
  bool bFirst = true;
  int16_t i = 1;
  while (i <= gnVirusLive) {
    const CoordPair ct = gctVirusPos[static_cast<size_t>(i)];
    // A virus that reaches the mouse never crashes: it kills.
    if (ct == gctPlayerPos) {
      ++i;
      continue;
    }
    const int16_t j = CheckVirus(ct, i);
    if (j == 0) {
      ++i;
      continue;
    }
    gnInfectedCount = Add16(gnInfectedCount, 1);
    gctInfectedPos.resize(static_cast<size_t>(gnInfectedCount) + 1);
    gctInfectedPos[static_cast<size_t>(gnInfectedCount)] = ct;
    DrawCell(ct, Picture::Infected);
    if (dbg.On()) {
      TraceRecord rec;
      rec.szProc = "CheckVirusCrash";
      rec.bBegin = bFirst;
      rec.szVarName = {"bCrash (virus indexes)", "gnInfectedCount",
                       "gnInfectedPos(" + NumText(int64_t{gnInfectedCount}) + ")"};
      rec.vVarValue[0] = "-1 (" + NumText(int64_t{i}) + " & " + NumText(int64_t{j}) + ")";
      rec.vVarValue[1] = gnInfectedCount;
      rec.vVarValue[2] = ct.Text();
      rec.szComment = "Start flag is being used to mark multiple crashes in same function call";
      dbg.DebugWrite(rec);
    }
    bFirst = false;
    // j lies above i, so removing it first leaves virus i where it is.
    KillVirus(j, 1);
    KillVirus(i, 1);
  }
}

void Game::CheckVirusInfected() {
  bool bFirst = true;
  int16_t i = 1;
  while (i <= gnVirusLive) {
    const int16_t n = CheckInfected(gctVirusPos[static_cast<size_t>(i)]);
    if (n == 0) {
      ++i;
      continue;
    }
    if (dbg.On()) {
      TraceRecord rec;
      rec.szProc = "CheckVirusInfected";
      rec.bBegin = bFirst;
      rec.szVarName = {"nInfected", "virus index", ""};
      rec.vVarValue[0] = n;
      rec.vVarValue[1] = i;
      rec.szComment = "Start flag is being used to mark multiple infected crashes in same function call";
      dbg.DebugWrite(rec);
    }
    bFirst = false;
    KillVirus(i, 1);
  }
}

void Game::KillVirus(int16_t nVirus, int16_t nEvent) {
  try {
    for (int16_t k = nVirus; k <= gnVirusLive - 1; ++k)
      gctVirusPos[static_cast<size_t>(k)] = gctVirusPos[static_cast<size_t>(k) + 1];
    gnVirusLive = Sub16(gnVirusLive, 1);
    gctVirusPos.resize(static_cast<size_t>(gnVirusLive) + 1);
    frmMain.SetCaption(Label::lblVirus, NumText(int64_t{gnVirusLive}));
    if (dbg.On()) {
      TraceRecord rec;
      rec.szProc = "KillVirus";
      rec.szInName = {"nVirus", "nEvent", ""};
      rec.vInValue[0] = nVirus;
      rec.vInValue[1] = nEvent;
      rec.szVarName[0] = "gnVirusLive";
      rec.vVarValue[0] = gnVirusLive;
      dbg.DebugWrite(rec);
    }
    score.AddPoints(nEvent);
  } catch (const RuntimeError& err) {
    shell.ReportError("KillVirus", err);
  }
  // The last virus gone ends the site, whatever the score did.
  if (gnVirusLive == 0) NewSite();
}

}  // namespace sw
