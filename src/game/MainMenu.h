#pragma once
// What the main window's menus, its difficulty label and its close box do:
// start-up, the game, options and debug-log commands, About and Credits.
// The window builds the menus and hands each click here.
#include <cstdint>
#include <functional>
#include <string>

namespace sw {

struct GameState;
class Options;
class OptionsFile;
class DebugLog;
class DebugSession;
class StateDump;
class Shell;
class HighScores;
class HighScoreDialog;
class Score;
class Game;
class DebugMarkDialog;
class CommandListDialog;
class IMainWindow;

class MainMenu {
 public:
  MainMenu(GameState& game, Options& opts, OptionsFile& optsFile, DebugLog& dbg, DebugSession& session, StateDump& dump,
           Shell& shell, Score& score, HighScores& hs, HighScoreDialog& webmasters, Game& engine, DebugMarkDialog& mark,
           CommandListDialog& controls, IMainWindow& frmMain);

  // Start-up: loads the options, applies them through the menu commands while
  // gbGameInit is set, starts the first game and loads the webmaster lists.
  void Form_Load();
  // A close request: the media control is closed and Quit runs instead.
  void Form_Unload();
  // A button pressed on the difficulty label or its caption (2 = right).
  void lblDiff_MouseDown(int16_t Button);

  void menNewGame_Click();
  void menHighScores_Click();
  void menQuit_Click();
  void menSound_Click();
  void menGrid_Click();
  void menControls_Click();
  void menDiffLevel_Click(int16_t Index);
  void menStartSiteNum_Click(int16_t Index);
  void menUseDL_Click();
  void menClearDL_Click();
  void menMarkDL_Click();
  void menHelpFile_Click();
  void menAbout_Click();
  void menCredits_Click();

  // Called after every command of the menus, the difficulty label and the close box.
  std::function<void()> onCommandEnd;

  // Ends the program at once, as Quit does but asking nothing and playing
  // nothing: the options are saved and the debug log is closed and kept.
  void EndSession();

 private:
  // Runs a command; a run-time error it raises is reported under its name.
  void Run(const char* szProc, const std::function<void()>& command);
  // Hands the current score to the webmaster lists while a game is in progress.
  void RecordGame();
  void ShowHighScore(int16_t nDiff);

  GameState& game;
  Options& opts;
  OptionsFile& optsFile;
  DebugLog& dbg;
  DebugSession& session;
  StateDump& dump;
  Shell& shell;
  Score& score;
  HighScores& hs;
  HighScoreDialog& webmasters;
  Game& engine;
  DebugMarkDialog& mark;
  CommandListDialog& controls;
  IMainWindow& frmMain;
};

}  // namespace sw
