#pragma once
// The whole game model, wired together in this one place. Each module keeps
// references to the modules it reaches, taken here once.
#include "debuglog/DebugLog.h"
#include "game/Game.h"
#include "game/MainWindow.h"
#include "game/Shell.h"
#include "options/Options.h"
#include "runtime/Random.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

namespace sw {

class Skitterweb {
 public:
  explicit Skitterweb(IMainWindow& window)
      : frmMain(window), opts(*this), dbg(*this), shell(*this), score(*this), hs(*this), game(*this) {}
  Skitterweb(const Skitterweb&) = delete;
  Skitterweb& operator=(const Skitterweb&) = delete;

  IMainWindow& frmMain;
  Random rnd;  // the game's generator
  Options opts;
  DebugLog dbg;
  Shell shell;
  Score score;
  HighScores hs;
  Game game;
};

}  // namespace sw
