// The player's commands through the key handler.
#include <gtest/gtest.h>

#include <cstdlib>

#include "game/Board.h"

namespace sw::test {

namespace {
// A far virus that keeps the site alive and shows whether the viruses moved.
const CoordPair kFar = At(23, 13);
}  // namespace

TEST(CommandsTest, EachMoveKeyStepsItsWayAndTheVirusesAnswer) {
  const struct { char key; int dc, dr; } moves[] = {{'8', 0, -1}, {'9', 1, -1}, {'6', 1, 0}, {'3', 1, 1},
                                                    {'2', 0, 1},  {'1', -1, 1}, {'4', -1, 0}, {'7', -1, -1}};
  for (const auto& m : moves) {
    Board b;
    b.Set(At(5, 5), {kFar});
    b.Key(m.key);
    EXPECT_EQ(b.g.gctPlayerPos, At(5 + m.dc, 5 + m.dr)) << m.key;
    EXPECT_EQ(b.g.gnPlayerDir, m.key - '0');
    EXPECT_EQ(b.w.At(5 + m.dc, 5 + m.dr), PlayerPicture(static_cast<int16_t>(m.key - '0')));
    EXPECT_EQ(b.w.At(5, 5), Picture::None);
    EXPECT_EQ(b.g.gnMoveCount, 1);
    EXPECT_EQ(b.g.gbEndSite, 0);
    EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)});
  }
}

TEST(CommandsTest, MoveOffTheMapCostsNoTurnButCountsAMove) {
  Board b;
  b.Set(At(0, 5), {kFar});
  b.g.gnLag = 2;
  b.Key('4');
  EXPECT_EQ(b.g.gctPlayerPos, At(0, 5));
  EXPECT_EQ(b.g.gnMoveCount, 1);
  EXPECT_EQ(b.g.gnPlayerDir, 4);
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{kFar});  // no virus turn
  EXPECT_EQ(b.g.gnLag, 2);                                // no lag step
  EXPECT_EQ(b.w.At(0, 5), Picture::Player5);              // nothing drawn
  // A real move afterwards takes a turn and a lag step.
  b.Key('6');
  EXPECT_EQ(b.g.gnMoveCount, 2);
  EXPECT_EQ(b.g.gnLag, 1);
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)});
}

TEST(CommandsTest, PausePowerUpsAndBackup) {
  Board b;
  b.Set(At(5, 5), {kFar});
  b.g.gnPlayerDir = 8;
  b.g.gnLag = 2;
  b.Key('5');  // pause: the mouse stands, the viruses move, a lag step
  EXPECT_EQ(b.g.gctPlayerPos, At(5, 5));
  EXPECT_EQ(b.g.gnPlayerDir, 5);
  EXPECT_EQ(b.w.At(5, 5), Picture::Player5);
  EXPECT_EQ(b.g.gnMoveCount, 0);
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)});
  EXPECT_EQ(b.g.gnLag, 1);

  for (char key : {'a', 'e', 'r', 's'}) {  // power-ups: only the lag step
    b.g.gnLag = 2;
    b.Key(key);
    EXPECT_EQ(b.g.gnLag, 1) << key;
    EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)}) << key;
    EXPECT_EQ(b.g.gnMoveCount, 0);
  }
  b.g.gnLag = 2;
  b.Key('b');  // backup: nothing at all
  EXPECT_EQ(b.g.gnLag, 2);
  EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{At(22, 12)});
}

TEST(CommandsTest, UnboundDedicatedLineAndDoubleBoundKeys) {
  Board b;
  b.Set(At(5, 5), {kFar});
  b.g.gnLag = 2;
  for (char key : {'d', 'z', 'Q'}) {  // 'd' is the dedicated line: handled as unbound
    b.Key(key);
    EXPECT_EQ(b.g.gnLag, 2) << key;
    EXPECT_EQ(b.g.gbEndSite, -1) << key;
    EXPECT_EQ(b.Viruses(), std::vector<CoordPair>{kFar});
  }

  // Nothing at all during a timed pause.
  b.sw.shell.gbSleepOn = -1;
  b.Key('8');
  EXPECT_EQ(b.g.gctPlayerPos, At(5, 5));
  b.sw.shell.gbSleepOn = 0;

  // A key bound to two commands runs the earlier one in profile order.
  ControlProfile& cp = b.sw.opts.Current().cpProfile[1];
  cp.CPMoveLeft = 'x';
  cp.CPMoveUp = 'x';
  b.Key('x');
  EXPECT_EQ(b.g.gctPlayerPos, At(5, 4));

  // Bound to the dedicated line and to Link: Link runs.
  cp.CPDedLine = 'y';
  cp.CPLink = 'y';
  b.Key('y');
  EXPECT_EQ(b.g.gbScoreNoLinkSite, 0);
  EXPECT_GE(std::max(std::abs(b.g.gctPlayerPos.nCol - 5), std::abs(b.g.gctPlayerPos.nRow - 4)), 2);
}

TEST(CommandsTest, LinkNeverLandsNextToItsStart) {
  // Easy: no lag, so links are never refused; the viruses do not answer a link.
  Board b(1, 7.0);
  b.Set(At(10, 6), {});
  for (int i = 0; i < 300; ++i) {
    const CoordPair from = b.g.gctPlayerPos;
    b.Key('+');
    const CoordPair to = b.g.gctPlayerPos;
    ASSERT_GE(std::max(std::abs(to.nCol - from.nCol), std::abs(to.nRow - from.nRow)), 2) << i;
    EXPECT_EQ(b.w.At(to.nCol, to.nRow), Picture::Player5);
    EXPECT_EQ(b.w.At(from.nCol, from.nRow), Picture::None);
  }
  EXPECT_EQ(b.g.gnMoveCount, 300);
  EXPECT_EQ(b.g.gbScoreNoLinkSite, 0);
  EXPECT_EQ(b.g.gnLag, 0);
  EXPECT_TRUE(b.w.sleeps.empty());
}

TEST(CommandsTest, LinkOnHardPausesThenTheVirusesMove) {
  Board b(3);
  b.Set(At(10, 6), {kFar});
  b.Key('+');
  EXPECT_EQ(b.w.sleeps, std::vector<int32_t>{325});
  EXPECT_NE(b.Viruses(), std::vector<CoordPair>{kFar});
  // Normal: the jump is a free turn.
  Board n(2);
  n.Set(At(10, 6), {kFar});
  n.Key('+');
  EXPECT_TRUE(n.w.sleeps.empty());
  EXPECT_EQ(n.Viruses(), std::vector<CoordPair>{kFar});
}

TEST(CommandsTest, PlacementIgnoresTheLinkRuleWhenTheMouseIsNowhere) {
  // Find a generator state whose next cell is the corner (0, 0) or a neighbour of it.
  Random probe;
  uint32_t state = 0;
  for (uint32_t s = 1; s < (1u << 24); ++s) {
    probe.SetState(s);
    const float r1 = probe.Rnd();
    const float r2 = probe.Rnd();
    if (r1 * 24.0f < 1.0f && r2 * 14.0f < 1.0f) {
      state = s;
      break;
    }
  }
  ASSERT_NE(state, 0u);
  Board b;
  b.g.ResetObjects();
  b.g.gbLinkOn = -1;  // a site laid out from inside a link turn
  b.sw.rnd.SetState(state);
  b.g.PlacePlayer();
  EXPECT_EQ(b.g.gctPlayerPos, At(0, 0));
}

}  // namespace sw::test
