#pragma once
// Score events, bonuses, extra reconnects and the queue of score messages.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/MainWindow.h"

namespace sw {

class Options;
class DebugLog;
class Shell;
struct GameState;

// The score events AddPoints takes, each with its base points (3 and 4 are plain events
// and 7 a reserved one: nothing raises them, but the tables and the state dump keep them).
enum class ScoreEvent : int16_t {
  VirusKilled = 1,  // a virus destroyed, by a crash or on an infected server
  SiteHit = 2,      // raises the three site bonuses below
  Plain3 = 3,
  Plain4 = 4,
  NoLinkBonus = 5,    // the site hit without linking
  FewMovesBonus = 6,  // the site hit in eight moves or fewer
  Reserved = 7,       // scores nothing
  LowLagBonus = 8,    // the site hit with little lag
};

// One queued score message.
struct ScoreMesg {
  std::string szMesg;
  MsgButtons msButtons = MsgButtons::OkOnly;
  std::string szTitle;
  std::string szSound;
};

class Score {
 public:
  // The tables are ready as soon as the score module is built.
  Score(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, IMainWindow& frmMain);

  int32_t glScore = 0;
  std::array<int32_t, 9> glPoints{};          // events 1 to 8
  std::array<int32_t, 9> glBasePoints{};      // events 1 to 8
  std::array<int16_t, 5> glScoreMod{};        // difficulties 1 to 4
  std::array<int32_t, 5> glExtraLifeBonus{};  // difficulties 1 to 4
  int32_t glNextExtraLife = 0;
  int16_t gnScoreMesgNum = 0;
  std::vector<ScoreMesg> gsmScoreMesg{ScoreMesg{}};  // 1 to gnScoreMesgNum; slot 0 unused

  // Sets up the tables, resets the site's scoring flags and the message queue.
  void InitScore();
  void SetPoints();
  void AddPoints(ScoreEvent nEvent);
  void AddScoreMesg(const std::string& szMesg, const std::string& szSound, MsgButtons msButtons,
                    const std::string& szTitle);
  void WriteScoreMesg();

 private:
  // The per-difficulty and per-event tables.
  void InitTables();

  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  GameState& game;
  IMainWindow& frmMain;
};

}  // namespace sw
