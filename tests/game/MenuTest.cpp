// The menu commands, the difficulty label, closing the window and start-up,
// all through the recording fake window.
#include <gtest/gtest.h>

#include "Version.h"
#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

const char* const kNewGame = "Start New Game: Starting a new game will end the game in progress.\n"
                             "Do you want to end the current game?";

// The player's answers to the coming message boxes, and what the boxes said.
std::vector<std::string> Answered(Board& b, std::initializer_list<int16_t> answers, const std::function<void()>& f) {
  b.w.messages.clear();
  b.w.answers = answers;
  f();
  return Shown(b.w);
}

}  // namespace

TEST(MenuTest, NewGameAsksWhileAGameIsOnAndAboutNamesTheVersion) {
  Board b;
  MainMenu& m = b.sw.menu;
  for (int16_t answer : {7, 6}) {
    EXPECT_EQ(Answered(b, {answer}, [&] { m.menNewGame_Click(); }), std::vector<std::string>{kNewGame});
    EXPECT_EQ(b.g.gnGameNum, 8 - answer);  // No keeps the game, Yes starts one
  }
  b.g.gbGameOn = 0;  // game over: nothing to lose, nothing asked
  EXPECT_TRUE(Answered(b, {}, [&] { m.menNewGame_Click(); }).empty());
  EXPECT_EQ(b.g.gnGameNum, 3);
  // About names the built version.
  const std::vector<std::string> shown = Answered(b, {1}, [&] { m.menAbout_Click(); });
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].rfind("About Skitterweb: Skitterweb\nVersion " SKITTERWEB_VERSION "\n\nWritten by", 0), 0u) << shown[0];
}

TEST(MenuTest, DifficultyAsksChangesAndRestarts) {
  Board b;  // normal
  MainMenu& m = b.sw.menu;
  const std::string ask = "Change Game Difficulty: Changing the game difficulty to hard will start a new game.\n"
                          "Are you sure you want to loose your game in progress?";
  EXPECT_EQ(Answered(b, {7}, [&] { m.menDiffLevel_Click(3); }), std::vector<std::string>{ask});
  EXPECT_EQ(Ints({b.sw.opts.Current().nDiff, b.g.gnGameNum}), Ints({2, 1}));

  b.sw.hs.Entry(HighScores::kAllTime, 3, 1).lScore = 12345;
  EXPECT_EQ(Answered(b, {6}, [&] { m.menDiffLevel_Click(3); }), std::vector<std::string>{ask});
  EXPECT_EQ(Ints({b.sw.opts.Current().nDiff, b.g.gnGameNum, b.w.checked[Menu::menDiffLevel1],
                  b.w.checked[Menu::menDiffLevel2], b.w.checked[Menu::menDiffLevel3],
                  b.w.checked[Menu::menDiffLevel4]}),
            Ints({3, 2, 0, 0, 1, 0}));
  EXPECT_EQ(b.Caption(Label::lblDiff) + " " + b.Caption(Label::lblHighScore), "Hard 12,345");

  // The level in force again: no question, no new game.
  EXPECT_TRUE(Answered(b, {}, [&] { m.menDiffLevel_Click(3); }).empty());
  EXPECT_EQ(b.g.gnGameNum, 2);

  // The label's right button advances, from nightmare round to easy; the left one does nothing.
  b.sw.opts.Current().nDiff = 4;
  m.lblDiff_MouseDown(1);
  EXPECT_TRUE(b.w.messages.empty());
  EXPECT_EQ(Answered(b, {6}, [&] { m.lblDiff_MouseDown(2); }).at(0).find("to easy will"), 53u);
  EXPECT_EQ(b.sw.opts.Current().nDiff, 1);
}

TEST(MenuTest, StartingSiteIsKeptForTheNextGameWhenTheCurrentOneIsKept) {
  Board b;
  MainMenu& m = b.sw.menu;
  const std::vector<std::string> ask = {
      "Change Starting Site Number: Would you like to abandon your current game and start a new one with 4 sites "
      "already hit?"};
  EXPECT_EQ(Answered(b, {7}, [&] { m.menStartSiteNum_Click(4); }), ask);
  EXPECT_EQ(Ints({b.sw.opts.Current().nStartSite, b.g.gnGameNum, b.g.gnSitesHit, b.w.checked[Menu::menStartSiteNum4],
                  b.w.checked[Menu::menStartSiteNum0]}),
            Ints({4, 1, 0, 1, 0}));
  b.eng.StartGame();
  EXPECT_EQ(b.g.gnSitesHit, 4);

  EXPECT_EQ(Answered(b, {6}, [&] { m.menStartSiteNum_Click(6); }).size(), 1u);
  EXPECT_EQ(Ints({b.g.gnGameNum, b.g.gnSitesHit, b.g.gnVirusLive}), Ints({3, 6, 13}));
  EXPECT_TRUE(Answered(b, {}, [&] { m.menStartSiteNum_Click(6); }).empty());
  EXPECT_EQ(b.g.gnGameNum, 3);
}

TEST(MenuTest, GridSoundAndTheStartUpPass) {
  TempDir dir;
  Board b;
  MainMenu& m = b.sw.menu;
  for (const Ints& want : {Ints({0, 490, 0, 0}), Ints({-1, 480, 1, 1})}) {
    m.menGrid_Click();  // off: the cells take the grid lines' room
    EXPECT_EQ(Ints({b.sw.opts.Current().bGrid, b.w.cellTw, b.w.gridLines, b.w.checked[Menu::menGrid]}), want);
  }

  // Sound off: nothing is played and PlaySound writes no trace line.
  b.sw.opts.Current().bSound = -1;
  m.menUseDL_Click();
  m.menSound_Click();
  EXPECT_FALSE(b.w.checked[Menu::menSound]);
  b.w.sounds.clear();
  m.menGrid_Click();
  EXPECT_TRUE(b.w.sounds.empty());
  m.menSound_Click();  // on again: the start sound
  EXPECT_EQ(LastSound(b.w), ".\\sounds\\comp-program start.mp3");
  b.w.answers = {6};
  m.menUseDL_Click();  // off, the log kept
  EXPECT_EQ(b.sw.opts.Current().bDebug, 0);  // and off in the options saved
  const std::string log = Slurp(DebugLog::kFileName);
  const size_t off = log.find("gopOpts(gnOpt).bSound=0");
  ASSERT_NE(off, std::string::npos);
  EXPECT_EQ(log.find("{{ PlaySound }}", off), log.find("{{ PlaySound }} (input) szFileName=comp-program start.mp3"));

  // Start-up applies the file's settings through the same commands, asking and playing nothing.
  Spit(Options::kFileName,
            "\"Version\",\"1.14\"\r\n\"LastOption\",\" 1\"\r\n\"OptionNum\",1\r\n\"UserName\",\"Ann\"\r\n"
            "\"Diff\",3\r\n\"Grid\",0\r\n\"Sound\",0\r\n\"StartSite\",2\r\n");
  App a;
  a.sw.game.bSeedFromTimer = false;
  a.sw.menu.Form_Load();
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{"Error: LoadHighScoresError: Failed to open high score file\n"
                                                 "Error #53 - File not found"});  // no list yet; nothing asked
  EXPECT_TRUE(a.w.sounds.empty());
  EXPECT_EQ(Ints({a.sw.game.gnGameNum, a.sw.game.gnSitesHit, a.w.cellTw, a.w.checked[Menu::menDiffLevel3],
                  a.w.checked[Menu::menStartSiteNum2], a.sw.game.gbGameInit}),
            Ints({1, 2, 490, 1, 1, 0}));
  EXPECT_EQ(a.w.captions[Label::lblDiff] + " " + std::to_string(a.w.bar.Max), "Hard 13");

  // Once the lists are there, the start shows the best score of the player's difficulty.
  a.sw.hs.Entry(HighScores::kAllTime, 3, 1).lScore = 5000;
  a.sw.hs.Entry(HighScores::kAllTime, 3, 2).lScore = 4000;
  a.sw.hs.WriteHighScores();
  App c;
  c.sw.game.bSeedFromTimer = false;
  c.sw.menu.Form_Load();
  EXPECT_EQ(c.w.captions[Label::lblHighScore], "5,000");
}

TEST(MenuTest, QuitAndTheQuietEnd) {
  TempDir dir;
  Board b;
  MainMenu& m = b.sw.menu;
  EXPECT_EQ(Answered(b, {7}, [&] { m.Form_Unload(); }).size(), 1u);  // No keeps the game
  EXPECT_EQ(std::make_pair(b.w.ended, std::filesystem::exists(Options::kFileName)), std::make_pair(0, false));
  EXPECT_EQ(Answered(b, {6}, [&] { m.menQuit_Click(); }).at(0),
            "Quit Skitterweb: Are you sure you want to quit and loose your game in progress?");
  EXPECT_EQ(std::make_pair(b.w.ended, std::filesystem::exists(Options::kFileName)), std::make_pair(1, true));

  std::remove(Options::kFileName);
  b.sw.opts.Current().bSound = -1;
  b.w.sleeps.clear();
  EXPECT_TRUE(Answered(b, {}, [&] { m.EndSession(); }).empty());  // a signal: no question, sound or pause
  EXPECT_TRUE(b.w.sleeps.empty());
  EXPECT_EQ(std::make_pair(b.w.ended, std::filesystem::exists(Options::kFileName)), std::make_pair(2, true));
}

TEST(MenuTest, KeysStandForCommandsOfTheProfile) {
  Options o;
  const ControlProfile& left = o.gopOpts[0].cpProfile[2];  // "Keyboard Left": e up, d pause
  EXPECT_EQ(KeyFor(left, 'E'), 'e');  // Caps Lock: an unbound capital is its lower case
  EXPECT_EQ(CommandFor(left, KeyFor(left, 'D')), Command::Pause);
  EXPECT_EQ(KeyFor(left, '!'), '!');
  ControlProfile mine = left;
  mine.CPWait = 'E';  // a capital bound in its own right stays itself
  EXPECT_EQ(CommandFor(mine, KeyFor(mine, 'E')), Command::Wait);
  mine.CPDedLine = 'q';
  EXPECT_EQ(CommandFor(mine, 'q'), std::nullopt);

  Board b(2, At(5, 5), {At(20, 5)});
  EXPECT_TRUE(b.eng.DoCommand(Command::MoveRight));
  EXPECT_EQ(b.g.gctPlayerPos, At(6, 5));
  b.sw.opts.Current().nProfile = 2;
  b.Key('W');  // up-left, typed with Caps Lock on
  EXPECT_EQ(b.g.gctPlayerPos, At(5, 4));
}

}  // namespace sw::test
