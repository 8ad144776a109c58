// The webmaster lists in memory: earning a place and entering it.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

namespace {
// Fills a list with scores 1000, 900, ..., 100, each with 5 sites.
void Fill(HighScores& hs, int type, int diff) {
  const char* const names[11] = {"", "p1", "p2", "p3", "p4", "p5", "p6", "p7", "p8", "p9", "p10"};
  for (int i = 1; i <= 10; ++i) hs.Entry(type, diff, i) = WebmasterEntry{1100 - 100 * i, 5, names[i]};
}
}  // namespace

TEST(WebmasterTableTest, PlacesEarnedByScoreThenSites) {
  Board b;
  HighScores& hs = b.sw.hs;
  Fill(hs, HighScores::kAllTime, 2);
  Fill(hs, HighScores::kPersonal, 2);
  hs.Entry(HighScores::kPersonal, 2, 1).lScore = 5000;

  struct Case { int32_t score; int16_t sites; int16_t global, personal; };
  const Case cases[] = {
      {100, 5, 0, 0},      // equal to the tenth with equal sites: no place
      {100, 4, 0, 0},      // fewer sites
      {100, 6, 10, 10},    // more sites
      {1001, 0, 1, 2},     // beats entry 1 of the all-time list
      {0, 9, 0, 0},        // a zero score never earns a place
  };
  for (const Case& c : cases) {
    b.sc.glScore = c.score;
    b.g.gnSitesHit = c.sites;
    b.w.messages.clear();
    hs.CheckHighScore();
    EXPECT_EQ(hs.gnGlobalSlot, c.global) << c.score << "/" << c.sites;
    EXPECT_EQ(hs.gnPersonalSlot, c.personal) << c.score << "/" << c.sites;
    EXPECT_EQ(b.w.messages.size(), (c.global || c.personal) ? 1u : 0u);
    Fill(hs, HighScores::kAllTime, 2);
    Fill(hs, HighScores::kPersonal, 2);
    hs.Entry(HighScores::kPersonal, 2, 1).lScore = 5000;
  }

  // Empty lists: any positive score takes slot 1 of both.
  hs.ClearAll();
  b.sc.glScore = 1;
  b.g.gnSitesHit = 0;
  b.w.messages.clear();
  hs.CheckHighScore();
  EXPECT_EQ(hs.gnGlobalSlot, 1);
  EXPECT_EQ(hs.gnPersonalSlot, 1);
  ASSERT_EQ(b.w.messages.size(), 1u);
  EXPECT_EQ(b.w.messages[0].text, "Well done!  A new high score!\nYou shall be added to the webmaster lists!");
  EXPECT_EQ(b.w.messages[0].szTitle, "New Webmaster");
}

TEST(WebmasterTableTest, AddingShiftsTheListDown) {
  Board b;
  HighScores& hs = b.sw.hs;
  Fill(hs, HighScores::kAllTime, 2);
  Fill(hs, HighScores::kAllTime, 3);
  b.sc.glScore = 650;
  b.g.gnSitesHit = 7;
  hs.CheckHighScore();
  ASSERT_EQ(hs.gnGlobalSlot, 5);
  EXPECT_EQ(hs.gnPersonalSlot, 1);
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 4).lScore, 700);
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 5), (WebmasterEntry{650, 7, ""}));
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 6), (WebmasterEntry{600, 5, "p5"}));
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 10), (WebmasterEntry{200, 5, "p9"}));  // the old tenth is gone
  EXPECT_EQ(hs.Entry(HighScores::kPersonal, 2, 1), (WebmasterEntry{650, 7, ""}));
  // Other difficulties are untouched.
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 3, 5), (WebmasterEntry{600, 5, "p5"}));

  // Slot 10: only the last entry is replaced.
  b.sc.glScore = 150;
  b.g.gnSitesHit = 1;
  hs.gnGlobalSlot = 10;
  hs.gnPersonalSlot = 0;
  hs.AddHighScore();
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 9), (WebmasterEntry{300, 5, "p8"}));
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 10), (WebmasterEntry{150, 1, ""}));
}

TEST(WebmasterTableTest, NothingWhileTheBoardIsPreparedAndDialogHook) {
  Board b;
  HighScores& hs = b.sw.hs;
  hs.gnGlobalSlot = 3;
  b.g.gbGameInit = -1;
  b.sc.glScore = 500;
  hs.CheckHighScore();
  EXPECT_EQ(hs.gnGlobalSlot, 3);
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 1).lScore, 0);
  EXPECT_TRUE(b.w.messages.empty());

  int16_t shownType = -1, shownDiff = -1;
  hs.ShowHighScores(1, 4);  // no dialog attached: nothing happens
  hs.showDialog = [&](int16_t t, int16_t d) { shownType = t; shownDiff = d; };
  hs.ShowHighScores(0, 3);
  EXPECT_EQ(shownType, 0);
  EXPECT_EQ(shownDiff, 3);
}

}  // namespace sw::test
