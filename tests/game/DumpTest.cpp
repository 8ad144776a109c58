// The state dump and the marks a player puts into the debug log.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

// The log from `from` on.
std::string LogFrom(size_t from) { return Slurp(DebugLog::kFileName).substr(from); }
size_t LogSize() { return Slurp(DebugLog::kFileName).size(); }

}  // namespace

TEST(StateDump, SectionsLabelsAndObjects) {
  TempDir dir;
  Board b(3);
  b.sw.opts.Current().bDebug = -1;
  b.sw.session.DebugOpen(true, true);
  b.Set(At(5, 3), {At(7, 1), At(20, 12)}, {At(9, 9)});
  b.g.gnLag = 8;
  b.g.pbrNetLag.BarColor = color::Red;
  b.g.gnColorLag = 2;
  const size_t start = LogSize();
  b.sw.dump.DebugWriteAll();
  const std::string dump = LogFrom(start);
  EXPECT_TRUE(dump.starts_with("Begin: DebugWriteAll\r\n") && dump.ends_with("\r\nEnd: DebugWriteAll\r\n"));
  for (const char* line : {"Option Profile=0 (max=0)", "Map Size=3(14,24)", "Move Up=56='8'", "Linked On Current Site=0",
                           "Points(events 1-8)=75, 500, 25, 50, 625, 1125, 125, 25", "Lag Severity=2  (Color=red)",
                           "Player Position=(3,5)", "Virus Live=2", "     Virus #1 Position=(1,7)",
                           "     Virus #2 Position=(12,20)", "     Infected #1 Position=(9,9)"})
    EXPECT_NE(dump.find("\n" + std::string(line) + "\r\n"), std::string::npos) << line;
  EXPECT_EQ(dump.find("\nMessage("), std::string::npos);
}

TEST(StateDump, MarksAndSwitchingTheLogOn) {
  TempDir dir;
  Board b;
  b.sw.menu.menUseDL_Click();  // switched on from the menu: a dump follows the header
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_LT(log.find("| SKITTERWEB"), log.find("Begin: DebugWriteAll"));

  // A mark: the marked block (its three lines: the debug log's test), the line, the comment, then the dump.
  DebugMarkDialog& mark = b.sw.mark;
  b.w.onDialog = [&](Dialog) {
    mark.txtComment = "the virus walked through a wall";
    mark.cmdOk_Click();
  };
  b.sw.menu.menMarkDL_Click();
  const std::string marked = LogFrom(log.size());
  EXPECT_TRUE(marked.starts_with("\r\n#-#-#-")) << marked;
  EXPECT_EQ(marked.find("{{ Mark Debug Log }} (variables) Time="), 2u + 2 * 92);
  EXPECT_NE(marked.find(" gopOpts(gnOpt).szUserName=Guest\r\n     --> the virus walked through a wall\r\n"
                        "Begin: DebugWriteAll\r\n"),
            std::string::npos);

  // Cancel writes nothing.
  const std::string before = Slurp(DebugLog::kFileName);
  b.w.onDialog = [&](Dialog) {
    mark.txtComment = "never written";
    mark.cmdCancel_Click();
  };
  b.sw.menu.menMarkDL_Click();
  EXPECT_EQ(Slurp(DebugLog::kFileName), before);
}

}  // namespace sw::test
