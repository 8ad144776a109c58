// Score events, site bonuses, extra reconnects, the message queue and the webmaster lists.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

// Each event's points (the table of points and modifiers: the state dump's test) and the site bonuses.
TEST(ScoreTest, EventsAndSiteBonuses) {
  const std::string bonus = "Bonus Points: ";
  using E = ScoreEvent;
  const struct {
    ScoreEvent event;
    int16_t diff, sites, noLink, moves, minLag;
    int32_t points;
    std::string shown;
  } cases[] = {{E::SiteHit, 2, 2, 0, 9, 4, 120, ""},  // the site grows with the sites already hit
               {E::NoLinkBonus, 2, 0, 0, 0, 1, 0, ""},
               {E::FewMovesBonus, 1, 0, -1, 8, 1, 10,
                bonus + "Good job!  You hit the site making only 8 moves!\nBonus 10 points awarded!"},
               {E::FewMovesBonus, 1, 0, -1, 9, 1, 0, ""},
               // (10 - moves) / 9 of the bonus, halves to the even neighbour.
               {E::FewMovesBonus, 1, 0, -1, 7, 1, 15,
                bonus + "Good job!  You hit the site making only 7 moves!\nBonus 15 points awarded!"},
               {E::LowLagBonus, 2, 0, -1, 0, 1, 40, ""},
               {E::LowLagBonus, 2, 0, -1, 0, 2, 20, ""},
               {E::LowLagBonus, 2, 0, -1, 0, 3, 10, ""},
               {E::LowLagBonus, 2, 0, -1, 0, 4, 0, ""},
               {E::LowLagBonus, 1, 0, -1, 0, 1, 0, ""},  // easy never pays the lag bonus
               {E::Plain3, 1, 0, -1, 0, 1, 1, ""},
               {E::Plain4, 1, 0, -1, 0, 1, 2, ""},
               {E::Reserved, 1, 0, -1, 0, 1, 0, ""},
               {static_cast<E>(9), 2, 0, -1, 0, 1, 0, "AddPoints Error: Invalid score event [9]"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "row " << &c - cases);
    Board p(c.diff);
    p.g.gnSitesHit = c.sites;
    p.g.gbScoreNoLinkSite = c.noLink != 0;
    p.g.gnMoveCount = c.moves;
    p.g.gbScoreMinLag = c.minLag;
    p.sc.AddPoints(c.event);
    EXPECT_EQ(p.sc.glScore, c.points);
    EXPECT_EQ(Shown(p.w), c.shown.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.shown});
  }
}

TEST(ScoreTest, ExtraReconnectsAreQueuedOnePerCall) {
  Board b;  // normal: one every 10,000
  b.sc.glScore = 25000;
  for (int i = 0; i < 3; ++i) b.sc.AddPoints(ScoreEvent::VirusKilled);
  EXPECT_EQ(Ints({b.g.gnReconnects, b.sc.glNextExtraLife}), Ints({4, 30000}));
  EXPECT_EQ(b.Caption(Label::lblReconnects), "4");
  b.sc.WriteScoreMesg();
  b.sc.WriteScoreMesg();  // the queue is empty now
  const std::string extra =
      "Extra Reconnect: Unbelieveable!  You have earned an extra reconnect!\nKeep going, webmaster!";
  EXPECT_EQ(Shown(b.w), (std::vector<std::string>{extra, extra}));

  // At five reconnects: 1,500 points per score step instead (7,500 on normal).
  b.w.messages.clear();
  b.g.gnReconnects = 5;
  b.sc.glScore = b.sc.glNextExtraLife = 10000;
  b.sc.AddPoints(ScoreEvent::VirusKilled);
  EXPECT_EQ(Ints({b.sc.glScore, b.sc.glNextExtraLife, b.g.gnReconnects}), Ints({10000 + 15 + 7500, 10000 + 17500, 5}));
  b.sc.WriteScoreMesg();
  EXPECT_EQ(Shown(b.w), std::vector<std::string>{"Extra Reconnect: This is unheard of!  You have earned an extra "
                                                 "reconnect but you already have the maximum number of reconnects!\n"
                                                 "You get 7,500 extra points instead!"});
  // On hard and nightmare that bonus overflows 16 bits: see the site-end tests.
}

TEST(WebmasterTable, PlacesAreEarnedByScoreThenSitesAndEntered) {
  Board b;
  HighScores& hs = b.sw.hs;
  // {score, sites, all-time slot, personal slot} against lists of 1000, 900, ..., 100 with 5 sites
  // each, the personal best 5000; the last case is entered and checked below.
  const int cases[][4] = {{100, 5, 0, 0},  {100, 4, 0, 0}, {100, 6, 10, 10},
                          {1001, 0, 1, 2}, {0, 9, 0, 0},   {650, 7, 5, 5}};
  for (const auto& c : cases) {
    for (int t : {0, 1})
      for (int i = 1; i <= 10; ++i) {
        std::string name = "p";
        name += std::to_string(i);  // "p" + std::to_string(i) trips a false -Wrestrict in GCC 12 at -O3
        hs.Entry(t, 2, i) = {1100 - 100 * i, 5, name};
      }
    hs.Entry(HighScores::kPersonal, 2, 1).lScore = 5000;
    b.w.messages.clear();
    b.sc.glScore = c[0];
    b.g.gnSitesHit = static_cast<int16_t>(c[1]);
    hs.CheckHighScore();
    EXPECT_EQ(Ints({hs.gnGlobalSlot, hs.gnPersonalSlot}), Ints({c[2], c[3]})) << c[0] << "/" << c[1];
    EXPECT_EQ(b.w.messages.size(), c[2] ? 1u : 0u);
  }
  EXPECT_EQ(Shown(b.w), std::vector<std::string>{"New Webmaster: Well done!  A new high score!\n"
                                                 "You shall be added to the webmaster lists!"});
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 5), (WebmasterEntry{650, 7, ""}));
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 6), (WebmasterEntry{600, 5, "p5"}));
  EXPECT_EQ(hs.Entry(HighScores::kAllTime, 2, 10), (WebmasterEntry{200, 5, "p9"}));  // the old tenth is gone
  EXPECT_EQ(hs.Entry(HighScores::kPersonal, 2, 5), (WebmasterEntry{650, 7, ""}));
  // A score that makes only the personal list goes there alone, and is told so.
  const WebmasterEntry first = hs.Entry(HighScores::kAllTime, 2, 1), last = hs.Entry(HighScores::kAllTime, 2, 10);
  for (int i = 1; i <= 10; ++i) hs.Entry(HighScores::kPersonal, 2, i) = WebmasterEntry{};
  b.sc.glScore = 50;
  hs.CheckHighScore();
  EXPECT_EQ(Ints({hs.gnGlobalSlot, hs.gnPersonalSlot, static_cast<int>(b.w.messages.size())}), Ints({0, 1, 2}));
  EXPECT_TRUE(hs.Entry(HighScores::kAllTime, 2, 1) == first && hs.Entry(HighScores::kAllTime, 2, 10) == last);
  EXPECT_EQ(hs.Entry(HighScores::kPersonal, 2, 1), (WebmasterEntry{50, 7, ""}));
}

}  // namespace sw::test
