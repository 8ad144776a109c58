#include "scoring/Score.h"

#include "game/Skitterweb.h"

namespace sw {

Score::Score(Skitterweb& sw) : opts(sw.opts), dbg(sw.dbg), shell(sw.shell), game(sw.game), frmMain(sw.frmMain) {}

}  // namespace sw
