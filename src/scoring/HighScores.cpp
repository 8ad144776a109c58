// The webmaster lists in memory: who earns a place at the end of a game, and
// entering the game into the places earned.
#include "scoring/HighScores.h"

#include "debuglog/DebugLog.h"
#include "runtime/GameState.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "scoring/Score.h"

namespace sw {

HighScores::HighScores(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score)
    : opts(opts), dbg(dbg), shell(shell), game(game), score(score) {}

void HighScores::ClearAll() {
  for (auto& type : gwHighScores)
    for (auto& diff : type)
      for (auto& entry : diff) entry = WebmasterEntry{};
}

namespace {

// The first slot of the list that the score (with its sites) beats; 0 for none.
int16_t SlotEarned(const HighScores::List& list, int32_t lScore, int16_t nSites) {
  for (int16_t i = 1; i <= 10; ++i) {
    const WebmasterEntry& e = list[static_cast<size_t>(i)];
    if (lScore > e.lScore || (lScore == e.lScore && nSites > e.nSites)) return i;
  }
  return 0;
}

// Slots nSlot..9 move one place down (the tenth entry is lost); the new entry takes nSlot.
void InsertAt(HighScores::List& list, int16_t nSlot, int32_t lScore, int16_t nSites) {
  for (int16_t i = 9; i >= nSlot; --i) list[static_cast<size_t>(i) + 1] = list[static_cast<size_t>(i)];
  list[static_cast<size_t>(nSlot)] = WebmasterEntry{lScore, nSites, ""};
}

}  // namespace

void HighScores::CheckHighScore() {
  // The board is only being prepared: no game has been played.
  if (game.gbGameInit) return;
  try {
    gnGlobalSlot = 0;
    gnPersonalSlot = 0;
    const int16_t nDiff = opts.CheckedDiff();
    if (score.glScore != 0) {
      gnGlobalSlot = SlotEarned(gwHighScores[kAllTime][nDiff], score.glScore, game.gnSitesHit);
      gnPersonalSlot = SlotEarned(gwHighScores[kPersonal][nDiff], score.glScore, game.gnSitesHit);
    }
    if (gnGlobalSlot <= 0 && gnPersonalSlot <= 0) return;

    if (dbg.On()) {
      dbg.DebugWrite(Trace("CheckHighScore")
                         .In("glScore", score.glScore)
                         .In("gopOpts(gnOpt).nDiff", nDiff)
                         .Var("gnGlobalSlot", gnGlobalSlot)
                         .Var("gnPersonalSlot", gnPersonalSlot));
    }
    shell.ShowMsg(std::string("Well done!  A new high score!") + "\n" + "You shall be added to the webmaster lists!",
                  MsgButtons::OkOnly, "New Webmaster", "comp-webmaster qualify.mp3");
    AddHighScore();
  } catch (const RuntimeError& err) {
    shell.ReportError("CheckHighScore", err);
  }
}

void HighScores::AddHighScore() {
  try {
    if (dbg.On())
      dbg.DebugWrite(Trace("AddHighScore").Var("gnGlobalSlot", gnGlobalSlot).Var("gnPersonalSlot", gnPersonalSlot));
    const int16_t nDiff = opts.CheckedDiff();
    // A slot is 1 to 10, or 0 for none. The names stay empty until the player types one into the lists.
    if (gnGlobalSlot > 0) InsertAt(gwHighScores[kAllTime][nDiff], gnGlobalSlot, score.glScore, game.gnSitesHit);
    if (gnPersonalSlot > 0) InsertAt(gwHighScores[kPersonal][nDiff], gnPersonalSlot, score.glScore, game.gnSitesHit);
  } catch (const RuntimeError& err) {
    shell.ReportError("AddHighScore", err);
  }
}

}  // namespace sw
