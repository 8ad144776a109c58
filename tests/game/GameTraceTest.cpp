// What a turn writes to the debug log.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {
std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}
bool Has(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}
size_t IndexOf(const std::vector<std::string>& lines, const std::string& line) {
  return static_cast<size_t>(std::find(lines.begin(), lines.end(), line) - lines.begin());
}
}  // namespace

TEST(GameTraceTest, AMoveWritesItsKeyPressLines) {
  TempDir dir;
  Board b;
  b.Set(At(5, 5), {At(20, 10)});
  b.sw.opts.Current().bDebug = -1;
  b.sw.dbg.DebugOpen(true, true);
  b.Key('8');
  b.Key('z');
  b.sw.dbg.DebugExit();
  const std::vector<std::string> lines = Lines(Slurp(DebugLog::kFileName));

  const size_t entry = IndexOf(lines, "{{ frmMain.Form_KeyPress }} (input) KeyAscii=56 [8]");
  const size_t move = IndexOf(lines, "{{ MovePlayer }} (input) ctPlayer=5,4 (return) sucessful=-1");
  const size_t exit = IndexOf(lines, "{{ frmMain.Form_KeyPress }} (variables) gbEndSite=0 gnMoveCount=1 gbScoreNoLinkSite=-1");
  ASSERT_LT(exit, lines.size());
  EXPECT_LT(entry, move);
  EXPECT_LT(move, exit);
  EXPECT_EQ(lines[exit + 1], "     --> gnPlayerDir=8");
  EXPECT_TRUE(Has(lines, "{{ MoveNumDir }} (input) ctPos=5,5 nDir=8 (variables) ctPos=5,4"));

  // An unbound key: the entry line and the comment, nothing more.
  const size_t bad = IndexOf(lines, "{{ frmMain.Form_KeyPress }} (input) KeyAscii=122 [z]");
  ASSERT_LT(bad + 2, lines.size());
  EXPECT_EQ(lines[bad + 1], "{{ frmMain.Form_KeyPress }}");
  EXPECT_EQ(lines[bad + 2], "     --> Invalid key pressed");
}

TEST(GameTraceTest, CrashesOfOneCallShareOneStartMark) {
  TempDir dir;
  Board b;
  b.Set(At(12, 5), {At(8, 5), At(8, 5), At(8, 5), At(8, 5), At(23, 13)});
  b.sw.opts.Current().bDebug = -1;
  b.sw.dbg.DebugOpen(true, true);
  b.Key('5');
  b.sw.dbg.DebugExit();
  const std::vector<std::string> lines = Lines(Slurp(DebugLog::kFileName));
  const std::string comment = "     --> Start flag is being used to mark multiple crashes in same function call";
  EXPECT_TRUE(Has(lines,
                  "{{ CheckVirusCrash }} [BEGIN] (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=1 "
                  "gnInfectedPos(1)=9,5"));
  EXPECT_TRUE(Has(lines,
                  "{{ CheckVirusCrash }} (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=2 "
                  "gnInfectedPos(2)=9,5"));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), comment), 2);
  EXPECT_TRUE(Has(lines, "{{ KillVirus }} (input) nVirus=2 nEvent=1 (variables) gnVirusLive=4"));
  EXPECT_TRUE(Has(lines, "{{ AddPoints }} (input) nEvent=1 (variables) lBonus=15 new glScore=15"));
}

TEST(GameTraceTest, StartAndSiteLinesAndTheFiftiethGame) {
  TempDir dir;
  Board b;
  b.sw.opts.Current().bDebug = -1;
  b.sw.dbg.DebugOpen(true, true);
  b.g.gnGameNum = 49;
  b.sw.rnd.SetState(0x123456);
  b.g.StartGame();
  b.sw.dbg.DebugExit();
  const std::string text = Slurp(DebugLog::kFileName);
  const std::vector<std::string> lines = Lines(text);
  // The log was closed and opened again for appending: the header is still there.
  EXPECT_EQ(lines[1], "| SKITTERWEB");
  const size_t start = IndexOf(lines, "{{ StartGame }} (variables) gbGameOn=-1 gnSitesHit=0 gnReconnects=2");
  ASSERT_LT(start, lines.size());
  EXPECT_EQ(lines[start - 1], std::string(64, '*'));
  EXPECT_EQ(lines[start + 1], "     --> score is also reset to 0.  gnGameNum=50");
  EXPECT_TRUE(Has(lines, "{{ InitMap }} (variables) gbWaitOn=0 gbEndSite=-1"));
  EXPECT_TRUE(Has(lines, "     --> reset scoring bonus variables (gnMoveCount, gbScoreNoLinkSite, & gbScoreMinLag)"));
  EXPECT_TRUE(Has(lines, "{{ ResetObjects }} (variables) gctPlayerPos=-1,-1 gnLag & gnColorLag=0/Blue"));
  // The virus list as "{ 1:c,r - 2:c,r ... }".
  std::string list = "{ ";
  for (int16_t i = 1; i <= b.g.gnVirusLive; ++i) {
    if (i > 1) list += " - ";
    list += std::to_string(i) + ":" + b.g.gctVirusPos[static_cast<size_t>(i)].Text();
  }
  list += " }";
  EXPECT_TRUE(Has(lines, "{{ PlaceVirus }} (variables) gnVirusMax=7 gctVirusPos=" + list));
}

}  // namespace sw::test
