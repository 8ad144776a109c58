// The two controls the game draws itself. The board: a move repaints only the
// cells that changed, each the board and its grid lines with the picture on
// top, read by a screen reader as a table of named cells. The progress bar: the value it keeps, and how far it is filled.
#include <QAccessible>
#include <QPaintEvent>
#include <QTest>

#include "ui/MapGrid.h"
#include "ui/ProgBar.h"

using sw::Picture;

class TestControls : public QObject {
  Q_OBJECT

  QList<QRegion> painted_;
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() == QEvent::Paint) painted_ << static_cast<QPaintEvent*>(e)->region();
    return false;
  }

 private slots:
  void aMoveRepaintsItsTwoCells() {
    const swui::PictureSet pictures;
    swui::MapGrid g(pictures);
    g.resize(24 * 32 + 10, 14 * 32 + 6);  // a little wider than the cells: they sit centred
    g.SetDimensions(24, 14);
    g.SetCellSize(32, 32);
    g.SetPicture(3, 2, Picture::Player5);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    g.installEventFilter(this);
    g.SetPicture(3, 2, Picture::None);
    g.SetPicture(4, 2, Picture::Player6);
    g.SetPicture(5, 2, Picture::None);  // as it was: nothing to paint
    QCoreApplication::processEvents();
    QCOMPARE(painted_, QList<QRegion>{QRegion(g.CellRect(3, 2)) + QRegion(g.CellRect(4, 2))});
    QCOMPARE(g.CellRect(0, 0).topLeft(), QPoint(5, 3));
    const QImage img = g.grab().toImage();
    QCOMPARE(img.pixelColor(g.CellRect(3, 2).center()), g.BoardColor());
    QCOMPARE(img.pixelColor(g.CellRect(3, 2).bottomRight()), g.LineColor());
    QVERIFY(img.pixelColor(g.CellRect(4, 2).center()) != g.BoardColor());
    // A screen reader reads the board as a table of named cells.
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&g);
    QAccessibleTableInterface* table = board->tableInterface();
    QCOMPARE(std::pair(board->role(), board->childCount()), std::pair(QAccessible::Table, 14 * 24));
    QCOMPARE(std::pair(table->rowCount(), table->columnCount()), std::pair(14, 24));
    QCOMPARE(board->indexOfChild(table->cellAt(2, 4)), 2 * 24 + 4);
    QCOMPARE(table->cellAt(2, 4)->text(QAccessible::Name) + "/" + table->cellAt(2, 3)->text(QAccessible::Name),
             QStringLiteral("Whisk/empty"));
  }

  void progressBar() {
    // Vertical, value, the value kept within Min 5 and Max 15, filled strips of the 100.
    for (const auto& [vertical, value, kept, strips] :
         {std::tuple{false, -3, 5, 0}, {false, 20, 15, 100}, {false, 8, 8, 30}, {true, 10, 10, 50}}) {
      swui::ProgBar pb;
      pb.resize(vertical ? QSize(22, 102) : QSize(102, 22));  // inside the border: 100 strips
      pb.setBackColor(Qt::white);
      pb.setBarColor(Qt::blue);
      pb.setVertical(vertical);
      pb.setMin(5);
      pb.setMax(15);
      pb.setValue(value);
      QCOMPARE(pb.Value(), kept);
      const QImage img = pb.grab().toImage();
      const QRect r = pb.InnerRect();
      QCOMPARE(r.size(), vertical ? QSize(20, 100) : QSize(100, 20));
      for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
          QCOMPARE(img.pixelColor(x, y), (vertical ? r.bottom() - y : x - r.left()) < strips ? Qt::blue : Qt::white);
    }
  }
};

QTEST_MAIN(TestControls)
#include "tst_Controls.moc"
