// The map model: positions, directions, the object lists and their lookups,
// and how objects are drawn into the cells of the grid.
#include "game/Game.h"

#include <cmath>

#include "game/Skitterweb.h"
#include "runtime/NumText.h"

namespace sw {

std::string CoordPair::Text() const { return NumText(int64_t{nCol}) + "," + NumText(int64_t{nRow}); }

Game::Game(Skitterweb& sw)
    : opts(sw.opts), dbg(sw.dbg), shell(sw.shell), score(sw.score), hs(sw.hs), rnd(sw.rnd), frmMain(sw.frmMain) {}

int16_t Game::Diff() const { return opts.Current().nDiff; }

CoordPair Game::RandomCell() {
  // Int(Rnd * cols), then Int(Rnd * rows), both worked out in single precision.
  const float r1 = rnd.Rnd();
  const float r2 = rnd.Rnd();
  CoordPair ct;
  ct.nCol = static_cast<int16_t>(std::floor(r1 * static_cast<float>(gnMapCols)));
  ct.nRow = static_cast<int16_t>(std::floor(r2 * static_cast<float>(gnMapRows)));
  return ct;
}

int16_t Game::SamePos(const CoordPair& a, const CoordPair& b) {
  const int16_t same = (a.nCol == b.nCol && a.nRow == b.nRow) ? -1 : 0;
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "SamePos";
    rec.szInName = {"a", "b", ""};
    rec.vInValue[0] = a.Text();
    rec.vInValue[1] = b.Text();
    rec.szReturnName = "SamePos";
    rec.vReturnValue = same;
    dbg.DebugWrite(rec);
  }
  return same;
}

void Game::SetPos(CoordPair& ct, int16_t nCol, int16_t nRow) {
  ct.nCol = nCol;
  ct.nRow = nRow;
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "SetPos";
    rec.szInName = {"nCol", "nRow", ""};
    rec.vInValue[0] = nCol;
    rec.vInValue[1] = nRow;
    rec.szVarName[0] = "ct";
    rec.vVarValue[0] = ct.Text();
    dbg.DebugWrite(rec);
  }
}

int16_t Game::IsOnMap(const CoordPair& ct) {
  const int16_t on = (ct.nCol >= 0 && ct.nCol < gnMapCols && ct.nRow >= 0 && ct.nRow < gnMapRows) ? -1 : 0;
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "IsOnMap";
    rec.szInName[0] = "ct";
    rec.vInValue[0] = ct.Text();
    rec.szReturnName = "IsOnMap";
    rec.vReturnValue = on;
    dbg.DebugWrite(rec);
  }
  return on;
}

void Game::MoveNumDir(CoordPair& ctPos, int16_t nDir) {
  const CoordPair original = ctPos;
  int dc = 0, dr = 0;
  switch (nDir) {
    case 7: dc = -1; dr = -1; break;
    case 8: dr = -1; break;
    case 9: dc = 1; dr = -1; break;
    case 4: dc = -1; break;
    case 6: dc = 1; break;
    case 1: dc = -1; dr = 1; break;
    case 2: dr = 1; break;
    case 3: dc = 1; dr = 1; break;
    default: break;  // 5 and anything else: standing still
  }
  ctPos.nCol = static_cast<int16_t>(ctPos.nCol + dc);
  ctPos.nRow = static_cast<int16_t>(ctPos.nRow + dr);
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "MoveNumDir";
    rec.szInName = {"ctPos", "nDir", ""};
    rec.vInValue[0] = original.Text();
    rec.vInValue[1] = nDir;
    rec.szVarName[0] = "ctPos";
    rec.vVarValue[0] = ctPos.Text();
    dbg.DebugWrite(rec);
  }
}

int16_t Game::CheckVirus(const CoordPair& ctPos, int16_t nSkipVirus) {
  for (int16_t n = 1; n <= gnVirusLive; ++n) {
    const CoordPair& v = gctVirusPos[static_cast<size_t>(n)];
    if (n != nSkipVirus && v.nCol == ctPos.nCol && v.nRow == ctPos.nRow) {
      if (dbg.On()) {
        TraceRecord rec;
        rec.szProc = "CheckVirus";
        rec.szInName = {"ctPos", "nSkipVirus", ""};
        rec.vInValue[0] = ctPos.Text();
        rec.vInValue[1] = nSkipVirus;
        rec.szVarName[0] = "gctVirusPos - index";
        rec.vVarValue[0] = n;
        dbg.DebugWrite(rec);
      }
      return n;
    }
  }
  return 0;
}

int16_t Game::CheckInfected(const CoordPair& ctPos) {
  for (int16_t n = 1; n <= gnInfectedCount; ++n) {
    const CoordPair& c = gctInfectedPos[static_cast<size_t>(n)];
    if (c.nCol == ctPos.nCol && c.nRow == ctPos.nRow) {
      if (dbg.On()) {
        TraceRecord rec;
        rec.szProc = "CheckInfected";
        rec.szInName[0] = "ctPos";
        rec.vInValue[0] = ctPos.Text();
        rec.szVarName[0] = "gctInfectedPos - index";
        rec.vVarValue[0] = n;
        dbg.DebugWrite(rec);
      }
      return n;
    }
  }
  return 0;
}

int16_t Game::CheckDownServers(const CoordPair& ctPos) {
  for (int16_t n = 1; n <= gnDownServerCount; ++n) {
    const CoordPair& c = gctDownServerPos[static_cast<size_t>(n)];
    if (c.nCol == ctPos.nCol && c.nRow == ctPos.nRow) {
      if (dbg.On()) {
        TraceRecord rec;
        rec.szProc = "CheckDownServers";
        rec.szInName[0] = "ctPos";
        rec.vInValue[0] = ctPos.Text();
        rec.szVarName[0] = "gctDownServerPos - index";
        rec.vVarValue[0] = n;
        dbg.DebugWrite(rec);
      }
      return n;
    }
  }
  return 0;
}

int16_t Game::CanVirusEnter(const CoordPair& ctPos, int16_t nVirus) {
  int16_t ok = -1;
  if (CheckDownServers(ctPos) != 0 || !IsOnMap(ctPos)) {
    ok = 0;
  } else if (nVirus == -1) {
    // A new virus may not stand on another one, nor on the mouse.
    if (CheckVirus(ctPos, 0) != 0 || (ctPos == gctPlayerPos)) ok = 0;
  }
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "CanVirusEnter";
    rec.szInName = {"ctPos", "nVirus", ""};
    rec.vInValue[0] = ctPos.Text();
    rec.vInValue[1] = nVirus;
    rec.szReturnName = "CanVirusEnter";
    rec.vReturnValue = ok;
    dbg.DebugWrite(rec);
  }
  return ok;
}

void Game::DrawCell(const CoordPair& ct, Picture pic) {
  // Nowhere (-1, -1) has no cell to draw.
  if (ct.nCol < 0 || ct.nRow < 0 || ct.nCol >= gnMapCols || ct.nRow >= gnMapRows) return;
  frmMain.SetCellPicture(ct.nCol, ct.nRow, pic);
}

void Game::DrawViruses() {
  for (int16_t i = 1; i <= gnVirusLive; ++i) DrawCell(gctVirusPos[static_cast<size_t>(i)], Picture::Virus);
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "DrawViruses";
    rec.szVarName[0] = "gnVirusLive";
    rec.vVarValue[0] = gnVirusLive;
    dbg.DebugWrite(rec);
  }
}

void Game::ClearViruses() {
  for (int16_t i = 1; i <= gnVirusLive; ++i) DrawCell(gctVirusPos[static_cast<size_t>(i)], Picture::None);
  if (dbg.On()) {
    TraceRecord rec;
    rec.szProc = "ClearViruses";
    rec.szVarName[0] = "gnVirusLive";
    rec.vVarValue[0] = gnVirusLive;
    dbg.DebugWrite(rec);
  }
}

}  // namespace sw
