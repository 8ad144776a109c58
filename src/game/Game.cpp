#include "game/Game.h"

#include "game/Skitterweb.h"

namespace sw {

Game::Game(Skitterweb& sw)
    : opts(sw.opts), dbg(sw.dbg), shell(sw.shell), score(sw.score), hs(sw.hs), rnd(sw.rnd), frmMain(sw.frmMain) {}

}  // namespace sw
