// The main window: start-up, typed keys running turns and redrawing the map,
// the information bar, the commands that ask first, and closing.
#include <QAccessible>
#include <QApplication>
#include <QTest>

#include "ui/ProgBar.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

using sw::Picture;
using swui::frmMain;

namespace {

// What the model says each cell should show.
Picture Expected(const sw::GameState& g, int col, int row) {
  const sw::CoordPair ct{static_cast<int16_t>(col), static_cast<int16_t>(row)};
  if (g.gctPlayerPos == ct) return sw::PlayerPicture(g.gnPlayerDir);
  for (int i = 1; i <= g.gnVirusLive; ++i)
    if (g.gctVirusPos[static_cast<size_t>(i)] == ct) return Picture::Virus;
  for (int i = 1; i <= g.gnInfectedCount; ++i)
    if (g.gctInfectedPos[static_cast<size_t>(i)] == ct) return Picture::Infected;
  return Picture::None;
}

// What a screen reader reads in a cell of the board: its name, and its description.
QString CellText(const frmMain& w, int col, int row, QAccessible::Text t = QAccessible::Name) {
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(w.grdMap)->tableInterface();
  return table->cellAt(row, col)->text(t);
}

// Every cell's picture and accessible name agree with the model; returns the first mismatch.
QString MapMismatch(const frmMain& w) {
  const sw::GameState& g = w.sw.game;
  for (int r = 0; r < g.gnMapRows; ++r)
    for (int c = 0; c < g.gnMapCols; ++c) {
      const Picture want = Expected(g, c, r), got = w.grdMap->PictureAt(c, r);
      if (got != want || CellText(w, c, r).toStdString() != sw::PictureWord(want))
        return QStringLiteral("cell %1,%2 shows %3 '%4', model wants %5")
            .arg(c).arg(r).arg(static_cast<int>(got)).arg(CellText(w, c, r)).arg(static_cast<int>(want));
    }
  return QString();
}

// A quiet board: the mouse at (5,5) standing, one virus far away at (20,10).
void QuietBoard(frmMain& w) {
  sw::GameState& g = w.sw.game;
  sw::Game& eng = w.sw.engine;
  eng.ResetObjects();
  g.gnPlayerDir = 5;
  eng.MovePlayer(sw::CoordPair{5, 5});
  g.gctVirusPos.push_back(sw::CoordPair{20, 10});
  g.gnVirusLive = 1;
  eng.DrawViruses();
  g.gbEndSite = -1;
  g.gbWaitOn = 0;
}

}  // namespace

class TestFrmMain : public QObject {
  Q_OBJECT

 private:
  // A fresh directory, scripted boxes and a loaded window, torn down in reverse order.
  struct Session {
    uitest::FreshDir dir;
    uitest::ScriptedBoxes boxes;
    frmMain w;
  };
  std::unique_ptr<Session> s_;

 private slots:
  void init() {
    s_ = std::make_unique<Session>();
    s_->w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s_->w));
    s_->w.Form_Load();
    s_->w.sw.opts.Current().bSound = 0;  // no sounds, and no pauses while they play
  }

  void cleanup() { s_.reset(); }

  void startUpShowsFirstGame() {
    frmMain& w = s_->w;
    // A first run has no options file: the loader says so, the guest plays, and
    // the options in force are applied to the menus and the labels.
    QVERIFY(!s_->boxes.shown.empty());
    QCOMPARE(s_->boxes.shown.front().title, QStringLiteral("Error: LoadOptions"));
    QCOMPARE(w.sw.game.gbGameOn, int16_t{-1});
    QCOMPARE(MapMismatch(w), QString());
    QVERIFY(w.menSound->isChecked() && w.menGrid->isChecked() && w.grdMap->showGrid());
    QVERIFY(w.menDiffLevel[2]->isChecked() && !w.menDiffLevel[1]->isChecked());
    QCOMPARE(w.lblVirus->text(), QStringLiteral("7"));
    QCOMPARE(w.pbrNetLag->Max(), 13);
    // A counter is read with its caption.
    for (QLabel* l : w.pctInfoBar->findChildren<QLabel*>()) QVERIFY(l->accessibleName().endsWith(l->text()));
    QCOMPARE(w.lblVirus->accessibleName(), QStringLiteral("Viruses: 7"));
  }

  void typedKeyRunsATurnAndRedraws() {
    frmMain& w = s_->w;
    const sw::GameState& g = w.sw.game;
    QuietBoard(w);
    // The board holds the focus, and passes the keys on to the window.
    QApplication::setActiveWindow(&w);
    QWidget* target = QApplication::focusWidget();
    QCOMPARE(target, static_cast<QWidget*>(w.grdMap));
    QTest::keyClick(target, Qt::Key_6, Qt::KeypadModifier);  // Number Pad: 6 moves right
    QCOMPARE(g.gctPlayerPos, (sw::CoordPair{6, 5}));
    QVERIFY(!(g.gctVirusPos[1] == (sw::CoordPair{20, 10})));  // the virus answered
    QCOMPARE(MapMismatch(w), QString());
    QCOMPARE(CellText(w, 6, 5) + ' ' + CellText(w, 6, 5, QAccessible::Description),
             QStringLiteral("Whisk facing right"));
    // Up-left: the picture follows the facing.
    QTest::keyClick(target, Qt::Key_7, Qt::KeypadModifier);
    QCOMPARE(g.gctPlayerPos, (sw::CoordPair{5, 4}));
    QCOMPARE(CellText(w, 5, 4, QAccessible::Description), QStringLiteral("facing up-left"));
    QCOMPARE(MapMismatch(w), QString());
  }

  void tabEnterAndSpaceReachTheGame() {
    frmMain& w = s_->w;
    QuietBoard(w);
    // Even with a control that could take the focus, they stay game keys.
    auto* focusable = new QPushButton("x", w.pctInfoBar);
    focusable->setFocusPolicy(Qt::StrongFocus);
    focusable->show();
    w.setFocus();
    const std::pair<Qt::Key, int16_t> keys[] = {{Qt::Key_Tab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Space, 32}};
    for (const auto& [key, code] : keys) {
      // Bound to Pause: the mouse stands still and the virus takes a step.
      auto& op = w.sw.opts.Current();
      op.cpProfile[static_cast<size_t>(op.nProfile)].CPPause = code;
      const sw::CoordPair before = w.sw.game.gctVirusPos[1];
      w.sw.game.gnPlayerDir = 6;
      QTest::keyClick(&w, key);
      QVERIFY2(!(w.sw.game.gctVirusPos[1] == before) && w.sw.game.gnPlayerDir == 5, qPrintable(QString::number(code)));
      QCOMPARE(MapMismatch(w), QString());
      QVERIFY(QApplication::focusWidget() == nullptr || QApplication::focusWidget() == &w);
    }
  }

  void virusCounterTurnsRedAtThirty() {
    frmMain& w = s_->w;
    const std::pair<int16_t, QColor> cases[] = {{30, QColor(255, 0, 0)},
                                                {29, QApplication::palette().color(QPalette::ButtonText)}};
    for (const auto& [live, colour] : cases) {
      w.sw.game.gnVirusLive = live;
      w.sw.engine.ShowVirusCount();
      QCOMPARE(w.lblVirus->palette().color(QPalette::WindowText), colour);
      QCOMPARE(w.lblVirus->accessibleName(), "Viruses: " + QString::number(live));
    }
  }

  void sizeAndGridFollowTheTwips() {
    frmMain& w = s_->w;
    const swui::Twips& tw = w.twips();
    w.sw.menu.menUseDL_Click();  // trace the geometry into a fresh log
    const int height = 14 * 499 + sw::twips::kInfoBarHeight + 610;
    QCOMPARE(w.WidthTwips(), 24 * 499);
    QCOMPARE(w.HeightTwips(), height);
    QCOMPARE(QSize(w.grdMap->columnWidth(0), w.grdMap->rowHeight(13)), QSize(tw.X(480), tw.Y(480)));
    QCOMPARE(w.grdMap->width(), tw.X(24 * 499));
    QCOMPARE(w.pctInfoBar->width(), tw.X(11976));
    const QSize before = w.size();

    w.sw.menu.menGrid_Click();  // grid off: the cells take the grid lines' room, the window keeps its size
    QCOMPARE(w.sw.opts.Current().bGrid, int16_t{0});
    QVERIFY(!w.menGrid->isChecked() && !w.grdMap->showGrid());
    QCOMPARE(QSize(w.grdMap->columnWidth(23), w.grdMap->rowHeight(0)), QSize(tw.X(490), tw.Y(490)));
    QCOMPARE(w.size(), before);

    w.sw.menu.menNewGame_Click();  // Yes: a new game sizes the window again
    const QString log = uitest::ReadFile(sw::DebugLog::kFileName);
    QVERIFY2(log.contains("{{ SetGrid }} (variables) frmMain.grdMap.Cols/Rows=24/14 "
                          "frmMain.grdMap.Height/Width=6986/11976 nCellSize=490") &&
                 log.contains(QStringLiteral("{{ SetSize }} (variables) frmMain.Height=%1 frmMain.Width=11976 "
                                             "frmMain..pctInfoBar.Width=11976").arg(height)) &&
                 log.contains("{{ frmMain.menGrid_Click }} (variables) gopOpts(gnOpt).bGrid=0"),
             qPrintable(log));
    w.sw.menu.menGrid_Click();
    QVERIFY(w.grdMap->showGrid() && w.grdMap->columnWidth(0) == tw.X(480));
  }

  void rightClickOnDifficultyAdvances() {
    frmMain& w = s_->w;
    w.sw.menu.menDiffLevel_Click(4);  // Yes by default
    // Nightmare is followed by Easy; answering No keeps the game and the level.
    s_->boxes.Expect({7});
    const int16_t games = w.sw.game.gnGameNum;
    QTest::mouseClick(w.lblDiff, Qt::RightButton);
    QCOMPARE(s_->boxes.shown.size(), size_t{1});
    QCOMPARE(s_->boxes.shown[0].title, QStringLiteral("Change Game Difficulty"));
    QVERIFY(s_->boxes.shown[0].text.startsWith("Changing the game difficulty to easy will start a new game."));
    QVERIFY(w.sw.opts.Current().nDiff == 4 && w.menDiffLevel[4]->isChecked());
    QCOMPARE(w.sw.game.gnGameNum, games);
    // A left click does nothing; a right click on the caption label asks too.
    QTest::mouseClick(w.lblDiff, Qt::LeftButton);
    QCOMPARE(s_->boxes.shown.size(), size_t{1});
    QTest::mouseClick(w.lblDiffT, Qt::RightButton);
    QCOMPARE(s_->boxes.shown.size(), size_t{2});
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{1});
    QCOMPARE(w.lblDiff->accessibleName(), QStringLiteral("Difficulty: Easy"));
    QVERIFY(w.menDiffLevel[1]->isChecked() && !w.menDiffLevel[4]->isChecked());
    QCOMPARE(w.sw.game.gnGameNum, static_cast<int16_t>(games + 1));
    // Neither the level in force nor any level during a timed pause asks or restarts.
    w.sw.menu.menDiffLevel_Click(1);
    w.sw.game.gbSleepOn = -1;
    w.sw.menu.menDiffLevel_Click(3);
    QCOMPARE(s_->boxes.shown.size(), size_t{2});
    QCOMPARE(w.sw.opts.Current().nDiff, int16_t{1});
    QCOMPARE(w.sw.game.gnGameNum, static_cast<int16_t>(games + 1));
  }

  void closingAsksAndQuits() {
    frmMain& w = s_->w;
    s_->boxes.Expect({7, 6});
    QVERIFY(!w.close());
    QCOMPARE(s_->boxes.shown.size(), size_t{1});
    QCOMPARE(s_->boxes.shown[0].title, QStringLiteral("Quit Skitterweb"));
    QVERIFY(!w.Quitting() && w.isVisible());
    QVERIFY(!QFile::exists(sw::Options::kFileName));
    w.close();
    QVERIFY(w.Quitting());
    QVERIFY(uitest::ReadFile(sw::Options::kFileName).startsWith("\"Version\",\"1.14\""));
  }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmMain.moc"
