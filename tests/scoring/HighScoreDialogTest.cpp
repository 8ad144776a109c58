// The webmaster lists dialog: the name of a new webmaster, the clear
// questions, and which rows may take a name.
#include <gtest/gtest.h>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {

namespace {

void Fill(HighScores& hs) {
  for (int t = 0; t <= 1; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s) hs.Entry(t, d, s) = WebmasterEntry{(11 - s) * 100 + d + t, int16_t(s), "old"};
}

}  // namespace

// A name typed into the row earned goes into both lists, and into the file the next start reads; an old row
// takes none. (A game that ends opens the lists: the site's end tests.)
TEST(HighScoreDialog, ANewWebmastersNameGoesIntoBothListsAndOldRowsTakeNone) {
  TempDir dir;
  Board b;  // normal
  Fill(b.sw.hs);
  b.sc.glScore = 850;  // between slots 2 and 3 of both normal lists
  b.g.gnSitesHit = 4;
  HighScoreDialog& d = b.sw.webmasters;
  b.w.onDialog = [&](Dialog) {
    // Opened on the all-time list earned, the caret in the new row.
    EXPECT_EQ(std::vector<int>({d.nType, d.nDiff, d.nFocus}), std::vector<int>({1, 2, 3}));
    d.txtName_GotFocus(5);  // an old row hands the focus on to Done
    EXPECT_EQ(d.nFocus, HighScoreDialog::kDone);
    d.txtName_Change(5, "Mallory");  // and takes no name
    d.txtName_Change(3, "Ann, the first");
    d.txtName_KeyPress(3, 13);
  };
  d.CheckHighScore();
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kAllTime, 2, 3), (WebmasterEntry{850, 4, "Ann, the first"}));
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kPersonal, 2, 3).szName + b.sw.hs.Entry(HighScores::kAllTime, 2, 5).szName,
            "Ann, the firstold");
  App next;
  next.sw.hs.LoadHighScores();
  EXPECT_EQ(next.sw.hs.PlainText(), b.sw.hs.PlainText());
}

// A screen reader hears which list, which place and what score the new row holds, in the list where it
// was earned only; the two lists of a game can hold it at different places.
TEST(HighScoreDialog, TheRowEarnedIsReadWithItsListPlaceAndScore) {
  Board b;  // normal
  Fill(b.sw.hs);
  b.sc.glScore = 1002;  // all time: below 1,003 in place 1; personal: level with place 1, more sites
  b.g.gnSitesHit = 4;
  HighScoreDialog& d = b.sw.webmasters;
  std::vector<std::string> heard;
  b.w.onDialog = [&](Dialog) {
    for (int16_t type : {1, 0}) {  // the list opened, then the personal one
      d.optType_Click(type);
      heard.push_back(d.ListCaption() + " | " + d.NamePrompt());
    }
    d.optDiff_Click(4);  // a list the game did not play
    heard.push_back(d.ListCaption() + " | " + d.NamePrompt());
  };
  d.CheckHighScore();
  EXPECT_EQ(heard,
            (std::vector<std::string>{"All Time, Normal | All Time, Normal: place 2, score 1,002. Type your name.",
                                      "Personal, Normal | Personal, Normal: place 1, score 1,002. Type your name.",
                                      "Personal, Nightmare | "}));
}

// The lists open after a game only for a place earned: on the all-time list when the game has a place there
// (the first too, even with none on the personal list), else on the personal one (the first too, on a
// personal list just cleared).
TEST(HighScoreDialog, TheListsOpenOnlyForAPlaceEarned) {
  const struct {
    const char* what;
    int32_t score;
    int16_t sites, opened;        // the list opened, -1 none
    int32_t personalScores = -1;  // every personal row's score; -1: the rows as filled
  } cases[] = {{"no place on either list", 50, 1, -1},
               {"the personal list's last place only", 102, 11, HighScores::kPersonal},
               {"the first place of a personal list just cleared", 50, 1, HighScores::kPersonal, 0},
               {"a place on both lists", 5000, 1, HighScores::kAllTime},
               {"the all-time list's first place only", 5000, 1, HighScores::kAllTime, 9000}};
  for (const auto& c : cases) {
    Board b;
    Fill(b.sw.hs);
    if (c.personalScores >= 0)
      for (int s = 1; s <= 10; ++s)
        b.sw.hs.Entry(HighScores::kPersonal, 2, s) = WebmasterEntry{c.personalScores, 0, ""};
    b.sc.glScore = c.score;
    b.g.gnSitesHit = c.sites;
    int16_t opened = -1;
    b.w.onDialog = [&](Dialog) { opened = b.sw.webmasters.nType; };
    b.sw.webmasters.CheckHighScore();
    EXPECT_EQ(opened, c.opened) << c.what;
    EXPECT_EQ(b.w.Titles().size(), c.opened < 0 ? 0u : 1u) << c.what;  // "New Webmaster" first
  }
}

// No to either question changes nothing; Yes clears the list shown, that one only, and writes the file.
TEST(HighScoreDialog, ClearingAsksFirstAndTouchesOnlyWhatItSays) {
  TempDir dir;
  Board b(4);
  b.sw.opts.Current().bSound = true;
  Fill(b.sw.hs);
  const std::string before = b.sw.hs.PlainText();
  HighScoreDialog& d = b.sw.webmasters;
  b.w.onDialog = [&](Dialog) {
    d.optType_Click(0);
    d.optDiff_Click(3);
    b.w.answers = {MsgAnswer::No, MsgAnswer::No};
    d.cmdClearCur_Click();
    d.cmdClearAll_Click();
    EXPECT_EQ(b.sw.hs.PlainText(), before);
    EXPECT_EQ(Shown(b.w), (std::vector<std::string>{
                              "Clear Current Webmaster List: Are you sure that you want to clear all of your "
                              "personal, hard difficulty webmaster list?",
                              "Clear All Webmaster Lists: Are you sure that you want to clear ALL of the webmaster "
                              "lists?"}));
    EXPECT_EQ(LastSound(b.w), ".\\sounds\\question2.mp3");

    b.w.answers = {MsgAnswer::Yes};
    d.cmdClearCur_Click();  // the personal hard list only, shown again at once
    EXPECT_EQ(d.rows[1].txtName + d.rows[1].lblScore, "0");
    d.cmdDone_Click();
  };
  b.sw.menu.menHighScores_Click();  // (refused while a Wait is in force: see the pause tests)
  App want, fresh;
  Fill(want.sw.hs);
  for (int s = 1; s <= 10; ++s) want.sw.hs.Entry(HighScores::kPersonal, 3, s) = WebmasterEntry{};
  fresh.sw.hs.LoadHighScores();
  EXPECT_EQ(fresh.sw.hs.PlainText(), want.sw.hs.PlainText());
}

// The caret waits in the tenth row when that one is earned, and the prompt names it.
TEST(HighScoreDialog, TheTenthRowCanBeEarned) {
  Board b(1);  // easy
  Fill(b.sw.hs);
  HighScoreDialog& d = b.sw.webmasters;
  b.sw.hs.gnGlobalSlot = 10;
  b.w.onDialog = [&](Dialog) {
    EXPECT_EQ(std::to_string(d.nFocus) + " " + d.NamePrompt(),
              "10 All Time, Easy: place 10, score 102. Type your name.");
  };
  d.ShowHighScores(1, 1);
}

}  // namespace sw::test
