#pragma once
// The webmaster lists: per difficulty an all-time and a personal list of ten
// entries, kept in the enciphered file "SWhscore.dat".
#include <cstdint>
#include <functional>
#include <string>

namespace sw {

class Options;
class DebugLog;
class Shell;
struct GameState;
class Score;

struct WebmasterEntry {
  int32_t lScore = 0;
  int16_t nSites = 0;
  std::string szName;
  bool operator==(const WebmasterEntry&) const = default;
};

class HighScores {
 public:
  static constexpr int kPersonal = 0;
  static constexpr int kAllTime = 1;
  static constexpr const char* kFileName = "SWhscore.dat";
  static constexpr const char* kTempName = "SWhscore.tmp";
  static constexpr const char* kKey = "tinfoil";

  HighScores(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score);

  // [list type 0..1][difficulty 1..4][slot 1..10]; index 0 of difficulty and slot unused.
  WebmasterEntry gwHighScores[2][5][11];
  int16_t gnGlobalSlot = 0;
  int16_t gnPersonalSlot = 0;

  WebmasterEntry& Entry(int nType, int nDiff, int nSlot) { return gwHighScores[nType][nDiff][nSlot]; }
  const WebmasterEntry& Entry(int nType, int nDiff, int nSlot) const { return gwHighScores[nType][nDiff][nSlot]; }
  // Every entry back to score 0, sites 0, empty name.
  void ClearAll();

  // The plain list text: 80 write-list lines, personal then all-time, easy to
  // nightmare, slot 1 to 10.
  std::string PlainText() const;

  void LoadHighScores();
  void WriteHighScores();
  void CheckHighScore();
  void AddHighScore();

 private:
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  GameState& game;
  Score& score;
};

}  // namespace sw
