// The player's commands: the key handler of the main window, the mouse's
// moves and its random placement.
#include <cstdlib>
#include <iterator>

#include "debuglog/DebugLog.h"
#include "runtime/Options.h"
#include "runtime/Shell.h"

#include "game/Game.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"

namespace sw {

namespace {

// The direction code of each move command, in profile order.
constexpr Direction kMoveDir[] = {Direction::Up,   Direction::UpRight,  Direction::Right, Direction::DownRight,
                                  Direction::Down, Direction::DownLeft, Direction::Left,  Direction::UpLeft};

std::string KeyText(int16_t KeyAscii) {
  return NumText(int64_t{KeyAscii}) + " [" + std::string(1, static_cast<char>(KeyAscii & 0xFF)) + "]";
}

}  // namespace

std::optional<Command> CommandFor(const ControlProfile& cp, int16_t KeyAscii) {
  for (int16_t i = 0; i < static_cast<int16_t>(std::size(kCommandFields)); ++i) {
    if (static_cast<Command>(i) == Command::DedLine) continue;
    if (cp.*kCommandFields[i].field == KeyAscii) return static_cast<Command>(i);
  }
  return std::nullopt;
}

int16_t KeyFor(const ControlProfile& cp, int16_t KeyAscii) {
  if (KeyAscii >= 'A' && KeyAscii <= 'Z' && !CommandFor(cp, KeyAscii)) return static_cast<int16_t>(KeyAscii + 32);
  return KeyAscii;
}

void Game::Form_KeyPress(int16_t KeyAscii) {
  // One turn never runs inside another.
  if (game.Busy() || !game.gbGameOn) return;
  try {
    game.gbLinkOn = false;
    const ControlProfile cp = opts.CurrentKeys();
    KeyAscii = KeyFor(cp, KeyAscii);
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.Form_KeyPress").In("KeyAscii", KeyText(KeyAscii)));

    const std::optional<Command> cmd = CommandFor(cp, KeyAscii);
    if (!cmd) {
      if (dbg.On()) dbg.DebugWrite(Trace("frmMain.Form_KeyPress").Note("Invalid key pressed"));
      return;
    }
    if (DoCommand(*cmd) && dbg.On()) {
      dbg.DebugWrite(Trace("frmMain.Form_KeyPress")
                         .Var("gbEndSite", game.gbEndSite)
                         .Var("gnMoveCount", game.gnMoveCount)
                         .Var("gbScoreNoLinkSite", game.gbScoreNoLinkSite)
                         .Note("gnPlayerDir=" + NumText(int64_t{DirCode(game.gnPlayerDir)})));
    }
  } catch (const RuntimeError& err) {
    // The turn is over: a wait that an error broke off does not hold the game.
    game.gbWaitOn = false;
    shell.ReportError("frmMain.Form_KeyPress", err);
  }
}

bool Game::DoCommand(Command cmd) {
  switch (cmd) {
    case Command::MoveUp:
    case Command::MoveUpRight:
    case Command::MoveRight:
    case Command::MoveDownRight:
    case Command::MoveDown:
    case Command::MoveDownLeft:
    case Command::MoveLeft:
    case Command::MoveUpLeft: return MoveCommand(kMoveDir[static_cast<int>(cmd)]);
    case Command::Wait:
      game.gbEndSite = false;
      game.gbWaitOn = true;
      game.gnPlayerDir = Direction::Pause;
      DrawCell(game.gctPlayerPos, PlayerPicture(Direction::Pause));
      LagDown();
      VirusTurn();  // runs phases until the site ends
      return true;
    case Command::Pause:
      game.gbEndSite = false;
      game.gnPlayerDir = Direction::Pause;
      DrawCell(game.gctPlayerPos, PlayerPicture(Direction::Pause));
      VirusTurn();
      LagDown();
      return true;
    case Command::AntiVirus:
    case Command::Reboot:
    case Command::Restore:
    case Command::SoftUpgrade:
      // The power-ups are not active in this version; the turn still costs a lag step.
      LagDown();
      return true;
    case Command::Backup:
    case Command::DedLine: return true;
    case Command::Link: return LinkCommand();
  }
  return true;
}

bool Game::MoveCommand(Direction nDir) {
  game.gbEndSite = false;
  game.gnMoveCount = Add16(game.gnMoveCount, 1);
  game.gnPlayerDir = nDir;
  CoordPair ctTarget = game.gctPlayerPos;
  MoveNumDir(ctTarget, nDir);
  // Off the map (or onto a down server): no turn passes.
  if (!MovePlayer(ctTarget)) return false;
  if (!game.gbEndSite) VirusTurn();
  LagDown();
  return true;
}

bool Game::LinkCommand() {
  game.gbEndSite = false;
  game.gnMoveCount = Add16(game.gnMoveCount, 1);
  game.gnPlayerDir = Direction::Pause;
  game.gbLinkOn = true;
  game.gbScoreNoLinkSite = false;

  const Difficulty& level = Level();
  if (level.bLag) {
    // The cost depends on the tier the bar shows; in the timeout no link is possible.
    const uint32_t barColor = game.pbrNetLag.BarColor;
    if (barColor == color::Black) {
      game.gbLinkOn = false;
      return false;
    }
    game.gnLag = Add16(game.gnLag, LinkCost(barColor));
    game.gnLag = Add16(game.gnLag, 1);
    LagDown();
  }

  shell.PlaySound("ammopu3.mp3");
  PlacePlayer();

  if (!game.gbEndSite && level.nLinkPause > 0) {
    // Let the player see where the mouse landed before the viruses answer.
    frmMain.Refresh();
    shell.SleepTurn(level.nLinkPause);
    VirusTurn();
  }
  return true;
}

Flag Game::MovePlayer(const CoordPair& ctPlayerIn) {
  const CoordPair ctPlayer = ctPlayerIn;
  Flag bSuccessful = false;
  DeathCause nCause{};  // none
  if (CheckDownServers(ctPlayer) == 0 && IsOnMap(ctPlayer)) {
    DrawCell(game.gctPlayerPos, Picture::None);  // a mouse that is nowhere has no cell to clear
    game.gctPlayerPos = ctPlayer;
    bSuccessful = true;
    // An infected server is tested first: a cell with both counts as infected.
    if (CheckInfected(game.gctPlayerPos) != 0) {
      nCause = game.gbLinkOn ? kLinkedOntoInfected : kWalkedOntoInfected;
    } else if (CheckVirus(game.gctPlayerPos, 0) != 0) {
      nCause = game.gbLinkOn ? kLinkedOntoVirus : kWalkedOntoVirus;
    } else {
      DrawCell(game.gctPlayerPos, PlayerPicture(game.gnPlayerDir));
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
  game.gnPlayerDir = Direction::Pause;
  if (dbg.On()) dbg.DebugWrite(Trace("PlacePlayer").Var("gctPlayerPos(original)", game.gctPlayerPos.Text()));

  const CoordPair ctOld = game.gctPlayerPos;
  // The link rule needs a cell to keep away from; a mouse that is nowhere has none.
  const bool bOldOnMap = game.OnMap(ctOld);
  for (;;) {
    const CoordPair ct = RandomCell();
    if (game.gbLinkOn && bOldOnMap && std::abs(ct.nRow - ctOld.nRow) < 2 && std::abs(ct.nCol - ctOld.nCol) < 2)
      continue;
    if (ct == game.gctPlayerPos) continue;
    if (MovePlayer(ct)) break;
  }

  if (dbg.On())
    dbg.DebugWrite(
        Trace("PlacePlayer").Var("gctPlayerPos(new)", game.gctPlayerPos.Text()).Var("gnPlayerDir", game.gnPlayerDir));
}

}  // namespace sw
