#pragma once
// The game module: the map and its objects, game and site set-up, the
// player's commands, the viruses' turn, deaths, reconnects, sites and net lag.
#include <cstdint>
#include <string>
#include <vector>

#include "game/MainWindow.h"

namespace sw {

class Skitterweb;
class Options;
class DebugLog;
class Shell;
class Score;
class HighScores;
class Random;

// A map cell: column (0 = left) and row (0 = top); (-1, -1) is nowhere.
struct CoordPair {
  int16_t nCol = -1;
  int16_t nRow = -1;
  bool operator==(const CoordPair&) const = default;
  // "5,3": column, comma, row, as trace lines write a pair.
  std::string Text() const;
};

// Causes of death passed to PlayerDead.
enum DeathCause : int16_t {
  kWalkedOntoVirus = 1,
  kVirusReachedMouse = 2,
  kWalkedOntoInfected = 3,
  kLinkedOntoVirus = 4,
  kLinkedOntoInfected = 5,
  kSleepingMouse = 6,
};

class Game {
 public:
  explicit Game(Skitterweb& sw);

  // ---- map size (fixed at 24 x 14 when the main window loads)
  int16_t gnMapCols = 24;
  int16_t gnMapRows = 14;

  // ---- objects on the map; lists are 1-based, slot 0 holds (-1, -1)
  CoordPair gctPlayerPos{-1, -1};
  std::vector<CoordPair> gctVirusPos{CoordPair{}};
  std::vector<CoordPair> gctInfectedPos{CoordPair{}};
  std::vector<CoordPair> gctDownServerPos{CoordPair{}};
  int16_t gnVirusLive = 0;
  int16_t gnInfectedCount = 0;
  int16_t gnDownServerCount = 0;
  int16_t gnVirusMax = 0;

  // ---- counters and flags (flags: true = -1, false = 0)
  int16_t gnGameNum = 0;
  int16_t gbGameOn = 0;
  int16_t gbGameInit = 0;
  int16_t gnSitesHit = 0;
  int16_t gnReconnects = 0;
  int16_t gnMoveCount = 0;
  int16_t gnPlayerDir = 5;
  int16_t gbEndSite = 0;
  int16_t gbWaitOn = 0;
  int16_t gbLinkOn = 0;
  int16_t gbScoreNoLinkSite = -1;
  int16_t gbScoreMinLag = 1;
  int16_t gnLag = 0;
  int16_t gnColorLag = 0;

  // Test hook: when false, StartGame leaves the random generator as it is
  // instead of seeding it from the timer, so a test can seed it itself.
  bool bSeedFromTimer = true;

  // ---- lookups and drawing
  int16_t SamePos(const CoordPair& a, const CoordPair& b);
  void SetPos(CoordPair& ct, int16_t nCol, int16_t nRow);
  int16_t IsOnMap(const CoordPair& ct);
  void MoveNumDir(CoordPair& ctPos, int16_t nDir);
  int16_t CheckVirus(const CoordPair& ctPos, int16_t nSkipVirus);
  int16_t CheckInfected(const CoordPair& ctPos);
  int16_t CheckDownServers(const CoordPair& ctPos);
  int16_t CanVirusEnter(const CoordPair& ctPos, int16_t nVirus);
  void DrawViruses();
  void ClearViruses();
  // SelectCell then set the cell's picture (Picture::None erases it).
  void DrawCell(const CoordPair& ct, Picture pic);

  // ---- game start and site set-up
  void StartGame();
  void BuildMap();
  void InitMap();
  void ResetObjects();

  // ---- player commands
  void Form_KeyPress(int16_t KeyAscii);
  int16_t MovePlayer(const CoordPair& ctPlayer);
  void PlacePlayer();

  // ---- viruses
  void PlaceVirus();
  void VirusTurn();
  void VirusPhase();
  void MoveVirus();
  void CheckVirusCrash();
  void CheckVirusInfected();
  void KillVirus(int16_t nVirus, int16_t nEvent);

  // ---- death and site completion
  void PlayerDead(int16_t nCause);
  void NewSite();

  // ---- net lag
  void LagDown();

 private:
  // The difficulty of the current options record (1 easy .. 4 nightmare).
  int16_t Diff() const;
  // One cell drawn at random: column first, then row.
  CoordPair RandomCell();
  // The commands of Form_KeyPress. Each returns false when the command ended
  // early (no exit trace).
  bool MoveCommand(int16_t nDir, CoordPair& ctTarget);
  bool LinkCommand();
  // What a link adds to the lag in the tier the bar shows (before the step every link costs).
  static int16_t LinkCost(uint32_t barColor);

  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  Score& score;
  HighScores& hs;
  Random& rnd;
  IMainWindow& frmMain;
};

}  // namespace sw
