// The player's commands: the key handler of the main window, the mouse's
// moves and its random placement.
#include <cstdlib>

#include "game/Game.h"
#include "game/Skitterweb.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"

namespace sw {

namespace {

// Command numbers: the positions of the commands in a control profile.
enum Command {
  cmdMoveUp, cmdMoveUpRight, cmdMoveRight, cmdMoveDownRight, cmdMoveDown, cmdMoveDownLeft, cmdMoveLeft,
  cmdMoveUpLeft, cmdWait, cmdPause, cmdAntiVirus, cmdReboot, cmdBackup, cmdRestore, cmdSoftUpgrade,
  cmdDedLine, cmdLink, kNone = -1,
};

// The direction code of each move command, in profile order.
constexpr int16_t kMoveDir[8] = {8, 9, 6, 3, 2, 1, 4, 7};

// The first command of the profile bound to the key. The dedicated line is
// deliberately not handled in this version: a key bound to it alone is unbound.
int CommandOf(const ControlProfile& cp, int16_t KeyAscii) {
  for (int i = 0; i < 17; ++i) {
    if (i == cmdDedLine) continue;
    if (cp.*kCommandFields[i].field == KeyAscii) return i;
  }
  return kNone;
}

std::string KeyText(int16_t KeyAscii) {
  return NumText(int64_t{KeyAscii}) + " [" + std::string(1, static_cast<char>(KeyAscii & 0xFF)) + "]";
}

}  // namespace

void Game::Form_KeyPress(int16_t KeyAscii) {
  if (shell.gbSleepOn || !gbGameOn) return;
  try {
    gbLinkOn = 0;
    CoordPair ctTarget = gctPlayerPos;
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.Form_KeyPress").In("KeyAscii", KeyText(KeyAscii)));

    const ControlProfile cp = opts.CurrentKeys();
    const int nCommand = CommandOf(cp, KeyAscii);
    if (nCommand == kNone) {
      if (dbg.On()) dbg.DebugWrite(Trace("frmMain.Form_KeyPress").Note("Invalid key pressed"));
      return;
    }

    bool bFinished = true;
    switch (nCommand) {
      case cmdMoveUp: case cmdMoveUpRight: case cmdMoveRight: case cmdMoveDownRight:
      case cmdMoveDown: case cmdMoveDownLeft: case cmdMoveLeft: case cmdMoveUpLeft:
        bFinished = MoveCommand(kMoveDir[nCommand], ctTarget);
        break;
      case cmdWait:
        gbEndSite = 0;
        gbWaitOn = -1;
        gnPlayerDir = 5;
        DrawCell(gctPlayerPos, PlayerPicture(5));
        LagDown();
        VirusTurn();  // runs phases until the site ends
        break;
      case cmdPause:
        gbEndSite = 0;
        gnPlayerDir = 5;
        DrawCell(gctPlayerPos, PlayerPicture(5));
        VirusTurn();
        LagDown();
        break;
      case cmdAntiVirus: case cmdReboot: case cmdRestore: case cmdSoftUpgrade:
        // The power-ups are not active in this version; the turn still costs a lag step.
        LagDown();
        break;
      case cmdBackup:
        break;
      case cmdLink:
        bFinished = LinkCommand();
        break;
      default:
        break;
    }

    if (bFinished && dbg.On()) {
      dbg.DebugWrite(Trace("frmMain.Form_KeyPress")
                         .Var("gbEndSite", gbEndSite)
                         .Var("gnMoveCount", gnMoveCount)
                         .Var("gbScoreNoLinkSite", gbScoreNoLinkSite)
                         .Note("gnPlayerDir=" + NumText(int64_t{gnPlayerDir})));
    }
  } catch (const RuntimeError& err) {
    shell.ReportError("frmMain.Form_KeyPress", err);
  }
}

bool Game::MoveCommand(int16_t nDir, CoordPair& ctTarget) {
  gbEndSite = 0;
  gnMoveCount = Add16(gnMoveCount, 1);
  gnPlayerDir = nDir;
  MoveNumDir(ctTarget, nDir);
  // Off the map (or onto a down server): no turn passes.
  if (!MovePlayer(ctTarget)) return false;
  if (!gbEndSite) VirusTurn();
  LagDown();
  return true;
}

bool Game::LinkCommand() {
  gbEndSite = 0;
  gnMoveCount = Add16(gnMoveCount, 1);
  gnPlayerDir = 5;
  gbLinkOn = -1;
  gbScoreNoLinkSite = 0;

  const int16_t nDiff = Diff();
  if (nDiff != 1) {
    // The cost depends on the tier the bar shows; in the timeout no link is possible.
    const uint32_t barColor = frmMain.LagBarColor();
    if (barColor == color::Black) {
      gbLinkOn = 0;
      return false;
    }
    gnLag = Add16(gnLag, LinkCost(barColor));
    gnLag = Add16(gnLag, 1);
    LagDown();
  }

  shell.PlaySound("ammopu3.mp3");
  PlacePlayer();

  if (!gbEndSite && (nDiff == 3 || nDiff == 4)) {
    // Let the player see where the mouse landed before the viruses answer.
    frmMain.Refresh();
    shell.SleepTurn(325);
    VirusTurn();
  }
  return true;
}

int16_t Game::MovePlayer(const CoordPair& ctPlayerIn) {
  const CoordPair ctPlayer = ctPlayerIn;
  int16_t bSuccessful = 0;
  int16_t nCause = 0;
  if (CheckDownServers(ctPlayer) == 0 && IsOnMap(ctPlayer)) {
    if (gctPlayerPos.nCol != -1 && gctPlayerPos.nRow != -1) DrawCell(gctPlayerPos, Picture::None);
    gctPlayerPos = ctPlayer;
    bSuccessful = -1;
    // An infected server is tested first: a cell with both counts as infected.
    if (CheckInfected(gctPlayerPos) != 0) {
      nCause = gbLinkOn ? kLinkedOntoInfected : kWalkedOntoInfected;
    } else if (CheckVirus(gctPlayerPos, 0) != 0) {
      nCause = gbLinkOn ? kLinkedOntoVirus : kWalkedOntoVirus;
    } else {
      DrawCell(gctPlayerPos, PlayerPicture(gnPlayerDir));
    }
  }

  if (dbg.On()) {
    TraceRecord rec = Trace("MovePlayer").In("ctPlayer", ctPlayer.Text()).Ret("sucessful", bSuccessful);
    if (nCause != 0) {
      rec.Var("nCause", nCause)
          .Note((nCause == kWalkedOntoInfected || nCause == kLinkedOntoInfected) ? "infected underfoot"
                                                                                 : "virus underfoot");
    }
    dbg.DebugWrite(rec);
  }

  if (nCause != 0) PlayerDead(nCause);
  return bSuccessful;
}

void Game::PlacePlayer() {
  gnPlayerDir = 5;
  if (dbg.On()) dbg.DebugWrite(Trace("PlacePlayer").Var("gctPlayerPos(original)", gctPlayerPos.Text()));

  const CoordPair ctOld = gctPlayerPos;
  // The link rule needs a cell to keep away from; a mouse that is nowhere has none.
  const bool bOldOnMap = ctOld.nCol >= 0 && ctOld.nCol < gnMapCols && ctOld.nRow >= 0 && ctOld.nRow < gnMapRows;
  for (;;) {
    const CoordPair ct = RandomCell();
    if (gbLinkOn && bOldOnMap && std::abs(ct.nRow - ctOld.nRow) < 2 && std::abs(ct.nCol - ctOld.nCol) < 2) continue;
    if (ct == gctPlayerPos) continue;
    if (MovePlayer(ct)) break;
  }

  if (dbg.On())
    dbg.DebugWrite(Trace("PlacePlayer").Var("gctPlayerPos(new)", gctPlayerPos.Text()).Var("gnPlayerDir", gnPlayerDir));
}

}  // namespace sw
