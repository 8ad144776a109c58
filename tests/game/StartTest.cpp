// Starting a game and laying out a site.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "game/Board.h"

namespace sw::test {

namespace {
// Every virus on the map, on its own cell, never on the mouse, and drawn.
void ExpectFreshSite(const Board& b, int nViruses) {
  ASSERT_EQ(b.g.gnVirusLive, nViruses);
  EXPECT_EQ(b.g.gnVirusMax, nViruses);
  std::set<std::pair<int, int>> cells;
  for (const CoordPair& v : b.Viruses()) {
    EXPECT_TRUE(v.nCol >= 0 && v.nCol < 24 && v.nRow >= 0 && v.nRow < 14);
    EXPECT_NE(v, b.g.gctPlayerPos);
    cells.insert({v.nCol, v.nRow});
    EXPECT_EQ(b.w.At(v.nCol, v.nRow), Picture::Virus);
  }
  EXPECT_EQ(cells.size(), static_cast<size_t>(nViruses));
  EXPECT_EQ(b.w.Count(Picture::Virus), nViruses);
  EXPECT_EQ(b.w.At(b.g.gctPlayerPos.nCol, b.g.gctPlayerPos.nRow), Picture::Player5);
  EXPECT_EQ(b.Caption(Label::lblVirus), std::to_string(nViruses));
  EXPECT_EQ(b.g.gnInfectedCount, 0);
  EXPECT_EQ(b.g.gbEndSite, -1);
  EXPECT_EQ(b.g.gbWaitOn, 0);
  EXPECT_EQ(b.g.gnMoveCount, 0);
  EXPECT_EQ(b.g.gbScoreNoLinkSite, -1);
  EXPECT_EQ(b.g.gbScoreMinLag, 1);
}
}  // namespace

TEST(StartTest, NewGameResetsCountersAndLaysOutTheFirstSite) {
  Board b;
  b.sw.hs.Entry(HighScores::kAllTime, 2, 1).lScore = 1234567;
  b.sc.glScore = 999;
  b.g.gnReconnects = 0;
  const int16_t games = b.g.gnGameNum;
  b.g.StartGame();
  EXPECT_EQ(b.g.gnGameNum, games + 1);
  EXPECT_EQ(b.g.gbGameOn, -1);
  EXPECT_EQ(b.g.gnSitesHit, 0);
  EXPECT_EQ(b.g.gnReconnects, 2);
  EXPECT_EQ(b.sc.glScore, 0);
  EXPECT_EQ(b.sc.glNextExtraLife, 10000);
  EXPECT_EQ(b.Caption(Label::lblScore), "0");
  EXPECT_EQ(b.Caption(Label::lblReconnects), "2");
  EXPECT_EQ(b.Caption(Label::lblSitesHit), "0");
  EXPECT_EQ(b.Caption(Label::lblHighScore), "1,234,567");
  EXPECT_GE(b.w.setSizes, 2);
  EXPECT_GE(b.w.setGrids, 2);
  ExpectFreshSite(b, 7);

  // Nothing starts while the board is only being prepared.
  b.g.gbGameInit = -1;
  b.g.StartGame();
  EXPECT_EQ(b.g.gnGameNum, games + 1);

  // Same seed, same layout: the generator alone decides.
  Board other;
  Board again;
  EXPECT_EQ(other.Viruses(), again.Viruses());
  EXPECT_EQ(other.g.gctPlayerPos, again.g.gctPlayerPos);
}

TEST(StartTest, VirusCountGrowsWithTheSiteUpToThirty) {
  for (int16_t site : {0, 1, 22, 23, 40}) {
    Board b;
    b.sw.opts.Current().nStartSite = site;
    b.g.StartGame();
    EXPECT_EQ(b.g.gnSitesHit, site);
    EXPECT_EQ(b.Caption(Label::lblSitesHit), std::to_string(site));
    ExpectFreshSite(b, std::min(site + 7, 30));
  }
}

TEST(StartTest, LagDisplayResetsExceptOnEasy) {
  for (int16_t diff : {1, 2}) {
    Board b(diff);
    b.g.gnLag = 9;
    b.g.gnColorLag = 3;
    b.w.barColor = color::Red;
    b.w.barValue = 9;
    b.w.captions[Label::lblNetLag] = "3";
    b.w.labelColors[Label::lblNetLag] = {color::Red, color::White};
    b.g.StartGame();
    if (diff == 1) {
      EXPECT_EQ(b.g.gnLag, 9);
      EXPECT_EQ(b.w.barColor, color::Red);
      EXPECT_EQ(b.w.barValue, 9);
      EXPECT_EQ(b.Caption(Label::lblNetLag), "3");
    } else {
      EXPECT_EQ(b.g.gnLag, 0);
      EXPECT_EQ(b.g.gnColorLag, 0);
      EXPECT_EQ(b.w.barColor, color::Blue);
      EXPECT_EQ(b.w.barValue, 0);
      EXPECT_EQ(b.Caption(Label::lblNetLag), "0");
      EXPECT_EQ(b.w.labelColors[Label::lblNetLag], std::make_pair(color::RGB(192, 192, 192), color::Black));
    }
  }
}

}  // namespace sw::test
