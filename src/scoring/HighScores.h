#pragma once
// The webmaster lists: per difficulty an all-time and a personal list of ten
// entries, kept in the enciphered file "SWhscore.dat".
#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace sw {

class Options;
class DebugLog;
class Shell;
struct GameState;
class Score;
class RuntimeError;

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

  // One list: slots 1 to 10, slot 0 unused.
  using List = std::array<WebmasterEntry, 11>;
  // [list type 0..1][difficulty 1..4]; difficulty 0 unused.
  std::array<std::array<List, 5>, 2> gwHighScores{};
  int16_t gnGlobalSlot = 0;
  int16_t gnPersonalSlot = 0;

  WebmasterEntry& Entry(int nType, int nDiff, int nSlot) { return gwHighScores[nType][nDiff][nSlot]; }
  const WebmasterEntry& Entry(int nType, int nDiff, int nSlot) const { return gwHighScores[nType][nDiff][nSlot]; }
  // Every entry back to score 0, sites 0, empty name.
  void ClearAll();

  // The plain list text: 80 write-list lines, personal then all-time, easy to
  // nightmare, slot 1 to 10.
  std::string PlainText() const;

  // Reads "SWhscore.dat". A file that fails to load is copied aside as
  // "SWhscore.dat.bad" before the next write replaces it.
  void LoadHighScores();
  // The same from the file's bytes, as if read from the file.
  void LoadHighScoresFrom(const std::string& bytes);
  void WriteHighScores();
  // What WriteHighScores puts in the file: the plain text enciphered, on one line.
  std::string FileText() const;
  void CheckHighScore();
  void AddHighScore();

 private:
  // The plain text of a file's bytes.
  static std::string Decipher(const std::string& bytes);
  // The 80 entries from the plain text, as printed to a file (with its line end).
  void ReadEntries(const std::string& printed);
  void LoadFailed(const RuntimeError& err);

  bool keepAside_ = false;  // the file on disk failed to load: keep it before replacing it
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  GameState& game;
  Score& score;
};

}  // namespace sw
