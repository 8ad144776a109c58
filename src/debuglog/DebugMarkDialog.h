#pragma once
// The "Mark Debug Log" dialog's state and behaviour: a comment typed by the
// player goes into the log with a time stamp, separator rows and a full dump.
#include <string>

namespace sw {

class Options;
class DebugLog;
class IMainWindow;

class DebugMarkDialog {
 public:
  static constexpr const char* kCaption = "Mark Debug Log";
  static constexpr const char* kPrompt =
      "Type your comment to be placed with a time stamped marker into the debug log:";

  DebugMarkDialog(Options& opts, DebugLog& dbg, IMainWindow& frmMain);

  std::string txtComment;   // the comment box
  std::string lblDateTime;  // date and time shown when the dialog became active
  bool bShown = false;      // false once OK or Cancel has closed it

  // Opens the dialog modally over the main window.
  void Show();
  // Each time the dialog becomes active: the comment emptied, the time refreshed.
  void Form_Activate();
  // Writes the mark with the comment and the whole dump, then closes.
  void cmdOk_Click();
  // Closes without writing.
  void cmdCancel_Click();

 private:
  Options& opts;
  DebugLog& dbg;
  IMainWindow& frmMain;
};

}  // namespace sw
