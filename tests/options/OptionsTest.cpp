// The options record, the built-in control profiles and the options file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/App.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

namespace fs = std::filesystem;
using Ints = std::vector<int>;  // several values compared at once

// The lines of a file, given joined by '|', each ended by CR LF.
std::string FileText(const std::string& lines) {
  std::string text;
  for (char ch : lines + "|") text += ch == '|' ? std::string("\r\n") : std::string(1, ch);
  return text;
}

// The program after loading an options file of the given lines.
struct Loaded : App {
  explicit Loaded(const std::string& lines) {
    Spit(Options::kFileName, FileText(lines));
    sw.optsFile.LoadOptions();
  }
  const OptionProfile& Rec(size_t i) const { return sw.opts.gopOpts.at(i); }
};

// Loading the file as it is recovers: the message, and the table back to the single guest record.
void ExpectRecovery(const std::string& error) {
  App a;
  a.sw.optsFile.LoadOptions();
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{"Error: LoadOptions: Error opening the options file (sw.opt).  "
                                                 "Default game option profile will be used.\n\nError (" +
                                                 error});
  EXPECT_EQ(LastSound(a.w), ".\\sounds\\powerup2.mp3");
  App fresh;
  const Options& o = a.sw.opts;
  EXPECT_TRUE(o.gopOpts.size() == 1 && o.gnOptMax == 0 && o.gnOpt == 0.0 && o.gopOpts[0] == fresh.sw.opts.gopOpts[0]);
}

std::string Keys(const ControlProfile& cp) {
  std::string s;
  for (const CommandField& f : kCommandFields) s.push_back(static_cast<char>(cp.*f.field));
  return s;
}

// The guest's settings, and the keys of the four built-in profiles.
TEST(OptionsRecord, GuestAndBuiltInProfiles) {
  App a;
  const OptionProfile& g = a.sw.opts.gopOpts.at(0);
  EXPECT_EQ(g.szUserName + " " + g.szProfile, "Guest Number Pad (Default)");
  EXPECT_EQ(Ints({g.nProfile, g.bDebug.Code(), g.nDiff, g.bGrid.Code(), g.bSound.Code(), g.nStartSite, g.nMapSize,
                  g.bDownServers.Code(), g.bSafe.Code()}),
            Ints({1, 0, 2, -1, -1, 0, 3, 0, 0}));
  const auto& cp = g.cpProfile;
  ASSERT_EQ(cp.size(), 5u);
  EXPECT_EQ(Keys(cp[0]), std::string(17, '\0'));  // the temporary profile starts unset
  // Up, up-right, right, down-right, down, down-left, left, up-left, wait, pause,
  // anti-virus, reboot, backup, restore, upgrade, dedicated line, link.
  EXPECT_EQ(cp[1].szName + "=" + Keys(cp[1]), "Number Pad (Default)=8963214705aebrsd+");
  EXPECT_EQ(cp[2].szName + "=" + Keys(cp[2]), "Keyboard Left=erfcxzsw\td123456 ");
  EXPECT_EQ(cp[3].szName + "=" + Keys(cp[3]), "Keyboard Right=op;/.,ki\tl12qw3e\r");
  EXPECT_EQ(cp[4].szName + "=" + Keys(cp[4]), "Old School (larn)=kulnjbhy/.67890-p");
}

TEST(OptionsFile, SavedTextAndLoadingItBackRestoreEveryField) {
  TempDir dir;
  App a;
  Options& o = a.sw.opts;
  std::vector<ControlProfile> cp = o.gopOpts[0].cpProfile;
  cp[0].CPLink = 99;  // the temporary profile is never saved
  cp.emplace_back().szName = "Mine";
  int16_t key = -8;
  for (const CommandField& f : kCommandFields) cp[5].*f.field = key++;  // CPMoveUp -8 ... CPLink 8
  cp[5].CPWait = 32767;
  o.gopOpts.push_back({"Ann, the first", "pass word", 5, "Mine", cp, false, 4, false, false, 7, 5, true, true});
  o.gopOpts.push_back({"Bob", "", 0, "(Temporary)", o.gopOpts[0].cpProfile, false, 1, true, true, 9, 3, false, false});
  o.gnOptMax = 2;
  o.gnOpt = 2;
  a.sw.optsFile.SaveOptions();
  // Neither the guest nor the built-in profiles are written; saved keys go in alphabetical order.
  EXPECT_EQ(Slurp(Options::kFileName),
            FileText(R"~("Version","1.14"|"LastOption"," 2"|"OptionNum",1|"UserName","Ann, the first"|)~"
                     R"~("Password","pass word"|"ControlProfileNum",5|"ControlProfileName","(Temporary)"|)~"
                     R"~("ControlProfileBegin",5|"CPName","Mine"|"CPAntiVirus",2|"CPBackup",4|"CPDedLine",7|)~"
                     R"~("CPLink",8|"CPMoveDown",-4|"CPMoveDownLeft",-3|"CPMoveDownRight",-5|"CPMoveLeft",-2|)~"
                     R"~("CPMoveRight",-6|"CPMoveUp",-8|"CPMoveUpLeft",-1|"CPMoveUpRight",-7|"CPPause",1|)~"
                     R"~("CPReboot",3|"CPRestore",5|"CPSoftUpgrade",6|"CPWait",32767|"Debug",0|"Diff",4|"Grid",0|)~"
                     R"~("Sound",0|"StartSite",7|"MapSize",5|"DownServers",-1|"Safe",-1|"OptionNum",2|)~"
                     R"~("UserName","Bob"|"Password",""|"ControlProfileNum",0|"ControlProfileName","(Temporary)"|)~"
                     R"~("Debug",0|"Diff",1|"Grid",-1|"Sound",-1|"StartSite",9|"MapSize",3|"DownServers",0|)~"
                     R"~("Safe",0)~"));

  // Loading it back restores every field the file holds: the next save writes the same bytes.
  App b;
  b.sw.optsFile.LoadOptions();
  EXPECT_EQ(b.sw.optsFile.OptionsText(), a.sw.optsFile.OptionsText());
  EXPECT_EQ(b.sw.opts.gopOpts.at(1).szProfile, "(Temporary)");  // every record gets the current player's name
}

TEST(OptionsFile, ReaderFollowsTheTwoCursorsAndReadsValuesLoosely) {
  TempDir dir;
  {  // lines before the first record go to the guest, key lines to its temporary profile
    Loaded l(R"("Version","x","extra"|"UserName","Zed"|"CPName","temp"|"CPLink",43|"Unknown","x"|"OptionNum",1|)"
             R"("Grid","abc"|"Sound",7|"Safe","-1"|"DownServers"," 0 "|"Diff",2.5|"MapSize",3.5|"StartSite","4xyz"|)"
             R"("ControlProfileNum",3.4|"UserName",Bare Name  |"Password","a""b")");
    ASSERT_EQ(l.sw.opts.gopOpts.size(), 2u);
    // Numbers, integers (rounded to even) and flags; a quote ends a string early.
    const OptionProfile& r = l.Rec(1);
    EXPECT_EQ(l.Rec(0).szUserName + " " + l.Rec(0).cpProfile[0].szName + " " + r.szUserName + " " + r.szPassword,
              "Zed temp Bare Name a");
    EXPECT_EQ(std::vector<int>({l.Rec(0).cpProfile[0].CPLink, r.bGrid.Code(), r.bSound.Code(), r.bSafe.Code(),
                                r.bDownServers.Code(), r.nDiff, r.nMapSize, r.nStartSite, r.nProfile}),
              std::vector<int>({43, 0, -1, -1, 0, 2, 4, 4, 3}));
  }
  {  // a gap: records 1 and 2 stay blank; record 3 is fresh, then overwritten
    Loaded l(R"("OptionNum",3|"UserName","Cy"|"ControlProfileBegin",9|"CPName","Nine"|"OptionNum",2|"Diff",4|)"
             R"("LastOption"," 3")");
    ASSERT_EQ(l.sw.opts.gopOpts.size(), 4u);
    for (size_t i : {1u, 2u}) EXPECT_TRUE(l.Rec(i).szUserName.empty() && l.Rec(i).cpProfile.empty());
    // A lower number only moves the cursor; "ControlProfileBegin",9 on a fresh record makes profile 5.
    EXPECT_EQ(std::vector<double>({double(l.sw.opts.gnOptMax), l.sw.opts.gnOpt, double(l.Rec(2).nDiff),
                                   double(l.Rec(3).nDiff), double(l.Rec(3).cpProfile.size())}),
              std::vector<double>({3, 3, 4, 2, 6}));
    EXPECT_EQ(l.Rec(3).szUserName + " " + l.Rec(3).cpProfile.at(5).szName, "Cy Nine");
  }
  // The profile cursor is not reset when the record changes.
  Loaded l(R"("OptionNum",1|"ControlProfileBegin",5|"CPName","A5"|"OptionNum",2|"ControlProfileBegin",5|)"
           R"("CPName","B5"|"OptionNum",1|"CPWait",48|"OptionNum",2|"CPLink","13")");
  EXPECT_EQ(l.Rec(1).cpProfile.at(5).szName + l.Rec(2).cpProfile.at(5).szName, "A5B5");
  EXPECT_EQ(Ints({l.Rec(1).cpProfile.at(5).CPWait, l.Rec(2).cpProfile.at(5).CPLink}), Ints({48, 13}));
}

TEST(OptionsFile, AMissingFileAndBadLinesOrOverflowsLoseTheWholeFile) {
  TempDir dir;
  ExpectRecovery("53): File not found");  // no file at all
  const std::pair<const char*, std::string> cases[] = {
      {R"("OptionNum",1|"UserName","Ann"|"CPLink",40000)", "6): Overflow"},
      {R"("OptionNum",1|"Diff",-32769)", "6): Overflow"},
      {R"("OptionNum",40000)", "6): Overflow"},
      {R"("OptionNum",1|"UserName")", "62): Input past end of file"},
      {R"("OptionNum",1||"Diff",3)", "62): Input past end of file"},
      {R"("OptionNum",-2|"UserName","x")", "9): Subscript out of range"},
      // A profile line for a blank record.
      {R"("OptionNum",3|"OptionNum",1|"ControlProfileBegin",5)", "9): Subscript out of range"},
      // The current player names no record: its debug flag cannot be read.
      {R"("Version","1.14"|"LastOption"," 1")", "9): Subscript out of range"},
  };
  for (const auto& [lines, error] : cases) {
    SCOPED_TRACE(error);
    Spit(Options::kFileName, FileText(lines));
    ExpectRecovery(error);
  }
  // A file far too big for options is refused, not read.
  fs::resize_file(Options::kFileName, 16u * 1024 * 1024 + 1);
  ExpectRecovery("7): Out of memory");
}

TEST(OptionsFile, DebugFlagOpensTheLogAfterLoading) {
  TempDir dir;
  const std::string file = R"("OptionNum",1|"UserName","Ann"|"Debug",-1|"LastOption"," 1")";
  {
    Loaded l(file);
    EXPECT_TRUE(l.sw.dbg.IsOpen() && l.w.checked[Menu::menUseDL] && l.w.enabled[Menu::menClearDL] &&
                l.w.enabled[Menu::menMarkDL]);
    l.sw.optsFile.SaveOptions();
    l.sw.dbg.DebugExit();
    const std::string log = Slurp(DebugLog::kFileName);
    EXPECT_NE(log.find("\r\n{{ LoadOptions }} (variables) gnOpt=1 gnOptMax=1\r\n"), std::string::npos);
    EXPECT_NE(log.find("\r\n{{ SaveOptions }} (variables) gnOpt=1 UBound(gopOpts)=1\r\n"), std::string::npos);
  }
  // The log cannot be opened: loading says so itself (the log is opened quietly); the records stay, logging is off.
  fs::remove(DebugLog::kFileName);
  fs::create_directory(DebugLog::kFileName);
  Loaded l(file);
  EXPECT_EQ(Shown(l.w), std::vector<std::string>{
                            "Error: DebugOpen: Failed to open debug log\nPlease check file I/O accessability"});
  EXPECT_TRUE(l.sw.opts.Current().szUserName == "Ann" && !l.sw.opts.Current().bDebug && !l.sw.dbg.IsOpen() &&
              !l.w.checked[Menu::menUseDL] && !l.w.enabled.contains(Menu::menClearDL));
}

TEST(OptionsFile, FailedSavesGoToTheCallerAndLeaveTheOldFile) {
  TempDir dir;
  App a;
  a.sw.opts.gopOpts.push_back(a.sw.opts.gopOpts[0]);
  a.sw.opts.gnOptMax = 1;
  a.sw.opts.gnOpt = 1;
  a.sw.optsFile.SaveOptions();
  const std::string old = Slurp(Options::kFileName);
  a.sw.opts.gopOpts[1].szUserName = "Ann";  // what the failed saves would have written
  EXPECT_EQ(fs::status(Options::kFileName).permissions() & fs::perms::all,
            fs::perms::owner_read | fs::perms::owner_write);  // it holds passwords
  EXPECT_EQ(InReadOnlyDir([&] { return ErrorOf([&] { a.sw.optsFile.SaveOptions(); }); }), 70);
  fs::permissions(Options::kFileName, fs::perms(0444));  // read-only, as chmod a-w leaves it: refused, left as it is
  EXPECT_EQ(ErrorOf([&] { a.sw.optsFile.SaveOptions(); }), 70);
  // None of them changed the old file or left anything beside it.
  EXPECT_EQ(Slurp(Options::kFileName), old);
  EXPECT_EQ(DirNames(), std::set<std::string>{Options::kFileName});
}

}  // namespace
TEST(OptionsFile, SettingsOutOfRangeAreReportedOnceAndReplaced) {
  TempDir dir;
  // Out of range in two records: each named once, in one box; everything else of the file kept, the ends of
  // each range too (Cy and Di).
  Loaded l(R"("LastOption"," 2"|"OptionNum",1|"UserName","Ann"|"Diff",0|"MapSize",0|"StartSite",10|"Grid",0|)"
           R"("OptionNum",2|"UserName","Bob"|"ControlProfileBegin",5|"CPName","Mine"|"CPMoveUp",113|)"
           R"("ControlProfileNum",6|"MapSize",6|"Diff",5|"StartSite",-1|"OptionNum",3|"UserName","Cy"|"Diff",1|)"
           R"("MapSize",5|"StartSite",9|"ControlProfileNum",4|"OptionNum",4|"UserName","Di"|"Diff",4|"MapSize",1|)"
           R"("ControlProfileNum",0)");
  ASSERT_EQ(Shown(l.w).size(), 1u);
  EXPECT_EQ(
      Shown(l.w)[0],
      "Options Out of Range: Some settings in the options file (sw.opt) are out of range; their defaults are "
      "used instead:\nDifficulty 0 of Ann: 2 used\nMap size 0 of Ann: 3 used\nStarting site 10 of Ann: 0 used\n"
      "Difficulty 5 of Bob: 2 used\nMap size 6 of Bob: 3 used\nStarting site -1 of Bob: 0 used\nControl profile 6 "
      "of Bob: 1 used");
  EXPECT_EQ(std::vector<int>({l.Rec(1).nDiff, l.Rec(1).nStartSite, l.Rec(1).bGrid.Code(), l.Rec(2).nDiff,
                              l.Rec(2).nMapSize, l.Rec(2).nProfile}),
            std::vector<int>({2, 0, 0, 2, 3, 1}));
  EXPECT_EQ(l.Rec(2).szProfile, "Number Pad (Default)");
  EXPECT_EQ(l.Rec(2).cpProfile.at(5).CPMoveUp, 113);
}

}  // namespace sw::test
