// The main window: its sound device (a new sound cutting off the last), start-up, typed keys running turns and
// redrawing the map, no turn inside a turn while the start or a pause runs, and closing.
#include <QAccessible>
#include <QKeyEvent>
#include <atomic>
#include <thread>
#include <tuple>

#include "ui/Accessible.h"
#include "ui/GameStyle.h"
#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using sw::Picture;
using swui::frmMain;

namespace {

// The first cell whose picture or accessible text is not what the model holds; empty when none.
QString MapMismatch(const frmMain& w) {
  const sw::GameState& g = w.sw.game;
  for (int16_t r = 0; r < g.gnMapRows; ++r)
    for (int16_t c = 0; c < g.gnMapCols; ++c) {
      const sw::CoordPair ct{c, r};
      auto on = [&ct](const auto& list, int n) { return std::count(list.begin() + 1, list.begin() + 1 + n, ct) > 0; };
      const Picture want = g.gctPlayerPos == ct                      ? sw::PlayerPicture(g.gnPlayerDir)
                           : on(g.gctVirusPos, g.gnVirusLive)        ? Picture::Virus
                           : on(g.gctInfectedPos, g.gnInfectedCount) ? Picture::Infected
                                                                     : Picture::None;
      const QAccessibleInterface* cell =
          QAccessible::queryAccessibleInterface(w.grdMap)->tableInterface()->cellAt(r, c);  // as a screen reader reads
      if (w.grdMap->PictureAt(c, r) != want || cell->text(QAccessible::Name).toStdString() != sw::PictureWord(want))
        return QStringLiteral("cell %1,%2").arg(c).arg(r);
    }
  return {};
}

// Takes samples about as slowly as a sound card would, and writes down what happened to each
// clip (read once the player is idle).
struct Recorder : swui::SoundOutput {
  QString events;
  std::atomic<size_t> frames = 0;
  bool Open(long, int) override {
    events += "open ";
    return true;
  }
  long Write(const int16_t*, size_t n) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(4));
    frames += n;
    return static_cast<long>(n);
  }
  void Drain() override { events += "drain "; }
  void Drop() override { events += "drop "; }
  void Close() override { events += "close "; }
};

void Play(swui::Sound& s, const std::string& name) {
  s.SetFileName(".\\sounds\\" + name);
  for (const char* c : {"Stop", "Close", "Open", "Play"}) s.Command(c);
}

}  // namespace

class TestFrmMain : public QObject {
  Q_OBJECT

  std::unique_ptr<uitest::Session> s_;

 private slots:
  void initTestCase() { QApplication::setStyle(new swui::GameStyle); }  // as the game has it
  void init() { s_ = std::make_unique<uitest::Session>(); }
  void cleanup() { s_.reset(); }

  // A new sound stops the last at once, and plays to its end; no sound device is no fault.
  void aNewSoundCutsOffTheLast() {
    QVERIFY(!swui::MakeAlsaOutput("no_such_device")->Open(44100, 1));
    auto* rec = new Recorder;
    swui::Sound s{std::unique_ptr<swui::SoundOutput>(rec)};
    Play(s, "comp-game over.mp3");  // a long one
    QTRY_VERIFY(rec->frames > 0);
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY(!s.Playing());
    QCOMPARE(rec->events, "open drop close open drain close ");
  }

  // A first run: the first game on the map; the options on the menus; the window and its cells sized
  // in twips, the cells taking the grid lines' room without them.
  void startUpShowsTheFirstGame() {
    frmMain& w = s_->w;
    QCOMPARE(MapMismatch(w), QString());
    QVERIFY(w.menSound->isChecked() && w.menGrid->isChecked() && w.menDiffLevel[2]->isChecked());
    for (QLabel* l : w.pctInfoBar->findChildren<QLabel*>()) QVERIFY(l->accessibleName().endsWith(l->text()));
    const QSize size = w.size();
    QCOMPARE(QSize(w.grdMap->width(), w.grdMap->columnWidth(0)), QSize(w.twips().X(24 * 499), w.twips().X(480)));
    w.sw.menu.menGrid_Click();
    QVERIFY(!w.menGrid->isChecked() && !w.grdMap->showGrid() && w.size() == size);
    QCOMPARE(w.grdMap->columnWidth(0), w.twips().X(490));
  }

  // The keys go to the window, never to the grid or a control that takes the focus: Tab, Enter
  // and Space stay game keys (here bound to Pause); the number pad with Num Lock off sends its
  // digits, the arrow keys themselves none; with Caps Lock on a letter of the profile plays.
  // A turn runs, the virus answers, and the map follows the model.
  void gameKeys() {
    frmMain& w = s_->w;
    (new QPushButton("x", w.pctInfoBar))->show();
    QApplication::setActiveWindow(&w);
    using Key = std::tuple<const char*, int, Qt::KeyboardModifier, int16_t, QPoint, bool>;
    const Key cases[] = {{"Tab", Qt::Key_Tab, Qt::NoModifier, 9, {5, 5}, true},
                         {"Enter", Qt::Key_Return, Qt::NoModifier, 13, {5, 5}, true},
                         {"Space", Qt::Key_Space, Qt::NoModifier, 32, {5, 5}, true},
                         {"pad 9", Qt::Key_PageUp, Qt::KeypadModifier, '5', {6, 4}, true},
                         {"pad 5", Qt::Key_Clear, Qt::KeypadModifier, '5', {5, 5}, true},
                         {"arrow", Qt::Key_Up, Qt::NoModifier, '5', {5, 5}, false},
                         {"Caps Lock W in Keyboard Left", 'W', Qt::NoModifier, 'd', {4, 4}, true}};
    for (const auto& [name, key, mod, pause, to, turn] : cases) {
      sw::OptionProfile& op = w.sw.opts.Current();
      if (key == 'W') op.nProfile = 2;
      op.cpProfile[static_cast<size_t>(op.nProfile)].CPPause = pause;
      uitest::PlaceBoard(w, {{20, 10}});
      if (key == 'W')
        QTest::keyClick(QApplication::focusWidget(), 'W');  // a capital without Shift
      else
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), mod);
      const sw::CoordPair at = w.sw.game.gctPlayerPos;
      const bool turned = !(w.sw.game.gctVirusPos[1] == sw::CoordPair{20, 10});
      QVERIFY2(QPoint(at.nCol, at.nRow) == to && turned == turn && MapMismatch(w).isEmpty(), name);
      QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.grdMap));  // it passes keys to the window
    }
  }

  // During the pause of a move on Nightmare, a menu command (its refusal sound pauses too), closing the
  // window, a move key and a click on the board each run nothing; a review key still reads the board.
  void aPauseKeepsTurnsOut() {
    frmMain& w = s_->w;
    w.sw.opts.Current().nDiff = 4;
    w.sw.opts.Current().bSound = true;
    uitest::PlaceBoard(w, {{20, 10}, {20, 2}});
    const int16_t games = w.sw.game.gnGameNum;
    QString said;
    QTimer poll;
    connect(&poll, &QTimer::timeout, [&] {
      if (!w.sw.game.gbSleepOn) return;
      poll.stop();
      w.menNewGame->trigger();
      w.close();
      QTest::keyClick(&w, '8');
      QTest::mouseClick(w.grdMap, Qt::LeftButton, {}, w.grdMap->CellRect(9, 5).center());
      QTest::keyClick(&w, Qt::Key_Home);
      said = w.announcer->Text();
    });
    poll.start(0);
    QTest::keyClick(&w, '6');
    QVERIFY(said.startsWith("Whisk at ") && w.sw.game.gnMoveCount == 1 && w.sw.game.gnGameNum == games);
    QVERIFY(!w.Quitting() && !s_->boxes.titles.contains("Quit Skitterweb"));
  }

  // The start is one pause until its last step has run: a key that comes before its first frame is
  // up, and keys during the start sound's pause after it, run no turn; then the pause is over.
  void keysDuringTheStartRunNoTurn() {
    s_.reset();
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    frmMain w;
    w.sw.optsFile.SaveOptions();  // the files the start reads: no notice
    w.sw.hs.WriteHighScores();
    int keysInPause = 0;
    QTimer typist;  // a key every millisecond, until the start's pause has come and gone
    connect(&typist, &QTimer::timeout, [&] {
      if (w.CurrentPointer() == sw::Pointer::Hourglass)
        ++keysInPause;
      else if (keysInPause > 0 || w.sw.game.gnMoveCount > 0)
        return typist.stop();
      QTest::keyClick(&w, '8');
    });
    typist.start(1);
    w.Start();
    QCoreApplication::postEvent(&w, new QKeyEvent(QEvent::KeyPress, Qt::Key_8, Qt::NoModifier, "8"));
    QTRY_VERIFY(!typist.isActive() && !w.sw.game.gbSleepOn);
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{0});
    QVERIFY(keysInPause > 0 && boxes.titles.isEmpty());
  }

  // Closing asks first: No keeps the window up, Yes quits with the options saved.
  void closingAsksAndQuits() {
    frmMain& w = s_->w;
    s_->boxes.titles.clear();
    s_->boxes.next = sw::MsgAnswer::No;  // then Yes
    QVERIFY(!w.close());
    QVERIFY(!w.Quitting() && w.isVisible() && !QFile::exists(sw::Options::kFileName));
    w.close();
    QCOMPARE(s_->boxes.titles, QStringList({"Quit Skitterweb", "Quit Skitterweb"}));
    QVERIFY(w.Quitting() && uitest::ReadFile(sw::Options::kFileName).startsWith("\"Version\",\"1.14\""));
  }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmMain.moc"
