// The message box under a real window manager (tests/support/xvfb.sh --wm):
// its outer size, title bar and borders included, is the layout's, and a long
// title fits its title bar.
#include <QWindow>

#include "ui/UiTestSupport.h"

class TestFramedMsgBox : public QObject {
  Q_OBJECT

 private slots:
  void outerSizeIsTheLayouts() {
    QVERIFY2(QGuiApplication::platformName() == "xcb", "run under tests/support/xvfb.sh --wm");
    QWidget owner;
    owner.resize(swui::Twips::Of(owner).X(24 * 499), 500);
    owner.show();
    QTRY_VERIFY_WITH_TIMEOUT(!owner.windowHandle()->frameMargins().isNull(), 15000);  // framed
    const std::pair<QString, QString> cases[] = {{"Done.", ""},
                                                 {QString("packet ").repeated(300), "Question"},
                                                 {"Ok?", "Error: LoadHighScoresError while reading the lists"}};
    for (const auto& [text, title] : cases) {
      swui::frmMsgBox box(&owner, 24 * 499);
      box.Setup(text, 4, title);
      box.show();
      QVERIFY(QTest::qWaitForWindowActive(&box, 15000));
      const QSize outer(box.twips().X(box.layout().width), box.twips().Y(box.layout().height));
      QTRY_COMPARE_WITH_TIMEOUT(box.windowHandle()->frameGeometry().size(), outer, 15000);
      const QMargins frame = box.windowHandle()->frameMargins();
      QCOMPARE(box.size(), outer.shrunkBy(frame));
      QVERIFY(box.width() >= box.lblTitleTest->fontMetrics().horizontalAdvance(title) + 4 * frame.top());
    }
  }
};

QTEST_MAIN(TestFramedMsgBox)
#include "framed_frmMsgBox.moc"
