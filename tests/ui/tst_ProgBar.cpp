// The progress bar: what it paints at its minimum, above its maximum and
// half way up when vertical, and how it keeps its value in range.
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include "ui/ProgBar.h"

using swui::ProgBar;

namespace {

// Counts the inner pixels of each colour.
struct Counts {
  int back = 0, bar = 0, other = 0;
};

Counts Paint(ProgBar& pb) {
  const QImage img = pb.grab().toImage();
  const QRect inner = pb.InnerRect();
  Counts n;
  for (int y = inner.top(); y <= inner.bottom(); ++y)
    for (int x = inner.left(); x <= inner.right(); ++x) {
      const QColor c = img.pixelColor(x, y);
      if (c == pb.BackColor()) ++n.back;
      else if (c == pb.BarColor()) ++n.bar;
      else ++n.other;
    }
  return n;
}

}  // namespace

class TestProgBar : public QObject {
  Q_OBJECT

 private slots:
  void defaults() {
    ProgBar pb;
    QCOMPARE(pb.Min(), 0);
    QCOMPARE(pb.Max(), 100);
    QCOMPARE(pb.Value(), 50);
    QCOMPARE(pb.BorderStyle(), int16_t{1});
    QVERIFY(!pb.Vertical());
    QCOMPARE(pb.BackColor(), pb.palette().color(QPalette::Button));
    QCOMPARE(pb.BarColor(), pb.palette().color(QPalette::Highlight));
  }

  void horizontalPainting() {
    ProgBar pb;
    pb.resize(102, 22);
    pb.setBackColor(QColor(255, 255, 255));
    pb.setBarColor(QColor(0, 0, 255));
    pb.setMin(0);
    pb.setMax(13);

    pb.setValue(0);
    Counts n = Paint(pb);
    QCOMPARE(n.bar, 0);
    QCOMPARE(n.other, 0);

    pb.setValue(20);  // above Max: a full bar
    QCOMPARE(pb.Value(), 13);
    n = Paint(pb);
    QCOMPARE(n.back, 0);
    QCOMPARE(n.other, 0);

    pb.setValue(-3);  // below Min: empty
    QCOMPARE(pb.Value(), 0);
    QCOMPARE(Paint(pb).bar, 0);

    // Part way: the bar fills from the left.
    pb.setMax(10);
    pb.setValue(3);
    const QImage img = pb.grab().toImage();
    const QRect inner = pb.InnerRect();
    QCOMPARE(img.pixelColor(inner.left(), inner.center().y()), QColor(0, 0, 255));
    QCOMPARE(img.pixelColor(inner.left() + 29, inner.top()), QColor(0, 0, 255));
    QCOMPARE(img.pixelColor(inner.left() + 30, inner.bottom()), QColor(255, 255, 255));
    QCOMPARE(img.pixelColor(inner.right(), inner.center().y()), QColor(255, 255, 255));
  }

  void verticalHalfFillsTheLowerHalf() {
    ProgBar pb;
    pb.resize(22, 42);
    pb.setBackColor(QColor(192, 192, 192));
    pb.setBarColor(QColor(255, 0, 0));
    pb.setVertical(true);
    pb.setMin(5);
    pb.setMax(15);
    pb.setValue(10);
    const QImage img = pb.grab().toImage();
    const QRect inner = pb.InnerRect();  // 20 x 40
    for (int x : {inner.left(), inner.right()}) {
      QCOMPARE(img.pixelColor(x, inner.top()), QColor(192, 192, 192));
      QCOMPARE(img.pixelColor(x, inner.top() + 19), QColor(192, 192, 192));
      QCOMPARE(img.pixelColor(x, inner.top() + 20), QColor(255, 0, 0));
      QCOMPARE(img.pixelColor(x, inner.bottom()), QColor(255, 0, 0));
    }
    const Counts n = Paint(pb);
    QCOMPARE(n.bar, n.back);
    QCOMPARE(n.other, 0);

    // Without a border the bar takes the whole control.
    pb.setBorderStyle(0);
    QCOMPARE(pb.InnerRect(), pb.rect());
    QCOMPARE(pb.grab().toImage().pixelColor(0, 41), QColor(255, 0, 0));
  }

  void clickIsRaised() {
    ProgBar pb;
    pb.resize(50, 10);
    QSignalSpy spy(&pb, &ProgBar::clicked);
    QTest::mouseClick(&pb, Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
  }
};

QTEST_MAIN(TestProgBar)
#include "tst_ProgBar.moc"
