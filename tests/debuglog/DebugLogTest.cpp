// The debug log: the file's blocks, and what a turn of the game writes. (Every line of a whole scripted
// session: the pinned session, session_pinned.sh.)
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "Version.h"
#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

const std::string kBars = std::string(64, '|') + "\r\n";
const std::string kStars = std::string(64, '*') + "\r\n";

// What the log holds after its header (which ends with the second line of bars).
std::string AfterHeader(const std::string& log) { return log.substr(log.find(kBars, 1) + kBars.size()); }

TEST(DebugLogFile, HeaderSeparatorsMarkedDumpAppendClearAndClose) {
  TempDir dir;
  App a;
  DebugLog& dbg = a.sw.dbg;
  a.sw.opts.Current().bDebug = true;
  dbg.dumpState = [&dbg] { dbg.Print("DUMP"); };
  a.sw.session.DebugOpen(true, true);
  TraceRecord r = Trace("PlaySound").In("szFileName", "comp-dead.mp3");
  dbg.DebugWrite(r);
  dbg.DebugWrite(r, true, false);
  dbg.DebugWrite(r.Note(std::string("c\0d", 3)), true, true);  // character 0 (a key with no code) is written whole
  for (int16_t mark : {2, 0, 9}) dbg.DebugMark(mark);
  dbg.DebugExit();
  const std::string log = Slurp(DebugLog::kFileName);
  const std::string body = AfterHeader(log);
  EXPECT_TRUE(log.starts_with(kBars + "| SKITTERWEB\r\n| version: " SKITTERWEB_VERSION "\r\n| ") &&
              std::count(log.begin(), log.end() - static_cast<ptrdiff_t>(body.size()), '\n') == 5);
  const std::string line = "{{ PlaySound }} (input) szFileName=comp-dead.mp3\r\n";
  const std::string hashes = [] {
    std::string h;
    for (int i = 0; i < 45; ++i) h += "#-";
    return h;
  }();
  const std::string expected = line + kStars + line + "\r\n" + hashes + "\r\n" + hashes.substr(1) + "#\r\n" + line +
                               "     --> c" + '\0' + "d\r\nDUMP\r\n" + kBars + kStars + kStars + kStars +
                               "Games played=0\r\nExit Program - ";
  EXPECT_EQ(body.substr(0, expected.size()) + body.substr(body.size() - 4), expected + "\r\n\r\n");
  for (size_t i = 1; i < log.size(); ++i) ASSERT_FALSE(log[i] == '\n' && log[i - 1] != '\r') << i;

  // Opening appends; closing asks whether to keep the log; clearing leaves the header.
  for (const char* run : {"run 1", "run 2"}) a.sw.session.DebugOpen(false, true), dbg.Print(run), dbg.DebugExit();
  const std::string two = Slurp(DebugLog::kFileName);
  EXPECT_LT(two.find("run 1"), two.find("run 2"));
  a.w.answers = {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::No};
  a.sw.session.DebugClose();  // kept
  EXPECT_EQ(Slurp(DebugLog::kFileName), two);
  a.sw.session.DebugOpen(false, true);
  a.sw.session.DebugClear();
  dbg.DebugExit();
  EXPECT_TRUE(
      AfterHeader(Slurp(DebugLog::kFileName)).starts_with("| Log cleared\r\n" + kBars + kStars + "Games played="));
  for (int i = 0; i < 2; ++i) a.sw.session.DebugClose();  // the second time it is already gone: asked, not reported
  EXPECT_FALSE(std::filesystem::exists(DebugLog::kFileName));
  EXPECT_EQ(Shown(a.w), std::vector<std::string>(3, "Close Log File: Would you like to save the existing log file?"));
  EXPECT_EQ(std::to_string(static_cast<int>(a.w.messages.at(0).nButtons)) + LastSound(a.w),
            "4.\\sounds\\comp-save debug log.mp3");

  // Opening fails: logging off, the menu entry unchecked; reported unless quiet (the report: OptionsTest).
  std::filesystem::create_directory(DebugLog::kFileName);
  for (bool quiet : {true, false}) {
    a.sw.opts.Current().bDebug = true;
    a.w.checked[Menu::menUseDL] = true;
    a.sw.session.DebugOpen(!quiet, quiet);
    EXPECT_TRUE(!dbg.IsOpen() && !a.sw.opts.Current().bDebug && !a.w.checked[Menu::menUseDL] &&
                a.w.messages.size() == (quiet ? 3u : 4u))
        << quiet;
  }
  EXPECT_EQ(Shown(a.w).at(3) + "|" + LastSound(a.w),
            "Error: DebugOpen: Failed to open debug log\nPlease check file I/O accessability|.\\sounds\\powerup2.mp3");
}

TEST(GameTrace, KeyPressesCrashesAndTheFiftiethGame) {
  TempDir dir;
  Board b;
  b.Set(At(12, 5), {At(8, 5), At(8, 5), At(8, 5), At(8, 5), At(23, 13)});
  b.sw.opts.Current().bDebug = true;
  b.sw.session.DebugOpen(true, true);
  for (char key : {'8', '+', 'z'}) b.Key(key);
  b.g.gnGameNum = 49;
  // The 50th game closes the log and opens it again for appending: a log moved away meanwhile starts anew.
  std::filesystem::rename(DebugLog::kFileName, "moved.log");
  b.eng.StartGame();
  ASSERT_TRUE(std::filesystem::exists(DebugLog::kFileName));
  // The viruses placed: seven, in one list.
  std::string placed = "\n{{ PlaceVirus }} (variables) gnVirusMax=7 gctVirusPos={ ";
  for (size_t i = 1; i <= 7; ++i) placed += (i > 1 ? " - " : "") + std::to_string(i) + ":" + b.g.gctVirusPos[i].Text();
  b.Set(At(5, 5), {At(7, 5), At(7, 7)}, {At(6, 5), At(6, 6)});  // the last two viruses step onto infected servers
  b.Key('5');
  b.Set(At(5, 5), {At(23, 13)}, {At(5, 4)});  // and Whisk onto another
  b.Key('8');
  b.Set(At(5, 5), {At(9, 5)});  // a wait, until the virus comes
  b.Key('0');
  b.sw.dbg.DebugExit();
  const std::string log = Slurp("moved.log") + Slurp(DebugLog::kFileName);
  // Every key that gives a command is traced again once its turn is over; 'z' gives none.
  auto count = [&log](const std::string& s) {
    size_t n = 0;
    for (size_t at = log.find(s); at != std::string::npos; at = log.find(s, at + 1)) ++n;
    return n;
  };
  EXPECT_EQ(count("{{ frmMain.Form_KeyPress }} (variables)"), count("{{ frmMain.Form_KeyPress }} (input)") - 1);
  const std::string many = "\r\n     --> Start flag is being used to mark multiple crashes in same function call";
  const std::string manyInfected =
      "\r\n     --> Start flag is being used to mark multiple infected crashes in same function call";
  // Whole lines: a bound key, a link and an unbound key (the entry line and the comment, nothing more), a move, a new
  // layout, crashes in one call (which share one start mark), the fiftieth game, a virus on an infected server.
  for (const std::string& l : std::vector<std::string>{
           "{{ frmMain.Form_KeyPress }} (input) KeyAscii=56 [8]", "{{ InitMap }} (variables) gbWaitOn=0 gbEndSite=-1",
           "{{ frmMain.Form_KeyPress }} (variables) gbEndSite=0 gnMoveCount=1 gbScoreNoLinkSite=-1\r\n"
           "     --> gnPlayerDir=8",
           "{{ frmMain.Form_KeyPress }} (variables) gbEndSite=0 gnMoveCount=2 gbScoreNoLinkSite=0\r\n"
           "     --> gnPlayerDir=5",
           "{{ frmMain.Form_KeyPress }} (input) KeyAscii=122 [z]\r\n{{ frmMain.Form_KeyPress }}\r\n"
           "     --> Invalid key pressed",
           "{{ MovePlayer }} (input) ctPlayer=12,4 (return) sucessful=-1",
           "{{ MovePlayer }} (input) ctPlayer=5,4 (return) sucessful=-1 (variables) nCause=3\r\n"
           "     --> infected underfoot",
           "{{ ResetObjects }} (variables) gctPlayerPos=-1,-1 gnLag & gnColorLag=0/Blue",
           "{{ CheckVirusCrash }} [BEGIN] (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=1 "
           "gnInfectedPos(1)=9,4" +
               many,
           "{{ CheckVirusCrash }} (variables) bCrash (virus indexes)=-1 (1 & 2) gnInfectedCount=2 "
           "gnInfectedPos(2)=9,4" +
               many,
           "{{ KillVirus }} (input) nVirus=2 nEvent=1 (variables) gnVirusLive=4",
           "{{ AddPoints }} (input) nEvent=1 (variables) lBonus=15 new glScore=15",
           "{{ CheckInfected }} (input) ctPos=6,5 (variables) gctInfectedPos - index=1",
           "{{ CheckVirusInfected }} [BEGIN] (variables) nInfected=1 virus index=1" + manyInfected,
           "{{ CheckVirusInfected }} (variables) nInfected=2 virus index=1" + manyInfected,
           kStars + "{{ StartGame }} (variables) gbGameOn=-1 gnSitesHit=0 gnReconnects=2\r\n"
                    "     --> score is also reset to 0.  gnGameNum=50"})
    EXPECT_NE(log.find("\n" + l + "\r\n"), std::string::npos) << l;
  EXPECT_NE(log.find(placed + " }\r\n"), std::string::npos) << placed;
  // A cell is traced by CheckVirus or CheckInfected only when one stands on it.
  for (const char* proc : {"{{ CheckVirus }}", "{{ CheckInfected }}"})
    for (size_t at = log.find(proc); at != std::string::npos; at = log.find(proc, at + 1))
      EXPECT_NE(log.substr(log.find('\r', at) - 8, 8), " index=0") << proc;
}

}  // namespace
}  // namespace sw::test
