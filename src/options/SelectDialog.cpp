#include "options/SelectDialog.h"

#include <algorithm>
#include <cctype>

#include "debuglog/DebugLog.h"
#include "runtime/MainWindow.h"
#include "runtime/Shell.h"

namespace sw {

namespace {

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

}  // namespace

SelectDialog::SelectDialog(DebugLog& dbg, Shell& shell, IMainWindow& frmMain)
    : dbg(dbg), shell(shell), frmMain(frmMain) {}

void SelectDialog::Show(const std::string& szTitle, const std::vector<std::string>& items) {
  szCaption = szTitle;
  cmbItems = items;
  Form_Load();
  bShown = true;
  frmMain.ShowDialog(Dialog::frmSelect);  // back once its own buttons have closed it
}

void SelectDialog::Form_Load() {
  gbRet = false;
  gszSelect.clear();
  gnSelIndex = -1;
  cmbText.clear();
  nListIndex = -1;
}

void SelectDialog::cmbSelect_Change(const std::string& text) {
  cmbText = text;
  nListIndex = -1;
}

// nIndex is an item of the list: the window passes only one it shows.
void SelectDialog::cmbSelect_Click(int16_t nIndex) {
  nListIndex = nIndex;
  cmbText = cmbItems[static_cast<size_t>(nIndex)];
}

void SelectDialog::cmdOk_Click() {
  if (nListIndex < 0) {
    if (cmbText.empty()) {
      shell.ShowMsg(std::string("You have not made any selection.") + "\n" +
                        "Please type your selection or choose a selection from the list.  Click 'Cancel' to abort.",
                    MsgButtons::OkOnly, "No Selection Made", "powerup2.mp3");
      return;
    }
    // The list's own spelling wins over the typed one.
    const std::string typed = Lower(cmbText);
    for (size_t i = 0; i < cmbItems.size(); ++i) {
      if (Lower(cmbItems[i]) == typed) {
        cmbSelect_Click(static_cast<int16_t>(i));
        break;
      }
    }
  }
  gbRet = true;
  gszSelect = cmbText;
  gnSelIndex = nListIndex;
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmSelect.cmdOk_Click")
                       .Var("cmbSelect.ListCount", static_cast<int64_t>(cmbItems.size()))
                       .Var("gbRet", gbRet)
                       .Var("gnSelIndex", gnSelIndex)
                       .Note("gszSelect=" + gszSelect));
  }
  bShown = false;
}

void SelectDialog::cmdCancel_Click() {
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmSelect.cmdCancel_Click")
                       .Var("cmbSelect.ListCount", static_cast<int64_t>(cmbItems.size()))
                       .Var("gbRet", gbRet));
  }
  bShown = false;
}

}  // namespace sw
