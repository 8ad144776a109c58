// Score events, site bonuses, extra reconnects and the message queue.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "runtime/RuntimeError.h"

namespace sw::test {

TEST(ScoreTest, PointsTablePerDifficulty) {
  const int32_t expected[5][9] = {{},
                                  {0, 3, 20, 1, 2, 25, 45, 5, 1},
                                  {0, 15, 100, 5, 10, 125, 225, 25, 5},
                                  {0, 75, 500, 25, 50, 625, 1125, 125, 25},
                                  {0, 450, 3000, 150, 300, 3750, 6750, 750, 150}};
  Board b;
  for (int16_t d = 1; d <= 4; ++d) {
    b.sw.opts.Current().nDiff = d;
    b.sc.SetPoints();
    for (size_t e = 1; e <= 8; ++e) EXPECT_EQ(b.sc.glPoints[e], expected[d][e]) << d << "/" << e;
  }
  EXPECT_EQ(b.sc.glExtraLifeBonus, (std::array<int32_t, 5>{0, 2000, 10000, 25000, 60000}));
}

TEST(ScoreTest, SiteEventGrowsWithTheSitesAlreadyHit) {
  Board b;  // normal
  b.g.gnSitesHit = 2;
  b.g.gbScoreNoLinkSite = 0;
  b.g.gnMoveCount = 9;
  b.g.gbScoreMinLag = 4;
  b.sc.AddPoints(2);
  EXPECT_EQ(b.sc.glScore, 120);
  EXPECT_TRUE(b.w.messages.empty());
  EXPECT_EQ(b.Caption(Label::lblScore), "120");
}

TEST(ScoreTest, FewMovesBonus) {
  Board b(1);  // easy
  b.g.gnMoveCount = 8;
  b.sc.AddPoints(6);
  EXPECT_EQ(b.sc.glScore, 10);
  ASSERT_EQ(b.w.messages.size(), 1u);
  EXPECT_EQ(b.w.messages[0].text, "Good job!  You hit the site making only 8 moves!\nBonus 10 points awarded!");
  EXPECT_EQ(b.w.messages[0].szTitle, "Bonus Points");
  b.g.gnMoveCount = 9;
  b.sc.AddPoints(6);
  EXPECT_EQ(b.sc.glScore, 10);
  EXPECT_EQ(b.w.messages.size(), 1u);
  // Halves go to the even neighbour: 5 moves on normal give 5 x 225 / 9 = 125 exactly,
  // 1 move on easy gives 9 x 45 / 9 = 45, 7 on easy 3 x 45 / 9 = 15.
  b.g.gnMoveCount = 7;
  b.sc.AddPoints(6);
  EXPECT_EQ(b.sc.glScore, 25);
}

TEST(ScoreTest, NoLinkAndLagBonuses) {
  Board b;
  b.sc.AddPoints(5);
  EXPECT_EQ(b.sc.glScore, 125);
  ASSERT_EQ(b.w.messages.size(), 1u);
  EXPECT_EQ(b.w.messages[0].text, "Amazing!  You hit the site without having to link!\nBonus 125 points awarded!");
  b.g.gbScoreNoLinkSite = 0;
  b.sc.AddPoints(5);
  EXPECT_EQ(b.sc.glScore, 125);

  const int32_t lag[5] = {0, 40, 20, 10, 0};
  for (int16_t tier = 1; tier <= 4; ++tier) {
    b.sc.glScore = 0;
    b.g.gbScoreMinLag = tier;
    b.sc.AddPoints(8);
    EXPECT_EQ(b.sc.glScore, lag[tier]) << tier;
  }
  // Easy never pays the lag bonus.
  Board e(1);
  e.g.gbScoreMinLag = 1;
  e.sc.AddPoints(8);
  EXPECT_EQ(e.sc.glScore, 0);
  // Events 3 and 4 are plain, 7 scores nothing.
  e.sc.AddPoints(3);
  e.sc.AddPoints(4);
  e.sc.AddPoints(7);
  EXPECT_EQ(e.sc.glScore, 3);
}

TEST(ScoreTest, ExtraReconnectsOnePerCall) {
  Board b;  // normal: one every 10,000
  b.sc.glScore = 25000;  // past two thresholds at once
  b.sc.AddPoints(1);
  EXPECT_EQ(b.g.gnReconnects, 3);
  EXPECT_EQ(b.sc.glNextExtraLife, 20000);
  EXPECT_EQ(b.sc.gnScoreMesgNum, 1);
  EXPECT_TRUE(b.w.messages.empty());  // queued, not shown
  b.sc.AddPoints(1);
  EXPECT_EQ(b.g.gnReconnects, 4);
  EXPECT_EQ(b.sc.glNextExtraLife, 30000);
  b.sc.AddPoints(1);
  EXPECT_EQ(b.g.gnReconnects, 4);
  EXPECT_EQ(b.Caption(Label::lblReconnects), "4");

  b.sc.WriteScoreMesg();
  ASSERT_EQ(b.w.messages.size(), 2u);
  EXPECT_EQ(b.w.messages[0].szTitle, "Extra Reconnect");
  EXPECT_EQ(b.w.messages[1].text, "Unbelieveable!  You have earned an extra reconnect!\nKeep going, webmaster!");
  EXPECT_EQ(b.sc.gnScoreMesgNum, 0);
  EXPECT_EQ(b.sc.gsmScoreMesg.size(), 1u);
  b.sc.WriteScoreMesg();  // empty: nothing
  EXPECT_EQ(b.w.messages.size(), 2u);
}

TEST(ScoreTest, MaximumReconnectsGiveAPointBonusOnNormal) {
  Board b;
  b.g.gnReconnects = 5;
  b.sc.glScore = 10000;
  b.sc.AddPoints(1);
  EXPECT_EQ(b.sc.glScore, 10000 + 15 + 7500);
  EXPECT_EQ(b.sc.glNextExtraLife, 10000 + 17500);
  EXPECT_EQ(b.g.gnReconnects, 5);
  b.sc.WriteScoreMesg();
  ASSERT_EQ(b.w.messages.size(), 1u);
  EXPECT_EQ(b.w.messages[0].text,
            "This is unheard of!  You have earned an extra reconnect but you already have the maximum number of "
            "reconnects!\nYou get 7,500 extra points instead!");
  EXPECT_EQ(b.Caption(Label::lblScore), "17,515");
}

TEST(ScoreTest, MaximumReconnectBonusOverflowsOnHardAndNightmare) {
  for (int16_t d : {3, 4}) {
    Board b(d);
    b.g.gnReconnects = 5;
    b.sc.glScore = b.sc.glNextExtraLife;
    const int32_t threshold = b.sc.glNextExtraLife;
    try {
      b.sc.AddPoints(1);
      ADD_FAILURE() << "no overflow on difficulty " << d;
    } catch (const RuntimeError& err) {
      EXPECT_EQ(err.Number(), 6);
    }
    // The event's own points were added, the bonus was not; nothing queued.
    EXPECT_EQ(b.sc.glScore, threshold + b.sc.glPoints[1]);
    EXPECT_EQ(b.sc.glNextExtraLife, threshold);
    EXPECT_EQ(b.sc.gnScoreMesgNum, 0);
  }
  Board e(1);
  e.g.gnReconnects = 5;
  e.sc.glScore = 2000;
  e.sc.AddPoints(1);
  EXPECT_EQ(e.sc.glScore, 2000 + 3 + 1500);
}

TEST(ScoreTest, InvalidEventIsReportedAndStillChecksTheThreshold) {
  Board b;
  b.sc.glScore = 10000;
  b.sc.AddPoints(9);
  ASSERT_EQ(b.w.messages.size(), 1u);
  EXPECT_EQ(b.w.messages[0].text, "Invalid score event [9]");
  EXPECT_EQ(b.w.messages[0].szTitle, "AddPoints Error");
  EXPECT_EQ(b.sc.glScore, 10000);
  EXPECT_EQ(b.g.gnReconnects, 3);
}

}  // namespace sw::test
