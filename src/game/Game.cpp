// The map model: positions, directions, the object lists and their lookups,
// and how objects are drawn into the cells of the grid.
#include "game/Game.h"

#include <cmath>

#include "debuglog/DebugLog.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/Random.h"

namespace sw {

std::string CoordPair::Text() const { return NumText(int64_t{nCol}) + "," + NumText(int64_t{nRow}); }

namespace {

// The lowest index (1 to nCount) of the list whose cell is ctPos, passing over nSkip; 0 for none.
int16_t FindCell(const std::vector<CoordPair>& list, int16_t nCount, const CoordPair& ctPos, int16_t nSkip = 0) {
  for (int16_t n = 1; n <= nCount; ++n)
    if (n != nSkip && list[static_cast<size_t>(n)] == ctPos) return n;
  return 0;
}

}  // namespace

Game::Game(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score, HighScores& hs,
           HighScoreDialog& webmasters, Random& rnd, IMainWindow& frmMain)
    : game(game), opts(opts), dbg(dbg), shell(shell), score(score), hs(hs), webmasters(webmasters), rnd(rnd),
      frmMain(frmMain) {}

int16_t Game::Diff() const { return opts.Current().nDiff; }

CoordPair Game::RandomCell() {
  // Int(Rnd * cols), then Int(Rnd * rows), both worked out in single precision.
  const float r1 = rnd.Rnd();
  const float r2 = rnd.Rnd();
  CoordPair ct;
  ct.nCol = static_cast<int16_t>(std::floor(r1 * static_cast<float>(game.gnMapCols)));
  ct.nRow = static_cast<int16_t>(std::floor(r2 * static_cast<float>(game.gnMapRows)));
  return ct;
}

int16_t Game::IsOnMap(const CoordPair& ct) {
  const int16_t on = game.OnMap(ct) ? -1 : 0;
  if (dbg.On()) dbg.DebugWrite(Trace("IsOnMap").In("ct", ct.Text()).Ret("IsOnMap", on));
  return on;
}

void Game::MoveNumDir(CoordPair& ctPos, Direction nDir) {
  const CoordPair original = ctPos;
  int dc = 0, dr = 0;
  switch (nDir) {
    case Direction::UpLeft:
      dc = -1;
      dr = -1;
      break;
    case Direction::Up: dr = -1; break;
    case Direction::UpRight:
      dc = 1;
      dr = -1;
      break;
    case Direction::Left: dc = -1; break;
    case Direction::Right: dc = 1; break;
    case Direction::DownLeft:
      dc = -1;
      dr = 1;
      break;
    case Direction::Down: dr = 1; break;
    case Direction::DownRight:
      dc = 1;
      dr = 1;
      break;
    default: break;  // Pause and anything else: standing still
  }
  ctPos.nCol = static_cast<int16_t>(ctPos.nCol + dc);
  ctPos.nRow = static_cast<int16_t>(ctPos.nRow + dr);
  if (dbg.On())
    dbg.DebugWrite(Trace("MoveNumDir").In("ctPos", original.Text()).In("nDir", nDir).Var("ctPos", ctPos.Text()));
}

int16_t Game::CheckVirus(const CoordPair& ctPos, int16_t nSkipVirus) {
  const int16_t n = FindCell(game.gctVirusPos, game.gnVirusLive, ctPos, nSkipVirus);
  if (n != 0 && dbg.On()) {
    dbg.DebugWrite(
        Trace("CheckVirus").In("ctPos", ctPos.Text()).In("nSkipVirus", nSkipVirus).Var("gctVirusPos - index", n));
  }
  return n;
}

int16_t Game::CheckInfected(const CoordPair& ctPos) {
  const int16_t n = FindCell(game.gctInfectedPos, game.gnInfectedCount, ctPos);
  if (n != 0 && dbg.On())
    dbg.DebugWrite(Trace("CheckInfected").In("ctPos", ctPos.Text()).Var("gctInfectedPos - index", n));
  return n;
}

int16_t Game::CheckDownServers(const CoordPair& ctPos) {
  const int16_t n = FindCell(game.gctDownServerPos, game.gnDownServerCount, ctPos);
  if (n != 0 && dbg.On())
    dbg.DebugWrite(Trace("CheckDownServers").In("ctPos", ctPos.Text()).Var("gctDownServerPos - index", n));
  return n;
}

int16_t Game::CanVirusEnter(const CoordPair& ctPos, int16_t nVirus) {
  int16_t ok = -1;
  if (CheckDownServers(ctPos) != 0 || !IsOnMap(ctPos)) {
    ok = 0;
  } else if (nVirus == -1) {
    // A new virus may not stand on another one, nor on the mouse.
    if (CheckVirus(ctPos, 0) != 0 || (ctPos == game.gctPlayerPos)) ok = 0;
  }
  if (dbg.On())
    dbg.DebugWrite(Trace("CanVirusEnter").In("ctPos", ctPos.Text()).In("nVirus", nVirus).Ret("CanVirusEnter", ok));
  return ok;
}

void Game::DrawCell(const CoordPair& ct, Picture pic) {
  // Nowhere (-1, -1) has no cell to draw.
  if (!game.OnMap(ct)) return;
  frmMain.SetCellPicture(ct.nCol, ct.nRow, pic);
}

void Game::DrawViruses() {
  for (int16_t i = 1; i <= game.gnVirusLive; ++i) DrawCell(game.gctVirusPos[static_cast<size_t>(i)], Picture::Virus);
  if (dbg.On()) dbg.DebugWrite(Trace("DrawViruses").Var("gnVirusLive", game.gnVirusLive));
}

void Game::ShowVirusCount() {
  frmMain.SetCaption(Label::lblVirus, NumText(int64_t{game.gnVirusLive}));
  // The most a site can hold shows in red.
  frmMain.SetLabelForeColor(Label::lblVirus, game.gnVirusLive == 30 ? color::Red : color::ButtonText);
}

void Game::ClearViruses() {
  for (int16_t i = 1; i <= game.gnVirusLive; ++i) DrawCell(game.gctVirusPos[static_cast<size_t>(i)], Picture::None);
  if (dbg.On()) dbg.DebugWrite(Trace("ClearViruses").Var("gnVirusLive", game.gnVirusLive));
}

}  // namespace sw
