#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "game/Skitterweb.h"
#include "support/FakeWindow.h"
#include "support/TempDir.h"

namespace sw {
namespace {

using test::FakeWindow;
using test::Slurp;
using test::Spit;
using test::TempDir;

// The file an empty table writes, whole. Other builds of the game must read
// our files and we theirs, so every byte counts: the key schedule, the
// generator's single-precision draws and the stretching all show up here, and a
// change to any of them would make every existing webmaster file unreadable.
// (Computed once from the empty table; it starts with the characters every
// build of the game produces and is 854 characters plus CR LF.)
const std::string kEmptyFile = std::string(
    "aoPbPSJhLh=GiXap`_YLo@reHbV@qkFKVMoOEgzG>YQCVekLfpKZ`DbeBNNwHff<I<EMUmbE?;\\NaNKuRJ@_P^MsdHLaM;[<"
    "SlPaf=chj=DLB@EQoCuZ[>CQe`RxQhYKqTudwx[?TeQIgj;OTx]XqxkPaDLZdx]FCz\\mvOS]lnQiJaWmOqRXNgLoxSD;OsJU"
    "N`q\\QgMDKBsoG;;Dx_CHMgwVNbxsHFR?=rbQ?pumQ[NgOV;Nh;dVfxxRjxuD=dx>zceEF\\suJtzQJQwiEiAYz?ZQYc=pE]a>"
    "WWrN]cmLmOSe_O\\;czvujfr_KSbpt[ajJiCHa?cidw[CdyAVzwHYXyJ<RdtO]@nlJ\\YXrpiyeMV;B;ecin[?Gjvgh>UTl>^W"
    "VlxtuwiugmNehD^ob@jMFLOxHNPZawgCl=hcJaPsXLOFNHacYe_V[YMBRuUqQF`ytXt>NkDgUQjAy?^FEmx]wN^FjFz^Z@WA"
    "t[LePuYpl^utkF[q\\g?rvL[xwRjCESCN[oezUENWeJgIZ[NSi_bQnwjQF>KVO^bmYIvo>s_zeH][ncNo_G\\zEyRafYZasojn"
    "C<;]WfCU^XZ`nfYUUL>FA]=nkaxIYGBmr<TQok^zZwACJoukJLwinv_\\N]h`OzLjC[EMms>V<y;sxOReQ[QetX;aiBeYuMNU"
    "VFvK`_p@qkVZiYcPx@ump<<c>HcQBng]qwQET[>@hEAwjE;C_wWNs^vmodpIr_yL<bIRzZLAjZSQvpLg\\oKFw`DneMOhqK;a"
    "dzO\\FCQJ?RdcYXokRL]\\;GajLbKb]lCg;s]i`X]xCAPcMBYaXdGtE[B?SQvtJ<<gUWN[EP?]f_YeouzveCzEo[") + "\r\n";

void FillTable(HighScores& hs, int seed) {
  for (int t = 0; t < 2; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s) {
        WebmasterEntry& e = hs.Entry(t, d, s);
        const int n = (t * 4 + d - 1) * 10 + s;
        e.lScore = seed * 100000 + (11 - s) * 1000 + n;
        e.nSites = static_cast<int16_t>(seed + n);
        e.szName = "Whisk, " + std::to_string(seed) + " the  " + std::to_string(n) + "th ";
      }
  hs.Entry(0, 1, 1).szName = "";
  hs.Entry(1, 4, 10).szName = " , ,, ";
  hs.Entry(1, 4, 9).lScore = 2147483647;
  hs.Entry(1, 4, 8).nSites = -32768;
}

void ExpectSameTable(const HighScores& a, const HighScores& b) {
  for (int t = 0; t < 2; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s) {
        const WebmasterEntry& x = a.Entry(t, d, s);
        const WebmasterEntry& y = b.Entry(t, d, s);
        EXPECT_EQ(x.lScore, y.lScore) << t << "/" << d << "/" << s;
        EXPECT_EQ(x.nSites, y.nSites) << t << "/" << d << "/" << s;
        EXPECT_EQ(x.szName, y.szName) << t << "/" << d << "/" << s;
      }
}

TEST(WebmasterFile, PlainTextIsEightyWriteLinesInFileOrder) {
  FakeWindow w;
  Skitterweb sw(w);
  FillTable(sw.hs, 0);
  sw.hs.Entry(0, 1, 1).szName = "Ann";
  sw.hs.Entry(0, 1, 2).lScore = -5;
  const std::string text = sw.hs.PlainText();
  EXPECT_EQ(text.rfind("10001,1,\"Ann\"\r\n-5,2,\"Whisk, 0 the  2th \"\r\n", 0), 0u);
  size_t lines = 0;
  for (size_t p = 0; (p = text.find("\r\n", p)) != std::string::npos; p += 2) ++lines;
  EXPECT_EQ(lines, 80u);
  // Personal lists first, easy to nightmare, slots 1 to 10; the all-time lists last.
  EXPECT_NE(text.find("\"Whisk, 0 the  40th \"\r\n10041,41,"), std::string::npos);
  EXPECT_TRUE(text.ends_with(",\" , ,, \"\r\n"));
}

TEST(WebmasterFile, WrittenFileReadsBackTheSameEightyEntries) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  FillTable(sw.hs, 7);
  sw.hs.WriteHighScores();
  EXPECT_TRUE(w.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(HighScores::kTempName));

  const std::string file = Slurp(HighScores::kFileName);
  ASSERT_GE(file.size(), 2u);
  EXPECT_EQ(file.substr(file.size() - 2), "\r\n");
  for (size_t i = 0; i + 2 < file.size(); ++i) {
    ASSERT_GE(file[i], ';');
    ASSERT_LE(file[i], 'z');
  }

  FakeWindow w2;
  Skitterweb other(w2);
  FillTable(other.hs, 3);
  other.hs.LoadHighScores();
  EXPECT_TRUE(w2.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(HighScores::kTempName));
  ExpectSameTable(other.hs, sw.hs);
  EXPECT_EQ(Slurp(HighScores::kFileName), file);  // reading leaves the file alone
}

TEST(WebmasterFile, AnEmptyTableWritesThePinnedFileAndReadsItBack) {
  TempDir dir;
  ASSERT_EQ(kEmptyFile.size(), 856u);
  ASSERT_EQ(kEmptyFile.rfind("aoPbPSJhLh=GiXap`_YLo@reHbV@qkFKVMoOEgzG", 0), 0u);
  FakeWindow w;
  Skitterweb sw(w);
  sw.hs.WriteHighScores();
  EXPECT_EQ(Slurp(HighScores::kFileName), kEmptyFile);

  Spit(HighScores::kFileName, kEmptyFile);
  FillTable(sw.hs, 2);
  sw.hs.LoadHighScores();
  EXPECT_TRUE(w.messages.empty());
  FakeWindow w2;
  Skitterweb fresh(w2);
  ExpectSameTable(sw.hs, fresh.hs);
}

TEST(WebmasterFile, DamagedFilesAreReportedAndKeepWhatWasRead) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);

  // No file at all: reported, the table untouched.
  FillTable(sw.hs, 1);
  sw.hs.LoadHighScores();
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].szTitle, "Error: LoadHighScoresError");
  EXPECT_EQ(w.messages[0].nButtons, 0);
  EXPECT_EQ(w.messages[0].text.rfind("Failed to open high score file\nError #53", 0), 0u);
  ASSERT_FALSE(w.sounds.empty());
  EXPECT_EQ(w.sounds.back(), ".\\sounds\\powerup2.mp3");
  FakeWindow w1;
  Skitterweb ref(w1);
  FillTable(ref.hs, 1);
  ExpectSameTable(sw.hs, ref.hs);

  // A file cut short: the entries before the cut are read, the rest stay as they were.
  FillTable(ref.hs, 5);
  ref.hs.WriteHighScores();
  const std::string whole = Slurp(HighScores::kFileName);
  Spit(HighScores::kFileName, whole.substr(0, whole.size() / 2));
  w.messages.clear();
  sw.hs.LoadHighScores();
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].szTitle, "Error: LoadHighScoresError");
  EXPECT_NE(w.messages[0].text.find("Error #62"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(HighScores::kTempName));
  EXPECT_EQ(sw.hs.Entry(0, 1, 1), ref.hs.Entry(0, 1, 1));
  EXPECT_EQ(sw.hs.Entry(0, 3, 5), ref.hs.Entry(0, 3, 5));
  EXPECT_NE(sw.hs.Entry(1, 4, 10), ref.hs.Entry(1, 4, 10));
  FakeWindow w3;
  Skitterweb before(w3);
  FillTable(before.hs, 1);
  EXPECT_EQ(sw.hs.Entry(1, 4, 10), before.hs.Entry(1, 4, 10));
  EXPECT_EQ(sw.hs.Entry(1, 2, 3), before.hs.Entry(1, 2, 3));

  // Binary junk of all sizes: always reported, never a crash, no temporary file left.
  for (size_t len : {0u, 1u, 2u, 3u, 5u, 856u, 4000u}) {
    std::string junk;
    for (size_t i = 0; i < len; ++i) junk.push_back(static_cast<char>((i * 131 + 17) & 0xFF));
    Spit(HighScores::kFileName, junk);
    w.messages.clear();
    sw.hs.LoadHighScores();
    ASSERT_EQ(w.messages.size(), 1u) << len;
    EXPECT_EQ(w.messages[0].szTitle, "Error: LoadHighScoresError");
    EXPECT_FALSE(std::filesystem::exists(HighScores::kTempName));
  }

  // A directory in place of the file.
  std::filesystem::remove(HighScores::kFileName);
  std::filesystem::create_directory(HighScores::kFileName);
  w.messages.clear();
  sw.hs.LoadHighScores();
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].szTitle, "Error: LoadHighScoresError");
}

TEST(WebmasterFile, FailureIsTracedWhenLogging) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.Current().bDebug = -1;
  sw.dbg.DebugOpen(true, true);
  sw.hs.LoadHighScores();
  sw.dbg.DebugExit();
  const std::string log = Slurp(DebugLog::kFileName);
  EXPECT_NE(log.find("{{ LoadHighScores }} (input) File Name=SWhscore.dat\r\n"), std::string::npos);
  EXPECT_NE(log.find("\r\n     --> Failed to open high score file - Error #53 - File not found\r\n"),
            std::string::npos);
}

class WebmasterWriteFailure : public ::testing::Test {
 protected:
  TempDir dir;
  FakeWindow w;
  Skitterweb sw{w};
  std::string old;

  void SetUp() override {
    FillTable(sw.hs, 4);
    sw.hs.WriteHighScores();
    old = Slurp(HighScores::kFileName);
    ASSERT_FALSE(old.empty());
    FillTable(sw.hs, 9);
    sw.hs.Entry(0, 2, 2).szName = std::string(300, 'n');
  }

  void ExpectReportedAndOldFileIntact() {
    ASSERT_EQ(w.messages.size(), 1u);
    EXPECT_EQ(w.messages[0].szTitle, "Error: WriteHighScoresError");
    EXPECT_EQ(w.messages[0].text.rfind("Failed to open high score file\nError #", 0), 0u);
    EXPECT_EQ(Slurp(HighScores::kFileName), old);
    EXPECT_FALSE(std::filesystem::is_regular_file(HighScores::kTempName));
  }
};

TEST_F(WebmasterWriteFailure, TemporaryFileThatCannotBeCreated) {
  std::filesystem::create_directory(HighScores::kTempName);
  sw.hs.WriteHighScores();
  ExpectReportedAndOldFileIntact();
}

TEST_F(WebmasterWriteFailure, NewFileThatCannotBeCreatedBesideTheOldOne) {
  // The replacement is written beside the old file first ("SWhscore.dat.new");
  // a directory of that name stands in its way.
  std::filesystem::create_directory(std::string(HighScores::kFileName) + ".new");
  sw.hs.WriteHighScores();
  ExpectReportedAndOldFileIntact();
}

TEST_F(WebmasterWriteFailure, ReadOnlyDirectory) {
  ::chmod(".", 0555);
  Spit("probe", "x");
  const bool writable = std::filesystem::exists("probe");
  if (writable) {
    std::filesystem::remove("probe");
    ::chmod(".", 0755);
    GTEST_SKIP() << "running as a user whom directory permissions do not stop (root); "
                    "the other write-failure tests cover this case";
  }
  sw.hs.WriteHighScores();
  ::chmod(".", 0755);
  ExpectReportedAndOldFileIntact();
}

TEST_F(WebmasterWriteFailure, WriteCutOffHalfWay) {
  // A file-size limit lets the plain temporary file through but stops the
  // enciphered file part of the way, as a full disk would.
  const size_t plain = sw.hs.PlainText().size();
  struct rlimit saved {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  auto* oldHandler = ::signal(SIGXFSZ, SIG_IGN);
  struct rlimit lim = saved;
  lim.rlim_cur = plain + 64;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &lim), 0);
  sw.hs.WriteHighScores();
  ::setrlimit(RLIMIT_FSIZE, &saved);
  ::signal(SIGXFSZ, oldHandler);
  ExpectReportedAndOldFileIntact();
  // Nothing half-written is left beside the old file.
  for (const auto& entry : std::filesystem::directory_iterator("."))
    EXPECT_EQ(entry.path().filename(), HighScores::kFileName);
}

}  // namespace
}  // namespace sw
