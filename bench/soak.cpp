// Soak: random keys typed into the real main window, every message box and
// dialog answered at random, menu commands now and then (all four
// difficulties come up), until the number of keys asked for has been typed.
//   skitterweb_soak KEYS [SEED]
// The first thousand keys warm up: every menu command runs once among them, so
// that what a window costs the first time it opens is paid by then. Prints the
// resident memory every thousand keys (taken while no sound plays), then the keys
// typed, the games played and the growth since the first thousand keys; exits
// non-zero when the memory grew by 1 MB or more after them (a long run without
// sanitizers).
#include <unistd.h>

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <random>

#include "ui/Heap.h"
#include "ui/UiTestSupport.h"

namespace {

// The real window, its pauses cut short so that a long run takes minutes, not hours.
class SoakWindow : public swui::frmMain {
 public:
  void Sleep(int32_t) override { frmMain::Sleep(0); }
};

long RssKiB() {
  long size = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// Posted, not sent: the turn a key starts runs from the event loop, so the
// driver keeps typing into the dialogs and pauses that turn opens.
void SendKey(QWidget* to, int key, const QString& text, Qt::KeyboardModifiers mods = Qt::NoModifier) {
  QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyPress, key, mods, text));
  QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyRelease, key, mods, text));
}

}  // namespace

int main(int argc, char* argv[]) {
  swui::TuneHeap();  // as the game's own main() has it
  QApplication app(argc, argv);
  const long target = QApplication::arguments().value(1, "1000").toLong();
  std::mt19937 rng(QApplication::arguments().value(2, "1").toUInt());
  auto pick = [&](qsizetype n) { return static_cast<qsizetype>(rng() % static_cast<size_t>(n)); };
  uitest::FreshDir dir;

  // Message boxes: any of the buttons shown.
  swui::frmMsgBox::testAnswer = [&](swui::frmMsgBox& box) {
    using sw::MsgAnswer;
    if (box.cmdYes->isVisibleTo(&box)) return pick(2) ? MsgAnswer::Yes : MsgAnswer::No;
    return box.cmdCancel->isVisibleTo(&box) && pick(2) == 0 ? MsgAnswer::Cancel : MsgAnswer::Ok;
  };

  SoakWindow w;
  w.show();
  w.Form_Load();

  // Every menu command but Quit; the keys of all four built-in profiles and some that no profile binds.
  QList<QAction*> actions = w.menuBar()->findChildren<QAction*>();
  actions.removeIf([&w](const QAction* a) { return a->menu() != nullptr || a->isSeparator() || a == w.menQuit; });
  const QString keys = "8963214705+abdrsxefczwt;/.,kipolhjnuym-qvg!EWS ";
  const int navKeys[] = {Qt::Key_Home,  Qt::Key_Up,  Qt::Key_PageUp, Qt::Key_Left,     Qt::Key_Clear,
                         Qt::Key_Right, Qt::Key_End, Qt::Key_Down,   Qt::Key_PageDown, Qt::Key_Insert};

  QList<QAction*> warmUp = actions;
  std::shuffle(warmUp.begin(), warmUp.end(), rng);
  long typed = 0, rssAfterFirst = 0, rssLast = 0, sampled = 0, warmed = -1;
  QTimer driver;
  QObject::connect(&driver, &QTimer::timeout, [&] {
    if (QWidget* modal = QApplication::activeModalWidget()) {
      // A dialog: random keys until it closes (Escape comes up often enough).
      static const int dialogKeys[] = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Down};
      const int k = dialogKeys[pick(5)];
      SendKey(modal->focusWidget() != nullptr ? modal->focusWidget() : modal, k, k == Qt::Key_Space ? " " : "");
      if (pick(3) == 0)
        SendKey(modal, Qt::Key_A + static_cast<int>(pick(26)), QString(QChar('a' + static_cast<int>(pick(26)))));
      return;
    }
    if (typed % 1000 == 0 && typed > sampled) {
      if (w.SoundDevice().Playing()) return;  // a sound's own memory comes and goes with it
      sampled = typed;
      rssLast = RssKiB();
      if (typed == 1000) rssAfterFirst = rssLast;
      std::printf("soak: %ld keys, RSS %ld KiB\n", typed, rssLast);
      std::fflush(stdout);
    }
    if (typed >= target) return QCoreApplication::exit(0);
    if (typed % 20 == 0 && typed > warmed && !warmUp.isEmpty()) {
      warmed = typed;
      return QTimer::singleShot(0, warmUp.takeLast(), &QAction::trigger);
    }
    if (pick(60) == 0) return QTimer::singleShot(0, actions.at(pick(actions.size())), &QAction::trigger);
    ++typed;
    const QChar c = keys.at(pick(keys.size()));  // or, one time in eight, a key of the number pad
    if (pick(8) == 0)
      SendKey(&w, navKeys[pick(10)], "", Qt::KeypadModifier);
    else
      SendKey(&w, c.toUpper().unicode(), QString(c));  // the key of a letter is its capital's code
  });
  driver.start(0);
  app.exec();

  const long rssEnd = typed == sampled ? rssLast : RssKiB();
  std::printf("soak: %ld keys, %d games, RSS after 1000 keys %ld KiB, at the end %ld KiB\n", typed,
              int{w.sw.game.gnGameNum}, rssAfterFirst, rssEnd);
  if (typed < target) return 2;
#if !defined(__SANITIZE_ADDRESS__)  // the sanitizer's own bookkeeping grows
  if (target > 1000 && rssEnd - rssAfterFirst >= 1024) {
    std::printf("soak: resident memory grew by %ld KiB\n", rssEnd - rssAfterFirst);
    return 1;
  }
#endif
  std::printf("soak: 1 passed, 0 failed\n");
}
