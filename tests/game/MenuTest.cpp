// The menu commands, the difficulty label, closing the window and start-up,
// all through the recording fake window.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

const char* const kNewGame =
    "Start New Game: Starting a new game will end the game in progress.\n"
    "Do you want to end the current game?";

// The player's answers to the coming message boxes, and what the boxes said.
std::vector<std::string> Answered(Board& b, std::initializer_list<MsgAnswer> answers, const std::function<void()>& f) {
  b.w.messages.clear();
  b.w.answers = answers;
  f();
  return Shown(b.w);
}

}  // namespace

// Each command that would end the game in progress asks first: No keeps the game (a starting site is still kept
// for the next one), Yes goes ahead.
TEST(MenuTest, CommandsThatEndTheGameAskFirst) {
  TempDir dir;
  const struct {
    std::function<void(MainMenu&)> click;
    const char* ask;
    Ints no, yes;
  } cases[] = {
      {[](MainMenu& m) { m.menNewGame_Click(); }, kNewGame, {2, 0, 1, 0, 0}, {2, 0, 2, 0, 0}},
      {[](MainMenu& m) { m.menDiffLevel_Click(3); },
       "Change Game Difficulty: Changing the game difficulty to hard will start a new game.\n"
       "Are you sure you want to loose your game in progress?",
       {2, 0, 1, 0, 0},
       {3, 0, 2, 0, 0}},
      {[](MainMenu& m) { m.menStartSiteNum_Click(4); },
       "Change Starting Site Number: Would you like to abandon your current game and start a new one with 4 sites "
       "already hit?",
       {2, 4, 1, 0, 0},
       {2, 4, 2, 4, 0}},
      {[](MainMenu& m) { m.menQuit_Click(); },
       "Quit Skitterweb: Are you sure you want to quit and loose your game in progress?",
       {2, 0, 1, 0, 0},
       {2, 0, 1, 0, 1}},
  };
  for (const auto& c : cases) {
    for (MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
      SCOPED_TRACE(std::string(c.ask) + (answer == MsgAnswer::Yes ? " Yes" : " No"));
      Board b;
      EXPECT_EQ(Answered(b, {answer}, [&] { c.click(b.sw.menu); }), std::vector<std::string>{c.ask});
      EXPECT_EQ(
          Ints({b.sw.opts.Current().nDiff, b.sw.opts.Current().nStartSite, b.g.gnGameNum, b.g.gnSitesHit, b.w.ended}),
          answer == MsgAnswer::Yes ? c.yes : c.no);
    }
  }
}

// The difficulty chosen: its menu item checked in place of the old one, its name and best score shown; the level
// or the starting site in force again, or a new game after game over, asks nothing.
TEST(MenuTest, SettingsInForceAndTheGameOverAskNothing) {
  Board b;
  MainMenu& m = b.sw.menu;
  auto checks = [&b](Menu first, int n) {  // the check marks of a menu's n items
    Ints marks;
    for (int i = 0; i < n; ++i) marks.push_back(b.w.checked.at(static_cast<Menu>(static_cast<int>(first) + i)));
    return marks;
  };
  b.sw.hs.Entry(HighScores::kAllTime, 3, 1).lScore = 12345;
  Answered(b, {MsgAnswer::Yes}, [&] { m.menDiffLevel_Click(3); });
  EXPECT_EQ(checks(Menu::menDiffLevel1, 4), Ints({0, 0, 1, 0}));
  EXPECT_EQ(b.Caption(Label::lblDiff) + " " + b.Caption(Label::lblHighScore), "Hard 12,345");
  Answered(b, {MsgAnswer::No}, [&] { m.menStartSiteNum_Click(4); });
  EXPECT_TRUE(Answered(b, {}, [&] {
                m.menDiffLevel_Click(3);
                m.menStartSiteNum_Click(4);
              }).empty());
  EXPECT_EQ(b.g.gnGameNum, 2);
  // The checked items, clicked again, stay checked.
  EXPECT_EQ(checks(Menu::menStartSiteNum0, 10), Ints({0, 0, 0, 0, 1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(checks(Menu::menDiffLevel1, 4), Ints({0, 0, 1, 0}));
  b.g.gbGameOn = false;
  EXPECT_TRUE(Answered(b, {}, [&] { m.menNewGame_Click(); }).empty());
  EXPECT_EQ(b.g.gnGameNum, 3);
  // A right click on the difficulty label goes on to the next level, after the last back to the first; a left
  // click does nothing.
  m.lblDiff_MouseDown(1);
  for (const char* next : {"Nightmare", "Easy"}) {
    m.lblDiff_MouseDown(2);
    EXPECT_EQ(b.Caption(Label::lblDiff), next);
  }
}

TEST(MenuTest, SoundAndLogSwitchesAndTheStartUpPass) {
  TempDir dir;
  Board b;
  MainMenu& m = b.sw.menu;
  m.menUseDL_Click();
  b.w.answers = {MsgAnswer::Yes};
  m.menUseDL_Click();                               // off, the log kept
  EXPECT_EQ(b.sw.opts.Current().bDebug.Code(), 0);  // and off in the options saved

  // Start-up applies the file's settings through the same commands, asking and playing nothing; the lag bar
  // starts empty on Easy too, where no new site empties it.
  Spit(Options::kFileName,
       "\"Version\",\"1.14\"\r\n\"LastOption\",\" 1\"\r\n\"OptionNum\",1\r\n\"UserName\",\"Ann\"\r\n"
       "\"Diff\",1\r\n\"Grid\",0\r\n\"Sound\",0\r\n\"StartSite\",2\r\n");
  App a;
  a.sw.menu.Form_Load();
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{"Error: LoadHighScoresError: Failed to open high score file\n"
                                                 "Error #53 - File not found"});  // no list yet; nothing asked
  EXPECT_TRUE(a.w.sounds.empty());
  EXPECT_EQ(Ints({a.sw.game.gnGameNum, a.sw.game.gnSitesHit, a.w.cellTw, a.w.checked[Menu::menDiffLevel1],
                  a.w.checked[Menu::menStartSiteNum2], a.sw.game.gbGameInit.Code()}),
            Ints({1, 2, 490, 1, 1, 0}));
  EXPECT_EQ(a.w.captions[Label::lblDiff] + " " + std::to_string(a.w.bar.Max) + " " + std::to_string(a.w.bar.Value),
            "Easy 13 0");
  // The window is never narrower than its information bar needs. (Its size for the map, 499 twips a cell with the
  // information bar and the frame: the pinned session's SetSize and SetGrid lines.)
  a.sw.game.gnMapCols = 19;
  a.sw.engine.SetSize();
  EXPECT_EQ(a.w.windowTw, Ints({9555, 8856, 9555}));

  // Once the lists are there, the start says nothing and shows the best score of the player's difficulty.
  a.sw.hs.Entry(HighScores::kAllTime, 1, 1).lScore = 5000;
  a.sw.hs.Entry(HighScores::kAllTime, 1, 2).lScore = 4000;
  a.sw.hs.WriteHighScores();
  App c;
  c.sw.menu.Form_Load();
  EXPECT_EQ(c.w.captions[Label::lblHighScore], "5,000");
  EXPECT_TRUE(c.w.messages.empty());
}

}  // namespace sw::test
