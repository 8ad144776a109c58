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

TEST(HighScoreDialog, ANewWebmasterTypesANameThatIsWrittenAndReadBack) {
  TempDir dir;
  Board b;  // normal
  Fill(b.sw.hs);
  b.sc.glScore = 850;  // between slots 2 and 3 of both normal lists
  b.g.gnSitesHit = 4;
  HighScoreDialog& d = b.sw.webmasters;
  b.w.onDialog = [&](Dialog which) {
    ASSERT_EQ(which, Dialog::frmHighScore);
    // Opened on the all-time list earned, the caret in the new row.
    EXPECT_EQ(std::vector<int>({d.nType, d.nDiff, d.nFocus}), std::vector<int>({1, 2, 3}));
    EXPECT_EQ(d.rows[3].lblScore, "850");
    d.txtName_GotFocus(5);  // an old row hands the focus on to Done
    EXPECT_EQ(d.nFocus, HighScoreDialog::kDone);
    d.txtName_Change(5, "Mallory");  // and takes no name
    d.txtName_GotFocus(3);
    d.txtName_Change(3, "Ann, the first");
    d.txtName_KeyPress(3, 13);
    d.cmdDone_Click();
  };
  b.eng.PlayerDead(kVirusReachedMouse);  // with reconnects left: no game over, no list
  EXPECT_TRUE(b.w.dialogs.empty());
  b.g.gnReconnects = 0;
  b.w.answers = {1, 7};  // the notices, then No to "Play again?"
  b.eng.PlayerDead(kVirusReachedMouse);
  ASSERT_EQ(b.w.dialogs.size(), 1u);
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kAllTime, 2, 3), (WebmasterEntry{850, 4, "Ann, the first"}));
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kPersonal, 2, 3).szName, "Ann, the first");
  EXPECT_EQ(b.sw.hs.Entry(HighScores::kAllTime, 2, 5).szName, "old");

  App fresh;  // the next start reads it back, and says nothing about the file
  fresh.sw.hs.LoadHighScores();
  EXPECT_TRUE(fresh.w.messages.empty());
  EXPECT_EQ(fresh.sw.hs.PlainText(), b.sw.hs.PlainText());  // every entry
}

TEST(HighScoreDialog, ClearingAsksFirstAndTouchesOnlyWhatItSays) {
  TempDir dir;
  Board b(4);
  b.sw.opts.Current().bSound = -1;
  Fill(b.sw.hs);
  b.sw.hs.WriteHighScores();
  const std::string file = Slurp(HighScores::kFileName), before = b.sw.hs.PlainText();
  HighScoreDialog& d = b.sw.webmasters;
  b.w.onDialog = [&](Dialog) {
    d.optType_Click(0);
    d.optDiff_Click(3);
    b.w.answers = {7, 7};
    d.cmdClearCur_Click();
    d.cmdClearAll_Click();
    EXPECT_EQ(Slurp(HighScores::kFileName), file);
    EXPECT_EQ(b.sw.hs.PlainText(), before);
    EXPECT_EQ(Shown(b.w), (std::vector<std::string>{
                              "Clear Current Webmaster List: Are you sure that you want to clear all of your "
                              "personal, hard difficulty webmaster list?",
                              "Clear All Webmaster Lists: Are you sure that you want to clear ALL of the webmaster "
                              "lists?"}));
    EXPECT_EQ(LastSound(b.w), ".\\sounds\\question2.mp3");

    b.w.answers = {6};
    d.cmdClearCur_Click();  // the personal hard list only
    EXPECT_EQ(d.rows[1].txtName, "");
    EXPECT_EQ(d.rows[1].lblScore, "0");
    d.cmdDone_Click();
  };
  b.sw.menu.menHighScores_Click();  // (refused while a Wait is in force: see the pause tests)
  App want, fresh;
  Fill(want.sw.hs);
  for (int s = 1; s <= 10; ++s) want.sw.hs.Entry(HighScores::kPersonal, 3, s) = WebmasterEntry{};
  EXPECT_EQ(b.sw.hs.PlainText(), want.sw.hs.PlainText());
  fresh.sw.hs.LoadHighScores();
  EXPECT_EQ(fresh.sw.hs.PlainText(), want.sw.hs.PlainText());
}

TEST(HighScoreDialog, ListTypeDifficultyAndRowGuardsAtTheirEdges) {
  Board b;  // normal
  Fill(b.sw.hs);
  HighScoreDialog& d = b.sw.webmasters;
  b.sw.hs.gnGlobalSlot = 10;
  b.w.onDialog = [&](Dialog) {
    if (d.nType == 0) return;
    EXPECT_EQ(d.nFocus, 10);  // the tenth row is earned: the caret waits there
    EXPECT_EQ(d.rows[10].lblScore, "103");
    for (const auto& [type, diff, shownType, shownDiff] :
         std::vector<std::array<int16_t, 4>>{{0, 1, 0, 1}, {1, 4, 1, 4}, {2, 5, 1, 4}, {-1, 0, 1, 4}}) {
      d.optType_Click(type);
      d.optDiff_Click(diff);
      EXPECT_EQ(std::vector<int>({d.nType, d.nDiff}), std::vector<int>({shownType, shownDiff})) << type << diff;
    }
    d.optType_Click(1);
    d.optDiff_Click(2);
    b.sw.hs.gnGlobalSlot = 11;  // no eleventh row
    d.txtName_GotFocus(11);
    EXPECT_EQ(d.nFocus, HighScoreDialog::kDone);
  };
  d.ShowHighScores(1, 2);
  d.ShowHighScores(0, 4);
  EXPECT_EQ(b.w.dialogs.size(), 2u);
  const std::pair<int16_t, int16_t> outside[] = {{-1, 2}, {2, 2}, {1, 0}, {1, 5}};
  for (const auto& p : outside)
    EXPECT_EQ(ErrorOf([&] { d.ShowHighScores(p.first, p.second); }), 9) << p.first << "/" << p.second;
}

}  // namespace sw::test
