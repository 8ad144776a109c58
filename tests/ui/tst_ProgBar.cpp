// The progress bar: what it paints at its minimum, above its maximum, part
// way, and half way up when vertical; and its click.
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include "ui/ProgBar.h"

using swui::ProgBar;

class TestProgBar : public QObject {
  Q_OBJECT

 private slots:
  void painting_data() {
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("kept");    // the value the bar keeps, within Min 5 and Max 15
    QTest::addColumn<int>("strips");  // filled strips of 100, from the left or from the bottom
    QTest::newRow("at Min") << false << 5 << 5 << 0;
    QTest::newRow("below Min") << false << -3 << 5 << 0;
    QTest::newRow("above Max") << false << 20 << 15 << 100;
    QTest::newRow("part way") << false << 8 << 8 << 30;
    QTest::newRow("half way, vertical") << true << 10 << 10 << 50;
  }

  void painting() {
    QFETCH(bool, vertical);
    QFETCH(int, value);
    QFETCH(int, kept);
    QFETCH(int, strips);
    ProgBar pb;
    pb.resize(vertical ? QSize(22, 102) : QSize(102, 22));  // inside the border: 100 strips of 20 pixels
    pb.setBackColor(QColor(255, 255, 255));
    pb.setBarColor(QColor(0, 0, 255));
    pb.setVertical(vertical);
    pb.setMin(5);
    pb.setMax(15);
    pb.setValue(value);
    QCOMPARE(pb.Value(), kept);
    const QImage img = pb.grab().toImage();
    const QRect r = pb.InnerRect();
    QCOMPARE(r.size(), vertical ? QSize(20, 100) : QSize(100, 20));
    for (int y = r.top(); y <= r.bottom(); ++y)
      for (int x = r.left(); x <= r.right(); ++x) {
        // The strip this pixel lies in, counted from where the bar starts.
        const int strip = vertical ? r.bottom() - y : x - r.left();
        QCOMPARE(img.pixelColor(x, y), strip < strips ? pb.BarColor() : pb.BackColor());
      }
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
