// The message box's geometry, framed too, and its answers; the help and the dialogs on screen, opened as the game opens
// them: F1, Mark Debug Log, the controls with the selection dialog, and the webmaster lists.
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTextBrowser>
#include <QWindow>
#include <tuple>

#include "ui/UiTestSupport.h"
#include "ui/frmCommandList.h"
#include "ui/frmDebugMark.h"
#include "ui/frmHelp.h"
#include "ui/frmHighScore.h"
#include "ui/frmSelect.h"

using swui::frmMsgBox;
using uitest::InNextDialog;
using Ints = QList<int>;

class TestDialogs : public QObject {
  Q_OBJECT

  std::unique_ptr<uitest::Session> s_;

 private slots:
  void initTestCase() { swui::InstallHelpKey(*qApp); }
  void init() { s_ = std::make_unique<uitest::Session>(); }
  void cleanup() { s_.reset(); }

  void msgBoxLayout() {
    // In: text width, text height, wrapped height, title width, button set. Out: buttons, label width
    // and height, box width and height, the buttons' top and lefts. All in twips.
    const std::pair<Ints, Ints> cases[] = {// OK: at least 1595 wide, the button centred between the margins.
                                           {{400, 195, 195, 300, 0}, {1, 400, 195, 1595, 1460, 630, 120, 0}},
                                           // OK/Cancel and Yes/No: two buttons 120 apart, at least 2950 wide.
                                           {{400, 195, 195, 300, 1}, {2, 400, 195, 2950, 1460, 630, 120, 1475}},
                                           {{6000, 585, 585, 300, 4}, {2, 6000, 585, 6360, 1850, 1020, 1825, 3180}},
                                           // Any other set: no buttons and no minimum width.
                                           {{400, 195, 195, 300, 2}, {0, 400, 195, 760, 1460, 630, 0, 0}},
                                           // Wider than the main window: wraps at its width and grows downwards.
                                           {{20000, 195, 780, 300, 0}, {1, 11976, 780, 12336, 2045, 1215, 5490, 0}},
                                           // A long title with a short text: as wide as the title plus the margins.
                                           {{400, 195, 195, 4000, 0}, {1, 4000, 195, 4360, 1460, 630, 1502, 0}}};
    for (const auto& [in, want] : cases) {
      const auto l = frmMsgBox::ComputeLayout(in[0], in[1], in[2], in[3], 24 * 499, static_cast<sw::MsgButtons>(in[4]));
      QCOMPARE((Ints{l.nButtons, l.lblWidth, l.lblHeight, l.width, l.height, l.btnTop, l.btnLeft[0], l.btnLeft[1]}),
               want);
      QCOMPARE(l.wordWrap, in[0] > 24 * 499);
    }
  }

  void msgBoxAnswersEnterAndEscape() {
    // Button set, key (0: the box is closed by other means), answer.
    using B = sw::MsgButtons;
    using A = sw::MsgAnswer;
    // clang-format off
    const std::tuple<B, int, A> cases[] = {
        {B::YesNo, Qt::Key_Escape, A::No}, {B::YesNo, Qt::Key_Return, A::Yes}, {B::YesNo, 0, A::No},
        {B::OkOnly, Qt::Key_Escape, A::Ok}, {B::OkOnly, Qt::Key_Return, A::Ok},
        {B::OkCancel, Qt::Key_Escape, A::Cancel}, {B::OkCancel, Qt::Key_Enter, A::Ok}};
    // clang-format on
    frmMsgBox::testAnswer = nullptr;  // the real box
    for (const auto& [nButtons, key, answer] : cases) {
      frmMsgBox box(&s_->w, 24 * 499);
      box.Setup("Go on?", nButtons, "Question");
      InNextDialog<frmMsgBox>([key](frmMsgBox& d) {
        key == 0 ? (void)d.close()
                 : QTest::keyClick(d.focusWidget() != nullptr ? d.focusWidget() : &d, static_cast<Qt::Key>(key));
      });
      QVERIFY2(box.ShowModal() == answer,
               qPrintable(QStringLiteral("set %1, key %2").arg(static_cast<int>(nButtons)).arg(key)));
    }
  }

  // Under a real window manager (the framed_frmMsgBox test runs this one under scripts/xvfb
  // --wm) the box's outer size, title bar and borders included, is the layout's, and a long title fits
  // its title bar.
  void framedMsgBox() {
    if (QGuiApplication::platformName() != "xcb") QSKIP("a window manager's frame: see framed_frmMsgBox");
    QTRY_VERIFY_WITH_TIMEOUT(!s_->w.windowHandle()->frameMargins().isNull(), 15000);  // framed
    const std::pair<QString, QString> cases[] = {{"Done.", ""},
                                                 {QString("packet ").repeated(300), "Question"},
                                                 {"Ok?", "Error: LoadHighScoresError while reading the lists"}};
    for (const auto& [text, title] : cases) {
      frmMsgBox box(&s_->w, 24 * 499);
      box.Setup(text, sw::MsgButtons::YesNo, title);
      box.show();
      QVERIFY(QTest::qWaitForWindowActive(&box, 15000));
      const QSize outer(box.twips().X(box.layout().width), box.twips().Y(box.layout().height));
      QTRY_COMPARE_WITH_TIMEOUT(box.windowHandle()->frameGeometry().size(), outer, 15000);
      const QMargins frame = box.windowHandle()->frameMargins();
      QCOMPARE(box.size(), outer.shrunkBy(frame));
      QVERIFY(box.width() >= box.lblTitleTest->fontMetrics().horizontalAdvance(title) + 4 * frame.top());
    }
  }

  // Help > Help opens the help on its first page; F1 in a dialog opens it over the dialog, where
  // the dialog's modality leaves it usable.
  void theHelp() {
    auto OpenHelp = [] {
      for (QWidget* w : QApplication::allWidgets())
        if (auto* h = qobject_cast<swui::frmHelp*>(w); h != nullptr && h->isVisible()) return h;
      return static_cast<swui::frmHelp*>(nullptr);
    };
    s_->w.menHelpFile->trigger();  // the menu sends F1
    QTRY_VERIFY(OpenHelp() != nullptr && OpenHelp()->browser->toPlainText().contains("How to play Skitterweb"));
    InNextDialog<swui::frmCommandList>([OpenHelp](swui::frmCommandList& d) {  // the help still open over the window
      QTest::keyClick(&d, Qt::Key_F1);
      QVERIFY(OpenHelp() != nullptr && OpenHelp()->parentWidget() == &d && OpenHelp()->isVisible());
      d.reject();
    });
    s_->w.menControls->trigger();
  }

  // A comment typed into Mark Debug Log and OK put a mark into the debug log.
  void markDebugLog() {
    s_->w.sw.menu.menUseDL_Click();
    InNextDialog<swui::frmDebugMark>([](swui::frmDebugMark& d) {
      QTest::keyClicks(d.txtComment, "odd crash at 3,4");
      QTest::mouseClick(d.cmdOk, Qt::LeftButton);
    });
    s_->w.menMarkDL->trigger();
    QVERIFY(uitest::ReadFile(sw::DebugLog::kFileName).contains("     --> odd crash at 3,4\r\n"));
  }

  // A key typed into a command's box swaps with the command that held it; Save Profile asks for a
  // name in the selection dialog, and the profile is in force under it.
  void controlsSwapAndSave() {
    InNextDialog<swui::frmCommandList>([](swui::frmCommandList& d) {
      // The boxes sit as the number pad's keys, Link and Wait on the bottom row; Tab reads them row by row.
      auto x = [&d](int i) { return d.cmbKey[i]->x(); };
      auto y = [&d](int i) { return d.cmbKey[i]->y(); };
      QVERIFY(y(7) == y(9) && y(9) < y(4) && y(4) == y(5) && y(5) == y(6) && y(6) < y(1) && y(1) == y(3) &&
              y(3) < y(0) && y(0) == y(10));
      QVERIFY(x(7) == x(1) && x(1) == x(0) && x(0) < x(8) && x(8) == x(5) && x(5) == x(2) && x(2) < x(9) &&
              x(9) == x(3) && x(3) == x(10));
      auto next = [](QWidget* w) {
        QWidget* n = w->nextInFocusChain();
        while (w->isAncestorOf(n)) n = n->nextInFocusChain();
        return n;
      };
      const int order[] = {7, 8, 9, 4, 5, 6, 1, 2, 3, 0, 10};
      for (int k = 0; k + 1 < 11; ++k)
        QVERIFY2(next(d.cmbKey[order[k]]) == d.cmbKey[order[k + 1]], qPrintable(QString::number(k)));
      d.cmbKey[8]->setFocus();
      QTest::keyClick(d.cmbKey[8]->lineEdit(), '2');  // Up takes 2 from Down, which takes 8
      InNextDialog<swui::frmSelect>([](swui::frmSelect& select) {
        // A screen reader names the box, and its list, by what the dialog asks for.
        QAccessibleInterface* box = QAccessible::queryAccessibleInterface(select.cmbSelect);
        QCOMPARE(box->text(QAccessible::Name) + "/" + box->child(0)->text(QAccessible::Name),
                 QString("Save Control Profile As/Save Control Profile As"));
        QTest::keyClicks(select.cmbSelect->lineEdit(), "Swapped");
        QTest::mouseClick(select.cmdOk, Qt::LeftButton);
      });
      QTest::mouseClick(d.cmdSaveProfile, Qt::LeftButton);
      QVERIFY(d.cmbProfile->count() == 5 && d.cmbProfile->currentText() == "Swapped");
      QTest::mouseClick(d.cmdOK, Qt::LeftButton);
    });
    s_->w.menControls->trigger();
    const sw::OptionProfile& op = s_->w.sw.opts.Current();
    const sw::ControlProfile& cp = op.cpProfile.at(static_cast<size_t>(op.nProfile));
    QVERIFY(cp.szName == "Swapped" && cp.CPMoveUp == '2' && cp.CPMoveDown == '8');
  }

  // A score that earns a place opens the lists on its row, the caret in it; a name and Enter keep
  // the lists up, on Done, and the name goes into the lists.
  void webmasterListsTakeAName() {
    s_->w.sw.score.glScore = 1200;
    s_->w.sw.game.gnSitesHit = 1;
    InNextDialog<swui::frmHighScore>([](swui::frmHighScore& d) {
      QCOMPARE(d.focusWidget(), d.txtName[1]);  // and a screen reader says which list, place and score
      QCOMPARE(d.accessibleDescription(), QString("All Time, Normal: place 1, score 1,200. Type your name."));
      QTest::keyClicks(d.txtName[1], "Whisk Fan");
      QTest::keyClick(d.txtName[1], Qt::Key_Return);
      QVERIFY(d.isVisible() && d.focusWidget() == d.cmdDone);
      QTest::mouseClick(d.cmdDone, Qt::LeftButton);
    });
    s_->w.sw.webmasters.CheckHighScore();
    QCOMPARE(s_->w.sw.hs.Entry(sw::HighScores::kAllTime, 2, 1).szName, std::string("Whisk Fan"));
  }

  // A screen reader reads the rows as a table of ten rows under the four headings (their names: the
  // screen reader's test), captioned with the list shown; each cell tells its row, column and heading,
  // and a name's cell holds that row's box.
  void webmasterListsReadAsATable() {
    for (int s = 1; s <= 10; ++s)
      s_->w.sw.hs.Entry(sw::HighScores::kAllTime, 3, s) = {1000 * (11 - s), int16_t(20 + s),
                                                           "Web " + std::to_string(s)};
    InNextDialog<swui::frmHighScore>([](swui::frmHighScore& d) {
      QAccessibleInterface* t = QAccessible::queryAccessibleInterface(d.grdList);
      QAccessibleTableInterface* table = t->tableInterface();
      auto name = [](QAccessibleInterface* i) { return i != nullptr ? i->text(QAccessible::Name) : QString("none"); };
      auto read = [&](int r, int c) {  // name, row and column, heading, index among the table's children
        QAccessibleInterface* cell = table->cellAt(r, c);
        const QAccessibleTableCellInterface* at = cell != nullptr ? cell->tableCellInterface() : nullptr;
        const int i = t->indexOfChild(cell);
        return at == nullptr ? name(cell)
                             : QString::asprintf("%s %d,%d %s %d%s", qPrintable(name(cell)), at->rowIndex(),
                                                 at->columnIndex(), qPrintable(name(at->columnHeaderCells().value(0))),
                                                 i, t->child(i) == cell ? "" : " elsewhere");
      };
      QCOMPARE(QList<int>({table->rowCount(), table->columnCount(), t->childCount()}), QList<int>({10, 4, 44}));
      QTest::mouseClick(d.optDiff[3], Qt::LeftButton);  // the caption follows the list shown
      QCOMPARE(name(table->caption()) + "/" + name(t), QString("All Time, Hard/All Time, Hard"));
      QVERIFY(t->child(3)->role() == QAccessible::ColumnHeader && t->child(4)->text(QAccessible::Name) == "1");
      QCOMPARE(QStringList({read(0, 0), read(2, 1), read(9, 2), read(4, 3), read(9, 3)}),
               QStringList({"1 0,0 Place 4", "Web 3 2,1 Webmaster Name 13", "30 9,2 Sites Hit 42", "6,000 4,3 Score 23",
                            "1,000 9,3 Score 43"}));
      QCOMPARE(name(table->cellAt(10, 0)) + name(table->cellAt(0, 4)) + name(table->cellAt(-1, 3)), "nonenonenone");
      for (int r : {0, 6, 9}) {  // as the focus finds a name's box, and the box its row
        QAccessibleInterface* box = QAccessible::queryAccessibleInterface(d.txtName[r + 1]);
        QVERIFY(table->cellAt(r, 1)->child(0)->object() == d.txtName[r + 1] && box->parent() == table->cellAt(r, 1));
        QCOMPARE(name(box) + QString::number(box->parent()->tableCellInterface()->rowIndex()),
                 QStringLiteral("Place %1 name%2").arg(r + 1).arg(r));
      }
      for (QLabel* l : d.findChildren<QLabel*>())  // each row's label stands to the left of its choices
        if (QRadioButton* o = l->text() == "Difficulty:" ? d.optDiff[1] : d.optType[0]; l->text().endsWith(':'))
          QVERIFY(qAbs(l->geometry().center().y() - o->geometry().center().y()) <= 2 && l->geometry().right() < o->x());
      QStringList radios;  // the choices of list, each with the row of choices it stands in
      for (QRadioButton* o : d.findChildren<QRadioButton*>())
        radios << name(QAccessible::queryAccessibleInterface(o)) + ": " + o->accessibleDescription();
      QCOMPARE(radios, QStringList({"Personal: Score Board", "All Time: Score Board", "Easy: Difficulty",
                                    "Normal: Difficulty", "Hard: Difficulty", "Nightmare: Difficulty"}));
      d.accept();
    });
    s_->w.menHighScores->trigger();
  }
};

QTEST_MAIN(TestDialogs)
#include "tst_Dialogs.moc"
