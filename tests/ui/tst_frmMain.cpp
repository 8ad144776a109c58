// The main window: its sound device (a new sound cutting off the last), start-up, typed keys running turns and
// redrawing the map, no turn inside a turn while a pause runs, and closing; the board played with
// the mouse and by touch: clicks that move Whisk, the board's menu, taps, a touch held still, and the step shown
// while the pointer stands still.
#include <QAccessible>
#include <QMenu>
#include <QStyleHints>
#include <atomic>
#include <thread>
#include <tuple>

#include "ui/Accessible.h"
#include "ui/GameStyle.h"
#include "ui/PictureRender.h"
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
  bool Open(long, int) override { return events += "open ", true; }
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

QPoint Centre(const frmMain& w, int col, int row) { return w.grdMap->CellRect(col, row).center(); }
QPoint Whisk(const frmMain& w) { return {w.sw.game.gctPlayerPos.nCol, w.sw.game.gctPlayerPos.nRow}; }

// Once the board's menu is open: checks its items as a screen reader names them, and clicks item `index`.
void PickFromMenu(int index) {
  auto* poll = new QTimer;
  QObject::connect(poll, &QTimer::timeout, [poll, index] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    poll->stop();
    poll->deleteLater();
    QAccessibleInterface* named = QAccessible::queryAccessibleInterface(menu);
    QCOMPARE(named->child(0)->text(QAccessible::Name) + named->child(1)->text(QAccessible::Name) +
                 named->child(2)->text(QAccessible::Name),
             QString("Pause\t5Wait\t0Link\t+"));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(index)).center());
  });
  poll->start(1);
}

}  // namespace

class TestFrmMain : public QObject {
  Q_OBJECT

  std::unique_ptr<uitest::Session> s_;

 private slots:
  void initTestCase() { QApplication::setStyle(new swui::GameStyle); }  // as the game has it
  void init() { s_ = std::make_unique<uitest::Session>(); }
  void cleanup() { s_.reset(); }

  // A new sound stops the last at once, and plays to its end.
  void aNewSoundCutsOffTheLast() {
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
      key == 'W' ? QTest::keyClick(QApplication::focusWidget(), 'W')  // a capital without Shift
                 : QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), mod);
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

  // A click takes the step toward the cell (which step each cell gives: the model's tests), or Pause on
  // Whisk's own cell; pressed on the board and released off it, nothing. While a box is up the board
  // takes no click; a double click is two steps.
  void clicks() {
    frmMain& w = s_->w;
    const std::pair<QPoint, QPoint> cases[] = {{{2, 2}, {4, 4}}, {{5, 5}, {5, 5}}, {{4, 13}, {5, 6}}};
    for (const auto& [cell, to] : cases) {
      uitest::PlaceBoard(w, {{20, 12}});
      QTest::mouseClick(w.grdMap, Qt::LeftButton, {}, Centre(w, cell.x(), cell.y()));
      QVERIFY(Whisk(w) == to && w.sw.game.gnMoveCount == (cell == to ? 0 : 1));
    }
    uitest::PlaceBoard(w, {{20, 12}});
    QTest::mousePress(w.grdMap, Qt::LeftButton, {}, Centre(w, 9, 4));
    QTest::mouseRelease(w.grdMap, Qt::LeftButton, {}, QPoint(-4, -4));
    swui::frmMsgBox::testAnswer = nullptr;  // a real box, clicked through the window system
    const QPoint right = w.grdMap->mapTo(&w, Centre(w, 9, 4));
    QTimer::singleShot(0, [&w, right] {
      QTest::mouseClick(w.windowHandle(), Qt::LeftButton, {}, right);
      QApplication::activeModalWidget()->close();
    });
    w.MsgBox("In the way", sw::MsgButtons::OkOnly, "A box");
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{0});
    QTest::mouseClick(w.windowHandle(), Qt::LeftButton, {}, right);
    QCOMPARE(Whisk(w), QPoint(6, 5));
    QTest::mouseDClick(w.windowHandle(), Qt::LeftButton, {}, right);  // two quick clicks, two steps
    QCOMPARE(Whisk(w), QPoint(8, 4));                                 // right, then up-right from there
  }

  // The secondary button opens the board's menu; its Wait plays as its key (a touch held, below, picks Link).
  void theMenuRunsWait() {
    frmMain& w = s_->w;
    uitest::PlaceBoard(w, {{8, 8}});
    PickFromMenu(1);
    QTest::mouseClick(w.grdMap, Qt::RightButton, {}, Centre(w, 9, 4));
    QVERIFY(w.sw.game.gnReconnects == 1 && w.sw.game.gnMoveCount == 0);  // waited until the virus came
  }

  // A tap is a click, and a finger moving over the board shows the step toward it; a touch held
  // still opens the board's menu and takes no step when it is lifted.
  void tapsAndTouchAndHold() {
    frmMain& w = s_->w;
    uitest::PlaceBoard(w, {{20, 12}});
    QPointingDevice* finger = QTest::createTouchDevice();
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(60000);  // no hold while tapping
    QTest::touchEvent(w.grdMap, finger).press(0, Centre(w, 9, 4), w.grdMap);
    QTest::touchEvent(w.grdMap, finger).move(0, Centre(w, 5, 9), w.grdMap);
    QCOMPARE(w.grdMap->Outline(), QPoint(5, 6));
    QTest::touchEvent(w.grdMap, finger).release(0, Centre(w, 5, 9), w.grdMap);
    QVERIFY(Whisk(w) == QPoint(5, 6) && w.grdMap->Outline() == QPoint(-1, -1));
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(1);
    PickFromMenu(2);
    QTest::touchEvent(w.grdMap, finger).press(0, Centre(w, 9, 4), w.grdMap);
    QTRY_VERIFY(!w.sw.game.gbScoreNoLinkSite);
    QTest::touchEvent(w.grdMap, finger).release(0, Centre(w, 9, 4), w.grdMap);
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{2});  // the step and the link; none on lifting the finger
  }

  // The pointer over the board and the outline of the landing cell show the step a click takes,
  // and follow a key's turn while the pointer stands still; off the board, the window's own pointer.
  void thePointerFollowsAKeyMove() {
    frmMain& w = s_->w;
    uitest::PlaceBoard(w, {{20, 12}});
    auto shows = [&w](const char* name, QPoint outline) {
      const QImage picture = swui::PictureImage(name, qRound(32 * w.devicePixelRatioF()));
      return w.grdMap->cursor().pixmap().toImage() == picture && w.grdMap->Outline() == outline;
    };
    QTest::mouseMove(w.grdMap, Centre(w, 9, 5));
    QVERIFY(shows("pointer6", {6, 5}));
    QTest::keyClick(w.grdMap, '3');
    QTest::keyClick(w.grdMap, '3');
    QVERIFY(shows("pointer9", {8, 6}));
    QTest::mouseMove(w.grdMap, Centre(w, 7, 7));
    QVERIFY(shows("pointer5", {7, 7}));
    QTest::mouseMove(w.grdMap, QPoint(-2, -2));
    QVERIFY(!w.grdMap->testAttribute(Qt::WA_SetCursor) && w.grdMap->Outline() == QPoint(-1, -1));
  }

  // Closing asks first: No keeps the window up, Yes quits with the options saved. (Kept last: after
  // the window has quit, a real message box opened by a later test case is not up when looked for.)
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
