// The debug log: what a whole scripted session does not show (every line of one: the pinned session,
// session_pinned.sh).
#include <gtest/gtest.h>

#include <filesystem>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

const std::string kBars = std::string(64, '|') + "\r\n";
const std::string kStars = std::string(64, '*') + "\r\n";

// What the log holds after its header (which ends with the second line of bars).
std::string AfterHeader(const std::string& log) { return log.substr(log.find(kBars, 1) + kBars.size()); }

// The file's blocks (header, separators, marks, dump, the closing lines) are read whole in the pinned session. Here:
// a note holding character 0, appending, clearing, closing and a log that cannot be opened.
TEST(DebugLogFile, ZeroInANoteAppendClearCloseAndFailures) {
  TempDir dir;
  App a;
  DebugLog& dbg = a.sw.dbg;
  a.sw.opts.Current().bDebug = true;
  a.sw.session.DebugOpen(true, true);
  dbg.DebugWrite(Trace("PlaySound").Note(std::string("c\0d", 3)));  // a key with no code is written whole
  dbg.DebugExit();
  EXPECT_NE(Slurp(DebugLog::kFileName).find(std::string("{{ PlaySound }}\r\n     --> c\0d\r\n", 30)),
            std::string::npos);

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

// Mark Debug Log opens with an empty comment and the time; OK writes the comment under the player's name with a
// dump, Cancel writes nothing.
TEST(DebugLogFile, AMarkCarriesTheCommentAndCancelWritesNothing) {
  TempDir dir;
  App a;
  DebugMarkDialog& m = a.sw.mark;
  a.sw.opts.Current().bDebug = true;
  a.sw.session.DebugOpen(true, true);
  std::string opened;
  a.w.onDialog = [&](Dialog) {
    opened += m.bShown && m.txtComment.empty() && !m.lblDateTime.empty() ? "open " : "not ready ";
    m.txtComment = opened.size() < 6 ? "first" : "second";
    m.txtComment == "first" ? m.cmdOk_Click() : m.cmdCancel_Click();
  };
  for (int i = 0; i < 2; ++i) a.sw.menu.menMarkDL_Click();
  a.sw.dbg.DebugExit();
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_EQ(opened + (m.bShown ? "shown" : "closed"), "open open closed");
  EXPECT_NE(log.find("#\r\n{{ Mark Debug Log }} (variables) Time="), std::string::npos);
  EXPECT_NE(log.find(" gopOpts(gnOpt).szUserName=Guest\r\n     --> first\r\nBegin: DebugWriteAll"), std::string::npos);
  EXPECT_EQ(log.find("second"), std::string::npos);
}

// Two things a long session seldom meets: Whisk stepping onto an infected server, and the 50th game, which closes
// the log and opens it again for appending, so that a log moved away meanwhile starts anew.
TEST(GameTrace, InfectedUnderfootAndTheFiftiethGame) {
  TempDir dir;
  Board b;
  b.sw.opts.Current().bDebug = true;
  b.sw.session.DebugOpen(true, true);
  b.Set(At(5, 5), {At(23, 13)}, {At(5, 4)});
  b.Key('8');
  b.g.gnGameNum = 49;
  std::filesystem::rename(DebugLog::kFileName, "moved.log");
  b.eng.StartGame();
  b.sw.dbg.DebugExit();
  EXPECT_NE(Slurp("moved.log")
                .find("\n{{ MovePlayer }} (input) ctPlayer=5,4 (return) sucessful=-1 (variables) "
                      "nCause=3\r\n     --> infected underfoot\r\n"),
            std::string::npos);
  EXPECT_TRUE(Slurp(DebugLog::kFileName)
                  .starts_with(kStars + "{{ StartGame }} (variables) gbGameOn=-1 gnSitesHit=0 gnReconnects=2\r\n"
                                        "     --> score is also reset to 0.  gnGameNum=50\r\n"));
}

}  // namespace
}  // namespace sw::test
