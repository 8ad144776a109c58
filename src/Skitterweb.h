#pragma once
// The whole game model, built in one place. Each module is given the modules
// it uses, and is built after them: nothing can reach a neighbour that is not
// built yet.
#include "debuglog/DebugLog.h"
#include "debuglog/DebugMarkDialog.h"
#include "debuglog/DebugSession.h"
#include "game/Game.h"
#include "game/MainMenu.h"
#include "game/PlayerInput.h"
#include "game/Review.h"
#include "game/StateDump.h"
#include "game/TurnSummary.h"
#include "options/CommandListDialog.h"
#include "options/OptionsFile.h"
#include "options/SelectDialog.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/Options.h"
#include "runtime/Random.h"
#include "runtime/Shell.h"
#include "scoring/HighScoreDialog.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

namespace sw {

class Skitterweb {
 public:
  explicit Skitterweb(IMainWindow& window) : frmMain(window) {
    // The step shown over the board follows the game when the pointer stands still: every
    // command updates it, and so does every pause as it begins and ends.
    shell.onPause = [this] { input.Update(); };
    menu.onCommandEnd = [this] { input.Update(); };
  }
  Skitterweb(const Skitterweb&) = delete;
  Skitterweb& operator=(const Skitterweb&) = delete;

  IMainWindow& frmMain;
  Random rnd;      // the game's generator
  GameState game;  // the map, its objects, the turn's counters and flags
  Options opts;    // the players' records; the guest until the file is read
  DebugLog dbg{opts, game};
  Shell shell{game, opts, dbg, frmMain};
  Score score{game, opts, dbg, shell, frmMain};
  HighScores hs{game, opts, dbg, shell, score};
  HighScoreDialog webmasters{opts, dbg, shell, hs, frmMain};
  DebugSession session{opts, dbg, shell, frmMain};
  StateDump dump{game, opts, dbg, shell, score, hs};
  OptionsFile optsFile{opts, dbg, session, shell, frmMain};
  Game engine{game, opts, dbg, shell, score, hs, webmasters, rnd, frmMain};
  DebugMarkDialog mark{opts, dbg, frmMain};
  SelectDialog select{dbg, shell, frmMain};
  CommandListDialog controls{opts, dbg, shell, select, frmMain};
  TurnSummary news{game, engine, frmMain};                   // the key handler, with the news of each turn
  PlayerInput input{game, opts, dbg, shell, news, frmMain};  // keys, clicks and taps; the step a click takes
  Review review{game, frmMain};                              // the review keys' cursor
  MainMenu menu{game,  opts, optsFile,   dbg,    session, dump,     shell,
                score, hs,   webmasters, engine, mark,    controls, frmMain};
};

}  // namespace sw
