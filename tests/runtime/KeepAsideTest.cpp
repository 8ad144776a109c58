// Nothing lost: a file that failed to load is kept as "<name>.bad" before the
// next write replaces it; the readers take bytes as well as files; saves by
// two copies of the game at once never clash; new files get exact modes.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "runtime/Files.h"
#include "support/App.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

// A line with one item where two are due.
const std::string kDamagedOptions = "\"Version\",\"1.14\"\r\n\"LastOption\"\r\n";
// One player besides the guest (whose own settings are never saved).
const std::string kOnePlayer =
    "\"Version\",\"1.14\"\r\n\"LastOption\",\" 1\"\r\n\"OptionNum\",1\r\n\"UserName\",\"Ann\"\r\n";

unsigned ModeOf(const char* name) { struct stat st {}; return ::stat(name, &st) == 0 ? st.st_mode & 07777 : 0; }
std::string Titles(const FakeWindow& w) { std::string t; for (auto& m : w.messages) t += m.szTitle + "|"; return t; }

void Load(App& a) { a.sw.optsFile.LoadOptions(); a.sw.hs.LoadHighScores(); }
void Save(App& a) { a.sw.optsFile.SaveOptions(); a.sw.hs.WriteHighScores(); }

TEST(KeepAside, OnlyDamagedFilesAreKeptBeforeTheyAreReplaced) {
  TempDir dir;
  const std::set<std::string> files{Options::kFileName, HighScores::kFileName};
  App m, a, b;
  Load(m);  // missing: the notice, nothing to keep
  Save(m);
  EXPECT_EQ(DirNames(), files);
  Spit(Options::kFileName, kDamagedOptions);
  Spit(HighScores::kFileName, "this is no list file\r\n");
  Load(a);
  EXPECT_EQ(Titles(a.w), "Error: LoadOptions|Error: LoadHighScoresError|");
  EXPECT_EQ(DirNames(), files);  // loading alone writes nothing
  Save(a);
  EXPECT_EQ(ModeOf("sw.opt.bad"), 0600u);
  Load(b);  // the new files are good ones: a later save copies nothing and keeps the first copy as it is
  Save(b);
  EXPECT_EQ(Titles(b.w) + std::to_string(DirNames().size()), "4");
  EXPECT_EQ(Slurp("sw.opt.bad") + Slurp("SWhscore.dat.bad"), kDamagedOptions + "this is no list file\r\n");
}

TEST(KeepAside, NewFilesGetExactModes) {
  TempDir dir;
  const mode_t mask = ::umask(022);
  Spit("kept", "");
  ::chmod("kept", 0640);
  for (const char* name : {"kept", "saved"}) WriteFileAtomic(name, name);  // a kept file keeps its mode
  WriteFile("plain", "plain");
  ::umask(mask);
  EXPECT_EQ(std::vector<unsigned>({ModeOf("plain"), ModeOf("saved"), ModeOf("kept")}),
            std::vector<unsigned>({0644, 0644, 0640}));
}

TEST(KeepAside, ReadersTakeTheFilesBytes) {
  TempDir dir;
  App a, b;
  a.sw.optsFile.LoadOptionsFrom(kOnePlayer);
  a.sw.opts.gopOpts[1].szUserName = "Whisk";
  a.sw.hs.Entry(HighScores::kAllTime, 2, 1) = WebmasterEntry{1234, 5, "Ann"};
  const std::string options = a.sw.optsFile.OptionsText(), lists = a.sw.hs.FileText();
  a.sw.hs.WriteHighScores();
  EXPECT_EQ(Slurp(HighScores::kFileName), lists);  // what is written is what FileText gives
  b.sw.optsFile.LoadOptionsFrom(options);
  b.sw.hs.LoadHighScoresFrom(lists);
  EXPECT_EQ(Titles(b.w) + b.sw.optsFile.OptionsText() + b.sw.hs.PlainText(), options + a.sw.hs.PlainText());
  EXPECT_EQ(DirNames(), std::set<std::string>{HighScores::kFileName});  // nothing else touched the disk
  b.sw.hs.LoadHighScoresFrom("garbage");  // bytes that do not load are reported as a file would be
  EXPECT_EQ(Titles(b.w), "Error: LoadHighScoresError|");
}

TEST(KeepAside, TwoGamesSavingAtOnceNeverClash) {
  TempDir dir;
  pid_t pids[2];  // two processes, as two copies of the game in one directory, each saving 200 times
  for (int k = 0; k < 2; ++k) {
    if ((pids[k] = fork()) != 0) continue;
    App a;
    a.sw.optsFile.LoadOptionsFrom(kOnePlayer);
    a.sw.opts.gopOpts[1].szUserName = k == 0 ? "First" : "Second";
    _exit(ErrorOf([&a] { for (int i = 0; i < 200; ++i) a.sw.optsFile.SaveOptions(); }));  // the error, if any
  }
  for (pid_t pid : pids) {
    int status = 0;
    EXPECT_TRUE(waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a save failed";
  }
  EXPECT_EQ(DirNames(), std::set<std::string>{Options::kFileName});  // no temporaries left behind
  App check;  // one whole file from one of them
  check.sw.optsFile.LoadOptions();
  ASSERT_TRUE(Titles(check.w).empty() && check.sw.opts.gopOpts.size() == 2u);
  const std::string& name = check.sw.opts.gopOpts[1].szUserName;
  EXPECT_TRUE(name == "First" || name == "Second") << name;
}

}  // namespace
}  // namespace sw::test
