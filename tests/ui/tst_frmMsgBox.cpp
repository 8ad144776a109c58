// The message box: its geometry for each button set, long texts and long
// titles, and the Enter and Esc answers.
#include <QApplication>
#include <QTest>
#include <QTimer>

#include "ui/UiTestSupport.h"

using swui::frmMsgBox;
using Ints = QList<int>;

namespace {

constexpr int32_t kWindowWidth = 24 * 499;

// Presses a key in whatever modal box is open (or closes it when key is 0),
// and closes it anyway later so that a broken binding fails instead of hanging.
void PressInModalBox(int key) {
  QTimer::singleShot(0, [key] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    if (key == 0) box->close();
    else QTest::keyClick(box->focusWidget() != nullptr ? box->focusWidget() : box, static_cast<Qt::Key>(key));
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
  void layout_data() {
    QTest::addColumn<Ints>("in");    // text width, text height, wrapped height, title width, button set
    QTest::addColumn<Ints>("want");  // buttons, label width, box width, box height, buttons' top, their lefts
    QTest::addColumn<bool>("wrap");
    // OK: at least 1595 wide, the button centred between the margins.
    QTest::newRow("OK, one word") << Ints{400, 195, 195, 300, 0} << Ints{1, 400, 1595, 1460, 630, 120, 0} << false;
    QTest::newRow("OK, wide") << Ints{5000, 390, 390, 300, 0} << Ints{1, 5000, 5360, 1655, 825, 2002, 0} << false;
    // OK/Cancel and Yes/No: two buttons 120 apart, at least 2950 wide.
    QTest::newRow("OK/Cancel") << Ints{400, 195, 195, 300, 1} << Ints{2, 400, 2950, 1460, 630, 120, 1475} << false;
    QTest::newRow("Yes/No") << Ints{400, 195, 195, 300, 4} << Ints{2, 400, 2950, 1460, 630, 120, 1475} << false;
    QTest::newRow("Yes/No big") << Ints{6000, 585, 585, 300, 4} << Ints{2, 6000, 6360, 1850, 1020, 1825, 3180} << false;
    // Any other set: no buttons and no minimum width.
    QTest::newRow("no buttons") << Ints{400, 195, 195, 300, 2} << Ints{0, 400, 760, 1460, 630, 0, 0} << false;
    // Wider than the main window: wraps at its width and grows downwards.
    QTest::newRow("long text") << Ints{20000, 195, 780, 300, 0} << Ints{1, 11976, 12336, 2045, 1215, 5490, 0} << true;
    // A long title with a short text: as wide as the title plus the margins.
    QTest::newRow("long title") << Ints{400, 195, 195, 4000, 0} << Ints{1, 4000, 4360, 1460, 630, 1502, 0} << false;
  }

  void layout() {
    QFETCH(Ints, in);
    QFETCH(Ints, want);
    QFETCH(bool, wrap);
    const auto l = frmMsgBox::ComputeLayout(in[0], in[1], in[2], in[3], kWindowWidth, static_cast<int16_t>(in[4]));
    QCOMPARE((Ints{l.nButtons, l.lblWidth, l.width, l.height, l.btnTop, l.btnLeft[0], l.btnLeft[1]}), want);
    QCOMPARE(l.lblHeight, wrap ? in[2] : in[1]);
    QCOMPARE(l.wordWrap, wrap);
  }

  void dialogFollowsItsLayout() {
    QString text;
    for (int i = 0; i < 40; ++i) text += QStringLiteral("virus%1 ").arg(i);
    const std::tuple<QString, int16_t, QString> cases[] = {
        {"Hello", 0, "Notice"},
        {text + "\n" + text, 1, "Long"},
        {"Ok", 4, "A rather long title for such a short little notice"}};
    for (const auto& [mesg, nButtons, title] : cases) {
      frmMsgBox box(&owner_, kWindowWidth);
      const swui::Twips& tw = box.twips();
      box.Setup(mesg, nButtons, title);
      const auto& l = box.layout();
      QCOMPARE(box.size(), QSize(tw.X(l.width), tw.Y(l.height)));
      QCOMPARE(box.lblMesg->geometry(), QRect(tw.X(120), tw.Y(195), tw.X(l.lblWidth), tw.Y(l.lblHeight)));
      const bool wrapped = mesg.size() > 100;
      QCOMPARE(box.lblMesg->wordWrap(), wrapped);
      if (wrapped)  // at the main window's width: four lines at least
        QVERIFY(l.lblWidth == kWindowWidth && l.lblHeight >= 4 * tw.FromY(box.lblMesg->fontMetrics().height()) - 4);
      if (title.size() > 40) QCOMPARE(l.lblWidth, tw.FromX(box.TitleBarWidth(title)));
      QPushButton* first = nButtons == 4 ? box.cmdYes : box.cmdOK;
      QPushButton* second = nButtons == 4 ? box.cmdNo : nButtons == 1 ? box.cmdCancel : nullptr;
      QVERIFY(first->isDefault());
      for (QPushButton* b : {box.cmdOK, box.cmdCancel, box.cmdYes, box.cmdNo})
        QCOMPARE(b->isVisibleTo(&box), b == first || b == second);
      QCOMPARE(first->geometry(), QRect(tw.X(l.btnLeft[0]), tw.Y(l.btnTop), tw.X(1235), tw.Y(375)));
      if (second != nullptr) QCOMPARE(second->geometry().topLeft(), QPoint(tw.X(l.btnLeft[1]), tw.Y(l.btnTop)));
    }
  }

  void frameIsPartOfTheOuterSize() {
    // A title bar 24 px high and 3 px borders: the inside is what is left.
    frmMsgBox::testFrame = QMargins(3, 24, 3, 3);
    frmMsgBox box(&owner_, kWindowWidth);
    box.Setup("Done.", 0, "");
    frmMsgBox::testFrame.reset();
    const swui::Twips& tw = box.twips();
    QCOMPARE(box.size(), QSize(tw.X(1595) - 6, tw.Y(box.layout().height) - 27));
  }

  void enterAndEscapeAnswer() {
    // Button set, key (0: the box is closed by other means), answer.
    const int cases[][3] = {{4, Qt::Key_Escape, 7}, {4, Qt::Key_Return, 6}, {4, 0, 7}, {0, Qt::Key_Escape, 1},
                            {0, Qt::Key_Return, 1}, {1, Qt::Key_Escape, 2}, {1, Qt::Key_Enter, 1}};
    for (const auto& [nButtons, key, answer] : cases) {
      frmMsgBox box(&owner_, kWindowWidth);
      box.Setup("Go on?", static_cast<int16_t>(nButtons), "Question");
      PressInModalBox(key);
      QVERIFY2(box.ShowModal() == answer, qPrintable(QStringLiteral("set %1, key %2").arg(nButtons).arg(key)));
    }
  }
};

QTEST_MAIN(TestFrmMsgBox)
#include "tst_frmMsgBox.moc"
