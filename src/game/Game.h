#pragma once
// The game module: lookups and drawing over the map, game and site set-up,
// the player's commands, the viruses' turn, deaths, reconnects, sites and net lag.
#include <cstdint>
#include <optional>
#include <string>

#include "runtime/Difficulty.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"

namespace sw {

class Options;
class DebugLog;
class Shell;
class Score;
enum class ScoreEvent : int16_t;
class HighScores;
class HighScoreDialog;
class Random;
struct ControlProfile;

// The player's commands, in the order a control profile lists their keys.
enum class Command : int16_t {
  MoveUp,
  MoveUpRight,
  MoveRight,
  MoveDownRight,
  MoveDown,
  MoveDownLeft,
  MoveLeft,
  MoveUpLeft,
  Wait,
  Pause,
  AntiVirus,
  Reboot,
  Backup,
  Restore,
  SoftUpgrade,
  DedLine,
  Link,
};

// The character a typed key stands for in a profile: an upper-case letter that
// no command is bound to stands for its lower case (Caps Lock never unbinds a key).
int16_t KeyFor(const ControlProfile& cp, int16_t KeyAscii);
// The first command of the profile bound to the character, in profile order.
// The dedicated line is not handled in this version: a key bound to it alone is unbound.
std::optional<Command> CommandFor(const ControlProfile& cp, int16_t KeyAscii);

class Game {
 public:
  Game(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score, HighScores& hs,
       HighScoreDialog& webmasters, Random& rnd, IMainWindow& frmMain);

  // ---- lookups and drawing
  int16_t IsOnMap(const CoordPair& ct);
  void MoveNumDir(CoordPair& ctPos, Direction nDir);
  int16_t CheckVirus(const CoordPair& ctPos, int16_t nSkipVirus);
  int16_t CheckInfected(const CoordPair& ctPos);
  int16_t CheckDownServers(const CoordPair& ctPos);
  int16_t CanVirusEnter(const CoordPair& ctPos, int16_t nVirus);
  void DrawViruses();
  void ClearViruses();
  // SelectCell then set the cell's picture (Picture::None erases it).
  void DrawCell(const CoordPair& ct, Picture pic);
  // The virus counter shows the count, in red when the map holds the most it can.
  void ShowVirusCount();

  // ---- game start and site set-up
  void StartGame();
  void BuildMap();
  void InitMap();
  void ResetObjects();
  // Window and grid geometry from the map size and the grid-lines option.
  void SetSize();
  void SetGrid();

  // ---- player commands
  // The main window's character handler: one typed character is one turn.
  void Form_KeyPress(int16_t KeyAscii);
  // Carries out one command; false when it ended early (no exit trace).
  bool DoCommand(Command cmd);
  Flag MovePlayer(const CoordPair& ctPlayer);
  void PlacePlayer();

  // ---- viruses
  void PlaceVirus();
  void VirusTurn();
  void VirusPhase();
  void MoveVirus();
  void CheckVirusCrash();
  void CheckVirusInfected();
  void KillVirus(int16_t nVirus, ScoreEvent nEvent);

  // ---- death and site completion
  void PlayerDead(DeathCause nCause);
  void NewSite();

  // ---- net lag
  void LagDown();
  // The lag display: the bar and the label beside it, as the state holds them.
  void ShowLag(uint32_t labelBack, uint32_t labelFore, const std::string& caption);

 private:
  // The difficulty of the current options record.
  int16_t Diff() const;
  const Difficulty& Level() const { return DifficultyOf(Diff()); }
  // One cell drawn at random: column first, then row.
  CoordPair RandomCell();
  bool MoveCommand(Direction nDir);
  bool LinkCommand();
  // What a link adds to the lag in the tier the bar shows (before the step every link costs).
  static int16_t LinkCost(uint32_t barColor);

  GameState& game;
  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  Score& score;
  HighScores& hs;
  HighScoreDialog& webmasters;
  Random& rnd;
  IMainWindow& frmMain;
};

}  // namespace sw
