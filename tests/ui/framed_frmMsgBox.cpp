// The message box under a real window manager (run by under_xvfb.sh): the
// outer size of the box, title bar and borders included, follows the box's
// formulas; a long title fits its title bar; the box is a fixed dialog that
// cannot be minimised or maximised, and its close button answers as Cancel.
#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "ui/frmMsgBox.h"

using swui::frmMsgBox;

namespace {

constexpr int32_t kWindowWidth = 24 * 499;

QString LongText() {
  QString text;
  for (int i = 0; i < 60; ++i) text += QStringLiteral("packet%1 ").arg(i);
  return text;
}

// The window manager's view of a window: its allowed actions, and the
// functions that the window itself asks for.
QString AllowedActions(const QWidget& w) {
  QProcess xprop;
  xprop.start("xprop", {"-id", QString::number(w.winId()), "_NET_WM_ALLOWED_ACTIONS", "_MOTIF_WM_HINTS"});
  xprop.waitForFinished(5000);
  return QString::fromUtf8(xprop.readAllStandardOutput());
}

}  // namespace

class TestFramedMsgBox : public QObject {
  Q_OBJECT

  QWidget owner_;

 private slots:
  void initTestCase() {
    QVERIFY2(QGuiApplication::platformName() == "xcb", "run under_xvfb.sh");
    owner_.setWindowTitle("Skitterweb");
    owner_.resize(swui::Twips::Of(owner_).X(kWindowWidth), 500);
    owner_.show();
    QVERIFY(QTest::qWaitForWindowExposed(&owner_));
    QTRY_VERIFY_WITH_TIMEOUT(!owner_.windowHandle()->frameMargins().isNull(), 5000);
  }

  void outerSizeFollowsTheFormulas_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("nButtons");
    QTest::addColumn<QString>("title");
    QTest::newRow("short notice") << "Done." << 0 << "";
    QTest::newRow("long text wraps") << LongText() << 4 << "Question";
    QTest::newRow("long title") << "Ok?" << 0 << "Error: LoadHighScoresError while reading the lists";
  }

  void outerSizeFollowsTheFormulas() {
    QFETCH(QString, text);
    QFETCH(int, nButtons);
    QFETCH(QString, title);
    frmMsgBox box(&owner_, kWindowWidth);
    box.Setup(text, static_cast<int16_t>(nButtons), title);
    const swui::Twips& tw = box.twips();
    const auto& l = box.layout();
    box.show();
    // Managed by the window manager: active, and framed.
    QVERIFY(QTest::qWaitForWindowActive(&box, 15000));
    QTRY_VERIFY_WITH_TIMEOUT(!box.windowHandle()->frameMargins().isNull(), 15000);
    const QSize outer(tw.X(l.width), tw.Y(l.height));
    // The window's own frame, read from the window manager each time: the widget's copy of it
    // can lag behind on a busy machine.
    QTRY_COMPARE_WITH_TIMEOUT(box.windowHandle()->frameGeometry().size(), outer, 15000);
    const QMargins frame = box.windowHandle()->frameMargins();
    QVERIFY2(frame.top() > frame.bottom(), "the box has a title bar");
    QCOMPARE(box.size(), outer.shrunkBy(frame));

    const int lineH = box.lblMesg->fontMetrics().height();
    if (nButtons == 0 && title.isEmpty()) {
      QCOMPARE(l.width, 1595);  // the one-button minimum
      QCOMPARE(l.height, l.lblHeight + 195 + 240 + 375 + 455);
      QVERIFY(l.lblHeight <= tw.FromY(lineH) + 1);
    } else if (nButtons == 4) {  // wraps at the main window's width and grows downwards
      QVERIFY(box.lblMesg->wordWrap());
      QCOMPARE(l.width, kWindowWidth + 120 + 240);
      QVERIFY(box.lblMesg->height() >= 3 * lineH);
    } else {  // as wide as its title: the whole title fits beside the icon and three buttons
      QCOMPARE(l.width, l.lblWidth + 120 + 240);
      QVERIFY(l.lblWidth > 1595);
      const int titleText = box.lblTitleTest->fontMetrics().horizontalAdvance(title);
      QVERIFY(box.windowHandle()->frameGeometry().width() - frame.left() - frame.right() >= titleText + 4 * frame.top());
    }
    box.close();
  }

  // The box asks for neither minimise nor maximise (some window managers,
  // openbox among them, still offer minimise on every window), and the
  // window manager can neither maximise nor resize it.
  void fixedDialogWithoutMinimiseOrMaximise() {
    frmMsgBox box(&owner_, kWindowWidth);
    box.Setup("Go on?", 4, "Question");
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QTRY_VERIFY_WITH_TIMEOUT(AllowedActions(box).contains("_NET_WM_ACTION_CLOSE"), 5000);
    const QString actions = AllowedActions(box);
    QVERIFY2(!actions.contains("MAXIMIZE"), qPrintable(actions));
    const QRegularExpressionMatch motif =
        QRegularExpression("_MOTIF_WM_HINTS.* = (0x[0-9a-f]+), (0x[0-9a-f]+)").match(actions);
    QVERIFY2(motif.hasMatch(), qPrintable(actions));
    const uint functions = motif.captured(2).toUInt(nullptr, 16);
    QVERIFY2((functions & 0x1) == 0 && (functions & (0x8 | 0x10)) == 0, "no minimise or maximise function");
    QVERIFY((functions & 0x20) != 0);  // close
    QVERIFY2(!actions.contains("RESIZE"), qPrintable(actions));
  }

  void closeButtonAnswersAsCancel() {
    frmMsgBox box(&owner_, kWindowWidth);
    box.Setup("Go on?", 4, "Question");
    // The window manager's own close (its Alt+F4), which asks the box to close
    // as the title bar's close button does.
    QTimer::singleShot(500, [] { QProcess::execute("xdotool", {"key", "alt+F4"}); });
    QTimer::singleShot(5000, [&box] { box.done(-1); });
    QCOMPARE(box.ShowModal(), int16_t{7});
  }
};

QTEST_MAIN(TestFramedMsgBox)
#include "framed_frmMsgBox.moc"
