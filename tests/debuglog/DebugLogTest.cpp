#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "game/Skitterweb.h"
#include "support/FakeWindow.h"
#include "support/TempDir.h"

namespace sw {
namespace {

using test::FakeWindow;
using test::Slurp;
using test::TempDir;

const std::string kBars = std::string(64, '|') + "\r\n";
const std::string kStars = std::string(64, '*') + "\r\n";

std::string Repeat(const std::string& s, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

// What the log holds after its header (five lines).
std::string AfterHeader(const std::string& log) {
  size_t p = 0;
  for (int i = 0; i < 5; ++i) p = log.find("\r\n", p) + 2;
  return log.substr(p);
}

TEST(TraceLine, EachPartAppearsOnlyWhenItsNamesAreSet) {
  TraceRecord r;
  r.szProc = "StartGame";
  EXPECT_EQ(DebugLog::TraceLines(r), "{{ StartGame }}\r\n");

  r.bBegin = true;
  EXPECT_EQ(DebugLog::TraceLines(r), "{{ StartGame }} [BEGIN]\r\n");

  TraceRecord in;
  in.szProc = "P";
  in.vInValue[0] = "ignored";  // a value without a name is a free slot
  in.szInName[1] = "second";
  in.vInValue[1] = int16_t{2};
  EXPECT_EQ(DebugLog::TraceLines(in), "{{ P }} (input) second=2\r\n");

  TraceRecord empty;
  empty.szProc = "P";
  empty.szVarName[2] = "szName";
  empty.vVarValue[2] = "";
  EXPECT_EQ(DebugLog::TraceLines(empty), "{{ P }} (variables) szName=\r\n");

  TraceRecord all;
  all.szProc = "frmMain.menQuit_Click";
  all.szInName[0] = "a";
  all.vInValue[0] = true;
  all.szInName[2] = "c";
  all.vInValue[2] = 2.5;
  all.szReturnName = "r";
  all.vReturnValue = int32_t{-7};
  all.szVarName[0] = "gnLag & gnColorLag";
  all.vVarValue[0] = "3 1";
  all.szVarName[1] = "b";
  all.vVarValue[1] = false;
  all.szComment = "note";
  EXPECT_EQ(DebugLog::TraceLines(all),
            "{{ frmMain.menQuit_Click }} (input) a=True c=2.5 (return) r=-7 (variables) gnLag & gnColorLag=3 1 "
            "b=False\r\n     --> note\r\n");

  TraceRecord ret;
  ret.szProc = "F";
  ret.szReturnName = "x";
  EXPECT_EQ(DebugLog::TraceLines(ret), "{{ F }} (return) x=\r\n");
}

TEST(DebugLogFile, HeaderSeparatorsAndTheOrderOfAMarkedDump) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  sw.dbg.dumpState = [](DebugLog& d) { d.Print("DUMP"); };
  sw.dbg.DebugOpen(true, true);
  ASSERT_TRUE(sw.dbg.IsOpen());
  TraceRecord r;
  r.szProc = "PlaySound";
  r.szInName[0] = "szFileName";
  r.vInValue[0] = "comp-dead.mp3";
  sw.dbg.DebugWrite(r);
  sw.dbg.DebugWrite(r, true, false);
  r.szComment = "c";
  sw.dbg.DebugWrite(r, true, true);
  sw.dbg.DebugMark(2);
  sw.dbg.DebugMark(0);
  sw.dbg.DebugMark(9);
  sw.dbg.DebugExit();
  EXPECT_FALSE(sw.dbg.IsOpen());

  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_EQ(log.rfind(kBars + "| SKITTERWEB\r\n| version: 1.14\r\n| ", 0), 0u);
  const std::string body = AfterHeader(log);
  // The header ends with the date line and a second row of bars.
  EXPECT_TRUE(log.substr(0, log.size() - body.size()).ends_with("\r\n" + kBars));
  const std::string line = "{{ PlaySound }} (input) szFileName=comp-dead.mp3\r\n";
  const std::string expected = line + kStars + line + "\r\n" + Repeat("#-", 45) + "\r\n" + Repeat("-#", 45) +
                               "\r\n" + line + "     --> c\r\n" + "DUMP\r\n" + kBars + kStars + kStars + kStars +
                               "Games played=" + std::to_string(sw.game.gnGameNum) + "\r\nExit Program - ";
  EXPECT_EQ(body.substr(0, expected.size()), expected);
  EXPECT_TRUE(body.ends_with("\r\n\r\n"));
  // Every line ends with CR LF.
  for (size_t i = 0; i < log.size(); ++i)
    if (log[i] == '\n') {
      ASSERT_TRUE(i > 0 && log[i - 1] == '\r') << i;
    }
}

TEST(DebugLogFile, ValuesHoldingCharacterZeroAreWrittenWhole) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  sw.dbg.DebugOpen(true, true);
  TraceRecord r;
  r.szProc = "frmCommandList.txtKey_KeyPress";
  r.szInName[0] = "KeyAscii";
  r.vInValue[0] = std::string("0 [") + '\0' + "]";
  r.szComment = "after";
  sw.dbg.DebugWrite(r);
  sw.dbg.Print(std::string("a") + '\0' + "b");
  sw.dbg.DebugExit();
  const std::string expected = "{{ frmCommandList.txtKey_KeyPress }} (input) KeyAscii=0 [" + std::string(1, '\0') +
                               "]\r\n     --> after\r\na" + std::string(1, '\0') + "b\r\n";
  EXPECT_EQ(AfterHeader(Slurp(DebugLog::kFileName)).substr(0, expected.size()), expected);
}

TEST(DebugLogFile, OpeningAppendsUnlessClearingAndClearLeavesTheHeader) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  sw.dbg.DebugOpen(true, true);
  sw.dbg.Print("first run");
  sw.dbg.DebugExit();
  sw.dbg.DebugOpen(false, true);
  sw.dbg.Print("second run");
  sw.dbg.DebugExit();
  const std::string two = Slurp(DebugLog::kFileName);
  EXPECT_LT(two.find("first run"), two.find("second run"));
  EXPECT_NE(two.find("second run"), std::string::npos);

  sw.dbg.DebugOpen(false, true);
  sw.dbg.DebugClear();
  ASSERT_TRUE(sw.dbg.IsOpen());
  sw.dbg.DebugExit();
  const std::string cleared = Slurp(DebugLog::kFileName);
  EXPECT_EQ(cleared.find("run"), std::string::npos);
  EXPECT_EQ(cleared.rfind(kBars + "| SKITTERWEB\r\n", 0), 0u);
  EXPECT_EQ(AfterHeader(cleared).rfind("| Log cleared\r\n" + kBars + kStars + "Games played=", 0), 0u);
  EXPECT_TRUE(w.messages.empty());
}

TEST(DebugLogFile, ClosingAsksAndDeletesUnlessKept) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  for (int run = 0; run < 3; ++run) {
    sw.dbg.DebugOpen(false, true);
    sw.dbg.Print("run " + std::to_string(run));
    sw.dbg.DebugExit();
  }
  w.answers = {6};
  sw.dbg.DebugClose();
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].text, "Would you like to save the existing log file?");
  EXPECT_EQ(w.messages[0].nButtons, 4);
  EXPECT_EQ(w.messages[0].szTitle, "Close Log File");
  EXPECT_EQ(w.sounds.back(), ".\\sounds\\comp-save debug log.mp3");
  EXPECT_NE(Slurp(DebugLog::kFileName).find("run 2"), std::string::npos);

  w.answers = {7};
  sw.dbg.DebugClose();
  EXPECT_FALSE(std::filesystem::exists(DebugLog::kFileName));
  // A log that is already gone: asked again, nothing reported.
  w.answers = {7};
  sw.dbg.DebugClose();
  EXPECT_EQ(w.messages.size(), 3u);
}

TEST(DebugLogFile, OpenFailureTurnsLoggingOff) {
  TempDir dir;
  std::filesystem::create_directory(DebugLog::kFileName);
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  w.checked[Menu::menUseDL] = true;
  sw.dbg.DebugOpen(false, true);
  EXPECT_FALSE(sw.dbg.IsOpen());
  EXPECT_EQ(sw.opts.Current().bDebug, 0);
  EXPECT_FALSE(w.checked[Menu::menUseDL]);
  EXPECT_TRUE(w.messages.empty());  // quiet

  sw.opts.Current().bDebug = -1;
  w.checked[Menu::menUseDL] = true;
  sw.dbg.DebugOpen(true, false);
  EXPECT_EQ(sw.opts.Current().bDebug, 0);
  EXPECT_FALSE(w.checked[Menu::menUseDL]);
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].text, "Failed to open debug log\nPlease check file I/O accessability");
  EXPECT_EQ(w.messages[0].nButtons, 0);
  EXPECT_EQ(w.messages[0].szTitle, "Error: DebugOpen");
  EXPECT_EQ(w.sounds.back(), ".\\sounds\\powerup2.mp3");
}

}  // namespace
}  // namespace sw
