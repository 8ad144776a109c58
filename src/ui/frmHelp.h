#pragma once
// frmHelp: the game's own help, offline, in a small browser window with Back,
// Forward and Home. F1 anywhere in the program opens it.
#include <QWidget>

class QApplication;
class QPushButton;
class QTextBrowser;

namespace swui {

class frmHelp : public QWidget {
  Q_OBJECT

 public:
  static constexpr const char* kFirstPage = "qrc:/help/index.html";

  explicit frmHelp(QWidget* over);

  QTextBrowser* browser = nullptr;
  QPushButton *cmdBack = nullptr, *cmdForward = nullptr, *cmdHome = nullptr;

 protected:
  void keyPressEvent(QKeyEvent* e) override;
};

// Shows the help window on its first page, over the dialog that is open, if any
// (a modal dialog would otherwise keep the help out of reach).
frmHelp* ShowHelp();
// F1 in any window of the program opens the help.
void InstallHelpKey(QApplication& app);

}  // namespace swui
