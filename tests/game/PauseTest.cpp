// One turn never runs inside another: whoever starts a timed pause, key presses
// are dropped and the guarded commands refused until the last pause ends.
#include <gtest/gtest.h>

#include <functional>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

// A key and every guarded command, each refused with its sound (a pause of its own): nothing changes.
void ExpectEverythingRefused(Board& b) {
  MainMenu& m = b.sw.menu;
  const std::function<void()> guarded[] = {
      [&] { m.menNewGame_Click(); },    [&] { m.menQuit_Click(); },          [&] { m.menHighScores_Click(); },
      [&] { m.menDiffLevel_Click(3); }, [&] { m.menStartSiteNum_Click(5); }, [&] { m.lblDiff_MouseDown(2); },
      [&] { m.Form_Unload(); },
  };
  auto state = [&] {
    return Ints({b.g.gctPlayerPos.nCol, b.g.gctPlayerPos.nRow, b.g.gbSleepOn.Code(), b.g.gnMoveCount, b.g.gnGameNum,
                 int(b.w.messages.size()), int(b.w.dialogs.size()), b.sw.opts.Current().nDiff,
                 b.sw.opts.Current().nStartSite, b.w.ended});
  };
  const Ints before = state();
  b.Key('8');
  for (const auto& command : guarded) {
    b.w.sounds.clear();
    command();
    EXPECT_EQ(b.w.sounds, std::vector<std::string>{".\\sounds\\powerup2.mp3"});
  }
  EXPECT_EQ(state(), before);
}

}  // namespace

TEST(PauseTest, EveryPauseKeepsTurnsOutUntilTheLastOneEnds) {
  const struct {
    const char* name;
    int16_t nDiff;
    std::function<void(Board&)> start;
  } cases[] = {
      {"a move on nightmare", 4, [](Board& b) { b.Key('8'); }},
      {"a wait", 2, [](Board& b) { b.Key('0'); }},
      {"a link on hard", 3, [](Board& b) { b.Key('+'); }},
      {"a death", 2, [](Board& b) { b.Key('6'); }},  // onto the virus next door: a box with a sound
      {"a site's end", 2,
       [](Board& b) {  // the last two viruses crash: bonus boxes and the site's box, each with a sound
         b.Set(At(5, 5), {At(7, 4), At(7, 5)});
         b.Key('4');
       }},
      {"a new game", 2, [](Board& b) { b.eng.StartGame(); }},  // its start sound
      {"the goodbye", 2,
       [](Board& b) {
         b.g.gbGameOn = false;
         b.sw.menu.menQuit_Click();
       }},  // nothing to ask
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    TempDir dir;
    Board b(c.nDiff, At(5, 5), {At(7, 5), At(20, 12)});
    b.sw.opts.Current().bSound = true;
    int inside = 0;
    b.w.onEvents = [&] {
      ++inside;
      EXPECT_EQ(b.g.gbSleepOn.Code(), -1);
      ExpectEverythingRefused(b);
    };
    c.start(b);
    EXPECT_EQ(std::make_pair(inside, int(b.g.gbSleepOn.Code())), std::make_pair(1, 0));
    if (b.w.ended) {
      EXPECT_EQ(std::count(b.w.sleeps.begin(), b.w.sleeps.end(), 2000), 1);  // the goodbye is heard out
      continue;
    }
    // Once the pauses are over, a key plays.
    b.Set(At(5, 5), {At(20, 12)});
    b.Key('8');
    EXPECT_EQ(b.g.gctPlayerPos, At(5, 4));
  }
}

TEST(PauseTest, AWaitRefusesTheGuardedCommands) {
  Board b(2, At(5, 5), {At(20, 12)});
  b.sw.opts.Current().bSound = true;
  b.g.gbWaitOn = true;
  ExpectEverythingRefused(b);
}

}  // namespace sw::test
