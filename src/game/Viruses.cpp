// The viruses: placement, their turn, the chase, crashes, infections and deaths.
#include <algorithm>

#include "debuglog/DebugLog.h"
#include "game/Game.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/Shell.h"
#include "scoring/Score.h"

namespace sw {

void Game::PlaceVirus() {
  game.gnVirusMax = std::min<int16_t>(Add16(game.gnSitesHit, 7), 30);
  game.gnVirusLive = game.gnVirusMax;
  ShowVirusCount();

  // Unplaced entries stay off the map so that they never match a cell.
  game.gctVirusPos.assign(static_cast<size_t>(game.gnVirusMax) + 1, CoordPair{-1, -1});
  for (int16_t i = 1; i <= game.gnVirusMax; ++i) {
    CoordPair ct;
    do {
      ct = RandomCell();
    } while (!CanVirusEnter(ct, -1));
    game.gctVirusPos[static_cast<size_t>(i)] = ct;
  }
  DrawViruses();

  if (dbg.On()) {
    std::string list = "{ ";
    for (int16_t i = 1; i <= game.gnVirusMax; ++i) {
      if (i > 1) list += " - ";
      list += NumText(int64_t{i}) + ":" + game.gctVirusPos[static_cast<size_t>(i)].Text();
    }
    list += " }";
    dbg.DebugWrite(Trace("PlaceVirus").Var("gnVirusMax", game.gnVirusMax).Var("gctVirusPos", list));
  }
}

void Game::VirusTurn() {
  if (dbg.On())
    dbg.DebugWrite(Trace("VirusTurn")
                       .Var("gbEndSite", game.gbEndSite)
                       .Var("gbWaitOn", game.gbWaitOn)
                       .Var("gbLinkOn", game.gbLinkOn));
  if (!game.gbEndSite) VirusPhase();
  // Nightmare: the viruses move twice for each command, but not after a link.
  if (Level().bTwice && !game.gbEndSite && !game.gbLinkOn) {
    frmMain.Refresh();
    shell.SleepTurn(300);
    LagDown();
    VirusPhase();
  }
  // Wait: the viruses keep moving until the site ends.
  while (!game.gbEndSite && game.gbWaitOn) {
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
  const int16_t n = CheckVirus(game.gctPlayerPos, 0);
  DrawViruses();
  if (dbg.On()) {
    dbg.DebugWrite(Trace("VirusPhase")
                       .Var("gnVirusLive", game.gnVirusLive)
                       .Var("gnInfectedCount", game.gnInfectedCount)
                       .Var("gctVirusPos - index", n));
  }
  if (n != 0) {
    PlayerDead(game.gbWaitOn ? kSleepingMouse : kVirusReachedMouse);
  } else {
    score.WriteScoreMesg();
  }
}

void Game::MoveVirus() {
  const int16_t px = game.gctPlayerPos.nCol;
  const int16_t py = game.gctPlayerPos.nRow;
  const int16_t nLive = game.gnVirusLive;  // the bound is read once
  for (int16_t i = 1; i <= nLive; ++i) {
    CoordPair& v = game.gctVirusPos[static_cast<size_t>(i)];
    const bool up = py < v.nRow;
    const bool down = py > v.nRow;
    const bool right = v.nCol < px;
    const bool left = v.nCol > px;
    Direction nDir = Direction::Pause;
    if (up) {
      nDir = right ? Direction::UpRight : (left ? Direction::UpLeft : Direction::Up);
    } else if (down) {
      nDir = right ? Direction::DownRight : (left ? Direction::DownLeft : Direction::Down);
    } else {
      nDir = right ? Direction::Right : (left ? Direction::Left : Direction::Pause);
    }
    CoordPair ct = v;
    MoveNumDir(ct, nDir);
    if (CanVirusEnter(ct, 0)) game.gctVirusPos[static_cast<size_t>(i)] = ct;
  }
  if (dbg.On())
    dbg.DebugWrite(
        Trace("MoveVirus").Var("gnVirusLive", game.gnVirusLive).Var("gctPlayerPos", game.gctPlayerPos.Text()));
}

void Game::CheckVirusCrash() {
  bool bFirst = true;
  int16_t i = 1;
  while (i <= game.gnVirusLive) {
    const CoordPair ct = game.gctVirusPos[static_cast<size_t>(i)];
    // A virus that reaches the mouse never crashes: it kills.
    if (ct == game.gctPlayerPos) {
      ++i;
      continue;
    }
    const int16_t j = CheckVirus(ct, i);
    if (j == 0) {
      ++i;
      continue;
    }
    game.gnInfectedCount = Add16(game.gnInfectedCount, 1);
    game.gctInfectedPos.resize(static_cast<size_t>(game.gnInfectedCount) + 1);
    game.gctInfectedPos[static_cast<size_t>(game.gnInfectedCount)] = ct;
    DrawCell(ct, Picture::Infected);
    if (dbg.On()) {
      dbg.DebugWrite(
          Trace("CheckVirusCrash")
              .Begin(bFirst)
              .Var("bCrash (virus indexes)", "-1 (" + NumText(int64_t{i}) + " & " + NumText(int64_t{j}) + ")")
              .Var("gnInfectedCount", game.gnInfectedCount)
              .Var("gnInfectedPos(" + NumText(int64_t{game.gnInfectedCount}) + ")", ct.Text())
              .Note("Start flag is being used to mark multiple crashes in same function call"));
    }
    bFirst = false;
    // j lies above i, so removing it first leaves virus i where it is.
    KillVirus(j, ScoreEvent::VirusKilled);
    KillVirus(i, ScoreEvent::VirusKilled);
  }
}

void Game::CheckVirusInfected() {
  bool bFirst = true;
  int16_t i = 1;
  while (i <= game.gnVirusLive) {
    const int16_t n = CheckInfected(game.gctVirusPos[static_cast<size_t>(i)]);
    if (n == 0) {
      ++i;
      continue;
    }
    if (dbg.On()) {
      dbg.DebugWrite(Trace("CheckVirusInfected")
                         .Begin(bFirst)
                         .Var("nInfected", n)
                         .Var("virus index", i)
                         .Note("Start flag is being used to mark multiple infected crashes in same function call"));
    }
    bFirst = false;
    KillVirus(i, ScoreEvent::VirusKilled);
  }
}

void Game::KillVirus(int16_t nVirus, ScoreEvent nEvent) {
  try {
    game.gnVirusLive = Sub16(game.gnVirusLive, 1);
    game.gctVirusPos.erase(game.gctVirusPos.begin() + nVirus);  // the viruses after it move down one
    ShowVirusCount();
    if (dbg.On())
      dbg.DebugWrite(Trace("KillVirus").In("nVirus", nVirus).In("nEvent", nEvent).Var("gnVirusLive", game.gnVirusLive));
    score.AddPoints(nEvent);
  } catch (const RuntimeError& err) {
    shell.ReportError("KillVirus", err);
  }
  // The last virus gone ends the site, whatever the score did.
  if (game.gnVirusLive == 0) NewSite();
}

}  // namespace sw
