// The Mark Debug Log dialog on screen: a typed comment and OK put a mark into
// the log; Esc writes nothing.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "debuglog/frmDebugMark.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

class TestFrmDebugMark : public QObject {
  Q_OBJECT

 private slots:
  void typedCommentAndOkMarkTheLog() {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    swui::frmMain w;
    w.show();
    w.Form_Load();
    w.sw.opts.Current().bSound = 0;
    w.sw.menu.menUseDL_Click();
    QVERIFY(w.menMarkDL->isEnabled());

    // While the dialog runs: type, then OK.
    QTimer::singleShot(0, [] {
      auto* form = qobject_cast<swui::frmDebugMark*>(QApplication::activeModalWidget());
      QVERIFY(form != nullptr);
      QCOMPARE(form->windowTitle(), QStringLiteral("Mark Debug Log"));
      QVERIFY(!form->lblDateTime->text().isEmpty());
      QTest::keyClicks(form->txtComment, "odd crash at 3,4");
      QTest::mouseClick(form->cmdOk, Qt::LeftButton);
    });
    w.menMarkDL->trigger();
    const QString log = uitest::ReadFile(sw::DebugLog::kFileName);
    QVERIFY(log.contains("{{ Mark Debug Log }} (variables) Time="));
    QVERIFY(log.contains("     --> odd crash at 3,4\r\nBegin: DebugWriteAll"));

    // Esc: the dialog closes and nothing is written.
    QTimer::singleShot(0, [] {
      QWidget* form = QApplication::activeModalWidget();
      QVERIFY(form != nullptr);
      QTest::keyClicks(form->focusWidget(), "not this");
      QTest::keyClick(form, Qt::Key_Escape);
    });
    w.menMarkDL->trigger();
    QCOMPARE(uitest::ReadFile(sw::DebugLog::kFileName), log);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }
};

QTEST_MAIN(TestFrmDebugMark)
#include "tst_frmDebugMark.moc"
