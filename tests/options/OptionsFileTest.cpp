#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "game/Skitterweb.h"
#include "runtime/RuntimeError.h"
#include "support/FakeWindow.h"
#include "support/TempDir.h"

namespace sw {
namespace {

using test::FakeWindow;
using test::Slurp;
using test::Spit;
using test::TempDir;

// An options file of the given lines, each ended by CR LF.
void WriteOptions(std::initializer_list<const char*> lines) {
  std::string text;
  for (const char* l : lines) text += std::string(l) + "\r\n";
  Spit(Options::kFileName, text);
}

const std::string kRecovery =
    "Error opening the options file (sw.opt).  Default game option profile will be used.\n\nError (";

// True when the table is the single default guest record.
bool IsGuestOnly(const Options& o) {
  FakeWindow w;
  Skitterweb fresh(w);
  return o.gopOpts.size() == 1 && o.gnOptMax == 0 && o.gnOpt == 0.0 && o.gopOpts[0] == fresh.opts.gopOpts[0];
}

void ExpectRecovery(const FakeWindow& w, const Options& o, const std::string& error) {
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].text, kRecovery + error);
  EXPECT_EQ(w.messages[0].szTitle, "Error: LoadOptions");
  EXPECT_EQ(w.messages[0].nButtons, 0);
  ASSERT_FALSE(w.sounds.empty());
  EXPECT_EQ(w.sounds.back(), ".\\sounds\\powerup2.mp3");
  EXPECT_TRUE(IsGuestOnly(o));
}

ControlProfile NumberedProfile(const std::string& name, int16_t base) {
  ControlProfile cp;
  cp.szName = name;
  int16_t k = base;
  for (const CommandField& f : kCommandFields) cp.*f.field = k++;
  return cp;
}

// Adds a record at the end of the table, as loading a new player does.
OptionProfile& AddPlayer(Options& o, const std::string& name) {
  o.gopOpts.emplace_back();
  o.gnOptMax = static_cast<int16_t>(o.gopOpts.size() - 1);
  o.InitOptionProfile(o.gopOpts.back());
  o.gopOpts.back().szUserName = name;
  return o.gopOpts.back();
}

TEST(OptionsFile, SaveThenLoadRestoresEveryFieldButTheTwoQuirks) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  Options& o = sw.opts;
  OptionProfile& a = AddPlayer(o, "Ann, the first");
  a.szPassword = "pass word";
  a.nProfile = 6;
  a.szProfile = "Mine";
  a.cpProfile.push_back(NumberedProfile("Arrows", 100));
  a.cpProfile.push_back(NumberedProfile("Mine", -300));
  a.nDiff = 4;
  a.bGrid = 0;
  a.bSound = 0;
  a.nStartSite = 7;
  a.nMapSize = 5;
  a.bDownServers = -1;
  a.bSafe = -1;
  a.cpProfile[0].CPLink = 99;  // the temporary profile is never saved
  OptionProfile& b = AddPlayer(o, "Bob");
  b.szPassword = "";
  b.nProfile = 0;
  b.szProfile = "(Temporary)";
  b.cpProfile.push_back(NumberedProfile("Bob's", 32767));
  b.nDiff = 1;
  b.nStartSite = -2;
  o.gnOpt = 2;
  const std::vector<OptionProfile> saved = o.gopOpts;
  o.SaveOptions();

  const std::string file = Slurp(Options::kFileName);
  EXPECT_NE(file.find("\"LastOption\",\" 2\"\r\n"), std::string::npos);
  EXPECT_EQ(file.find("Guest"), std::string::npos);  // the guest record is never written
  EXPECT_EQ(file.find("Number Pad"), std::string::npos);  // nor the built-in profiles

  FakeWindow w2;
  Skitterweb other(w2);
  other.opts.LoadOptions();
  EXPECT_TRUE(w2.messages.empty());
  const Options& l = other.opts;
  EXPECT_EQ(l.gnOpt, 2.0);
  EXPECT_EQ(l.gnOptMax, 2);
  ASSERT_EQ(l.gopOpts.size(), 3u);
  EXPECT_EQ(l.gopOpts[0], saved[0]);
  for (size_t i = 1; i <= 2; ++i) {
    OptionProfile expected = saved[i];
    // Every record comes back with the profile name of the player current at save time.
    expected.szProfile = "(Temporary)";
    expected.cpProfile[0] = ControlProfile{};
    EXPECT_EQ(l.gopOpts[i], expected) << "record " << i;
  }
  EXPECT_EQ(l.gopOpts[1].szProfile, "(Temporary)");
  EXPECT_EQ(l.gopOpts[1].cpProfile[6], NumberedProfile("Mine", -300));
}

TEST(OptionsFile, OnePlayerWithoutSavedProfilesIsFifteenLines) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  OptionProfile& a = AddPlayer(sw.opts, "Ann");
  a.szPassword = "pw";
  sw.opts.gnOpt = 1;
  sw.opts.SaveOptions();
  EXPECT_EQ(Slurp(Options::kFileName),
            "\"Version\",\"1.14\"\r\n"
            "\"LastOption\",\" 1\"\r\n"
            "\"OptionNum\",1\r\n"
            "\"UserName\",\"Ann\"\r\n"
            "\"Password\",\"pw\"\r\n"
            "\"ControlProfileNum\",1\r\n"
            "\"ControlProfileName\",\"Number Pad (Default)\"\r\n"
            "\"Debug\",0\r\n"
            "\"Diff\",2\r\n"
            "\"Grid\",-1\r\n"
            "\"Sound\",-1\r\n"
            "\"StartSite\",0\r\n"
            "\"MapSize\",3\r\n"
            "\"DownServers\",0\r\n"
            "\"Safe\",0\r\n");
}

TEST(OptionsFile, SavedProfileKeysAreWrittenInAlphabeticalOrder) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  AddPlayer(sw.opts, "Ann").cpProfile.push_back(NumberedProfile("P", 1));
  sw.opts.gnOpt = 1;
  const std::string text = sw.opts.OptionsText();
  // Profile order gives CPMoveUp 1 ... CPLink 17.
  EXPECT_NE(text.find("\"ControlProfileBegin\",5\r\n\"CPName\",\"P\"\r\n\"CPAntiVirus\",11\r\n\"CPBackup\",13\r\n"
                      "\"CPDedLine\",16\r\n\"CPLink\",17\r\n\"CPMoveDown\",5\r\n\"CPMoveDownLeft\",6\r\n"
                      "\"CPMoveDownRight\",4\r\n\"CPMoveLeft\",7\r\n\"CPMoveRight\",3\r\n\"CPMoveUp\",1\r\n"
                      "\"CPMoveUpLeft\",8\r\n\"CPMoveUpRight\",2\r\n\"CPPause\",10\r\n\"CPReboot\",12\r\n"
                      "\"CPRestore\",14\r\n\"CPSoftUpgrade\",15\r\n\"CPWait\",9\r\n\"Debug\",0\r\n"),
            std::string::npos);
}

TEST(OptionsFile, MissingFileShowsTheMessageAndPlaysAsGuest) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.LoadOptions();
  ExpectRecovery(w, sw.opts, "53): File not found");
  EXPECT_FALSE(std::filesystem::exists(DebugLog::kFileName));
}

TEST(OptionsFile, ReaderFollowsTheTwoCursors) {
  TempDir dir;
  {
    // Lines before the first record go to the guest, key lines to its temporary profile.
    WriteOptions({"\"Version\",\"9\"", "\"UserName\",\"Zed\"", "\"CPName\",\"temp\"", "\"CPLink\",43",
                  "\"Unknown\",\"x\"", "\"OptionNum\",1", "\"UserName\",\"Ann\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    ASSERT_EQ(sw.opts.gopOpts.size(), 2u);
    EXPECT_EQ(sw.opts.gopOpts[0].szUserName, "Zed");
    EXPECT_EQ(sw.opts.gopOpts[0].cpProfile[0].szName, "temp");
    EXPECT_EQ(sw.opts.gopOpts[0].cpProfile[0].CPLink, 43);
    EXPECT_EQ(sw.opts.gopOpts[1].szUserName, "Ann");
    EXPECT_EQ(sw.opts.gnOpt, 0.0);
  }
  {
    // A gap: records 1 and 2 stay blank; record 3 is fresh, then overwritten.
    WriteOptions({"\"OptionNum\",3", "\"UserName\",\"Cy\"", "\"ControlProfileBegin\",9", "\"CPName\",\"Nine\"",
                  "\"OptionNum\",2", "\"Diff\",4", "\"LastOption\",\" 3\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    const auto& t = sw.opts.gopOpts;
    ASSERT_EQ(t.size(), 4u);
    EXPECT_EQ(sw.opts.gnOptMax, 3);
    for (size_t i : {1u, 2u}) {
      EXPECT_EQ(t[i].szUserName, "");
      EXPECT_TRUE(t[i].cpProfile.empty());
      EXPECT_EQ(t[i].nProfile, 0);
    }
    EXPECT_EQ(t[2].nDiff, 4);  // a lower number only moves the cursor
    EXPECT_EQ(t[3].szUserName, "Cy");
    EXPECT_EQ(t[3].nDiff, 2);
    // "ControlProfileBegin",9 on a fresh record makes profile 5, whatever the number.
    ASSERT_EQ(t[3].cpProfile.size(), 6u);
    EXPECT_EQ(t[3].cpProfile[5].szName, "Nine");
    EXPECT_EQ(t[3].cpProfile[1].szName, "Number Pad (Default)");
    EXPECT_EQ(sw.opts.gnOpt, 3.0);
    // Blank records are saved with empty values and no saved profiles.
    sw.opts.SaveOptions();
    EXPECT_NE(Slurp(Options::kFileName).find("\"OptionNum\",1\r\n\"UserName\",\"\"\r\n\"Password\",\"\"\r\n"
                                           "\"ControlProfileNum\",0\r\n\"ControlProfileName\",\"Number Pad (Default)\"\r\n"
                                           "\"Debug\",0\r\n\"Diff\",0\r\n"),
              std::string::npos);
  }
  {
    // The profile cursor is not reset when the record changes.
    WriteOptions({"\"OptionNum\",1", "\"ControlProfileBegin\",5", "\"CPName\",\"A5\"", "\"OptionNum\",2",
                  "\"ControlProfileBegin\",5", "\"CPName\",\"B5\"", "\"OptionNum\",1", "\"CPWait\",48",
                  "\"OptionNum\",2", "\"CPLink\",\"13\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    ASSERT_EQ(sw.opts.gopOpts.size(), 3u);
    EXPECT_EQ(sw.opts.gopOpts[1].cpProfile.at(5).szName, "A5");
    EXPECT_EQ(sw.opts.gopOpts[1].cpProfile.at(5).CPWait, 48);
    EXPECT_EQ(sw.opts.gopOpts[2].cpProfile.at(5).szName, "B5");
    EXPECT_EQ(sw.opts.gopOpts[2].cpProfile.at(5).CPLink, 13);
  }
  {
    WriteOptions({"\"OptionNum\",1", "\"ControlProfileBegin\",5", "\"CPName\",\"A5\"", "\"OptionNum\",2",
                  "\"ControlProfileBegin\",5", "\"ControlProfileBegin\",6", "\"CPName\",\"B6\"", "\"OptionNum\",1",
                  "\"CPWait\",48"});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    // P is still 6 from record 2; record 1 has no profile 6, and everything is lost.
    ExpectRecovery(w, sw.opts, "9): Subscript out of range");
  }
}

TEST(OptionsFile, ControlProfileLineForABlankRecordLosesTheFile) {
  TempDir dir;
  WriteOptions({"\"OptionNum\",3", "\"UserName\",\"Cy\"", "\"OptionNum\",1", "\"UserName\",\"blank\"",
                "\"ControlProfileBegin\",5"});
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.LoadOptions();
  ExpectRecovery(w, sw.opts, "9): Subscript out of range");
}

TEST(OptionsFile, ValuesAreReadAsNumbersIntegersAndFlags) {
  TempDir dir;
  WriteOptions({"\"OptionNum\",1", "\"Grid\",\"abc\"", "\"Sound\",7", "\"Safe\",\"-1\"", "\"DownServers\",\" 0 \"",
                "\"Debug\",0", "\"Diff\",2.5", "\"MapSize\",3.5", "\"StartSite\",\"4xyz\"", "\"ControlProfileNum\",-1",
                "\"UserName\",Bare Name  ", "\"Password\",\"a\"\"b\"", "\"LastOption\",\" 1\"", "\"Version\",\"x\",\"extra\""});
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.LoadOptions();
  EXPECT_TRUE(w.messages.empty());
  const OptionProfile& r = sw.opts.gopOpts.at(1);
  EXPECT_EQ(r.bGrid, 0);
  EXPECT_EQ(r.bSound, -1);
  EXPECT_EQ(r.bSafe, -1);
  EXPECT_EQ(r.bDownServers, 0);
  EXPECT_EQ(r.nDiff, 2);     // halves go to the even neighbour
  EXPECT_EQ(r.nMapSize, 4);
  EXPECT_EQ(r.nStartSite, 4);
  EXPECT_EQ(r.nProfile, -1);
  EXPECT_EQ(r.szUserName, "Bare Name");
  EXPECT_EQ(r.szPassword, "a");  // a quote ends the string early
  EXPECT_EQ(sw.opts.gnOpt, 1.0);
}

TEST(OptionsFile, BadLinesAndOverflowsLoseTheWholeFile) {
  TempDir dir;
  struct Case {
    std::initializer_list<const char*> lines;
    std::string error;
  };
  const Case cases[] = {
      {{"\"OptionNum\",1", "\"UserName\",\"Ann\"", "\"CPLink\",40000"}, "6): Overflow"},
      {{"\"OptionNum\",1", "\"Diff\",-32769"}, "6): Overflow"},
      {{"\"OptionNum\",40000"}, "6): Overflow"},
      {{"\"OptionNum\",1", "\"UserName\""}, "62): Input past end of file"},
      {{"\"OptionNum\",1", "", "\"Diff\",3"}, "62): Input past end of file"},
      {{"\"OptionNum\",-2", "\"UserName\",\"x\""}, "9): Subscript out of range"},
  };
  for (const Case& c : cases) {
    WriteOptions(c.lines);
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    ExpectRecovery(w, sw.opts, c.error);
  }
  // A directory where the file should be.
  std::filesystem::remove(Options::kFileName);
  std::filesystem::create_directory(Options::kFileName);
  FakeWindow w;
  Skitterweb sw(w);
  sw.opts.LoadOptions();
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0].szTitle, "Error: LoadOptions");
  EXPECT_TRUE(IsGuestOnly(sw.opts));
}

TEST(OptionsFile, AbsurdInputIsHandled) {
  TempDir dir;
  {
    // The largest record number grows the table to 32768 records.
    WriteOptions({"\"OptionNum\",32767", "\"UserName\",\"Last\"", "\"LastOption\",\" 32767\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    EXPECT_EQ(sw.opts.gnOptMax, 32767);
    ASSERT_EQ(sw.opts.gopOpts.size(), 32768u);
    EXPECT_EQ(sw.opts.Current().szUserName, "Last");
  }
  {
    // A file far too big for an options file is refused, not read.
    Spit(Options::kFileName, "\"Version\",\"1.14\"\r\n");
    std::filesystem::resize_file(Options::kFileName, 64u * 1024 * 1024);
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    ExpectRecovery(w, sw.opts, "7): Out of memory");
  }
}

TEST(OptionsFile, CurrentPlayerThatDoesNotExist) {
  TempDir dir;
  {
    // Version and LastOption alone: gnOpt names a record that was never loaded.
    // Its debug flag cannot be read, and that error ends in the recovery.
    WriteOptions({"\"Version\",\"1.14\"", "\"LastOption\",\" 1\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    ExpectRecovery(w, sw.opts, "9): Subscript out of range");
  }
  {
    WriteOptions({"\"Version\",\"1.14\"", "\"LastOption\",\" 0\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    EXPECT_TRUE(IsGuestOnly(sw.opts));
  }
  {
    // A fraction is kept as read; the record is found by rounding.
    WriteOptions({"\"OptionNum\",1", "\"LastOption\",\" .6\""});
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    EXPECT_EQ(sw.opts.gnOpt, 0.6);
    EXPECT_EQ(&sw.opts.Current(), &sw.opts.gopOpts[1]);
  }
}

TEST(OptionsFile, DebugFlagOpensTheLogAfterLoading) {
  TempDir dir;
  WriteOptions({"\"OptionNum\",1", "\"UserName\",\"Ann\"", "\"Debug\",-1", "\"LastOption\",\" 1\""});
  {
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    EXPECT_TRUE(w.messages.empty());
    EXPECT_TRUE(sw.dbg.IsOpen());
    EXPECT_TRUE(w.checked[Menu::menUseDL]);
    EXPECT_TRUE(w.enabled[Menu::menClearDL]);
    EXPECT_TRUE(w.enabled[Menu::menMarkDL]);
    sw.opts.SaveOptions();
    sw.dbg.DebugExit();
    const std::string log = Slurp(DebugLog::kFileName);
    EXPECT_EQ(log.rfind(std::string(64, '|') + "\r\n| SKITTERWEB\r\n", 0), 0u);
    EXPECT_NE(log.find("\r\n{{ LoadOptions }} (variables) gnOpt=1 gnOptMax=1\r\n"), std::string::npos);
    EXPECT_NE(log.find("\r\n{{ SaveOptions }} (variables) gnOpt=1 UBound(gopOpts)=1\r\n"), std::string::npos);
  }
  {
    // The log cannot be opened: the player keeps the records, logging is off.
    std::filesystem::remove(DebugLog::kFileName);
    std::filesystem::create_directory(DebugLog::kFileName);
    FakeWindow w;
    Skitterweb sw(w);
    sw.opts.LoadOptions();
    ASSERT_EQ(w.messages.size(), 1u);
    EXPECT_EQ(w.messages[0].text, "Failed to open debug log\nPlease check file I/O accessability");
    EXPECT_EQ(w.messages[0].szTitle, "Error: DebugOpen");
    EXPECT_EQ(w.messages[0].nButtons, 0);
    EXPECT_EQ(w.sounds.back(), ".\\sounds\\powerup2.mp3");
    EXPECT_FALSE(sw.dbg.IsOpen());
    EXPECT_EQ(sw.opts.Current().bDebug, 0);
    EXPECT_EQ(sw.opts.Current().szUserName, "Ann");
    EXPECT_FALSE(w.checked[Menu::menUseDL]);
    EXPECT_FALSE(w.enabled.contains(Menu::menClearDL));
  }
}

class OptionsSaveFailure : public ::testing::Test {
 protected:
  TempDir dir;
  FakeWindow w;
  Skitterweb sw{w};
  std::string old;

  void SetUp() override {
    AddPlayer(sw.opts, "Ann");
    sw.opts.gnOpt = 1;
    sw.opts.SaveOptions();
    old = Slurp(Options::kFileName);
    for (int i = 0; i < 20; ++i) AddPlayer(sw.opts, "Player " + std::to_string(i));
  }
};

TEST_F(OptionsSaveFailure, ErrorGoesToTheCallerAndTheOldFileStays) {
  std::filesystem::create_directory(std::string(Options::kFileName) + ".new");
  EXPECT_THROW(sw.opts.SaveOptions(), RuntimeError);
  EXPECT_EQ(Slurp(Options::kFileName), old);
}

TEST_F(OptionsSaveFailure, WriteCutOffHalfWayLeavesTheOldFile) {
  struct rlimit saved {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  auto* oldHandler = ::signal(SIGXFSZ, SIG_IGN);
  struct rlimit lim = saved;
  lim.rlim_cur = old.size() + 100;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &lim), 0);
  int error = 0;
  try {
    sw.opts.SaveOptions();
  } catch (const RuntimeError& e) {
    error = e.Number();
  }
  ::setrlimit(RLIMIT_FSIZE, &saved);
  ::signal(SIGXFSZ, oldHandler);
  EXPECT_NE(error, 0);
  EXPECT_EQ(Slurp(Options::kFileName), old);
  for (const auto& entry : std::filesystem::directory_iterator("."))
    EXPECT_EQ(entry.path().filename(), Options::kFileName);
}

TEST(OptionsFile, SavingWithACurrentPlayerThatDoesNotExistFails) {
  TempDir dir;
  FakeWindow w;
  Skitterweb sw(w);
  AddPlayer(sw.opts, "Ann");
  sw.opts.gnOpt = 5;
  // The profile name is taken from the current player's record.
  try {
    sw.opts.SaveOptions();
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), 9);
  }
  EXPECT_FALSE(std::filesystem::exists(Options::kFileName));
}

}  // namespace
}  // namespace sw
