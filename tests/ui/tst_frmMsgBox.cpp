// The message box: its geometry for each button set, long texts and long
// titles, and the Enter and Esc answers.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "ui/UiTestSupport.h"
#include "ui/frmMsgBox.h"

using swui::frmMsgBox;

namespace {

constexpr int32_t kWindowWidth = 24 * 499;

// Presses a key in whatever modal box is open, and closes it anyway later so
// that a broken key binding fails the test instead of hanging it.
void PressInModalBox(Qt::Key key) {
  QTimer::singleShot(0, [key] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    QWidget* target = box->focusWidget() != nullptr ? box->focusWidget() : box;
    QTest::keyClick(target, key);
  });
  QTimer::singleShot(5000, [] {
    if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->done(-1);
  });
}

}  // namespace

class TestFrmMsgBox : public QObject {
  Q_OBJECT

 private:
  uitest::FreshDir dir_;
  QWidget owner_;

 private slots:
  void layoutForEachButtonSet() {
    // A one-word notice with OK: the minimum width, the button centred.
    auto l = frmMsgBox::ComputeLayout(400, 195, 195, 300, kWindowWidth, 0);
    QCOMPARE(l.width, 1595);
    QCOMPARE(l.height, 195 + 195 + 240 + 375 + 455);
    QCOMPARE(l.nButtons, 1);
    QCOMPARE(l.btnLeft[0], 120);
    QCOMPARE(l.btnTop, 195 + 195 + 240);
    QVERIFY(!l.wordWrap);

    // A wider text: the box grows, the OK button stays in the middle of the margins.
    l = frmMsgBox::ComputeLayout(5000, 390, 390, 300, kWindowWidth, 0);
    QCOMPARE(l.width, 5360);
    QCOMPARE(l.btnLeft[0], (5360 - 1595) / 2 + 120);
    QCOMPARE(l.height, 390 + 1265);

    // OK/Cancel and Yes/No: two buttons 120 apart, at least 2950 wide.
    for (int16_t n : {int16_t{1}, int16_t{4}}) {
      l = frmMsgBox::ComputeLayout(400, 195, 195, 300, kWindowWidth, n);
      QCOMPARE(l.width, 2950);
      QCOMPARE(l.nButtons, 2);
      QCOMPARE(l.btnLeft[0], 120);
      QCOMPARE(l.btnLeft[1], 120 + 1235 + 120);
    }
    l = frmMsgBox::ComputeLayout(6000, 585, 585, 300, kWindowWidth, 4);
    QCOMPARE(l.width, 6360);
    QCOMPARE(l.btnLeft[0], (6360 - 2950) / 2 + 120);
    QCOMPARE(l.btnLeft[1] - l.btnLeft[0], 1355);

    // Any other value: no buttons, and no minimum width.
    l = frmMsgBox::ComputeLayout(400, 195, 195, 300, kWindowWidth, 2);
    QCOMPARE(l.nButtons, 0);
    QCOMPARE(l.width, 760);
  }

  void longTextWrapsAndLongTitleWidens() {
    // Wider than the main window: wraps at its width and grows downwards.
    auto l = frmMsgBox::ComputeLayout(20000, 195, 780, 300, kWindowWidth, 0);
    QVERIFY(l.wordWrap);
    QCOMPARE(l.lblWidth, kWindowWidth);
    QCOMPARE(l.lblHeight, 780);
    QCOMPARE(l.width, kWindowWidth + 360);
    QCOMPARE(l.height, 780 + 1265);
    QCOMPARE(l.btnTop, 780 + 435);

    // A long title with a short text: as wide as the title plus the margins.
    l = frmMsgBox::ComputeLayout(400, 195, 195, 4000, kWindowWidth, 0);
    QCOMPARE(l.lblWidth, 4000);
    QCOMPARE(l.lblHeight, 195);
    QCOMPARE(l.width, 4360);
  }

  void dialogFollowsItsLayout() {
    frmMsgBox box(&owner_, kWindowWidth);
    const swui::Twips& tw = box.twips();
    box.Setup("Hello", 4, "Question");
    const auto& l = box.layout();
    QCOMPARE(box.size(), QSize(tw.X(l.width), tw.Y(l.height)));
    QCOMPARE(box.lblMesg->geometry().topLeft(), QPoint(tw.X(120), tw.Y(195)));
    QCOMPARE(box.cmdYes->geometry(), QRect(tw.X(l.btnLeft[0]), tw.Y(l.btnTop), tw.X(1235), tw.Y(375)));
    QCOMPARE(box.cmdNo->geometry().left(), tw.X(l.btnLeft[1]));
    QVERIFY(box.cmdYes->isVisibleTo(&box) && box.cmdNo->isVisibleTo(&box));
    QVERIFY(!box.cmdOK->isVisibleTo(&box) && !box.cmdCancel->isVisibleTo(&box));
    QVERIFY(box.cmdYes->isDefault());
    QCOMPARE(box.windowTitle(), QStringLiteral("Question"));
    QVERIFY(!(box.windowFlags() & Qt::WindowCloseButtonHint));

    // A real long text wraps at the main window's width.
    QString text;
    for (int i = 0; i < 40; ++i) text += QStringLiteral("virus%1 ").arg(i);
    frmMsgBox longBox(&owner_, kWindowWidth);
    longBox.Setup(text + "\n" + text, 1, "Long");
    QVERIFY(longBox.layout().wordWrap);
    QCOMPARE(longBox.layout().lblWidth, kWindowWidth);
    QVERIFY(longBox.layout().lblHeight >= 4 * tw.FromY(longBox.lblMesg->fontMetrics().height()) - 4);
    QVERIFY(longBox.lblMesg->wordWrap());
    QVERIFY(longBox.cmdOK->isVisibleTo(&longBox) && longBox.cmdCancel->isVisibleTo(&longBox));
    QCOMPARE(longBox.cmdCancel->geometry().top(), tw.Y(longBox.layout().lblHeight + 435));

    // A long title with a short text makes the box as wide as the title.
    const QString title = QStringLiteral("A rather long title for such a short little notice");
    frmMsgBox titled(&owner_, kWindowWidth);
    titled.Setup("Ok", 0, title);
    const int32_t titleTw = tw.FromX(titled.lblTitleTest->sizeHint().width());
    QCOMPARE(titled.layout().lblWidth, titleTw);
    QCOMPARE(titled.layout().width, titleTw + 360);
  }

  void enterAndEscapeAnswer() {
    struct Case {
      int16_t nButtons;
      Qt::Key key;
      int16_t answer;
    };
    const Case cases[] = {{4, Qt::Key_Escape, 7}, {4, Qt::Key_Return, 6}, {0, Qt::Key_Escape, 1},
                          {0, Qt::Key_Return, 1}, {1, Qt::Key_Escape, 2}, {1, Qt::Key_Enter, 1}};
    for (const Case& c : cases) {
      frmMsgBox box(&owner_, kWindowWidth);
      box.Setup("Go on?", c.nButtons, "Question");
      PressInModalBox(c.key);
      QCOMPARE(box.ShowModal(), c.answer);
    }

    // Closing the box by other means answers as its cancel button.
    frmMsgBox box(&owner_, kWindowWidth);
    box.Setup("Go on?", 4, "Question");
    QTimer::singleShot(0, [] {
      if (QWidget* w = QApplication::activeModalWidget()) w->close();
    });
    QCOMPARE(box.ShowModal(), int16_t{7});
  }
};

QTEST_MAIN(TestFrmMsgBox)
#include "tst_frmMsgBox.moc"
