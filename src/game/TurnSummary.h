#pragma once
// The news of a turn in one short sentence, for a player who cannot see the
// board: what changed between the key press and the end of its turn.
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/GameState.h"
#include "runtime/MainWindow.h"

namespace sw {

class Game;

// The lag tier the bar shows, in words: "blue", "yellow", "red", "timeout"; "" while
// the rules have not coloured it (easy has no lag).
std::string LagTierWord(const ProgBarState& bar);

// What a player would want to know of the board, taken at one moment.
struct TurnView {
  CoordPair whisk;
  std::vector<CoordPair> viruses;  // the live ones, in list order
  int16_t nInfected;
  int16_t nReconnects;
  int16_t nSitesHit;
  int16_t nGameNum;
  bool bGameOn;
  bool bEndSite;    // the site is over, or not started: no command has run on it yet
  std::string lag;  // LagTierWord
  bool operator==(const TurnView&) const = default;

  static TurnView Of(const GameState& game);
};

// What changed from `before` to `after`, in a sentence or two: a death, a site hit or a
// new game; crashes and viruses lost on infected servers; where Whisk is (when Whisk moved
// or the site was laid out again); how many viruses are left and the two nearest; the lag
// tier when it changed. "" when nothing changed.
std::string Summarize(const TurnView& before, const TurnView& after);

class TurnSummary {
 public:
  TurnSummary(const GameState& game, Game& engine, IMainWindow& frmMain);

  // The key handler, followed by the news of the turn it played, if any.
  void Form_KeyPress(int16_t KeyAscii);

 private:
  const GameState& game;
  Game& engine;
  IMainWindow& frmMain;
};

}  // namespace sw
