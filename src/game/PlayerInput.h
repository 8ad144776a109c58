#pragma once
// Keys, clicks and taps are one path. A click on the board gives the step toward
// the cell under the pointer (Pause on Whisk's own cell) by the key that the
// current control profile binds to it, and the board's menu gives Pause, Wait
// and Link the same way: the same guards, pause rule, traces and news as the key.
// While the pointer is over the board the window shows the step a click would
// take: a direction pointer and the outline of the cell Whisk would land on.
#include <cstdint>
#include <string>

#include "game/Game.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/Trace.h"

namespace sw {

class Options;
class DebugLog;
class Shell;
class TurnSummary;
struct ControlProfile;

// The direction of the step from `from` toward `to`; Pause on the same cell.
// The eight directions split the plane into slices of 45 degrees centred on the axes and
// the diagonals: with ax, ay the column and row distances, horizontal when
// (ax + ay)^2 < 2 ax^2, vertical when (ax + ay)^2 < 2 ay^2, else diagonal. No cell is a tie.
Direction DirectionToward(const CoordPair& from, const CoordPair& to);
// The command of a direction: one of the eight moves, or Pause.
Command StepCommand(Direction nDir);
// The key of the profile that gives the command: 0 when none does (no key bound to it,
// or its key taken by a command earlier in the profile).
int16_t KeyOfCommand(const ControlProfile& cp, Command cmd);
// A key as the Controls dialog shows it: "Tab", "Enter", "Space", "5", "D".
std::string KeyCaption(int16_t key);

class PlayerInput {
 public:
  PlayerInput(const GameState& game, const Options& opts, DebugLog& dbg, Shell& shell, TurnSummary& news,
              IMainWindow& frmMain);

  // A typed character: its turn and news, then the step shown anew.
  void Form_KeyPress(int16_t KeyAscii);
  // The pointer, or a finger, is over this cell of the board; (-1, -1) when it is off the board.
  void grdMap_MouseMove(const CoordPair& ct);
  // A button released over a cell of the board: the primary one (1) takes the step the pointer
  // shows there. Nothing while a key would do nothing.
  void grdMap_MouseUp(int16_t Button, const CoordPair& ct);
  // A button pressed over the board: the secondary one (2) opens the board's menu.
  void grdMap_MouseDown(int16_t Button);
  // An item of the board's menu: Pause, Wait or Link, as its key gives it.
  void menBoard_Click(Command cmd);
  // Works the step out again from the game and tells the window when it changed: after every
  // command, and when a pause begins or ends, although the pointer stands still. Never raises.
  void Update() noexcept;

  // The step shown: the direction pointer (None: the window's own pointer) and the landing cell.
  Direction StepDir() const { return nDir_; }
  CoordPair Outline() const { return ctOutline_; }

  // The board's menu, in order.
  static constexpr Command kMenu[] = {Command::Pause, Command::Wait, Command::Link};

 private:
  // A command may be given now: a game is on and no pause or wait holds it.
  bool Ready() const { return game.gbGameOn && !game.Busy(); }
  // The key that gives cmd in the current profile; 0 when none does.
  int16_t KeyOf(Command cmd) const;
  // Writes the trace of what gave a command, then runs its key (nothing more when it has none).
  void Give(TraceRecord rec, int16_t key);

  const GameState& game;
  const Options& opts;
  DebugLog& dbg;
  Shell& shell;
  TurnSummary& news;
  IMainWindow& frmMain;
  CoordPair ctHover_{-1, -1};
  Direction nDir_ = Direction::None;
  CoordPair ctOutline_{-1, -1};
};

}  // namespace sw
