// Deaths, reconnects, game over and sites won.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

namespace {
std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }
const std::string kAgain = "Life program re-initialized. You now have 1 reconnects remaining. Get ready to try again!";
}  // namespace

TEST(SiteEndTest, EachCauseOfDeathHasItsText) {
  {  // 1: walked onto a virus; the same site is laid out again
    Board b;
    b.Set(At(5, 5), {At(5, 4)});
    b.g.gnSitesHit = 3;
    b.Key('8');
    EXPECT_EQ(b.g.gnReconnects, 1);
    EXPECT_EQ(b.Caption(Label::lblReconnects), "1");
    EXPECT_EQ(b.g.gnSitesHit, 3);
    EXPECT_EQ(b.g.gnVirusLive, 10);
    ASSERT_EQ(b.w.messages.size(), 1u);
    EXPECT_EQ(b.w.messages[0].text, "Poor little suicidal mouse! Lucky, lucky virus!\n" + kAgain);
    EXPECT_EQ(b.w.messages[0].szTitle, "Player Died");
    EXPECT_EQ(b.w.messages[0].nButtons, 0);
  }
  {  // 3: walked onto an infected server; a cell with both counts as infected
    Board b;
    b.Set(At(5, 5), {At(5, 4)}, {At(5, 4)});
    b.Key('8');
    ASSERT_EQ(b.w.messages.size(), 1u);
    EXPECT_EQ(b.w.messages[0].text, "Walked right into that one, didn't you?\n" + kAgain);
  }
  {  // 4: a link onto a virus (every cell it may reach holds one)
    Board b;
    b.SetLists(At(5, 5), b.AllCellsAwayFrom(At(5, 5)), {});
    b.Key('+');
    ASSERT_EQ(b.w.messages.size(), 1u);
    EXPECT_EQ(b.w.messages[0].text,
              "That was a trapped link set up by those nasty viruses!  You are dead!\n" + kAgain);
    EXPECT_EQ(b.g.gnVirusLive, 7);  // the site laid out again
  }
  {  // 5: a link onto an infected server
    Board b;
    b.SetLists(At(5, 5), {At(23, 13)}, b.AllCellsAwayFrom(At(5, 5)));
    b.Key('+');
    ASSERT_EQ(b.w.messages.size(), 1u);
    EXPECT_EQ(b.w.messages[0].text, "That link lead you right to an infected site!  You are dead!\n" + kAgain);
  }
  {  // any other cause
    Board b;
    b.Set(At(5, 5), {At(20, 10)});
    b.g.PlayerDead(9);
    ASSERT_EQ(b.w.messages.size(), 1u);
    EXPECT_EQ(b.w.messages[0].text, "You are one dead little mouse!\n" + kAgain);
  }
}

TEST(SiteEndTest, LastReconnectLostEndsTheGame) {
  // Answer No: the game stays over and keys do nothing.
  Board b;
  b.Set(At(5, 5), {At(5, 4)});
  b.g.gnReconnects = 0;
  b.w.answers = {1, 7};
  b.Key('8');
  ASSERT_EQ(b.w.Titles(), (std::vector<std::string>{"Player Died", "Play again?"}));
  EXPECT_EQ(b.w.messages[0].text, "Poor little suicidal mouse! Lucky, lucky virus!\nSoul file irretrievable! Game Over!");
  EXPECT_EQ(b.w.messages[1].text, "Would you like to play another game?");
  EXPECT_EQ(b.w.messages[1].nButtons, 4);
  EXPECT_EQ(b.g.gnReconnects, -1);
  EXPECT_EQ(b.Caption(Label::lblReconnects), "-");
  EXPECT_EQ(b.g.gbGameOn, 0);
  EXPECT_EQ(b.w.At(5, 4), Picture::Death);
  const int16_t moves = b.g.gnMoveCount;
  b.Key('2');
  b.Key('+');
  EXPECT_EQ(b.g.gnMoveCount, moves);
  EXPECT_EQ(b.w.messages.size(), 2u);
  EXPECT_EQ(b.w.At(5, 4), Picture::Death);

  // Answer Yes: a new game.
  Board y;
  y.Set(At(5, 5), {At(5, 4)});
  y.g.gnReconnects = 0;
  y.sc.glScore = 0;
  const int16_t games = y.g.gnGameNum;
  y.w.answers = {1, 6};
  y.Key('8');
  EXPECT_EQ(y.g.gnGameNum, games + 1);
  EXPECT_EQ(y.g.gbGameOn, -1);
  EXPECT_EQ(y.g.gnReconnects, 2);
  EXPECT_EQ(y.g.gnVirusLive, 7);
  EXPECT_EQ(y.Caption(Label::lblReconnects), "2");
}

TEST(SiteEndTest, GameOverWithAScoreEntersTheWebmasterLists) {
  Board b;
  b.Set(At(5, 5), {At(6, 6)});
  b.g.gnReconnects = 0;
  b.g.gnSitesHit = 4;
  b.sc.glScore = 4321;
  b.w.answers = {1, 1, 7};
  b.Key('5');
  ASSERT_EQ(b.w.Titles(), (std::vector<std::string>{"Player Died", "New Webmaster", "Play again?"}));
  EXPECT_EQ(b.w.messages[0].text.substr(b.w.messages[0].text.find('\n') + 1), "Soul file irretrievable! Game Over!");
  EXPECT_EQ(FirstLine(b.w.messages[0].text),
            "You have been infected by an skitterweb! Attempting to restore soul from backup.");
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kAllTime, 2, 1), (WebmasterEntry{4321, 4, ""}));
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kPersonal, 2, 1), (WebmasterEntry{4321, 4, ""}));
}

TEST(SiteEndTest, WonSiteShowsBonusesThenQueuedReconnectsThenSiteHit) {
  Board b;
  b.Set(At(12, 5), {At(8, 4), At(8, 6)});
  b.sc.glNextExtraLife = 1;  // the first kill earns a reconnect
  b.Key('5');
  ASSERT_EQ(b.w.Titles(),
            (std::vector<std::string>{"Bonus Points", "Bonus Points", "Extra Reconnect", "Site Hit"}));
  EXPECT_EQ(b.w.messages[0].text, "Amazing!  You hit the site without having to link!\nBonus 125 points awarded!");
  // No move on the site: 10/9 of 225.
  EXPECT_EQ(b.w.messages[1].text, "Good job!  You hit the site making only 0 moves!\nBonus 250 points awarded!");
  EXPECT_EQ(b.w.messages[2].text, "Unbelieveable!  You have earned an extra reconnect!\nKeep going, webmaster!");
  EXPECT_EQ(b.w.messages[3].text,
            "Congradulations!  You have eluded the viruses and hit site number 1!\nGet ready for your next web search!");
  // Two kills, the site, no link, few moves, and the lag bonus (never above blue: 8 x 5).
  EXPECT_EQ(b.sc.glScore, 15 + 15 + 100 + 125 + 250 + 40);
  EXPECT_EQ(b.g.gnReconnects, 3);
  EXPECT_EQ(b.g.gnSitesHit, 1);
  EXPECT_EQ(b.Caption(Label::lblSitesHit), "1");
  EXPECT_EQ(b.g.gnVirusLive, 8);
  EXPECT_EQ(b.g.gnInfectedCount, 0);
  EXPECT_EQ(b.g.gbEndSite, -1);
}

TEST(SiteEndTest, OverflowOnHardIsReportedAndTheSiteStillEnds) {
  Board b(3);
  b.Set(At(12, 5), {At(8, 4), At(8, 6)});
  b.g.gnReconnects = 5;
  b.sc.glNextExtraLife = 10;  // every score call finds the threshold passed
  b.Key('5');
  const std::vector<std::string> titles = b.w.Titles();
  // Each kill's maximum-reconnect bonus overflows; so does the site's first bonus.
  ASSERT_EQ(titles, (std::vector<std::string>{"Error: KillVirus", "Error: KillVirus", "Bonus Points",
                                              "Error: NewSite", "Site Hit"}));
  for (int i : {0, 1, 3}) EXPECT_NE(b.w.messages[static_cast<size_t>(i)].text.find("Overflow"), std::string::npos);
  EXPECT_EQ(b.g.gnSitesHit, 1);
  EXPECT_EQ(b.g.gnVirusLive, 8);
  EXPECT_EQ(b.g.gnReconnects, 5);
  // The points of the events themselves were added before the overflow.
  EXPECT_EQ(b.sc.glScore, 75 + 75 + 500 + 625);
  EXPECT_EQ(b.sc.glNextExtraLife, 10);

  // The game goes on: the next command plays normally.
  b.w.messages.clear();
  const CoordPair before = b.g.gctPlayerPos;
  b.Key(before.nRow > 0 ? '8' : '2');
  EXPECT_NE(b.g.gctPlayerPos, before);
}

}  // namespace sw::test
