// The state dump: switched on from the menu, the log gets one after its header.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

// The dump's labels and objects, written after the log's header when the log is switched on from the menu.
TEST(StateDump, SwitchingTheLogOnDumpsTheStateAfterTheHeader) {
  TempDir dir;
  Board b(3);
  b.Set(At(5, 3), {At(7, 1), At(20, 12)}, {At(9, 9)});
  b.g.gnLag = 8;
  b.g.pbrNetLag.BarColor = color::Red;
  b.g.gnColorLag = 2;
  OptionProfile& op = b.sw.opts.Current();
  op.szPassword = "pw";
  op.nStartSite = 4;
  op.bDownServers = true;
  for (const char* m : {"first", "second"}) b.sc.AddScoreMesg(m, "", MsgButtons::OkOnly, "");
  Spit(DebugLog::kFileName, "an earlier log\r\n");
  b.sw.menu.menUseDL_Click();
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_TRUE(log.starts_with("an earlier log\r\n"));  // which is kept
  const size_t start = log.find("\nBegin: DebugWriteAll\r\n");
  EXPECT_LT(log.find("| SKITTERWEB"), start);
  const std::string dump = log.substr(start);
  EXPECT_TRUE(dump.ends_with("\r\nEnd: DebugWriteAll\r\n"));
  // The player's settings and the keys in use, in the dump's own order.
  EXPECT_NE(
      dump.find("\n---Options---\r\nOption Profile=0 (max=0)\r\nPlayer Name=Guest\r\nPassword=pw\r\n"
                "Sound=0\r\nGrid=-1\r\nStarting Site=4\r\nDifficulty=3\r\nMap Size=3(14,24)\r\n"
                "Down Servers=-1\r\nSafe Mode=0\r\nGame Number=1\r\n---Commands (selected)---\r\n"
                "Control Profile=Number Pad (Default) [Profile #1]\r\nMove Up=56='8'\r\nMove Up Right=57='9'\r\n"),
      std::string::npos);
  for (const char* line :
       {"Link=43='+'", "Virus Live=2", "Points(events 1-8)=75, 500, 25, 50, 625, 1125, 125, 25",
        "Linked On Current Site=0", "Extra Life Bonus(per difficulty)=2000, 10000, 25000, 60000",
        "Score Modifier(per difficulty)=1, 5, 25, 150", "Lag Severity=2  (Color=red)", "Player Position=(3,5)",
        "     Virus #1 Position=(1,7)", "     Virus #2 Position=(12,20)", "     Infected #1 Position=(9,9)"})
    EXPECT_NE(dump.find("\n" + std::string(line) + "\r\n"), std::string::npos) << line;
  EXPECT_NE(dump.find("\nPending Score Messages=2\r\nMessage(1)=first\r\nMessage(2)=second\r\n---Game"),
            std::string::npos);
}

}  // namespace sw::test
