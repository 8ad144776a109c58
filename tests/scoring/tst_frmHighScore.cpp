// The webmaster lists on screen: a new webmaster's name typed into the real
// row and Enter; the clear button with its question answered.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "scoring/frmHighScore.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

class TestFrmHighScore : public QObject {
  Q_OBJECT

 private slots:
  void nameIntoTheEarnedRowAndClearing() {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    swui::frmMain w;
    w.show();
    w.Form_Load();
    w.sw.opts.Current().bSound = 0;
    sw::HighScores& hs = w.sw.hs;
    hs.Entry(sw::HighScores::kAllTime, 2, 1) = sw::WebmasterEntry{5000, 3, "Bob"};
    w.sw.score.glScore = 1200;
    w.sw.game.gnSitesHit = 1;

    QTimer::singleShot(0, [&] {
      auto* form = qobject_cast<swui::frmHighScore*>(QApplication::activeModalWidget());
      QVERIFY(form != nullptr);
      QVERIFY(form->optType[1]->isChecked() && form->optDiff[2]->isChecked());
      QCOMPARE(form->focusWidget(), form->txtName[2]);  // the caret in the row earned
      QCOMPARE(form->lblScore[2]->text(), QStringLiteral("1,200"));
      QVERIFY(form->txtName[1]->isReadOnly() && !form->txtName[2]->isReadOnly());
      QTest::keyClicks(form->txtName[2], "Whisk Fan");
      QTest::keyClick(form->txtName[2], Qt::Key_Return);
      QVERIFY(form->isVisible());  // Enter keeps the list on screen, the focus on Done
      QCOMPARE(form->focusWidget(), form->cmdDone);
      boxes.Expect({6});
      QTest::mouseClick(form->optType[0], Qt::LeftButton);  // the personal list
      QCOMPARE(form->txtName[1]->text(), QStringLiteral("Whisk Fan"));
      QTest::mouseClick(form->cmdClearCur, Qt::LeftButton);
      QCOMPARE(boxes.shown.size(), size_t{1});
      QCOMPARE(form->txtName[1]->text(), QString());
      QCOMPARE(form->lblScore[1]->text(), QStringLiteral("0"));
      QTest::mouseClick(form->cmdDone, Qt::LeftButton);
    });
    w.sw.webmasters.CheckHighScore();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(hs.Entry(sw::HighScores::kAllTime, 2, 2).szName, std::string("Whisk Fan"));
    QCOMPARE(hs.Entry(sw::HighScores::kPersonal, 2, 1).lScore, 0);
    hs.ClearAll();
    hs.LoadHighScores();
    QCOMPARE(hs.Entry(sw::HighScores::kAllTime, 2, 2).szName, std::string("Whisk Fan"));
    QCOMPARE(hs.Entry(sw::HighScores::kAllTime, 2, 1).szName, std::string("Bob"));
  }
};

QTEST_MAIN(TestFrmHighScore)
#include "tst_frmHighScore.moc"
