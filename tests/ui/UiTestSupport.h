#pragma once
// Shared pieces of the window tests: a fresh working directory (the game reads
// and writes its files in the current directory), message boxes that answer
// from a script instead of waiting for a player, a loaded main window, and a
// hand for the next modal dialog.
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <utility>

#include "ui/frmMain.h"
#include "ui/frmMsgBox.h"

namespace uitest {

struct FreshDir {
  QTemporaryDir dir;
  FreshDir() { QDir::setCurrent(dir.path()); }
};

inline QByteArray ReadFile(const QString& name) {
  QFile f(name);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Records the title of every message box, and answers with the default button (Yes or OK)
// unless `next` holds another answer for the next box.
struct ScriptedBoxes {
  QStringList titles;
  sw::MsgAnswer next = sw::MsgAnswer::None;
  ScriptedBoxes() {
    swui::frmMsgBox::testAnswer = [this](swui::frmMsgBox& box) {
      titles << box.windowTitle();
      if (next != sw::MsgAnswer::None) return std::exchange(next, sw::MsgAnswer::None);
      return box.cmdYes->isVisibleTo(&box) ? sw::MsgAnswer::Yes : sw::MsgAnswer::Ok;
    };
  }
  ~ScriptedBoxes() { swui::frmMsgBox::testAnswer = nullptr; }
};

// The main window in a fresh directory, shown and loaded (a first run: no files yet), sound off.
struct Session {
  FreshDir dir;
  ScriptedBoxes boxes;
  swui::frmMain w;
  Session() {
    w.show();
    w.Form_Load();
    w.sw.opts.Current().bSound = false;
  }
};

// The mouse at (5,5) standing; the viruses where the test wants them.
inline void PlaceBoard(swui::frmMain& w, std::initializer_list<sw::CoordPair> viruses) {
  sw::GameState& g = w.sw.game;
  w.sw.engine.ResetObjects();
  g.gnPlayerDir = sw::Direction::Pause;
  w.sw.engine.MovePlayer(sw::CoordPair{5, 5});
  g.gctVirusPos.insert(g.gctVirusPos.end(), viruses);
  g.gnVirusLive = g.gnVirusMax = static_cast<int16_t>(viruses.size());
  w.sw.engine.DrawViruses();
  g.gbEndSite = true;
  g.gnMoveCount = 0;
}

// Runs `step` on the next modal dialog once it is open (call before opening it); the step closes
// it. A dialog of another kind, or one left open, fails the test and is closed.
template <class Dialog, class F>
void InNextDialog(F step) {
  QTimer::singleShot(0, [step] {
    QWidget* open = QApplication::activeModalWidget();
    if (auto* d = qobject_cast<Dialog*>(open)) step(*d);
    if (open == nullptr || !open->isVisible()) return;
    QTest::qFail("the dialog expected was not opened and closed", __FILE__, __LINE__);
    open->close();
  });
}

}  // namespace uitest
