// The main window's keyboard: no turn inside a turn while a pause runs, the
// number pad with Num Lock off, the review keys, and Caps Lock.
#include <QAction>
#include <QKeyEvent>
#include <QTest>
#include <QTimer>

#include <csignal>

#include "ui/Accessible.h"
#include "ui/SignalEnd.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

using swui::frmMain;

namespace {

// The mouse at (5,5) facing nowhere; the viruses where the test wants them.
void Board(frmMain& w, std::initializer_list<sw::CoordPair> viruses) {
  sw::GameState& g = w.sw.game;
  w.sw.engine.ResetObjects();
  w.sw.engine.MovePlayer(sw::CoordPair{5, 5});
  for (const sw::CoordPair& v : viruses) g.gctVirusPos.push_back(v);
  g.gnVirusLive = g.gnVirusMax = static_cast<int16_t>(viruses.size());
  w.sw.engine.DrawViruses();
  g.gbEndSite = -1;
}

int Count(const QString& text, const QString& what) { return static_cast<int>(text.count(what)); }

}  // namespace

class TestFrmMainKeys : public QObject {
  Q_OBJECT

  struct Session {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    frmMain w;
  };
  std::unique_ptr<Session> s_;

 private slots:
  void init() {
    s_ = std::make_unique<Session>();
    s_->w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s_->w));
    s_->w.Form_Load();
    s_->w.sw.rnd.Randomize(3);
  }
  void cleanup() { s_.reset(); }

  // During the pause of a wait, a nightmare move or a link, a refused menu
  // command (its sound pauses too) and then a move key: neither starts a turn.
  // A review key still reads the board.
  void pausesKeepTurnsOut_data() {
    QTest::addColumn<int>("diff");
    QTest::addColumn<char>("key");
    QTest::addColumn<int>("moves");
    QTest::newRow("wait") << 2 << '0' << 0;
    QTest::newRow("nightmare") << 4 << '6' << 1;
    QTest::newRow("link") << 3 << '+' << 1;
  }
  void pausesKeepTurnsOut() {
    QFETCH(int, diff);
    QFETCH(char, key);
    QFETCH(int, moves);
    frmMain& w = s_->w;
    w.sw.opts.Current().nDiff = static_cast<int16_t>(diff);
    w.sw.opts.Current().bSound = -1;
    w.sw.menu.menUseDL_Click();
    if (key == '0') Board(w, {{7, 5}, {7, 7}});  // the wait ends in two phases: the viruses reach the mouse
    else Board(w, {{20, 10}, {20, 2}});
    const int16_t games = w.sw.game.gnGameNum;
    bool bInside = false;
    QString said;
    QTimer::singleShot(40, &w, [&] {
      bInside = w.sw.game.gbSleepOn != 0;
      w.menNewGame->trigger();
      QTest::keyClick(&w, '8');
      QTest::keyClick(&w, Qt::Key_Home);
      said = w.announcer->Text();
    });
    QTest::keyClick(&w, key);
    QVERIFY(bInside);
    QVERIFY2(said.startsWith("Whisk at "), qPrintable(said));
    const QString log = uitest::ReadFile(sw::DebugLog::kFileName);
    QCOMPARE(Count(log, "{{ VirusTurn }}"), 1);
    QCOMPARE(Count(log, "KeyAscii=56 [8]"), 0);
    QCOMPARE(Count(log, "frmMain.menNewGame_Click"), 0);
    QCOMPARE(Count(log, "szFileName=powerup2.mp3"), 1);
    QCOMPARE(w.sw.game.gnGameNum, games);
    QCOMPARE(int{w.sw.game.gnMoveCount}, moves);
    QCOMPARE(w.sw.game.gbSleepOn, int16_t{0});
    QCOMPARE(w.sw.game.gbWaitOn, int16_t{0});
  }

  // The start is one pause until its last step has run: keys that come before
  // its first frame is up, and during the start sound's pause after it, run no
  // turn, with or without a notice at the start. Once it is over, keys play.
  void keysDuringTheStartRunNoTurn_data() {
    QTest::addColumn<bool>("notice");
    QTest::newRow("quiet start") << false;
    QTest::newRow("lists notice") << true;
  }
  void keysDuringTheStartRunNoTurn() {
    QFETCH(bool, notice);
    s_.reset();
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    QVERIFY(uitest::WriteFile(sw::Options::kFileName, "\"Version\",\"1.14\"\r\n\"LastOption\",\" 0\"\r\n\"Sound\",-1\r\n"));
    frmMain w;
    if (!notice) w.sw.hs.WriteHighScores();
    // A key every millisecond while the start runs, until its pause has come and gone.
    int keysInPause = 0;
    bool paused = false;
    QTimer typist;
    connect(&typist, &QTimer::timeout, [&] {
      if (w.CurrentPointer() == sw::Pointer::Hourglass) {
        paused = true;
        ++keysInPause;
      } else if (paused) {
        typist.stop();
        return;
      }
      QTest::keyClick(&w, '8');
    });
    typist.start(1);
    w.Start();
    // Before the first frame (a notice at the start has shown the window already).
    if (!notice) QCoreApplication::postEvent(&w, new QKeyEvent(QEvent::KeyPress, Qt::Key_8, Qt::NoModifier, "8"));
    QTRY_VERIFY(!typist.isActive());
    QTRY_COMPARE(w.sw.game.gbSleepOn, int16_t{0});
    QVERIFY(keysInPause > 0);
    QCOMPARE(boxes.shown.size(), size_t{notice ? 1u : 0u});
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{0});
    const sw::CoordPair at = w.sw.game.gctPlayerPos;
    w.sw.game.gnVirusLive = 0;  // nothing can answer the move now
    QTest::keyClick(&w, at.nRow > 0 ? '8' : '2');
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{1});
  }

  // Closing the window while a pause runs is refused like the guarded commands.
  void closingDuringAPauseIsRefused() {
    frmMain& w = s_->w;
    w.sw.opts.Current().nDiff = 4;
    Board(w, {{20, 10}});
    s_->boxes.Expect({6, 6});
    QTimer::singleShot(40, &w, [&] { w.close(); });
    QTest::keyClick(&w, '6');
    QVERIFY(s_->boxes.shown.empty());
    QVERIFY(!w.Quitting() && w.isVisible());
  }

  void numberPadWithNumLockOff() {
    frmMain& w = s_->w;
    w.sw.opts.Current().bSound = 0;
    const std::pair<Qt::Key, sw::CoordPair> keys[] = {
        {Qt::Key_Up, {5, 4}},   {Qt::Key_PageUp, {6, 3}}, {Qt::Key_Right, {7, 3}}, {Qt::Key_PageDown, {8, 4}},
        {Qt::Key_Down, {8, 5}}, {Qt::Key_End, {7, 6}},    {Qt::Key_Left, {6, 6}},  {Qt::Key_Home, {5, 5}}};
    Board(w, {{23, 13}});
    for (const auto& [key, at] : keys) {
      QTest::keyClick(&w, key, Qt::KeypadModifier);
      QCOMPARE(w.sw.game.gctPlayerPos, at);
    }
    const int16_t movesBefore = w.sw.game.gnMoveCount;
    QTest::keyClick(&w, Qt::Key_Clear, Qt::KeypadModifier);  // 5: pause, the mouse stands
    QCOMPARE(w.sw.game.gctPlayerPos, (sw::CoordPair{5, 5}));
    QCOMPARE(w.sw.game.gnMoveCount, movesBefore);
    // The arrow keys themselves are no game keys: they read the board.
    QTest::keyClick(w.grdMap, Qt::Key_Up);
    QCOMPARE(w.sw.game.gctPlayerPos, (sw::CoordPair{5, 5}));
    QCOMPARE(w.sw.game.gnMoveCount, movesBefore);
    QCOMPARE(w.announcer->Text(), QStringLiteral("empty, 1 up"));
  }

  // A logout, Ctrl+C or a closed terminal: the options are saved, nothing is asked.
  void signalsEndTheGameQuietly_data() {
    QTest::addColumn<int>("sig");
    QTest::newRow("TERM") << SIGTERM;
    QTest::newRow("INT") << SIGINT;
    QTest::newRow("HUP") << SIGHUP;
  }
  void signalsEndTheGameQuietly() {
    QFETCH(int, sig);
    frmMain& w = s_->w;
    swui::EndOnSignals(&w, [&w] { w.sw.menu.EndSession(); });
    s_->boxes.Expect({});
    QVERIFY(!QFile::exists(sw::Options::kFileName));
    std::raise(sig);
    QTRY_VERIFY(w.Quitting());
    QVERIFY(s_->boxes.shown.empty());
    QVERIFY(uitest::ReadFile(sw::Options::kFileName).startsWith("\"Version\",\"1.14\""));
  }

  void capsLockInKeyboardLeft() {
    frmMain& w = s_->w;
    w.sw.opts.Current().bSound = 0;
    w.sw.opts.Current().nProfile = 2;  // "Keyboard Left": e up, w up-left
    w.sw.menu.menUseDL_Click();
    Board(w, {{23, 13}});
    QTest::keyClick(&w, 'E');
    QCOMPARE(w.sw.game.gctPlayerPos, (sw::CoordPair{5, 4}));
    QTest::keyClick(&w, 'W');
    QCOMPARE(w.sw.game.gctPlayerPos, (sw::CoordPair{4, 3}));
    QVERIFY(uitest::ReadFile(sw::DebugLog::kFileName).contains("KeyAscii=119 [w]"));
  }
};

QTEST_MAIN(TestFrmMainKeys)
#include "tst_frmMainKeys.moc"
