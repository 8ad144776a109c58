// Whole games played from the keyboard, checked after every turn.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

TEST(WholeGameTest, RandomKeysOnEveryDifficulty) {
  const char keys[] = {'8', '9', '6', '3', '2', '1', '4', '7', '0', '5', '+', 'a', 'b', 'd', 'x'};
  for (int16_t diff = 1; diff <= 4; ++diff) {
    Board b(diff, 3.0 + diff);
    Random pick;
    pick.Randomize(diff);
    int games = 1, sites = 0, deaths = 0;
    for (int turn = 0; turn < 3000; ++turn) {
      const int16_t gamesBefore = b.g.gnGameNum, sitesBefore = b.g.gnSitesHit;
      b.Key(keys[static_cast<int>(pick.Rnd() * static_cast<float>(sizeof keys))]);
      ASSERT_EQ(b.g.gbGameOn, -1);  // "Play again?" is answered Yes
      if (b.g.gnGameNum != gamesBefore) ++games;
      else sites += b.g.gnSitesHit - sitesBefore;
      ASSERT_EQ(b.Broken(), "") << "difficulty " << diff << " turn " << turn;
      for (const ShownMsg& m : b.w.messages) {
        ASSERT_NE(m.szTitle.rfind("Error", 0), 0u) << m.szTitle << ": " << m.text;
        deaths += m.szTitle == "Player Died";
      }
      b.w.messages.clear();
    }
    // A random walker loses games and wins some sites along the way.
    EXPECT_GT(games, 1) << diff;
    EXPECT_GT(sites, 0) << diff;
    EXPECT_GT(deaths, 2) << diff;
  }
}

}  // namespace sw::test
