#pragma once
// The debug log as the player meets it: opening it (with a message when that
// fails), clearing it, closing it with the choice to keep it, and the state
// dump that marks and the menu write into it.
#include <cstdint>

namespace sw {

struct GameState;
class Options;
class DebugLog;
class Shell;
class Score;
class HighScores;
class IMainWindow;

class DebugSession {
 public:
  DebugSession(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score, HighScores& hs,
               IMainWindow& frmMain);
  ~DebugSession();
  DebugSession(const DebugSession&) = delete;
  DebugSession& operator=(const DebugSession&) = delete;

  // Opens "SWDebug.log" (truncating it when bClear) and writes the header. On
  // failure logging is switched off, the player is told unless bQuiet, and the
  // menu entry loses its check mark.
  void DebugOpen(bool bClear, bool bQuiet);
  // Empties the log: the exit block, then a fresh file with its header.
  void DebugClear();
  // After the log is closed: asks whether to keep it, and deletes it if not.
  void DebugClose();
  // The whole game state, section by section (StateDump.cpp).
  void DebugWriteAll();

 private:
  GameState& game;
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  Score& score;
  HighScores& hs;
  IMainWindow& frmMain;
};

}  // namespace sw
