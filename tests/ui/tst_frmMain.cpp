// The main window: start-up, typed keys running turns and redrawing the map,
// the information bar, the menu commands it carries now, and closing.
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTest>

#include "ui/UiTestSupport.h"
#include "ui/ProgBar.h"
#include "ui/frmMain.h"

using sw::Picture;
using swui::frmMain;

namespace {

// What the model says each cell should show.
Picture Expected(const sw::Game& g, int col, int row) {
  const sw::CoordPair ct{static_cast<int16_t>(col), static_cast<int16_t>(row)};
  if (g.gctPlayerPos == ct) return sw::PlayerPicture(g.gnPlayerDir);
  for (int i = 1; i <= g.gnVirusLive; ++i)
    if (g.gctVirusPos[static_cast<size_t>(i)] == ct) return Picture::Virus;
  for (int i = 1; i <= g.gnInfectedCount; ++i)
    if (g.gctInfectedPos[static_cast<size_t>(i)] == ct) return Picture::Infected;
  return Picture::None;
}

// Every cell's picture and accessible text agree with the model; returns the first mismatch.
QString MapMismatch(const frmMain& w) {
  const sw::Game& g = w.sw.game;
  for (int r = 0; r < g.gnMapRows; ++r)
    for (int c = 0; c < g.gnMapCols; ++c) {
      const Picture want = Expected(g, c, r);
      const Picture got = w.grdMap->PictureAt(c, r);
      const QString text = w.grdMap->item(r, c)->data(Qt::AccessibleTextRole).toString();
      if (got != want || text != swui::PictureSet::AccessibleText(want))
        return QStringLiteral("cell %1,%2 shows %3 '%4', model wants %5")
            .arg(c).arg(r).arg(static_cast<int>(got)).arg(text).arg(static_cast<int>(want));
    }
  return QString();
}

QString ReadFile(const QString& name) {
  QFile f(name);
  if (!f.open(QIODevice::ReadOnly)) return QString();
  return QString::fromLatin1(f.readAll());
}

}  // namespace

class TestFrmMain : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<uitest::FreshDir> dir_;
  std::unique_ptr<uitest::ScriptedBoxes> boxes_;
  std::unique_ptr<frmMain> w_;

  // A quiet board: the mouse at (5,5), one virus far away at (20,10).
  void QuietBoard(frmMain& w) {
    sw::Game& g = w.sw.game;
    g.ResetObjects();
    g.gnPlayerDir = 5;
    g.MovePlayer(sw::CoordPair{5, 5});
    g.gctVirusPos.push_back(sw::CoordPair{20, 10});
    g.gnVirusLive = 1;
    g.DrawViruses();
    g.gbEndSite = -1;
    g.gbWaitOn = 0;
  }

 private slots:
  void init() {
    dir_ = std::make_unique<uitest::FreshDir>();
    boxes_ = std::make_unique<uitest::ScriptedBoxes>();
    w_ = std::make_unique<frmMain>();
    w_->show();
    QVERIFY(QTest::qWaitForWindowExposed(w_.get()));
    w_->Form_Load();
  }

  void cleanup() {
    w_.reset();
    boxes_.reset();
    dir_.reset();
  }

  void startUpShowsFirstGame() {
    frmMain& w = *w_;
    // A first run has no options file: the loader says so, and the guest plays.
    QVERIFY(!boxes_->shown.empty());
    QCOMPARE(boxes_->shown.front().title, QStringLiteral("Error: LoadOptions"));
    QCOMPARE(w.sw.game.gbGameInit, int16_t{0});
    QCOMPARE(w.sw.game.gbGameOn, int16_t{-1});
    QCOMPARE(w.sw.game.gnGameNum, int16_t{1});
    QCOMPARE(w.sw.game.gnVirusLive, int16_t{7});
    QCOMPARE(MapMismatch(w), QString());
    // The picture templates are all there.
    for (int i = 1; i <= 12; ++i) {
      QSvgRenderer* r = w.Pictures().Renderer(static_cast<Picture>(i));
      QVERIFY(r != nullptr && r->isValid());
    }

    // Loaded options are applied to the menus and the labels.
    QVERIFY(w.menSound->isChecked());
    QVERIFY(w.menGrid->isChecked());
    QVERIFY(w.menDiffLevel[2]->isChecked());
    QVERIFY(!w.menDiffLevel[1]->isChecked() && !w.menDiffLevel[3]->isChecked());
    QVERIFY(w.menStartSiteNum[0]->isChecked());
    QVERIFY(w.grdMap->showGrid());
    QCOMPARE(w.lblDiff->text(), QStringLiteral("Normal"));
    QCOMPARE(w.lblVirus->text(), QStringLiteral("7"));
    QCOMPARE(w.lblReconnects->text(), QStringLiteral("2"));
    QCOMPARE(w.pbrNetLag->Min(), 0);
    QCOMPARE(w.pbrNetLag->Max(), 13);
    // Every label's accessible name is its visible text.
    for (QLabel* l : w.pctInfoBar->findChildren<QLabel*>()) QCOMPARE(l->accessibleName(), l->text());
    QCOMPARE(w.lbSitesHitT->text(), QStringLiteral("Sites Hit:"));
  }

  void typedKeyRunsATurnAndRedraws() {
    frmMain& w = *w_;
    QuietBoard(w);
    QCOMPARE(MapMismatch(w), QString());
    QCOMPARE(w.grdMap->item(5, 5)->data(Qt::AccessibleTextRole).toString(), QStringLiteral("Whisk standing"));
    const int16_t moves = w.sw.game.gnMoveCount;

    // The keys go to the window, never to the grid.
    QApplication::setActiveWindow(&w);
    QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &w;
    QCOMPARE(target, static_cast<QWidget*>(&w));
    QTest::keyClick(target, Qt::Key_6, Qt::KeypadModifier);  // Number Pad: 6 moves right

    const sw::Game& g = w.sw.game;
    QCOMPARE(g.gctPlayerPos, (sw::CoordPair{6, 5}));
    QCOMPARE(g.gnMoveCount, static_cast<int16_t>(moves + 1));
    QVERIFY(!(g.gctVirusPos[1] == (sw::CoordPair{20, 10})));  // the virus answered
    QCOMPARE(MapMismatch(w), QString());
    QCOMPARE(w.grdMap->item(5, 6)->data(Qt::AccessibleTextRole).toString(), QStringLiteral("Whisk facing right"));
    QCOMPARE(w.grdMap->PictureAt(5, 5), Picture::None);

    // Up-left: the picture follows the facing.
    QTest::keyClick(&w, Qt::Key_7, Qt::KeypadModifier);
    QCOMPARE(g.gctPlayerPos, (sw::CoordPair{5, 4}));
    QCOMPARE(w.grdMap->item(4, 5)->data(Qt::AccessibleTextRole).toString(), QStringLiteral("Whisk facing up-left"));
    QCOMPARE(MapMismatch(w), QString());
  }

  void tabEnterAndSpaceReachTheGame() {
    frmMain& w = *w_;
    QuietBoard(w);
    // Even with a control that could take the focus, Tab stays a game key.
    auto* focusable = new QPushButton("x", w.pctInfoBar);
    focusable->setFocusPolicy(Qt::StrongFocus);
    focusable->show();
    w.setFocus();
    const std::pair<Qt::Key, int16_t> keys[] = {{Qt::Key_Tab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Space, 32}};
    for (const auto& [key, code] : keys) {
      // Bind Pause to the key: the mouse stands still and the virus takes a step.
      auto& op = w.sw.opts.Current();
      op.cpProfile[static_cast<size_t>(op.nProfile)].CPPause = code;
      const sw::CoordPair before = w.sw.game.gctVirusPos[1];
      w.sw.game.gnPlayerDir = 6;
      QTest::keyClick(&w, key);
      QVERIFY2(!(w.sw.game.gctVirusPos[1] == before), qPrintable(QString::number(code)));
      QCOMPARE(w.sw.game.gnPlayerDir, int16_t{5});
      QCOMPARE(MapMismatch(w), QString());
      QVERIFY(QApplication::focusWidget() == nullptr || QApplication::focusWidget() == &w);
    }
    delete focusable;
  }

  void virusCounterTurnsRedAtThirty() {
    frmMain& w = *w_;
    const QColor normal = QApplication::palette().color(QPalette::ButtonText);
    const int16_t live = w.sw.game.gnVirusLive;
    w.sw.game.gnVirusLive = 30;
    w.SetCaption(sw::Label::lblVirus, "30");
    QCOMPARE(w.lblVirus->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    QCOMPARE(w.lblVirus->accessibleName(), QStringLiteral("30"));
    w.sw.game.gnVirusLive = 29;
    w.SetCaption(sw::Label::lblVirus, "29");
    QCOMPARE(w.lblVirus->palette().color(QPalette::WindowText), normal);
    w.sw.game.gnVirusLive = live;
  }

  void sizeAndGridFollowTheTwips() {
    frmMain& w = *w_;
    // Trace the geometry: debug log on (quietly appends to a fresh log).
    w.menUseDL_Click();
    QVERIFY(w.sw.dbg.On());
    QVERIFY(w.menClearDL->isEnabled());

    const swui::Twips& tw = w.twips();
    QCOMPARE(w.WidthTwips(), 24 * 499);
    QCOMPARE(w.HeightTwips(), 14 * 499 + frmMain::kInfoBarHeight + 610);
    QCOMPARE(w.grdMap->columnWidth(0), tw.X(480));
    QCOMPARE(w.grdMap->rowHeight(13), tw.Y(480));
    QCOMPARE(w.grdMap->width(), tw.X(24 * 499));
    QCOMPARE(w.pctInfoBar->width(), tw.X(11976));
    const QSize before = w.size();

    w.sw.opts.Current().bSound = 0;
    w.menGrid_Click();
    QCOMPARE(w.sw.opts.Current().bGrid, int16_t{0});
    QVERIFY(!w.menGrid->isChecked());
    QVERIFY(!w.grdMap->showGrid());
    QCOMPARE(w.grdMap->columnWidth(23), tw.X(490));
    QCOMPARE(w.grdMap->rowHeight(0), tw.Y(490));
    QCOMPARE(w.size(), before);  // the window keeps its size

    w.menNewGame_Click();  // Yes: a new game sizes the window again
    const QString log = ReadFile(sw::DebugLog::kFileName);
    QVERIFY2(log.contains("{{ SetGrid }} (variables) frmMain.grdMap.Cols/Rows=24/14 "
                          "frmMain.grdMap.Height/Width=6986/11976 nCellSize=490"),
             qPrintable(log));
    QVERIFY(log.contains(QStringLiteral("{{ SetSize }} (variables) frmMain.Height=%1 frmMain.Width=11976 "
                                        "frmMain..pctInfoBar.Width=11976")
                             .arg(14 * 499 + frmMain::kInfoBarHeight + 610)));
    QVERIFY(log.contains("{{ frmMain.menGrid_Click }} (variables) gopOpts(gnOpt).bGrid=0"));

    w.menGrid_Click();
    QVERIFY(w.grdMap->showGrid());
    QCOMPARE(w.grdMap->columnWidth(0), tw.X(480));
  }

  void rightClickOnDifficultyAdvances() {
    frmMain& w = *w_;
    w.sw.opts.Current().bSound = 0;
    w.menDiffLevel_Click(4);  // Yes by default
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{4});
    QCOMPARE(w.lblDiff->text(), QStringLiteral("Nightmare"));

    // Nightmare is followed by Easy; answering No keeps the game and the level.
    boxes_->shown.clear();
    boxes_->answers = {7};
    const int16_t games = w.sw.game.gnGameNum;
    QTest::mouseClick(w.lblDiff, Qt::RightButton);
    QCOMPARE(boxes_->shown.size(), size_t{1});
    QCOMPARE(boxes_->shown[0].title, QStringLiteral("Change Game Difficulty"));
    QVERIFY(boxes_->shown[0].text.startsWith("Changing the game difficulty to easy will start a new game."));
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{4});
    QVERIFY(w.menDiffLevel[4]->isChecked());
    QCOMPARE(w.sw.game.gnGameNum, games);

    // A left click does nothing; a right click on the caption label asks too.
    QTest::mouseClick(w.lblDiff, Qt::LeftButton);
    QCOMPARE(boxes_->shown.size(), size_t{1});
    QTest::mouseClick(w.lblDiffT, Qt::RightButton);
    QCOMPARE(boxes_->shown.size(), size_t{2});
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{1});
    QCOMPARE(w.lblDiff->text(), QStringLiteral("Easy"));
    QCOMPARE(w.lblDiff->accessibleName(), QStringLiteral("Easy"));
    QVERIFY(w.menDiffLevel[1]->isChecked() && !w.menDiffLevel[4]->isChecked());
    QCOMPARE(w.sw.game.gnGameNum, static_cast<int16_t>(games + 1));

    // The level already in force neither asks nor restarts.
    w.menDiffLevel_Click(1);
    QCOMPARE(boxes_->shown.size(), size_t{2});
    QVERIFY(w.menDiffLevel[1]->isChecked());
    QCOMPARE(w.sw.game.gnGameNum, static_cast<int16_t>(games + 1));

    // While a timed pause runs the command is refused.
    w.sw.shell.gbSleepOn = -1;
    w.menDiffLevel_Click(3);
    w.sw.shell.gbSleepOn = 0;
    QCOMPARE(boxes_->shown.size(), size_t{2});
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{1});
  }

  void startingSiteKeepsGameOnNo() {
    frmMain& w = *w_;
    w.sw.opts.Current().bSound = 0;
    boxes_->shown.clear();
    boxes_->answers = {7};
    const int16_t games = w.sw.game.gnGameNum;
    w.menStartSiteNum_Click(3);
    QCOMPARE(boxes_->shown.size(), size_t{1});
    QCOMPARE(boxes_->shown[0].text, QStringLiteral("Would you like to abandon your current game and start a new one "
                                                   "with 3 sites already hit?"));
    QCOMPARE(w.sw.opts.Current().nStartSite, int16_t{3});
    QCOMPARE(w.sw.game.gnGameNum, games);
    for (int i = 0; i <= 9; ++i) QCOMPARE(w.menStartSiteNum[static_cast<size_t>(i)]->isChecked(), i == 3);

    // A menu click goes through the same handler and keeps one mark.
    boxes_->answers = {6};
    w.menStartSiteNum[5]->trigger();
    QCOMPARE(w.sw.game.gnGameNum, static_cast<int16_t>(games + 1));
    QCOMPARE(w.sw.game.gnSitesHit, int16_t{5});
    for (int i = 0; i <= 9; ++i) QCOMPARE(w.menStartSiteNum[static_cast<size_t>(i)]->isChecked(), i == 5);
    w.menStartSiteNum[5]->trigger();  // the number in force: the mark stays
    QVERIFY(w.menStartSiteNum[5]->isChecked());
  }

  void closingAsksAndQuits() {
    frmMain& w = *w_;
    w.sw.opts.Current().bSound = 0;
    boxes_->shown.clear();
    boxes_->answers = {7};
    QVERIFY(!w.close());
    QCOMPARE(boxes_->shown.size(), size_t{1});
    QCOMPARE(boxes_->shown[0].title, QStringLiteral("Quit Skitterweb"));
    QVERIFY(!w.Quitting());
    QVERIFY(w.isVisible());
    QVERIFY(!QFile::exists(sw::Options::kFileName));

    boxes_->answers = {6};
    w.close();
    QVERIFY(w.Quitting());
    QVERIFY(QFile::exists(sw::Options::kFileName));
    QVERIFY(ReadFile(sw::Options::kFileName).startsWith("\"Version\",\"1.14\""));
  }

  void menusCarryTheirCaptions() {
    frmMain& w = *w_;
    QStringList titles;
    for (QAction* a : w.menuBar()->actions()) titles << a->text();
    QCOMPARE(titles, (QStringList{"&Game", "&Options", "&Debug", "&Help"}));
    QCOMPARE(w.findChild<QAction*>("menSizeSetting(0)")->text(), QStringLiteral("&Tiny (# x #)"));
    QCOMPARE(w.findChild<QAction*>("menDiffLevel(4)")->text(), QStringLiteral("Night&mare"));
    QVERIFY(!w.menMarkDL->isEnabled());

    // About and Credits: one OK box each, with their titles.
    boxes_->shown.clear();
    w.menAbout->trigger();
    w.menCredits->trigger();
    QCOMPARE(boxes_->shown.size(), size_t{2});
    QCOMPARE(boxes_->shown[0].title, QStringLiteral("About Skitterweb"));
    QVERIFY(boxes_->shown[0].text.contains("Version 1.14"));
    QCOMPARE(boxes_->shown[1].title, QStringLiteral("Credits for Skitterweb"));
    for (const char* head : {"--Game Development--", "--Art--", "--Sound--"})
      QVERIFY(boxes_->shown[1].text.contains(head));
    QCOMPARE(boxes_->shown[1].nButtons, int16_t{0});
  }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmMain.moc"
