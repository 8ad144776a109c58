// The viruses' turn: the chase, crashes, infected servers and the extra phases.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

TEST(VirusTest, ChaseTakesAKingsStepStraightAtTheMouse) {
  Board b;
  // Mouse in the middle; one virus in each of the eight directions, far enough apart.
  b.Set(At(12, 7), {At(2, 2), At(12, 1), At(22, 1), At(2, 7), At(22, 7), At(2, 12), At(12, 12), At(22, 12)});
  b.Key('5');
  const std::vector<CoordPair> expected = {At(3, 3),  At(12, 2), At(21, 2),  At(3, 7),
                                           At(21, 7), At(3, 11), At(12, 11), At(21, 11)};
  EXPECT_EQ(b.Viruses(), expected);
  for (const CoordPair& v : expected) EXPECT_EQ(b.w.At(v.nCol, v.nRow), Picture::Virus);
  EXPECT_EQ(b.w.At(2, 2), Picture::None);
  EXPECT_EQ(b.w.Count(Picture::Virus), 8);
  EXPECT_EQ(b.g.gnReconnects, 2);
}

TEST(VirusTest, TwoVirusesMeetingLeaveOneInfectedServer) {
  Board b;
  b.Set(At(12, 5), {At(8, 4), At(8, 6), At(23, 13)});
  b.Key('5');
  // Both step onto (9, 5) and crash there.
  EXPECT_EQ(b.g.gnVirusLive, 1);
  EXPECT_EQ(b.g.gnInfectedCount, 1);
  EXPECT_EQ(b.g.gctInfectedPos[1], At(9, 5));
  EXPECT_EQ(b.w.At(9, 5), Picture::Infected);
  EXPECT_EQ(b.sc.glScore, 2 * 15);
  EXPECT_EQ(b.Caption(Label::lblScore), "30");
  EXPECT_EQ(b.Caption(Label::lblVirus), "1");
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)});

  // Next turn a virus stepping onto the server dies there; no new server appears.
  b.Set(At(12, 5), {At(8, 5), At(23, 13)}, {At(9, 5)});
  b.sc.glScore = 0;
  b.Key('5');
  EXPECT_EQ(b.g.gnVirusLive, 1);
  EXPECT_EQ(b.g.gnInfectedCount, 1);
  EXPECT_EQ(b.sc.glScore, 15);
  EXPECT_EQ(b.w.At(9, 5), Picture::Infected);
}

TEST(VirusTest, ThreeAndFourVirusesOnOneCell) {
  {
    Board b;
    // Three viruses share a cell: they move as one onto (9, 5).
    b.Set(At(12, 5), {At(8, 5), At(8, 5), At(8, 5), At(23, 13)});
    b.Key('5');
    // The two lowest crash; the third dies on the new server.
    EXPECT_EQ(b.g.gnVirusLive, 1);
    EXPECT_EQ(b.g.gnInfectedCount, 1);
    EXPECT_EQ(b.sc.glScore, 3 * 15);
  }
  {
    Board b;
    b.Set(At(12, 5), {At(8, 5), At(8, 5), At(8, 5), At(8, 5), At(23, 13)});
    b.Key('5');
    EXPECT_EQ(b.g.gnVirusLive, 1);
    ASSERT_EQ(b.g.gnInfectedCount, 2);
    EXPECT_EQ(b.g.gctInfectedPos[1], At(9, 5));
    EXPECT_EQ(b.g.gctInfectedPos[2], At(9, 5));
    EXPECT_EQ(b.sc.glScore, 4 * 15);
  }
}

TEST(VirusTest, VirusesOnTheMouseKillInsteadOfCrashing) {
  Board b;
  b.Set(At(5, 5), {At(6, 6), At(4, 4), At(23, 13)});
  b.Key('5');
  // Both reach the mouse: no crash, the mouse dies (cause 2) and the site starts again.
  ASSERT_EQ(b.w.Titles(), std::vector<std::string>{"Player Died"});
  EXPECT_EQ(b.w.messages[0].text,
            "You have been infected by an skitterweb! Attempting to restore soul from backup.\n"
            "Life program re-initialized. You now have 1 reconnects remaining. Get ready to try again!");
  EXPECT_EQ(b.sc.glScore, 0);
  EXPECT_EQ(b.g.gnReconnects, 1);
  EXPECT_EQ(b.g.gnInfectedCount, 0);
  EXPECT_EQ(b.g.gnVirusLive, 7);
  EXPECT_EQ(b.g.gbEndSite, -1);
}

TEST(VirusTest, NightmareMovesTheVirusesTwice) {
  Board b(4);
  b.Set(At(5, 5), {At(23, 13)});
  b.g.gnLag = 3;
  b.Key('6');
  EXPECT_EQ(b.w.sleeps, std::vector<int32_t>{300});
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(21, 11)});
  EXPECT_EQ(b.g.gnLag, 1);  // one step before the second phase, one at the end of the turn

  // No second phase after a link, nor when the first phase ended the site.
  b.Set(At(5, 5), {At(23, 13)});
  b.w.sleeps.clear();
  b.Key('+');
  EXPECT_EQ(b.w.sleeps, std::vector<int32_t>{325});
  b.Set(At(5, 5), {At(7, 5)});
  b.w.sleeps.clear();
  b.Key('5');  // the first phase brings the virus next to the mouse, the second onto it
  EXPECT_EQ(b.w.sleeps, std::vector<int32_t>{300});
  EXPECT_EQ(b.w.Titles(), std::vector<std::string>{"Player Died"});
  b.w.messages.clear();
  b.w.sleeps.clear();
  b.Set(At(5, 5), {At(6, 5), At(23, 13)});
  b.Key('5');  // the first phase kills: no pause, no second phase
  EXPECT_TRUE(b.w.sleeps.empty());
  EXPECT_EQ(b.w.Titles(), std::vector<std::string>{"Player Died"});
}

TEST(VirusTest, WaitRunsPhasesUntilTheSiteEnds) {
  {
    // Ends by the mouse's death: the sleeping-mouse text.
    Board b;
    b.Set(At(5, 5), {At(9, 5)});
    b.Key('0');
    EXPECT_EQ(b.w.sleeps, (std::vector<int32_t>{200, 200, 200}));
    ASSERT_EQ(b.w.Titles(), std::vector<std::string>{"Player Died"});
    EXPECT_EQ(b.w.messages[0].text.substr(0, b.w.messages[0].text.find('\n')),
              "Sleeping mice make easy prey for those nasty little viruses!");
    EXPECT_EQ(b.g.gbWaitOn, 0);
    EXPECT_EQ(b.g.gnMoveCount, 0);
  }
  {
    // Ends by the last crash: the site is hit.
    Board b;
    b.Set(At(12, 5), {At(6, 3), At(6, 7)});
    b.Key('0');
    // Phases: (7,4)/(7,6), (8,5)/(8,5) crash.
    EXPECT_EQ(b.w.sleeps, std::vector<int32_t>{200});
    EXPECT_EQ(b.g.gnSitesHit, 1);
    EXPECT_EQ(b.g.gnVirusLive, 8);
    EXPECT_EQ(b.g.gbWaitOn, 0);
    EXPECT_EQ(b.w.Titles().back(), "Site Hit");
  }
}

}  // namespace sw::test
