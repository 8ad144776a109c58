// Nothing lost: a file that failed to load is kept as "<name>.bad" before the
// next write replaces it; the readers take bytes as well as files; saves by
// two copies of the game at once never clash.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Skitterweb.h"
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

TEST(KeepAside, DamagedFilesAreKeptBeforeTheyAreReplaced) {
  TempDir dir;
  Spit(Options::kFileName, kDamagedOptions);
  Spit(HighScores::kFileName, "this is no list file\r\n");
  App a;
  a.sw.optsFile.LoadOptions();
  a.sw.hs.LoadHighScores();
  ASSERT_EQ(a.w.messages.size(), 2u);
  // Loading alone writes nothing.
  EXPECT_EQ(DirNames(), (std::set<std::string>{Options::kFileName, HighScores::kFileName}));

  a.sw.optsFile.SaveOptions();
  a.sw.hs.WriteHighScores();
  EXPECT_EQ(Slurp("sw.opt.bad"), kDamagedOptions);
  EXPECT_EQ(Slurp("SWhscore.dat.bad"), "this is no list file\r\n");
  struct stat st {};
  ASSERT_EQ(::stat("sw.opt.bad", &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  // The new files are good ones; a later save keeps the first copy as it is.
  App b;
  b.sw.optsFile.LoadOptions();
  b.sw.hs.LoadHighScores();
  EXPECT_TRUE(b.w.messages.empty());
  a.sw.optsFile.SaveOptions();
  EXPECT_EQ(Slurp("sw.opt.bad"), kDamagedOptions);
}

TEST(KeepAside, GoodOrMissingFilesAreNotCopied) {
  TempDir dir;
  App a;
  a.sw.optsFile.LoadOptions();  // missing: the notice, nothing to keep
  a.sw.hs.LoadHighScores();
  a.sw.optsFile.SaveOptions();
  a.sw.hs.WriteHighScores();
  App b;
  b.sw.optsFile.LoadOptions();
  b.sw.hs.LoadHighScores();
  b.sw.optsFile.SaveOptions();
  b.sw.hs.WriteHighScores();
  EXPECT_EQ(DirNames(), (std::set<std::string>{Options::kFileName, HighScores::kFileName}));
}

TEST(KeepAside, ReadersTakeTheFilesBytes) {
  TempDir dir;
  App a;
  a.sw.optsFile.LoadOptionsFrom(kOnePlayer);
  a.sw.opts.gopOpts[1].szUserName = "Whisk";
  a.sw.hs.Entry(HighScores::kAllTime, 2, 1) = WebmasterEntry{1234, 5, "Ann"};
  const std::string options = a.sw.optsFile.OptionsText();
  const std::string lists = a.sw.hs.FileText();
  a.sw.hs.WriteHighScores();
  EXPECT_EQ(Slurp(HighScores::kFileName), lists);  // what is written is what FileText gives

  App b;
  b.sw.optsFile.LoadOptionsFrom(options);
  b.sw.hs.LoadHighScoresFrom(lists);
  EXPECT_TRUE(b.w.messages.empty());
  EXPECT_EQ(b.sw.optsFile.OptionsText(), options);
  EXPECT_EQ(b.sw.hs.PlainText(), a.sw.hs.PlainText());
  EXPECT_EQ(DirNames(), std::set<std::string>{HighScores::kFileName});  // nothing else touched the disk

  // Bytes that do not load are reported as a file would be.
  App c;
  c.sw.optsFile.LoadOptionsFrom(kDamagedOptions);
  c.sw.hs.LoadHighScoresFrom("garbage");
  ASSERT_EQ(c.w.messages.size(), 2u);
  EXPECT_EQ(c.w.messages[0].szTitle, "Error: LoadOptions");
  EXPECT_EQ(c.w.messages[1].szTitle, "Error: LoadHighScoresError");
}

TEST(KeepAside, TwoGamesSavingAtOnceNeverClash) {
  TempDir dir;
  // Two processes, as two copies of the game in one directory, each saving 200 times.
  auto saver = [](const std::string& name) {
    App a;
    a.sw.optsFile.LoadOptionsFrom(kOnePlayer);
    a.sw.opts.gopOpts[1].szUserName = name;
    for (int i = 0; i < 200; ++i) {
      try {
        a.sw.optsFile.SaveOptions();
      } catch (const RuntimeError&) {
        _exit(1);
      }
    }
    _exit(0);
  };
  pid_t pids[2];
  for (int k = 0; k < 2; ++k) {
    pids[k] = fork();
    ASSERT_GE(pids[k], 0);
    if (pids[k] == 0) saver(k == 0 ? "First" : "Second");
  }
  for (pid_t pid : pids) {
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a save failed";
  }
  // One whole file from one of them, and no temporaries left behind.
  EXPECT_EQ(DirNames(), std::set<std::string>{Options::kFileName});
  App check;
  check.sw.optsFile.LoadOptions();
  EXPECT_TRUE(check.w.messages.empty());
  ASSERT_EQ(check.sw.opts.gopOpts.size(), 2u);
  const std::string& name = check.sw.opts.gopOpts[1].szUserName;
  EXPECT_TRUE(name == "First" || name == "Second") << name;
}

}  // namespace
}  // namespace sw::test
