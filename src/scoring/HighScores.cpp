#include "scoring/HighScores.h"

#include "game/Skitterweb.h"

namespace sw {

HighScores::HighScores(Skitterweb& sw)
    : opts(sw.opts), dbg(sw.dbg), shell(sw.shell), game(sw.game), score(sw.score) {}

}  // namespace sw
