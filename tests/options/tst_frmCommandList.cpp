// The controls and selection dialogs on screen: a key typed into the real
// combo swaps with the command that held it; Save Profile through the real
// selection dialog.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "options/frmCommandList.h"
#include "options/frmSelect.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

class TestFrmCommandList : public QObject {
  Q_OBJECT

 private slots:
  void typeSwapAndSaveThroughTheSelectionDialog() {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    swui::frmMain w;
    w.show();
    w.Form_Load();
    sw::OptionProfile& op = w.sw.opts.Current();
    op.bSound = 0;

    QTimer::singleShot(0, [&] {
      auto* form = qobject_cast<swui::frmCommandList*>(QApplication::activeModalWidget());
      QVERIFY(form != nullptr);
      QCOMPARE(form->cmbKey[8]->currentText(), QStringLiteral("8"));
      QVERIFY(!form->cmdSaveProfile->isEnabled());
      form->cmbKey[8]->setFocus();
      QTest::keyClick(form->cmbKey[8]->lineEdit(), '2');  // Down held 2: it takes the old 8
      QCOMPARE(form->cmbKey[8]->currentText(), QStringLiteral("2"));
      QCOMPARE(form->cmbKey[2]->currentText(), QStringLiteral("8"));
      QVERIFY(form->cmdSaveProfile->isEnabled() && form->cmbProfile->currentIndex() == -1);

      // Save Profile: the selection dialog asks for the name.
      QTimer::singleShot(0, [] {
        auto* select = qobject_cast<swui::frmSelect*>(QApplication::activeModalWidget());
        QVERIFY(select != nullptr);
        QCOMPARE(select->windowTitle(), QStringLiteral("Save Control Profile As"));
        QTest::keyClicks(select->cmbSelect->lineEdit(), "Swapped");
        QTest::mouseClick(select->cmdOk, Qt::LeftButton);
      });
      QTest::mouseClick(form->cmdSaveProfile, Qt::LeftButton);
      QCOMPARE(form->cmbProfile->currentText(), QStringLiteral("Swapped"));
      QVERIFY(form->cmdDelProfile->isEnabled());
      QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    });
    w.menControls->trigger();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(op.nProfile, int16_t{5});
    QCOMPARE(op.cpProfile.at(5).CPMoveUp, int16_t{'2'});
    QCOMPARE(op.cpProfile.at(5).CPMoveDown, int16_t{'8'});
  }
};

QTEST_MAIN(TestFrmCommandList)
#include "tst_frmCommandList.moc"
