// The board played with the mouse and by touch: clicks that move Whisk, the board's menu, taps,
// a touch held still, and the step shown while the pointer stands still.
#include <QAccessible>
#include <QMenu>
#include <QStyleHints>

#include "ui/GameStyle.h"
#include "ui/PictureRender.h"
#include "ui/UiTestSupport.h"

using swui::frmMain;

namespace {

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

class TestBoardInput : public QObject {
  Q_OBJECT

  std::unique_ptr<uitest::Session> s_;

 private slots:
  void initTestCase() { QApplication::setStyle(new swui::GameStyle); }
  void init() {
    s_ = std::make_unique<uitest::Session>();
    uitest::PlaceBoard(s_->w, {{20, 12}});  // Whisk at (5, 5)
  }
  void cleanup() { s_.reset(); }

  // A click takes the step toward the cell, each of the eight ways, or Pause on Whisk's own cell;
  // pressed on the board and released off it, nothing. While a box is up the board takes no click;
  // a double click is two steps.
  void clicks() {
    frmMain& w = s_->w;
    const std::pair<QPoint, QPoint> cases[] = {{{2, 2}, {4, 4}}, {{5, 0}, {5, 4}},  {{9, 1}, {6, 4}},
                                               {{0, 6}, {4, 5}}, {{5, 5}, {5, 5}},  {{9, 4}, {6, 5}},
                                               {{1, 9}, {4, 6}}, {{4, 13}, {5, 6}}, {{7, 7}, {6, 6}}};
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
    auto shows = [&w](const char* name, QPoint outline) {
      const QImage picture = swui::PictureImage(name, qRound(32 * w.devicePixelRatioF()));
      return w.grdMap->cursor().pixmap().toImage() == picture && w.grdMap->Outline() == outline;
    };
    QTest::mouseMove(w.grdMap, Centre(w, 9, 5));
    QVERIFY(shows("pointer6", {6, 5}));
    QTest::keyClick(w.grdMap, '3');
    QVERIFY(shows("pointer6", {7, 6}));
    QTest::keyClick(w.grdMap, '3');
    QVERIFY(shows("pointer9", {8, 6}));
    QTest::mouseMove(w.grdMap, Centre(w, 7, 7));
    QVERIFY(shows("pointer5", {7, 7}));
    QTest::mouseMove(w.grdMap, QPoint(-2, -2));
    QVERIFY(!w.grdMap->testAttribute(Qt::WA_SetCursor) && w.grdMap->Outline() == QPoint(-1, -1));
  }
};

QTEST_MAIN(TestBoardInput)
#include "tst_BoardInput.moc"
