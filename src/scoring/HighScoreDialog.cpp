#include "scoring/HighScoreDialog.h"

#include "debuglog/DebugLog.h"
#include "runtime/Difficulty.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "scoring/HighScores.h"

namespace sw {

namespace {

const char* const kTypeNames[] = {"Personal", "All Time"};

// "1 (All Time)": a number with the name it stands for.
std::string Named(int16_t n, const char* name) { return NumText(int64_t{n}) + " (" + name + ")"; }

}  // namespace

HighScoreDialog::HighScoreDialog(Options& opts, DebugLog& dbg, Shell& shell, HighScores& hs, IMainWindow& frmMain)
    : opts(opts), dbg(dbg), shell(shell), hs(hs), frmMain(frmMain) {}

void HighScoreDialog::CheckHighScore() {
  hs.CheckHighScore();
  if (hs.gnGlobalSlot <= 0 && hs.gnPersonalSlot <= 0) return;
  try {
    const int16_t nLevel = opts.CheckedDiff();
    ShowHighScores(hs.gnGlobalSlot > 0 ? HighScores::kAllTime : HighScores::kPersonal, nLevel);
  } catch (const RuntimeError& err) {
    shell.ReportError("CheckHighScore", err);
  }
}

void HighScoreDialog::ShowHighScores(int16_t nTypeShown, int16_t nDiffShown) {
  if (dbg.On()) dbg.DebugWrite(Trace("ShowHighScores").In("nType", nTypeShown).In("nDiff", nDiffShown));
  nType = nTypeShown;
  nDiff = nDiffShown;
  bShown = true;
  Form_Load();
  frmMain.ShowDialog(Dialog::frmHighScore);  // back once its own buttons have closed it
}

void HighScoreDialog::Form_Load() {
  if (dbg.On()) dbg.DebugWrite(Trace("frmHighScore.Form_Load").In("nType", nType).In("nDiff", nDiff));
  Redraw();
  // The caret waits in the row just earned, if the list shown has one.
  nFocus = kDone;
  for (int16_t i = 1; i <= 10; ++i)
    if (Earned(i)) nFocus = i;
}

void HighScoreDialog::Redraw() {
  for (int16_t i = 1; i <= 10; ++i) {
    const WebmasterEntry& e = hs.Entry(nType, nDiff, i);
    rows[static_cast<size_t>(i)] =
        Row{NumText(int64_t{i}), e.szName, NumText(int64_t{e.nSites}), FormatThousands(e.lScore)};
  }
}

bool HighScoreDialog::Earned(int16_t Index) const {
  if (Index < 1 || Index > 10 || nDiff != opts.Current().nDiff) return false;
  return nType == HighScores::kPersonal ? Index == hs.gnPersonalSlot : Index == hs.gnGlobalSlot;
}

std::string HighScoreDialog::ListCaption() const {
  return std::string(kTypeNames[nType == HighScores::kAllTime ? 1 : 0]) + ", " + DifficultyOf(nDiff).szName;
}

std::string HighScoreDialog::PlaceName(int16_t Index) { return "Place " + NumText(int64_t{Index}) + " name"; }

std::string HighScoreDialog::NamePrompt() const {
  for (int16_t i = 1; i <= 10; ++i)
    if (Earned(i))
      return ListCaption() + ": place " + NumText(int64_t{i}) + ", score " + rows[static_cast<size_t>(i)].lblScore +
             ". Type your name.";
  return {};
}

void HighScoreDialog::optType_Click(int16_t Index) {
  if (dbg.On()) dbg.DebugWrite(Trace("frmHighScore.optType_Click").In("Index", Index));
  nType = Index;
  Form_Load();
}

void HighScoreDialog::optDiff_Click(int16_t Index) {
  if (dbg.On()) dbg.DebugWrite(Trace("frmHighScore.optDiff_Click").In("Index", Index));
  nDiff = Index;
  Form_Load();
}

void HighScoreDialog::txtName_Change(int16_t Index, const std::string& text) {
  if (Earned(Index)) rows[static_cast<size_t>(Index)].txtName = text;
}

void HighScoreDialog::txtName_GotFocus(int16_t Index) {
  // Old names cannot be edited: any other row hands the focus on to Done.
  nFocus = Earned(Index) ? Index : kDone;
}

void HighScoreDialog::txtName_LostFocus(int16_t Index) {
  if (!Earned(Index)) return;
  try {
    const std::string& szName = rows[static_cast<size_t>(Index)].txtName;
    // Leaving a box whose name was not changed stores nothing.
    if (szName == hs.Entry(nType, nDiff, Index).szName) return;
    // The game earned its place in both lists under one name.
    if (hs.gnGlobalSlot > 0) hs.Entry(HighScores::kAllTime, nDiff, hs.gnGlobalSlot).szName = szName;
    if (hs.gnPersonalSlot > 0) hs.Entry(HighScores::kPersonal, nDiff, hs.gnPersonalSlot).szName = szName;
    if (dbg.On()) {
      dbg.DebugWrite(Trace("frmHighScore.txtName_LostFocus")
                         .In("Index", Index)
                         .In("nType", nType)
                         .In("nDiff", nDiff)
                         .Var("frmHighScore.txtName(Index).Text", szName)
                         .Var("gnGlobalSlot", hs.gnGlobalSlot)
                         .Var("gnpersonalSlot", hs.gnPersonalSlot));
    }
    hs.WriteHighScores();
  } catch (const RuntimeError& err) {
    shell.ReportError("frmHighScore.txtName_LostFocus", err);
  }
}

void HighScoreDialog::txtName_KeyPress(int16_t Index, int16_t KeyAscii) {
  if (KeyAscii != 13 || !Earned(Index)) return;
  nFocus = kDone;
  txtName_LostFocus(Index);
}

void HighScoreDialog::cmdClearCur_Click() {
  try {
    const char* szWord = kDifficulties[nDiff].szWord;
    shell.ShowMsg(std::string("Are you sure that you want to clear all of ") +
                      (nType == HighScores::kAllTime ? "the all-time" : "your personal") + ", " + szWord +
                      " difficulty webmaster list?",
                  MsgButtons::YesNo, "Clear Current Webmaster List", "question2.mp3");
    if (shell.gnMsgReturn != MsgAnswer::Yes) return;
    if (dbg.On()) {
      dbg.DebugWrite(Trace("frmHighScore.cmdClearCur_Click")
                         .In("nType", Named(nType, kTypeNames[nType]))
                         .In("nDiff", Named(nDiff, kDifficulties[nDiff].szName)));
    }
    for (int16_t i = 1; i <= 10; ++i) hs.Entry(nType, nDiff, i) = WebmasterEntry{};
    hs.WriteHighScores();
    Form_Load();
  } catch (const RuntimeError& err) {
    shell.ReportError("frmHighScore.cmdClearCur_Click", err);
  }
}

void HighScoreDialog::cmdClearAll_Click() {
  try {
    shell.ShowMsg("Are you sure that you want to clear ALL of the webmaster lists?", MsgButtons::YesNo,
                  "Clear All Webmaster Lists", "question2.mp3");
    if (shell.gnMsgReturn != MsgAnswer::Yes) return;
    if (dbg.On()) dbg.DebugWrite(Trace("frmHighScore.cmdClearAll_Click"));
    hs.ClearAll();
    hs.WriteHighScores();
    Form_Load();
  } catch (const RuntimeError& err) {
    shell.ReportError("frmHighScore.cmdClearAll_Click", err);
  }
}

void HighScoreDialog::cmdDone_Click() { bShown = false; }

}  // namespace sw
