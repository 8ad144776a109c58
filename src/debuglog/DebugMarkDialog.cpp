#include "debuglog/DebugMarkDialog.h"

#include "debuglog/DebugLog.h"
#include "runtime/MainWindow.h"
#include "runtime/Options.h"

namespace sw {

DebugMarkDialog::DebugMarkDialog(Options& opts, DebugLog& dbg, IMainWindow& frmMain)
    : opts(opts), dbg(dbg), frmMain(frmMain) {}

void DebugMarkDialog::Show() {
  bShown = true;
  Form_Activate();
  frmMain.ShowDialog(Dialog::frmDebugMark);  // back once its own buttons have closed it
}

void DebugMarkDialog::Form_Activate() {
  txtComment.clear();
  lblDateTime = DebugLog::DateTimeText();
}

void DebugMarkDialog::cmdOk_Click() {
  dbg.DebugWrite(Trace("Mark Debug Log")
                     .Var("Time", DebugLog::DateTimeText())
                     .Var("gopOpts(gnOpt).szUserName", opts.Current().szUserName)
                     .Note(txtComment),
                 true, true);
  cmdCancel_Click();
}

void DebugMarkDialog::cmdCancel_Click() { bShown = false; }

}  // namespace sw
