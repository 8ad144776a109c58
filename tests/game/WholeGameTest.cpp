// Whole games played from the keyboard, checked after every turn.
#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "game/Board.h"
#include "runtime/NumText.h"

namespace sw::test {

namespace {
// What holds after every turn of a game in progress.
void ExpectSettled(const Board& b, int turn) {
  const Game& g = b.g;
  ASSERT_TRUE(g.gctPlayerPos.nCol >= 0 && g.gctPlayerPos.nCol < 24) << turn;
  ASSERT_TRUE(g.gctPlayerPos.nRow >= 0 && g.gctPlayerPos.nRow < 14) << turn;
  ASSERT_GE(g.gnVirusLive, 1) << turn;
  ASSERT_EQ(g.gctVirusPos.size(), static_cast<size_t>(g.gnVirusLive) + 1) << turn;
  ASSERT_EQ(g.gctInfectedPos.size(), static_cast<size_t>(g.gnInfectedCount) + 1) << turn;
  std::set<std::pair<int, int>> cells;
  for (int16_t i = 1; i <= g.gnVirusLive; ++i) {
    const CoordPair v = g.gctVirusPos[static_cast<size_t>(i)];
    // Crashes and infections are resolved, and a virus on the mouse ends the site.
    ASSERT_TRUE(cells.insert({v.nCol, v.nRow}).second) << turn;
    for (int16_t k = 1; k <= g.gnInfectedCount; ++k) ASSERT_NE(v, g.gctInfectedPos[static_cast<size_t>(k)]) << turn;
    ASSERT_NE(v, g.gctPlayerPos) << turn;
    ASSERT_EQ(b.w.At(v.nCol, v.nRow), Picture::Virus) << turn;
  }
  ASSERT_EQ(b.Caption(Label::lblVirus), std::to_string(g.gnVirusLive)) << turn;
  ASSERT_EQ(b.w.Count(Picture::Virus), g.gnVirusLive) << turn;
  ASSERT_LE(g.gnVirusLive, 30);
  ASSERT_EQ(b.Caption(Label::lblScore), FormatThousands(static_cast<double>(b.sc.glScore))) << turn;
  ASSERT_EQ(b.Caption(Label::lblSitesHit), std::to_string(g.gnSitesHit)) << turn;
  ASSERT_EQ(b.Caption(Label::lblReconnects), std::to_string(g.gnReconnects)) << turn;
  ASSERT_EQ(b.sc.gnScoreMesgNum, 0) << turn;  // every queued message was shown
}
}  // namespace

TEST(WholeGameTest, RandomKeysOnEveryDifficulty) {
  const char keys[] = {'8', '9', '6', '3', '2', '1', '4', '7', '0', '5', '+', 'a', 'b', 'd', 'x'};
  for (int16_t diff = 1; diff <= 4; ++diff) {
    Board b(diff, 3.0 + diff);
    Random pick;
    pick.Randomize(diff);
    int games = 1, sites = 0, deaths = 0;
    for (int turn = 0; turn < 3000; ++turn) {
      const int16_t before = b.g.gnGameNum;
      const int16_t sitesBefore = b.g.gnSitesHit;
      b.Key(keys[static_cast<int>(pick.Rnd() * static_cast<float>(sizeof keys))]);
      ASSERT_EQ(b.g.gbGameOn, -1);  // "Play again?" is answered Yes
      if (b.g.gnGameNum != before) ++games;
      else if (b.g.gnSitesHit > sitesBefore) sites += b.g.gnSitesHit - sitesBefore;
      ExpectSettled(b, turn);
      for (const ShownMsg& m : b.w.messages) {
        ASSERT_EQ(m.szTitle.rfind("Error", 0), std::string::npos) << m.szTitle << ": " << m.text;
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
