// The board: a move repaints only the cells that changed, and what is painted
// is the backdrop (board and grid lines) with the pictures on top; a screen
// reader reads it as a table of named cells.
#include <QAccessible>
#include <QApplication>
#include <QPaintEvent>
#include <QTest>

#include <utility>

#include "ui/MapGrid.h"
#include "ui/PictureRender.h"

using sw::Picture;
using swui::MapGrid;

namespace {

// Records the region of every paint event a widget gets.
struct PaintLog : QObject {
  QList<QRegion> regions;
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() == QEvent::Paint) regions << static_cast<QPaintEvent*>(e)->region();
    return false;
  }
};

QColor At(const QImage& img, QPoint p) { return img.pixelColor(p); }


}  // namespace

class TestMapGrid : public QObject {
  Q_OBJECT

  swui::PictureSet pictures_;

  static void Setup(MapGrid& g) {
    g.resize(24 * 32 + 10, 14 * 32 + 6);  // a little wider than the block: it sits centred
    g.SetDimensions(24, 14);
    g.SetCellSize(32, 32);
    g.show();
  }

 private slots:
  void onlyChangedCellsRepaint() {
    MapGrid g(pictures_);
    Setup(g);
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    g.SetPicture(3, 2, Picture::Player5);
    QApplication::processEvents();
    PaintLog log;
    g.installEventFilter(&log);

    // A move: the mouse leaves one cell for the next.
    g.SetPicture(3, 2, Picture::None);
    g.SetPicture(4, 2, Picture::Player6);
    QApplication::processEvents();
    QCOMPARE(log.regions.size(), 1);
    QCOMPARE(log.regions[0], QRegion(g.CellRect(3, 2)) + QRegion(g.CellRect(4, 2)));

    // The same picture again changes nothing and paints nothing.
    log.regions.clear();
    g.SetPicture(4, 2, Picture::Player6);
    g.SetPicture(99, 2, Picture::Virus);  // off the board: ignored
    QApplication::processEvents();
    QVERIFY(log.regions.isEmpty());
    QCOMPARE(g.PictureAt(4, 2), Picture::Player6);
    QCOMPARE(g.PictureAt(99, 2), Picture::None);
  }

  void readAsATableOfNamedCells() {
    MapGrid g(pictures_);
    Setup(g);
    g.SetPicture(3, 2, Picture::Virus);
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&g);
    QCOMPARE(board->role(), QAccessible::Table);
    QAccessibleTableInterface* table = board->tableInterface();
    QCOMPARE(std::pair(table->rowCount(), table->columnCount()), std::pair(14, 24));
    QCOMPARE(board->childCount(), 14 * 24);
    QAccessibleInterface* cell = table->cellAt(2, 3);
    QCOMPARE(cell->role(), QAccessible::Cell);
    QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("virus"));
    QCOMPARE(board->child(2 * 24 + 3), cell);
    QCOMPARE(board->indexOfChild(cell), 2 * 24 + 3);
    QCOMPARE(table->cellAt(2, 4)->text(QAccessible::Name), QStringLiteral("empty"));
  }

  // What the build drew ahead is what the SVG gives now, pixel for pixel; other sizes come from the SVG.
  void picturesDrawnAheadMatchTheirSvgs() {
    const Picture all[] = {Picture::Player1, Picture::Player2, Picture::Player3, Picture::Player4,
                           Picture::Player5, Picture::Player6, Picture::Player7, Picture::Player8,
                           Picture::Player9, Picture::Death,   Picture::Virus,   Picture::Infected};
    swui::PictureSet fresh;
    for (Picture pic : all)
      for (int device : {31, 33, 62, 66}) {
        const QImage ahead = swui::PictureSet::Prerendered(pic, device);
        QVERIFY2(!ahead.isNull(), qPrintable(QString("picture %1 at %2 px").arg(int(pic)).arg(device)));
        QCOMPARE(ahead, fresh.FromSvg(pic, device));
      }
    // The window icon and the pointer at the sizes a 96 DPI start shows, at scale 1 and 2.
    for (const auto& [name, device] : {std::pair{"icon", 16}, {"icon", 32}, {"icon", 48}, {"icon", 64},
                                       {"pointer", 32}, {"pointer", 64}}) {
      const QImage ahead = swui::PrerenderedImage(name, device);
      QVERIFY2(!ahead.isNull(), qPrintable(QString("%1 at %2 px").arg(name).arg(device)));
      QCOMPARE(ahead, swui::ReadPicture(QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(name)), device));
      QCOMPARE(swui::PictureImage(name, device), ahead);
    }
    const QImage big = swui::PictureImage("icon", 128);
    QCOMPARE(big.size(), QSize(128, 128));
    QCOMPARE(big, swui::ReadPicture(QStringLiteral(":/pictures/icon.svg"), 128));
    QVERIFY(swui::PictureImage("no such picture", 32).isNull());
    QVERIFY(swui::PictureSet::Prerendered(Picture::None, 31).isNull());
    QVERIFY(swui::PictureSet::Prerendered(Picture::Virus, 40).isNull());
    const QPixmap drawn = fresh.Pixmap(Picture::Virus, 20, 2.0);
    QCOMPARE(drawn.devicePixelRatio(), 2.0);
    QImage expected = fresh.FromSvg(Picture::Virus, 40);
    expected.setDevicePixelRatio(2.0);
    QCOMPARE(drawn.toImage(), expected);
  }

  void paintsBoardLinesAndPictures() {
    MapGrid g(pictures_);
    Setup(g);
    g.SetPicture(0, 0, Picture::Infected);
    const QRect cell = g.CellRect(0, 0), empty = g.CellRect(5, 5);
    QCOMPARE(cell.topLeft(), QPoint(5, 3));  // centred
    QImage img = g.grab().toImage();
    QCOMPARE(At(img, empty.center()), g.BoardColor());
    QCOMPARE(At(img, empty.bottomRight()), g.LineColor());  // each cell's line on its right and bottom
    QCOMPARE(At(img, QPoint(1, 1)), g.palette().color(QPalette::Window));  // the surround
    QVERIFY(At(img, cell.center()) != g.BoardColor());
    QVERIFY(g.BoardColor() != g.LineColor());

    // Without grid lines the board is plain.
    g.setShowGrid(false);
    img = g.grab().toImage();
    QCOMPARE(At(img, empty.bottomRight()), g.BoardColor());
    QVERIFY(At(img, cell.center()) != g.BoardColor());
  }
};

QTEST_MAIN(TestMapGrid)
#include "tst_MapGrid.moc"
