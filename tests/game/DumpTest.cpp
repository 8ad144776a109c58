// The state dump and the marks a player puts into the debug log.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

// The lines of the log from `from` on.
std::vector<std::string> LinesAfter(const std::string& log, size_t from) {
  std::vector<std::string> lines;
  for (size_t at = from; at < log.size();) {
    const size_t end = log.find("\r\n", at);
    lines.push_back(log.substr(at, end - at));
    at = end == std::string::npos ? log.size() : end + 2;
  }
  return lines;
}

bool Has(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

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
  const size_t start = Slurp(DebugLog::kFileName).size();
  b.sw.dump.DebugWriteAll();
  const std::vector<std::string> dump = LinesAfter(Slurp(DebugLog::kFileName), start);
  ASSERT_GE(dump.size(), 50u);
  EXPECT_EQ(dump.front() + "|" + dump.back(), "Begin: DebugWriteAll|End: DebugWriteAll");
  for (const char* line :
       {"---Options---", "Option Profile=0 (max=0)", "Player Name=Guest", "Difficulty=3", "Map Size=3(14,24)",
        "---Commands (selected)---", "Control Profile=Number Pad (Default) [Profile #1]", "Move Up=56='8'",
        "Link=43='+'", "---Score---", "Extra Life Bonus(per difficulty)=2000, 10000, 25000, 60000",
        "Score Modifier(per difficulty)=1, 5, 25, 150", "Base Points (events 1-8)=3, 20, 1, 2, 25, 45, 5, 1",
        "Points(events 1-8)=75, 500, 25, 50, 625, 1125, 125, 25", "Linked On Current Site=0",
        "Pending Score Messages=0", "---Game---", "Lag Duration=8", "Lag Severity=2  (Color=red)",
        "Player Position=(3,5)", "Virus Live=2", "     Virus #1 Position=(1,7)", "     Virus #2 Position=(12,20)",
        "Infected Count=1", "     Infected #1 Position=(9,9)", "Down Server Count=0"})
    EXPECT_TRUE(Has(dump, line)) << line;
  EXPECT_EQ(std::count_if(dump.begin(), dump.end(), [](const std::string& l) { return l.rfind("Message(", 0) == 0; }), 0);

  // Two queued score messages are both listed.
  b.sc.AddScoreMesg("first", "", 0, "t");
  b.sc.AddScoreMesg("second", "", 0, "t");
  const size_t again = Slurp(DebugLog::kFileName).size();
  b.sw.dump.DebugWriteAll();
  const std::vector<std::string> two = LinesAfter(Slurp(DebugLog::kFileName), again);
  EXPECT_TRUE(Has(two, "Pending Score Messages=2") && Has(two, "Message(1)=first") && Has(two, "Message(2)=second"));
}

TEST(StateDump, MarksAndSwitchingTheLogOn) {
  TempDir dir;
  Board b;
  b.sw.menu.menUseDL_Click();  // switched on from the menu: a dump follows the header
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_LT(log.find("| SKITTERWEB"), log.find("Begin: DebugWriteAll"));

  DebugMarkDialog& mark = b.sw.mark;
  for (const char* comment : {"", "the virus walked through a wall"}) {
    const size_t start = Slurp(DebugLog::kFileName).size();
    b.w.onDialog = [&](Dialog d) {
      ASSERT_EQ(d, Dialog::frmDebugMark);
      EXPECT_TRUE(mark.txtComment.empty());  // emptied each time it opens
      EXPECT_FALSE(mark.lblDateTime.empty());
      mark.txtComment = comment;
      mark.cmdOk_Click();
    };
    b.sw.menu.menMarkDL_Click();
    const std::vector<std::string> lines = LinesAfter(Slurp(DebugLog::kFileName), start);
    ASSERT_GE(lines.size(), 6u);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[1], "#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-#-");
    EXPECT_EQ(lines[3].rfind("{{ Mark Debug Log }} (variables) Time=", 0), 0u) << lines[3];
    EXPECT_NE(lines[3].find(" gopOpts(gnOpt).szUserName=Guest"), std::string::npos);
    EXPECT_EQ(lines[4], *comment ? std::string("     --> ") + comment : "Begin: DebugWriteAll");
    EXPECT_FALSE(mark.bShown);
  }

  // Cancel writes nothing.
  const std::string before = Slurp(DebugLog::kFileName);
  b.w.onDialog = [&](Dialog) {
    mark.txtComment = "never written";
    mark.cmdCancel_Click();
  };
  b.sw.menu.menMarkDL_Click();
  EXPECT_EQ(Slurp(DebugLog::kFileName), before);
  // A look for a virus is traced only when one was found: a turn of one lone virus traces none.
  b.Set(At(5, 5), {At(20, 12)});
  b.Key('5');
  EXPECT_EQ(Slurp(DebugLog::kFileName).find("{{ CheckVirus }}", before.size()), std::string::npos);
}

}  // namespace sw::test
