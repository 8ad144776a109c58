// The viruses' turn, deaths, game over and sites won.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

namespace {
const CoordPair kFar = At(23, 13);
const std::string kAgain = "Life program re-initialized. You now have 1 reconnects remaining. Get ready to try again!";
}  // namespace

// Each virus takes a king's step straight at the mouse. All that step onto one cell crash: two leave an infected
// server there and score; a third dies on it. (A fourth crashing anew: the game trace's test.)
TEST(VirusTest, ChaseAndCrashesThatLeaveInfectedServers) {
  const struct {
    CoordPair mouse;
    Cells viruses, infected, after;
    int servers;
  } cases[] = {
      {At(12, 7),
       {At(2, 2), At(12, 1), At(22, 1), At(2, 7), At(22, 7), At(2, 12), At(12, 12), At(22, 12)},
       {},
       {At(3, 3), At(12, 2), At(21, 2), At(3, 7), At(21, 7), At(3, 11), At(12, 11), At(21, 11)},
       0},
      {At(12, 5), {At(8, 4), At(8, 6), kFar}, {}, {At(22, 12)}, 1},
      {At(12, 5), {At(8, 5), At(8, 5), At(8, 5), kFar}, {}, {At(22, 12)}, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.viruses.size());
    Board b(2, c.mouse, c.viruses, c.infected);
    b.Key('5');
    EXPECT_EQ(b.Viruses(), c.after);
    EXPECT_EQ(Cells(b.g.gctInfectedPos.begin() + 1, b.g.gctInfectedPos.end()), Cells(c.servers, At(9, 5)));
    EXPECT_EQ(b.w.At(9, 5), c.servers ? Picture::Infected : Picture::None);
    EXPECT_EQ(b.sc.glScore, 15 * static_cast<int>(c.viruses.size() - c.after.size()));
    EXPECT_EQ(b.Broken(), "");
  }
}

TEST(SiteEndTest, EachCauseOfDeathHasItsText) {
  const Cells all = Board().AllCellsAwayFrom(At(5, 5));
  const struct {
    Cells viruses, infected;
    char key;
    const char* text;
  } causes[] = {
      {{At(5, 4)}, {}, '8', "Poor little suicidal mouse! Lucky, lucky virus!"},
      // Two viruses reaching the mouse kill it rather than crash.
      {{At(6, 6), At(4, 4), kFar},
       {},
       '5',
       "You have been infected by an skitterweb! Attempting to restore soul from backup."},
      {{At(5, 4)}, {At(5, 4)}, '8', "Walked right into that one, didn't you?"},  // a cell with both is infected
      {all, {}, '+', "That was a trapped link set up by those nasty viruses!  You are dead!"},
      {{kFar}, all, '+', "That link lead you right to an infected site!  You are dead!"},
      {{At(9, 5)}, {}, '0', "Sleeping mice make easy prey for those nasty little viruses!"},
      {{kFar}, {}, 0, "You are one dead little mouse!"},
  };
  for (const auto& c : causes) {
    SCOPED_TRACE(c.text);
    Board b(2, At(5, 5), c.viruses, c.infected);
    b.g.gnSitesHit = 3;
    Picture waiting = Picture::None;  // Whisk as drawn in the first pause of a wait
    b.w.onEvents = [&] { waiting = b.w.At(5, 5); };
    if (c.key)
      b.Key(c.key);
    else
      b.eng.PlayerDead(static_cast<DeathCause>(9));
    EXPECT_EQ(Shown(b.w), std::vector<std::string>{"Player Died: " + std::string(c.text) + "\n" + kAgain});
    // A reconnect spent, and the same site laid out again.
    EXPECT_EQ(Ints({static_cast<int>(b.w.messages.at(0).nButtons), b.g.gnReconnects, b.g.gnSitesHit, b.g.gnVirusLive,
                    b.g.gnInfectedCount, b.g.gnMoveCount, b.g.gbWaitOn.Code(), b.sc.glScore}),
              Ints({0, 1, 3, 10, 0, 0, 0, 0}));
    EXPECT_EQ(b.Caption(Label::lblReconnects), "1");
    // A wait: phases 200 ms apart, Whisk standing, facing the player.
    EXPECT_EQ(b.w.sleeps, std::vector<int32_t>(c.key == '0' ? 3 : 0, 200));
    EXPECT_EQ(waiting, c.key == '0' ? Picture::Player5 : Picture::None);
  }
}

TEST(SiteEndTest, LastReconnectLostEndsTheGame) {
  for (MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
    SCOPED_TRACE(answer == MsgAnswer::Yes ? "Yes" : "No");
    Board b(2, At(5, 5), {At(5, 4)});
    b.g.gnReconnects = 0;
    b.g.gnSitesHit = 4;
    b.sc.glScore = 4321;  // enough for the webmaster lists: their box comes before the question
    b.w.answers = {MsgAnswer::Ok, MsgAnswer::Ok, answer};
    b.Key('8');
    const std::vector<std::string> shown = Shown(b.w);
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_EQ(shown[0] + shown[2],
              "Player Died: Poor little suicidal mouse! Lucky, lucky virus!\nSoul file "
              "irretrievable! Game Over!Play again?: Would you like to play another game?");
    EXPECT_EQ(b.w.messages.at(2).nButtons, MsgButtons::YesNo);
    EXPECT_EQ(b.w.dialogs, std::vector<Dialog>{Dialog::frmHighScore});  // the lists open on the place earned
    b.Key('2');  // a game that stays over takes no keys: the dead mouse stays
    EXPECT_EQ(std::make_tuple(b.g.gnGameNum, b.g.gbGameOn.Code(), b.g.gnReconnects, b.Caption(Label::lblReconnects)),
              answer == MsgAnswer::Yes ? std::make_tuple(2, -1, 2, std::string("2"))
                                       : std::make_tuple(1, 0, -1, std::string("-")));
    if (answer == MsgAnswer::No) {
      EXPECT_EQ(std::make_pair(int(b.g.gnMoveCount), b.w.At(5, 4)), std::make_pair(1, Picture::Death));
    }
  }
}

TEST(SiteEndTest, WonSiteShowsBonusesThenQueuedReconnectsThenSiteHitAndOverflowsAreReported) {
  Board b(2, At(12, 5), {At(8, 4), At(8, 6)});
  b.sc.glNextExtraLife = 1;  // the first kill earns a reconnect
  b.Key('5');
  EXPECT_EQ(Shown(b.w),
            (std::vector<std::string>{
                "Bonus Points: Amazing!  You hit the site without having to link!\nBonus 125 points awarded!",
                "Bonus Points: Good job!  You hit the site making only 0 moves!\nBonus 250 points awarded!",
                "Extra Reconnect: Unbelieveable!  You have earned an extra reconnect!\nKeep going, webmaster!",
                "Site Hit: Congradulations!  You have eluded the viruses and hit site number 1!\n"
                "Get ready for your next web search!"}));
  // Two kills, the site, no link, few moves, and the lag bonus (never above blue: 8 x 5).
  EXPECT_EQ(b.sc.glScore, 15 + 15 + 100 + 125 + 250 + 40);
  EXPECT_EQ(Ints({b.g.gnReconnects, b.g.gnSitesHit, b.g.gnVirusLive}), Ints({3, 1, 8}));

  // On hard each kill's maximum-reconnect bonus overflows, and so does the site's first bonus; the game goes on.
  Board h(3, At(12, 5), {At(8, 4), At(8, 6)});
  h.g.gnReconnects = 5;
  h.sc.glNextExtraLife = 10;  // every score call finds the threshold passed
  h.Key('5');
  EXPECT_EQ(h.w.Titles(), (std::vector<std::string>{"Error: KillVirus", "Error: KillVirus", "Bonus Points",
                                                    "Error: NewSite", "Site Hit"}));
  for (size_t i : {0u, 1u, 3u}) EXPECT_NE(h.w.messages.at(i).text.find("Overflow"), std::string::npos);
  EXPECT_EQ(h.sc.glScore, 75 + 75 + 500 + 625);  // the events' own points came before the overflow
}

// An error that breaks a Wait off ends the wait too: the next key plays.
TEST(VirusTest, AnErrorInAWaitEndsTheWait) {
  Board b(2, At(12, 5), {At(8, 4), At(8, 6), kFar});
  b.g.gnInfectedCount = 32767;  // the crash at the first step overflows the count
  b.g.gctInfectedPos.resize(32768);
  b.Key('0');
  EXPECT_EQ(b.w.Titles(), std::vector<std::string>{"Error: frmMain.Form_KeyPress"});
  EXPECT_FALSE(b.g.gbWaitOn);
}

// A new virus never stands on the mouse, on any other virus (the first one too), nor off the map.
TEST(VirusTest, NewVirusesKeepOffTheMouseAndEachOther) {
  Board b(2, At(5, 5), {At(1, 1), At(2, 2)});
  for (CoordPair ct : {At(5, 5), At(1, 1), At(2, 2), At(-1, 0), At(24, 13)}) EXPECT_FALSE(b.eng.CanVirusEnter(ct, -1));
  EXPECT_TRUE(b.eng.CanVirusEnter(At(3, 3), -1) && b.eng.CanVirusEnter(At(23, 13), -1));
}

// A site holds seven viruses more than the sites hit, thirty at most; the counter is red at exactly thirty.
TEST(VirusTest, TheCounterIsRedAtThirty) {
  Board b;
  std::vector<std::string> shown;
  for (int16_t sites : {22, 23, 40}) {
    b.g.gnSitesHit = sites;
    b.eng.PlaceVirus();
    shown.push_back(b.Caption(Label::lblVirus) + (b.w.foreColors[Label::lblVirus] == color::Red ? " red" : ""));
  }
  b.eng.KillVirus(1, ScoreEvent::VirusKilled);
  EXPECT_EQ(shown, std::vector<std::string>({"29", "30 red", "30 red"}));
  EXPECT_EQ(b.Caption(Label::lblVirus) + " " + std::to_string(b.w.foreColors[Label::lblVirus]),
            "29 " + std::to_string(color::ButtonText));
}

TEST(VirusTest, NightmareMovesTheVirusesTwice) {
  Board b(4, At(5, 5), {kFar});
  b.g.gnLag = 3;
  b.Key('6');
  EXPECT_EQ(b.Viruses(), Cells{At(21, 11)});
  EXPECT_EQ(b.g.gnLag, 1);  // one step before the second phase, one at the end of the turn
  // After a link only the link's pause (as on hard), then one phase; a second phase after a first that brings
  // a virus next to the mouse; none after one that kills.
  const struct {
    Cells viruses;
    char key;
    std::vector<int32_t> sleeps;
    size_t deaths;
  } cases[] = {{{kFar}, '+', {325}, 0}, {{At(7, 5)}, '5', {300}, 1}, {{At(6, 5), kFar}, '5', {}, 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.viruses[0].Text());
    b.Set(At(5, 5), c.viruses);
    b.w.sleeps.clear();
    b.w.messages.clear();
    b.Key(c.key);
    EXPECT_EQ(b.w.sleeps, c.sleeps);
    EXPECT_EQ(b.w.messages.size(), c.deaths);
  }
}

}  // namespace sw::test
