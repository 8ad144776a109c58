#pragma once
// Score events, bonuses, extra reconnects and the queue of score messages.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sw {

class Options;
class DebugLog;
class Shell;
struct GameState;
class IMainWindow;

// One queued score message.
struct ScoreMesg {
  std::string szMesg;
  int32_t msButtons = 0;
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
  void AddPoints(int16_t nEvent);
  void AddScoreMesg(const std::string& szMesg, const std::string& szSound, int32_t msButtons,
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
