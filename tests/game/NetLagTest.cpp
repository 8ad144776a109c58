// Net lag: the cost of links, the fall per turn, the tiers and the timeout.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

namespace {
std::pair<uint32_t, uint32_t> LabelColors(Board& b) { return b.w.labelColors[Label::lblNetLag]; }
}  // namespace

TEST(NetLagTest, LinkFromBlueCostsFourTurns) {
  Board b;
  b.Set(At(10, 6), {});
  b.g.gnLag = 2;
  b.Key('+');
  EXPECT_EQ(b.g.gnLag, 6);
  EXPECT_EQ(b.g.gnColorLag, 4);
  EXPECT_EQ(b.g.gbScoreMinLag, 2);
  EXPECT_EQ(b.w.barColor, color::Yellow);
  EXPECT_EQ(b.w.barValue, 6);
  EXPECT_EQ(b.Caption(Label::lblNetLag), "4");
  EXPECT_EQ(LabelColors(b), std::make_pair(color::Yellow, color::Black));

  // A second link from yellow costs five.
  b.Key('+');
  EXPECT_EQ(b.g.gnLag, 11);
  EXPECT_EQ(b.w.barColor, color::Red);
  EXPECT_EQ(b.g.gnColorLag, 5);
  EXPECT_EQ(b.g.gbScoreMinLag, 3);
  EXPECT_EQ(LabelColors(b), std::make_pair(color::Red, color::White));
}

TEST(NetLagTest, LinkFromRedFallsIntoTheTimeoutTrap) {
  Board b;
  b.Set(At(10, 6), {});
  b.g.gnLag = 9;
  b.g.LagDown();  // 8: red
  ASSERT_EQ(b.w.barColor, color::Red);
  b.Key('+');
  EXPECT_EQ(b.g.gnLag, 14);
  EXPECT_EQ(b.g.gnColorLag, -1);
  EXPECT_EQ(b.g.gbScoreMinLag, 4);
  EXPECT_EQ(b.w.barColor, color::Black);
  EXPECT_EQ(b.w.barValue, 13);  // shown full
  EXPECT_EQ(b.Caption(Label::lblNetLag), "X");
  EXPECT_EQ(LabelColors(b), std::make_pair(color::Black, color::White));

  // The lag no longer falls, and a link is refused: a move counted, the no-link bonus lost.
  for (int i = 0; i < 3; ++i) b.Key('5');
  EXPECT_EQ(b.g.gnLag, 14);
  const CoordPair at = b.g.gctPlayerPos;
  b.g.gbScoreNoLinkSite = -1;
  const int16_t moves = b.g.gnMoveCount;
  b.Key('+');
  EXPECT_EQ(b.g.gctPlayerPos, at);
  EXPECT_EQ(b.g.gnMoveCount, moves + 1);
  EXPECT_EQ(b.g.gbScoreNoLinkSite, 0);
  EXPECT_EQ(b.g.gbLinkOn, 0);

  // Only a new layout of the site clears it.
  b.g.InitMap();
  EXPECT_EQ(b.g.gnLag, 0);
  EXPECT_EQ(b.w.barColor, color::Blue);
  EXPECT_EQ(b.g.gbScoreMinLag, 1);
}

TEST(NetLagTest, FallingThroughTheTiers) {
  Board b;
  b.g.gnLag = 8;
  b.g.gbScoreMinLag = 1;
  b.g.LagDown();  // 7: red
  EXPECT_EQ(b.g.gnColorLag, 1);
  EXPECT_EQ(b.g.gbScoreMinLag, 3);
  b.g.LagDown();  // 6: yellow, and the tier mark stays at its highest
  EXPECT_EQ(b.w.barColor, color::Yellow);
  EXPECT_EQ(b.g.gnColorLag, 4);
  EXPECT_EQ(b.g.gbScoreMinLag, 3);
  for (int i = 0; i < 4; ++i) b.g.LagDown();  // 2: blue
  EXPECT_EQ(b.w.barColor, color::Blue);
  EXPECT_EQ(b.g.gnColorLag, 2);
  EXPECT_EQ(b.Caption(Label::lblNetLag), "2");
  EXPECT_EQ(LabelColors(b), std::make_pair(color::Blue, color::White));
  b.g.LagDown();
  b.g.LagDown();
  EXPECT_EQ(b.g.gnLag, 0);
  // At 0 nothing changes, not even the colours.
  b.w.labelColors.clear();
  b.g.LagDown();
  EXPECT_EQ(b.g.gnLag, 0);
  EXPECT_TRUE(b.w.labelColors.empty());
}

TEST(NetLagTest, EasyHasNoLag) {
  Board b(1);
  b.Set(At(10, 6), {});
  b.Key('+');
  b.Key('+');
  EXPECT_EQ(b.g.gnLag, 0);
  EXPECT_EQ(b.g.gbScoreMinLag, 1);
  b.g.gnLag = 5;
  b.g.LagDown();
  EXPECT_EQ(b.g.gnLag, 5);
  // Even a black bar refuses no link on easy.
  b.w.barColor = color::Black;
  const CoordPair at = b.g.gctPlayerPos;
  b.Key('+');
  EXPECT_NE(b.g.gctPlayerPos, at);
}

}  // namespace sw::test
