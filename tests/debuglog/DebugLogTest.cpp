// The debug log: trace lines, the file's blocks, and what a turn of the game writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>

#include "Version.h"
#include "game/Board.h"
#include "support/TempDir.h"

// The trace records below name only the fields they use; the rest stay empty on purpose.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace sw::test {
namespace {

const std::string kBars = std::string(64, '|') + "\r\n";
const std::string kStars = std::string(64, '*') + "\r\n";

// What the log holds after its header (five lines).
std::string AfterHeader(const std::string& log) {
  size_t p = 0;
  for (int i = 0; i < 5; ++i) p = log.find("\r\n", p) + 2;
  return log.substr(p);
}

std::vector<std::string> LogLines() {
  std::vector<std::string> lines;
  std::istringstream in(Slurp(DebugLog::kFileName));
  for (std::string line; std::getline(in, line);) lines.push_back(line.substr(0, line.find('\r')));
  return lines;
}

size_t IndexOf(const std::vector<std::string>& lines, const std::string& line) {
  return static_cast<size_t>(std::find(lines.begin(), lines.end(), line) - lines.begin());
}

TEST(TraceLine, EachPartAppearsOnlyWhenItsNamesAreSet) {
  const std::pair<TraceRecord, std::string> cases[] = {
      {{.szProc = "P"}, "{{ P }}\r\n"},
      // A value without a name is a free slot.
      {{.szProc = "P", .bBegin = true, .szInName = {"", "second", ""}, .vInValue = {"ignored", int16_t{2}, Value()}},
       "{{ P }} [BEGIN] (input) second=2\r\n"},
      {{.szProc = "F", .szReturnName = "x", .szVarName = {"", "", "szName"}, .vVarValue = {Value(), Value(), ""}},
       "{{ F }} (return) x= (variables) szName=\r\n"},
      {{.szProc = "frmMain.menQuit_Click", .szInName = {"a", "", "c"}, .vInValue = {true, Value(), 2.5},
        .szReturnName = "r", .vReturnValue = int32_t{-7}, .szVarName = {"gnLag & gnColorLag", "b", ""},
        .vVarValue = {"3 1", false, Value()}, .szComment = "note"},
       "{{ frmMain.menQuit_Click }} (input) a=True c=2.5 (return) r=-7 (variables) gnLag & gnColorLag=3 1 "
       "b=False\r\n     --> note\r\n"}};
  for (const auto& [rec, line] : cases) EXPECT_EQ(DebugLog::TraceLines(rec), line);
}


TEST(TraceLine, BuiltRecordsTakeTheNextFreeSlot) {
  TraceRecord rec = Trace("frmMain.menQuit_Click")
                        .In("a", true)
                        .Ret("r", int32_t{-7})
                        .Var("gnLag & gnColorLag", "3 1")
                        .In("c", 2.5)
                        .Var("b", false)
                        .Note("note");
  EXPECT_EQ(DebugLog::TraceLines(rec),
            "{{ frmMain.menQuit_Click }} (input) a=True c=2.5 (return) r=-7 (variables) gnLag & gnColorLag=3 1 "
            "b=False\r\n     --> note\r\n");
  // A slot left free by hand is the next one taken; a fourth name has no slot.
  TraceRecord holes{.szProc = "P", .szVarName = {"", "second", ""}};
  holes.Begin().Var("first", int16_t{1}).Var("third", int16_t{3}).Var("fourth", int16_t{4});
  EXPECT_EQ(holes.szVarName, (std::array<std::string, 3>{"first", "second", "third"}));
  EXPECT_EQ(DebugLog::TraceLines(holes), "{{ P }} [BEGIN] (variables) first=1 second= third=3\r\n");
  EXPECT_EQ(DebugLog::TraceLines(Trace("P").Begin(false).In("x", "y")), "{{ P }} (input) x=y\r\n");
}
TEST(DebugLogFile, HeaderSeparatorsMarkedDumpAppendClearAndClose) {
  TempDir dir;
  App a;
  DebugLog& dbg = a.sw.dbg;
  a.sw.opts.Current().bDebug = -1;
  dbg.dumpState = [&dbg] { dbg.Print("DUMP"); };
  a.sw.session.DebugOpen(true, true);
  TraceRecord r{
      .szProc = "PlaySound", .szInName = {"szFileName", "", ""}, .vInValue = {"comp-dead.mp3", Value(), Value()}};
  dbg.DebugWrite(r);
  dbg.DebugWrite(r, true, false);
  r.szComment = std::string("c\0d", 3);  // character 0 (a key with no code) is written whole
  dbg.DebugWrite(r, true, true);
  for (int16_t mark : {2, 0, 9}) dbg.DebugMark(mark);
  dbg.DebugExit();
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_EQ(log.rfind(kBars + "| SKITTERWEB\r\n| version: " SKITTERWEB_VERSION "\r\n| ", 0), 0u);
  const std::string body = AfterHeader(log);
  EXPECT_TRUE(log.substr(0, log.size() - body.size()).ends_with("\r\n" + kBars));
  const std::string line = "{{ PlaySound }} (input) szFileName=comp-dead.mp3\r\n";
  std::string hashes[2];
  for (int i = 0; i < 45; ++i) hashes[0] += "#-", hashes[1] += "-#";
  const std::string expected = line + kStars + line + "\r\n" + hashes[0] + "\r\n" + hashes[1] + "\r\n" + line +
                               "     --> c" + '\0' + "d\r\nDUMP\r\n" + kBars + kStars + kStars + kStars +
                               "Games played=0\r\nExit Program - ";
  EXPECT_EQ(body.substr(0, expected.size()), expected);
  EXPECT_TRUE(body.ends_with("\r\n\r\n"));
  for (size_t i = 1; i < log.size(); ++i) ASSERT_FALSE(log[i] == '\n' && log[i - 1] != '\r') << i;

  // Opening appends; closing asks whether to keep the log; clearing leaves the header.
  for (const char* run : {"run 1", "run 2"}) {
    a.sw.session.DebugOpen(false, true);
    dbg.Print(run);
    dbg.DebugExit();
  }
  const std::string two = Slurp(DebugLog::kFileName);
  EXPECT_LT(two.find("run 1"), two.find("run 2"));
  a.w.answers = {6};
  a.sw.session.DebugClose();  // kept
  EXPECT_EQ(Slurp(DebugLog::kFileName), two);
  a.sw.session.DebugOpen(false, true);
  a.sw.session.DebugClear();
  dbg.DebugExit();
  const std::string cleared = Slurp(DebugLog::kFileName);
  EXPECT_EQ(cleared.rfind(kBars + "| SKITTERWEB\r\n", 0), 0u);
  EXPECT_EQ(AfterHeader(cleared).rfind("| Log cleared\r\n" + kBars + kStars + "Games played=", 0), 0u);
  a.w.answers = {7, 7};
  a.sw.session.DebugClose();
  EXPECT_FALSE(std::filesystem::exists(DebugLog::kFileName));
  a.sw.session.DebugClose();  // already gone: asked again, nothing reported
  const std::string ask = "Close Log File: Would you like to save the existing log file?";
  EXPECT_EQ(Shown(a.w), (std::vector<std::string>{ask, ask, ask}));
  EXPECT_EQ(a.w.messages.at(0).nButtons, 4);
  EXPECT_EQ(LastSound(a.w), ".\\sounds\\comp-save debug log.mp3");

  // Opening fails: logging off, the menu entry unchecked; reported unless quiet.
  std::filesystem::create_directory(DebugLog::kFileName);
  a.w.messages.clear();
  for (bool quiet : {true, false}) {
    a.sw.opts.Current().bDebug = -1;
    a.w.checked[Menu::menUseDL] = true;
    a.sw.session.DebugOpen(!quiet, quiet);
    EXPECT_FALSE(dbg.IsOpen() || a.sw.opts.Current().bDebug || a.w.checked[Menu::menUseDL]);
    EXPECT_EQ(a.w.messages.size(), quiet ? 0u : 1u);
  }
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{"Error: DebugOpen: Failed to open debug log\n"
                                                 "Please check file I/O accessability"});
  EXPECT_EQ(LastSound(a.w), ".\\sounds\\powerup2.mp3");
}

TEST(GameTrace, KeyPressesCrashesAndTheFiftiethGame) {
  TempDir dir;
  Board b;
  b.Set(At(12, 5), {At(8, 5), At(8, 5), At(8, 5), At(8, 5), At(23, 13)});
  b.sw.opts.Current().bDebug = -1;
  b.sw.session.DebugOpen(true, true);
  b.Key('8');
  b.Key('z');
  b.g.gnGameNum = 49;
  b.eng.StartGame();  // the 50th game closes and reopens the log for appending
  b.sw.dbg.DebugExit();
  const std::vector<std::string> lines = LogLines();
  const size_t entry = IndexOf(lines, "{{ frmMain.Form_KeyPress }} (input) KeyAscii=56 [8]");
  const size_t exit =
      IndexOf(lines, "{{ frmMain.Form_KeyPress }} (variables) gbEndSite=0 gnMoveCount=1 gbScoreNoLinkSite=-1");
  EXPECT_LT(entry, exit);
  EXPECT_EQ(lines.at(exit + 1), "     --> gnPlayerDir=8");
  // An unbound key: the entry line and the comment, nothing more.
  const size_t bad = IndexOf(lines, "{{ frmMain.Form_KeyPress }} (input) KeyAscii=122 [z]");
  EXPECT_EQ(lines.at(bad + 1) + "|" + lines.at(bad + 2), "{{ frmMain.Form_KeyPress }}|     --> Invalid key pressed");
  // Exact lines of a move, a new layout, and crashes in one call (which share one start mark).
  for (const char* l :
       {"{{ MovePlayer }} (input) ctPlayer=12,4 (return) sucessful=-1",
        "{{ ResetObjects }} (variables) gctPlayerPos=-1,-1 gnLag & gnColorLag=0/Blue",
        "{{ InitMap }} (variables) gbWaitOn=0 gbEndSite=-1",
        "{{ CheckVirusCrash }} [BEGIN] (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=1 "
        "gnInfectedPos(1)=9,4",
        "{{ CheckVirusCrash }} (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=2 gnInfectedPos(2)=9,4",
        "{{ KillVirus }} (input) nVirus=2 nEvent=1 (variables) gnVirusLive=4",
        "{{ AddPoints }} (input) nEvent=1 (variables) lBonus=15 new glScore=15"})
    EXPECT_LT(IndexOf(lines, l), lines.size()) << l;
  EXPECT_EQ(std::count(lines.begin(), lines.end(),
                       "     --> Start flag is being used to mark multiple crashes in same function call"),
            2);
  EXPECT_EQ(lines.at(1), "| SKITTERWEB");  // the header is kept
  const size_t start = IndexOf(lines, "{{ StartGame }} (variables) gbGameOn=-1 gnSitesHit=0 gnReconnects=2");
  EXPECT_EQ(lines.at(start - 1) + "|" + lines.at(start + 1),
            std::string(64, '*') + "|     --> score is also reset to 0.  gnGameNum=50");
}

}  // namespace
}  // namespace sw::test
