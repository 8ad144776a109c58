// The help: F1 and the Help menu open it on its first page, every page it
// links to exists, and F1 works while a dialog is open.
#include <QDialog>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "ui/UiTestSupport.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"

namespace {

swui::frmHelp* OpenHelp() {
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* h = qobject_cast<swui::frmHelp*>(w); h != nullptr && h->isVisible()) return h;
  for (QWidget* w : QApplication::allWidgets())
    if (auto* h = qobject_cast<swui::frmHelp*>(w); h != nullptr && h->isVisible()) return h;
  return nullptr;
}

}  // namespace

class TestFrmHelp : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { swui::InstallHelpKey(*qApp); }

  void f1AndTheMenuOpenTheFirstPage() {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    swui::frmMain w;
    w.show();
    w.Form_Load();
    QVERIFY(OpenHelp() == nullptr);
    QTest::keyClick(&w, Qt::Key_F1);
    swui::frmHelp* help = OpenHelp();
    QVERIFY(help != nullptr);
    QCOMPARE(help->browser->source().toString(), QStringLiteral("qrc:/help/index.html"));
    QVERIFY(help->browser->toPlainText().contains("How to play Skitterweb"));
    help->close();
    QTRY_VERIFY(OpenHelp() == nullptr);

    w.menHelpFile->trigger();  // the menu sends the help key
    QTRY_VERIFY(OpenHelp() != nullptr);
    OpenHelp()->close();
  }

  void everyLinkedPageExists() {
    QSet<QString> seen;
    QStringList todo{"index.html"};
    const QRegularExpression href(QStringLiteral("href=\"([^\"#]+)"));
    while (!todo.isEmpty()) {
      const QString page = todo.takeFirst();
      if (seen.contains(page)) continue;
      seen.insert(page);
      QFile f(":/help/" + page);
      QVERIFY2(f.open(QIODevice::ReadOnly), qPrintable(page));
      const QString text = QString::fromUtf8(f.readAll());
      for (auto it = href.globalMatch(text); it.hasNext();) todo << it.next().captured(1);
    }
    QVERIFY(seen.size() >= 6);  // the five pages and their style sheet
  }

  void f1WhileADialogIsOpen() {
    QWidget owner;
    owner.show();
    QDialog dialog(&owner);
    swui::frmHelp* shown = nullptr;
    QTimer::singleShot(0, [&] {
      QTest::keyClick(&dialog, Qt::Key_F1);
      shown = OpenHelp();
      // Over the dialog, so that the dialog's modality leaves it usable.
      QVERIFY(shown != nullptr && shown->parentWidget() == &dialog);
      QTest::mouseClick(shown->cmdHome, Qt::LeftButton);
      dialog.reject();
    });
    dialog.exec();
    QVERIFY(shown != nullptr);
  }
};

QTEST_MAIN(TestFrmHelp)
#include "tst_frmHelp.moc"
