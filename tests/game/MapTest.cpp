// The map model: directions, lookups over the object lists and the entry rule.
#include <gtest/gtest.h>

#include "game/Board.h"

namespace sw::test {

TEST(MapTest, LookupsReportTheLowestMatchAndSkip) {
  Board b;
  b.Set(At(0, 0), {At(3, 3), At(4, 4), At(3, 3)}, {At(7, 7), At(7, 7)});
  EXPECT_EQ(b.g.CheckVirus(At(3, 3), 0), 1);
  EXPECT_EQ(b.g.CheckVirus(At(3, 3), 1), 3);
  EXPECT_EQ(b.g.CheckVirus(At(4, 4), 2), 0);  // only itself on the cell
  EXPECT_EQ(b.g.CheckVirus(At(5, 5), 0), 0);
  EXPECT_EQ(b.g.CheckInfected(At(7, 7)), 1);
  EXPECT_EQ(b.g.CheckInfected(At(3, 3)), 0);
  EXPECT_EQ(b.g.CheckDownServers(At(3, 3)), 0);
  EXPECT_EQ(b.g.IsOnMap(At(23, 13)), -1);
  EXPECT_EQ(b.g.IsOnMap(At(24, 13)), 0);
  EXPECT_EQ(b.g.IsOnMap(At(0, -1)), 0);
  CoordPair p = At(0, 0);
  b.g.MoveNumDir(p, 4);  // the edge is not checked here
  EXPECT_EQ(p, At(-1, 0));
  b.g.MoveNumDir(p, 10);  // nor is an unknown code: it stands still
  EXPECT_EQ(p, At(-1, 0));
  EXPECT_EQ(b.g.SamePos(At(2, 3), At(2, 3)), -1);
  EXPECT_EQ(b.g.SamePos(At(2, 3), At(3, 2)), 0);

  // Slots beyond the live count never match.
  b.g.gnVirusLive = 0;
  EXPECT_EQ(b.g.CheckVirus(At(3, 3), 0), 0);

  // After ResetObjects every lookup is empty and the mouse is nowhere.
  b.Set(At(1, 1), {At(3, 3)}, {At(7, 7)});
  b.g.ResetObjects();
  EXPECT_EQ(b.g.gctPlayerPos, At(-1, -1));
  EXPECT_EQ(b.g.CheckVirus(At(3, 3), 0), 0);
  EXPECT_EQ(b.g.CheckInfected(At(7, 7)), 0);
  EXPECT_EQ(b.w.At(3, 3), Picture::None);
  EXPECT_EQ(b.w.At(7, 7), Picture::None);
  EXPECT_EQ(b.w.At(1, 1), Picture::None);
}

TEST(MapTest, CanVirusEnterTellsNewViruses) {
  Board b;
  b.Set(At(5, 5), {At(3, 3)}, {At(8, 8)});
  // A moving virus may step anywhere on the map: onto viruses, servers, the mouse.
  EXPECT_EQ(b.g.CanVirusEnter(At(3, 3), 0), -1);
  EXPECT_EQ(b.g.CanVirusEnter(At(5, 5), 0), -1);
  EXPECT_EQ(b.g.CanVirusEnter(At(8, 8), 0), -1);
  EXPECT_EQ(b.g.CanVirusEnter(At(24, 0), 0), 0);
  // A new one may not stand on a virus or the mouse; infected servers do not matter.
  EXPECT_EQ(b.g.CanVirusEnter(At(3, 3), -1), 0);
  EXPECT_EQ(b.g.CanVirusEnter(At(5, 5), -1), 0);
  EXPECT_EQ(b.g.CanVirusEnter(At(8, 8), -1), -1);
  EXPECT_EQ(b.g.CanVirusEnter(At(-1, 2), -1), 0);
}

}  // namespace sw::test
