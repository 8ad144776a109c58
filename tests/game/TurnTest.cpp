// Starting a game, the player's commands and the net lag.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

namespace {
// A far virus that keeps the site alive and shows whether the viruses moved.
const CoordPair kFar = At(23, 13);
const Cells kFarMoved = {At(22, 12)};
// gnLag, gnColorLag and the lag tier mark of the scoring.
Ints Lag(const Board& b) { return {b.g.gnLag, b.g.gnColorLag, b.g.gbScoreMinLag}; }
}  // namespace

TEST(StartTest, NewGameResetsTheCountersAndLaysOutTheFirstSite) {
  Board b;
  b.sw.hs.Entry(HighScores::kAllTime, 2, 1).lScore = 1234567;
  b.sc.glScore = 999;
  b.g.gnReconnects = 0;
  b.sw.opts.Current().nStartSite = 40;  // 7 viruses more than the sites hit (see the menu's test), at most 30
  b.eng.StartGame();
  EXPECT_EQ(
      Ints({b.g.gnGameNum, b.g.gbGameOn.Code(), b.g.gnSitesHit, b.g.gnReconnects, b.sc.glScore, b.sc.glNextExtraLife}),
      Ints({2, -1, 40, 2, 0, 10000}));
  EXPECT_EQ(b.Caption(Label::lblHighScore), "1,234,567");
  // A fresh site: the rules of a game in progress, the site's counters reset.
  const GameState& g = b.g;
  EXPECT_EQ(b.Broken(), "");
  EXPECT_EQ(Ints({g.gnVirusLive, g.gnVirusMax, g.gnInfectedCount, g.gbEndSite.Code(), g.gbWaitOn.Code(), g.gnMoveCount,
                  g.gbScoreNoLinkSite.Code(), g.gbScoreMinLag}),
            Ints({30, 30, 0, -1, 0, 0, -1, 1}));
}

TEST(CommandsTest, EachKeyAndWhatItCosts) {
  // A turn is a virus step and a lag step. Off the map counts a move but takes no turn; the
  // power-ups take only the lag step; backup, the dedicated line and unbound keys do nothing.
  const struct {
    char key;
    CoordPair from, to;
    int16_t dir, moves, lag;
    bool turn;
  } cases[] = {{'8', At(5, 5), At(5, 4), 8, 1, 1, true},  {'9', At(5, 5), At(6, 4), 9, 1, 1, true},
               {'6', At(5, 5), At(6, 5), 6, 1, 1, true},  {'3', At(5, 5), At(6, 6), 3, 1, 1, true},
               {'2', At(5, 5), At(5, 6), 2, 1, 1, true},  {'1', At(5, 5), At(4, 6), 1, 1, 1, true},
               {'4', At(5, 5), At(4, 5), 4, 1, 1, true},  {'7', At(5, 5), At(4, 4), 7, 1, 1, true},
               {'4', At(0, 5), At(0, 5), 4, 1, 2, false}, {'5', At(5, 5), At(5, 5), 5, 0, 1, true},
               {'a', At(5, 5), At(5, 5), 2, 0, 1, false}, {'s', At(5, 5), At(5, 5), 2, 0, 1, false},
               {'b', At(5, 5), At(5, 5), 2, 0, 2, false}, {'z', At(5, 5), At(5, 5), 2, 0, 2, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(1, c.key) + " from " + c.from.Text());
    Board b(2, c.from, {kFar});
    b.g.gnLag = 2;
    b.g.gnPlayerDir = Direction::Down;
    b.Key(c.key);
    EXPECT_EQ(b.g.gctPlayerPos, c.to);
    EXPECT_EQ(Ints({DirCode(b.g.gnPlayerDir), b.g.gnMoveCount, b.g.gnLag}), Ints({c.dir, c.moves, c.lag}));
    EXPECT_EQ(b.Viruses(), c.turn ? kFarMoved : Cells{kFar});
    // Each direction has its own picture, numbered as the keys of the pad.
    EXPECT_EQ(b.w.At(c.to.nCol, c.to.nRow), c.to != c.from ? static_cast<Picture>(c.dir) : Picture::Player5);
    EXPECT_EQ(b.w.Count(Picture::None), 64 * 64 - 2);
  }
  // An unbound capital plays as its lower case (Caps Lock); the dedicated line is no command: its key plays Link.
  Board b(2, At(5, 5), {kFar});
  ControlProfile& cp = b.sw.opts.Current().cpProfile[1];
  cp.CPMoveUp = 'x';
  b.Key('X');
  EXPECT_EQ(b.g.gctPlayerPos, At(5, 4));
  cp.CPDedLine = cp.CPLink = 'y';
  b.Key('y');
  EXPECT_EQ(b.g.gbScoreNoLinkSite.Code(), 0);
}

TEST(CommandsTest, LinkNeverLandsWithinOneCellOfItsStart) {
  Board b(1, 7.0);  // easy: links are never refused
  b.Set(At(10, 6), {});
  std::set<std::string> landed;  // never next to the start; two rows or two columns away is allowed, on either axis
  for (int i = 0; i < 300; ++i) {
    const CoordPair from = b.g.gctPlayerPos;
    b.Key('+');
    const int rows = std::abs(b.g.gctPlayerPos.nRow - from.nRow), cols = std::abs(b.g.gctPlayerPos.nCol - from.nCol);
    if (std::max(rows, cols) <= 1) landed.insert("next to the start");
    if (std::min(rows, cols) <= 1 && std::max(rows, cols) == 2)
      landed.insert(rows == 2 ? "two rows away" : "two columns away");
  }
  EXPECT_EQ(landed, std::set<std::string>({"two columns away", "two rows away"}));
  EXPECT_EQ(b.g.gnMoveCount, 300);
}

TEST(NetLagTest, LinkCostsTiersAndTheTimeoutTrap) {
  // A link costs four turns from blue, five from yellow; from red it falls into the timeout.
  const struct {
    int16_t lag;
    uint32_t bar;
    Ints after;
    uint32_t back, fore;
    const char* text;
    int value;
    const char* word;  // the tier as a screen reader names it
  } links[] = {{2, color::Blue, {6, 4, 2}, color::Yellow, color::Black, "4", 6, "yellow"},
               {6, color::Yellow, {11, 5, 3}, color::Red, color::White, "5", 11, "red"},
               {8, color::Red, {14, -1, 4}, color::Black, color::White, "X", 13, "timeout"}};  // shown full
  for (const auto& l : links) {
    SCOPED_TRACE(l.lag);
    Board b(2, At(10, 6), {kFar});
    b.g.gnLag = l.lag;
    b.g.gnPlayerDir = Direction::Up;
    b.g.pbrNetLag.BarColor = l.bar;
    b.Key('+');
    EXPECT_EQ(b.Viruses(), Cells{kFar});  // on normal the jump is a free turn
    EXPECT_EQ(std::make_pair(int(b.w.sleeps.size()), int(b.g.gnPlayerDir)), std::make_pair(0, 5));  // lands standing
    EXPECT_EQ(Lag(b), l.after);
    EXPECT_EQ(b.w.bar.BarColor, l.back);
    EXPECT_EQ(b.w.labelColors[Label::lblNetLag], std::make_pair(l.back, l.fore));
    EXPECT_EQ(std::make_pair(b.Caption(Label::lblNetLag), b.w.bar.Value), std::make_pair(std::string(l.text), l.value));
    EXPECT_EQ(LagTierWord(b.w.bar), l.word);
  }
  // The tier is chosen by the lag after its fall: 0 to 2 blue, 3 to 6 yellow, 7 to 12 red, then the timeout.
  const std::pair<int16_t, const char*> tiers[] = {{0, "0 blue"}, {2, "2 blue"}, {3, "1 yellow"},  {6, "4 yellow"},
                                                   {7, "1 red"},  {12, "6 red"}, {13, "X timeout"}};
  for (auto [lag, shown] : tiers) {
    Board b;
    b.g.gnLag = static_cast<int16_t>(lag + 1);
    b.eng.LagDown();
    EXPECT_EQ(b.Caption(Label::lblNetLag) + " " + LagTierWord(b.w.bar), shown);
  }
  // In the timeout the lag no longer falls and a link is refused: a move counted, the no-link bonus lost.
  Board b(2, At(10, 6), {kFar});
  b.g.gnLag = 14;
  b.g.pbrNetLag.BarColor = color::Black;
  b.Key('5');
  b.Key('+');
  EXPECT_EQ(b.g.gctPlayerPos, At(10, 6));
  EXPECT_EQ(Ints({b.g.gnLag, b.g.gnMoveCount, b.g.gbScoreNoLinkSite.Code(), b.g.gbLinkOn.Code()}), Ints({14, 1, 0, 0}));
  b.eng.InitMap();  // only a new layout of the site clears it, and shows the lag reset
  EXPECT_EQ(Lag(b), Ints({0, 0, 1}));
  EXPECT_EQ(std::make_tuple(b.w.bar.BarColor, b.w.bar.Value, b.Caption(Label::lblNetLag)),
            std::make_tuple(color::Blue, 0, std::string("0")));
  EXPECT_EQ(b.w.labelColors[Label::lblNetLag], std::make_pair(color::Silver, color::Black));
  EXPECT_EQ(LagTierWord(b.w.bar), "blue");
  // Falling (each tier's bounds: above), the tier mark stays at its highest; at 0 nothing changes, not even the
  // colours.
  for (b.g.gnLag = 8; b.g.gnLag > 0;) b.eng.LagDown();
  EXPECT_EQ(Lag(b), Ints({0, 0, 3}));
  EXPECT_EQ(b.w.labelColors[Label::lblNetLag], std::make_pair(color::Blue, color::White));
  b.w.labelColors.clear();
  b.eng.LagDown();
  EXPECT_EQ(std::make_pair(int(b.g.gnLag), b.w.labelColors.size()), std::make_pair(0, size_t{0}));

  // Easy: no lag, a new layout leaves its display alone, and even a black bar refuses no link.
  Board e(1, At(10, 6), {});
  e.g.gnLag = 5;
  e.g.pbrNetLag.BarColor = color::Black;
  e.eng.LagDown();
  e.eng.InitMap();
  const CoordPair from = e.g.gctPlayerPos;
  e.Key('+');
  EXPECT_NE(e.g.gctPlayerPos, from);
  EXPECT_EQ(std::make_pair(Lag(e), e.w.labelColors.size()), std::make_pair(Ints({5, 0, 1}), size_t{0}));
}

}  // namespace sw::test
