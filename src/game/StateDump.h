#pragma once
// The state dump that marks and the debug menu write into the log: options,
// the selected commands, the score and the game, one labelled line each.
namespace sw {

struct GameState;
class Options;
class DebugLog;
class Shell;
class Score;
class HighScores;

class StateDump {
 public:
  // Attaches itself to the log, which asks for the dump after a marked trace line.
  StateDump(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score, HighScores& hs);
  ~StateDump();
  StateDump(const StateDump&) = delete;
  StateDump& operator=(const StateDump&) = delete;

  // The whole game state, section by section.
  void DebugWriteAll();

 private:
  GameState& game;
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  Score& score;
  HighScores& hs;
};

}  // namespace sw
