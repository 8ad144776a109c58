#pragma once
// The "Webmaster Lists" dialog's state and behaviour: one list at a time,
// chosen by type and difficulty; after a game that earned a place, the new
// webmaster's name is typed straight into the row earned; lists can be cleared.
#include <array>
#include <cstdint>
#include <string>

namespace sw {

class Options;
class DebugLog;
class Shell;
class HighScores;
class IMainWindow;

class HighScoreDialog {
 public:
  static constexpr const char* kCaption = "Webmaster Lists";
  static constexpr int16_t kDone = 0;  // nFocus: the Done button; 1 to 10 a row's name box

  struct Row {
    std::string lblSlotNum, txtName, lblSitesHit, lblScore;
  };

  HighScoreDialog(Options& opts, DebugLog& dbg, Shell& shell, HighScores& hs, IMainWindow& frmMain);

  // ---- the controls' state
  int16_t nType = 1;         // optType: 0 personal, 1 all time
  int16_t nDiff = 2;         // optDiff: 1 easy .. 4 nightmare
  std::array<Row, 11> rows;  // 1 to 10
  int16_t nFocus = kDone;    // which control has the focus
  bool bShown = false;

  // At the end of a game: whether the score earns a place; if it does, the
  // lists open on the one earned, the caret in the new row.
  void CheckHighScore();
  // Shows the list of type nType and difficulty nDiff, modally.
  void ShowHighScores(int16_t nType, int16_t nDiff);

  // ---- the dialog's events
  void Form_Load();
  void optType_Click(int16_t Index);
  void optDiff_Click(int16_t Index);
  void txtName_Change(int16_t Index, const std::string& text);
  void txtName_GotFocus(int16_t Index);
  void txtName_LostFocus(int16_t Index);
  // Enter stores the name as leaving the box does.
  void txtName_KeyPress(int16_t Index, int16_t KeyAscii);
  void cmdClearCur_Click();
  void cmdClearAll_Click();
  void cmdDone_Click();

  // True when row Index of the list shown is a place just earned (its name may be typed).
  bool Earned(int16_t Index) const;

  // ---- what a screen reader reads
  // The list shown, as the table's caption: "All Time, Normal".
  std::string ListCaption() const;
  // Row Index's name box: "Place 3 name".
  static std::string PlaceName(int16_t Index);
  // In the row just earned, which list, which place and what score, and what to do:
  // "All Time, Easy: place 1, score 1,250. Type your name." Empty when the list shown has no such row.
  std::string NamePrompt() const;

 private:
  // Fills the rows from the table for the list shown.
  void Redraw();

  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  HighScores& hs;
  IMainWindow& frmMain;
};

}  // namespace sw
