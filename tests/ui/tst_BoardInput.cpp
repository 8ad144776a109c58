// The board played with the mouse and by touch: clicks that move Whisk, the board's menu, taps,
// a touch held still, and the step shown while the pointer stands still.
#include <QAccessible>
#include <QMenu>
#include <QStyleHints>

#include "ui/BoardInput.h"
#include "ui/GameStyle.h"
#include "ui/PictureRender.h"
#include "ui/UiTestSupport.h"

using swui::frmMain;

namespace {

QPoint Centre(const frmMain& w, int col, int row) { return w.grdMap->CellRect(col, row).center(); }
QPoint Whisk(const frmMain& w) { return {w.sw.game.gctPlayerPos.nCol, w.sw.game.gctPlayerPos.nRow}; }

// Picks item `index` of the board's menu with the mouse once it is open, after checking what it offers.
void PickFromMenu(int index, const QStringList& items) {
  auto* poll = new QTimer;
  QObject::connect(poll, &QTimer::timeout, [poll, index, items] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    poll->deleteLater();
    poll->stop();
    QStringList shown;
    QAccessibleInterface* named = QAccessible::queryAccessibleInterface(menu);
    for (int i = 0; i < menu->actions().size(); ++i)  // as a screen reader names them
      shown << named->child(i)->text(QAccessible::Name) + (menu->actions()[i]->isEnabled() ? "" : " (off)");
    QCOMPARE(shown, items);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(index)).center());
  });
  poll->start(1);
}

}  // namespace

class TestBoardInput : public QObject {
  Q_OBJECT

  std::unique_ptr<uitest::Session> s_;
  QPointingDevice* finger_ = QTest::createTouchDevice();

 private slots:
  void initTestCase() { QApplication::setStyle(new swui::GameStyle); }
  void init() {
    s_ = std::make_unique<uitest::Session>();
    uitest::PlaceBoard(s_->w, {{20, 12}});  // Whisk at (5, 5)
  }
  void cleanup() { s_.reset(); }

  // A click takes the step toward the cell: each of the eight ways, or Pause on Whisk's own cell.
  void clicksMoveWhiskEachWay() {
    frmMain& w = s_->w;
    const std::pair<QPoint, QPoint> cases[] = {{{2, 2}, {4, 4}}, {{5, 0}, {5, 4}},  {{9, 1}, {6, 4}},
                                               {{0, 6}, {4, 5}}, {{5, 5}, {5, 5}},  {{9, 4}, {6, 5}},
                                               {{1, 9}, {4, 6}}, {{4, 13}, {5, 6}}, {{7, 7}, {6, 6}}};
    for (const auto& [cell, to] : cases) {
      uitest::PlaceBoard(w, {{20, 12}});
      QTest::mouseClick(w.grdMap, Qt::LeftButton, {}, Centre(w, cell.x(), cell.y()));
      QCOMPARE(Whisk(w), to);
      QVERIFY(w.sw.game.gctVirusPos[1] != (sw::CoordPair{20, 12}));  // the virus answered
    }
    // Pressed on the board and released off it, or another button: no step.
    uitest::PlaceBoard(w, {{20, 12}});
    QTest::mousePress(w.grdMap, Qt::LeftButton, {}, Centre(w, 9, 4));
    QTest::mouseRelease(w.grdMap, Qt::LeftButton, {}, QPoint(-4, -4));
    QTest::mouseClick(w.grdMap, Qt::MiddleButton, {}, Centre(w, 9, 4));
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{0});
  }

  // While a box is up the board takes no click: the box keeps it out, as it keeps keys out.
  void aBoxKeepsClicksOut() {
    frmMain& w = s_->w;
    swui::frmMsgBox::testAnswer = nullptr;  // a real box
    QTimer::singleShot(0, [&w] {
      QTest::mouseClick(w.windowHandle(), Qt::LeftButton, {}, w.grdMap->mapTo(&w, Centre(w, 9, 4)));
      QApplication::activeModalWidget()->close();
    });
    w.MsgBox("In the way", 0, "A box");
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{0});
    QTest::mouseClick(w.windowHandle(), Qt::LeftButton, {}, w.grdMap->mapTo(&w, Centre(w, 9, 4)));
    QCOMPARE(Whisk(w), QPoint(6, 5));
  }

  // The secondary button opens the board's menu: Pause, Wait and Link with the keys that give them.
  void theMenuRunsWaitAndLink() {
    frmMain& w = s_->w;
    PickFromMenu(2, {"Pause\t5", "Wait\t0", "Link\t+"});
    QTest::mouseClick(w.grdMap, Qt::RightButton, {}, Centre(w, 9, 4));
    QVERIFY(w.sw.game.gbScoreNoLinkSite == 0 && w.sw.game.gnMoveCount == 1);
    uitest::PlaceBoard(w, {{8, 8}});
    PickFromMenu(1, {"Pause\t5", "Wait\t0", "Link\t+"});
    QTest::mouseClick(w.grdMap, Qt::RightButton, {}, Centre(w, 9, 4));
    QCOMPARE(w.sw.game.gnReconnects, int16_t{1});  // waited until the virus came
  }

  // A tap is a click; a finger moving over the board shows the step toward it; a touch held
  // still opens the board's menu and takes no step when it is lifted.
  void tapsAndTouchAndHold() {
    frmMain& w = s_->w;
    QStyleHints* hints = QGuiApplication::styleHints();
    hints->setMousePressAndHoldInterval(60000);  // no hold while the taps are given
    QTest::touchEvent(w.grdMap, finger_).press(0, Centre(w, 9, 4), w.grdMap);
    QTest::touchEvent(w.grdMap, finger_).move(0, Centre(w, 5, 9), w.grdMap);
    QCOMPARE(w.grdMap->Outline(), QPoint(5, 6));
    QTest::touchEvent(w.grdMap, finger_).release(0, Centre(w, 5, 9), w.grdMap);
    QVERIFY(Whisk(w) == QPoint(5, 6) && w.grdMap->Outline() == QPoint(-1, -1));
    hints->setMousePressAndHoldInterval(1);
    PickFromMenu(2, {"Pause\t5", "Wait\t0", "Link\t+"});
    QTest::touchEvent(w.grdMap, finger_).press(0, Centre(w, 9, 4), w.grdMap);
    QTRY_VERIFY(w.sw.game.gbScoreNoLinkSite == 0);
    QTest::touchEvent(w.grdMap, finger_).release(0, Centre(w, 9, 4), w.grdMap);
    QCOMPARE(w.sw.game.gnMoveCount, int16_t{2});  // the step, the link; no step on lifting the finger
  }

  // The pointer over the board shows the step a click takes, and so does the outline of its
  // landing cell; both follow a key's turn while the pointer stands still.
  void thePointerFollowsAKeyMove() {
    frmMain& w = s_->w;
    auto pointer = [&w] { return w.grdMap->cursor().pixmap().toImage(); };
    auto picture = [&w](const char* name) { return swui::PictureImage(name, qRound(32 * w.devicePixelRatioF())); };
    QTest::mouseMove(w.grdMap, Centre(w, 9, 5));
    QVERIFY(pointer() == picture("pointer6") && w.grdMap->Outline() == QPoint(6, 5));
    QTest::keyClick(w.grdMap, '3');
    QVERIFY(pointer() == picture("pointer6") && w.grdMap->Outline() == QPoint(7, 6));
    QTest::keyClick(w.grdMap, '3');
    QVERIFY(pointer() == picture("pointer9") && w.grdMap->Outline() == QPoint(8, 6));
    QTest::mouseMove(w.grdMap, Centre(w, 7, 7));
    QVERIFY(pointer() == picture("pointer5") && w.grdMap->Outline() == QPoint(7, 7));
    // Off the board the window's own pointer is back, and no cell is outlined.
    QTest::mouseMove(w.grdMap, QPoint(-2, -2));
    QVERIFY(!w.grdMap->testAttribute(Qt::WA_SetCursor) && w.grdMap->Outline() == QPoint(-1, -1));
  }
};

QTEST_MAIN(TestBoardInput)
#include "tst_BoardInput.moc"
