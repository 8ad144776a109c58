#pragma once
// The selection dialog's state and behaviour: one text, typed or picked from
// a list; the caller reads gbRet, gszSelect and gnSelIndex afterwards.
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/Flag.h"

namespace sw {

class DebugLog;
class Shell;
class IMainWindow;

class SelectDialog {
 public:
  SelectDialog(DebugLog& dbg, Shell& shell, IMainWindow& frmMain);

  // ---- the controls' state
  std::string szCaption;              // the dialog's title, set by the caller
  std::vector<std::string> cmbItems;  // cmbSelect's list
  std::string cmbText;                // cmbSelect's text
  int16_t nListIndex = -1;            // the list item selected, -1 for none
  bool bShown = false;

  // ---- the results
  Flag gbRet;
  std::string gszSelect;
  int16_t gnSelIndex = -1;

  // Shows the dialog modally with this title and list; the results follow.
  void Show(const std::string& szTitle, const std::vector<std::string>& items);

  // ---- the dialog's events
  void Form_Load();
  void cmbSelect_Change(const std::string& text);  // typed: no list item selected
  void cmbSelect_Click(int16_t nIndex);            // a list item picked
  void cmdOk_Click();
  void cmdCancel_Click();

 private:
  DebugLog& dbg;
  Shell& shell;
  IMainWindow& frmMain;
};

}  // namespace sw
