#include "ui/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <QTimer>
#include <QVBoxLayout>

#include "debuglog/DebugLog.h"
#include "runtime/NumText.h"
#include "runtime/RuntimeError.h"
#include "ui/ProgBar.h"
#include "ui/frmMsgBox.h"

// The pictures are compiled into the UI library; make sure they are linked in.
static void InitAssets() { Q_INIT_RESOURCE(assets); }

namespace swui {

namespace {

using sw::Label;
using sw::Menu;
using sw::Picture;
using sw::Pointer;
using sw::Trace;

const char* const kDiffNames[5] = {"", "Easy", "Normal", "Hard", "Nightmare"};
const char* const kDiffWords[5] = {"", "easy", "normal", "hard", "nightmare"};

QCursor MakeCustomPointer(qreal dpr) {
  QSvgRenderer r(QStringLiteral(":/pictures/pointer.svg"));
  if (!r.isValid()) return QCursor(Qt::ArrowCursor);
  const int size = 32;
  const int device = qRound(size * dpr);
  QPixmap pm(device, device);
  pm.fill(Qt::transparent);
  {
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    r.render(&p, QRectF(0, 0, device, device));
  }
  pm.setDevicePixelRatio(dpr);
  return QCursor(pm, 0, 0);
}

}  // namespace

// ---------------------------------------------------------------------------
// Construction

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
  InitAssets();
  setObjectName("frmMain");
  setWindowTitle("Skitterweb");
  tw_ = Twips::Of(*this);
  setFont(QFont(QStringLiteral("MS Sans Serif"), 8));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);

  central_ = new QWidget(this);
  central_->setObjectName("frmMainClient");
  central_->setMouseTracking(true);
  central_->installEventFilter(this);
  setCentralWidget(central_);

  grdMap = new MapGrid(pictures_, central_);
  grdMap->setMouseTracking(true);
  grdMap->viewport()->setMouseTracking(true);
  grdMap->viewport()->installEventFilter(this);
  grdMap->installEventFilter(this);
  {
    // A light board of cells, framed by a slate surround.
    QPalette pal = grdMap->palette();
    pal.setColor(QPalette::Base, QColor(0xF4, 0xF6, 0xF8));
    pal.setColor(QPalette::Window, QColor(0x4A, 0x55, 0x68));
    grdMap->setPalette(pal);
    grdMap->setAutoFillBackground(true);
    grdMap->setStyleSheet(QStringLiteral("QTableView { gridline-color: #C5CCD6; }"));
  }

  BuildInfoBar();
  BuildMenus();

  customPointer_ = MakeCustomPointer(devicePixelRatioF());
  setCursor(customPointer_);

  // The design-time geometry, until the first game sizes the window.
  grdMap->SetDimensions(sw.game.gnMapCols, sw.game.gnMapRows);
  ApplyGeometry(std::max<int32_t>(sw.game.gnMapCols * kCellTwips, kMinWidth),
                std::max<int32_t>(sw.game.gnMapCols * kCellTwips, kMinWidth));
  grdMap->SetCellSize(tw_.X(kCellGridOn), tw_.Y(kCellGridOn));
}

frmMain::~frmMain() = default;

QLabel* frmMain::MakeLabel(QWidget* parent, const char* name, const char* caption, const char* tooltip) {
  auto* l = new QLabel(parent);
  l->setObjectName(name);
  l->setTextFormat(Qt::PlainText);
  SetLabelText(l, QString::fromUtf8(caption));
  if (tooltip != nullptr) l->setToolTip(QString::fromUtf8(tooltip));
  l->setMouseTracking(true);
  l->installEventFilter(this);
  return l;
}

void frmMain::SetLabelText(QLabel* label, const QString& text) {
  label->setText(text);
  label->setAccessibleName(text);
}

void frmMain::BuildInfoBar() {
  pctInfoBar = new QFrame(central_);
  pctInfoBar->setObjectName("pctInfoBar");
  pctInfoBar->setFrameShape(QFrame::Panel);
  pctInfoBar->setFrameShadow(QFrame::Raised);
  pctInfoBar->setLineWidth(1);
  pctInfoBar->setAutoFillBackground(true);
  pctInfoBar->setMouseTracking(true);
  pctInfoBar->installEventFilter(this);

  auto caption = [&](const char* name, const char* text, const char* tip) {
    QLabel* l = MakeLabel(pctInfoBar, name, text, tip);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return l;
  };
  auto value = [&](const char* name, const char* text, const char* tip, Label id) {
    QLabel* l = MakeLabel(pctInfoBar, name, text, tip);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setFrameShape(QFrame::Panel);
    l->setFrameShadow(QFrame::Sunken);
    l->setLineWidth(1);
    l->setMargin(0);
    l->setIndent(tw_.X(60));
    l->setAutoFillBackground(true);
    QPalette pal = l->palette();
    pal.setColor(QPalette::Window, palette().color(QPalette::Base));
    l->setPalette(pal);
    labels_[id] = l;
    return l;
  };

  lblScoreT = caption("lblScoreT", "Score:", nullptr);
  lblScore = value("lblScore", "999,999,999", "The current game score", Label::lblScore);
  lblHighScoreT = caption("lblHighScoreT", "High Score:", nullptr);
  lblHighScore = value("lblHighScore", "999,999,999", "The all time high score for the current difficulty level",
                       Label::lblHighScore);
  lblReconnectsT = caption("lblReconnectsT", "Reconnects:", nullptr);
  lblReconnects = value("lblReconnects", "9999", "Number of remaining reconnects", Label::lblReconnects);
  lbSitesHitT = caption("lbSitesHitT", "Sites Hit:", nullptr);
  lblSitesHit = value("lblSitesHit", "9999", "Number of sites already hit", Label::lblSitesHit);
  lblVirusT = caption("lblVirusT", "Viruses:", nullptr);
  lblVirus = value("lblVirus", "9999", "Number of viruses currently on the game map", Label::lblVirus);
  lblDiffT = caption("lblDiffT", "Difficulty:", "Current game difficulty (right click to advance)");
  lblDiff = value("lblDiff", "Normal", "Current game difficulty (right click to advance)", Label::lblDiff);
  lblDiff->setAlignment(Qt::AlignCenter);
  lblNetLagT = caption("lblNetLagT", "Net Lag:", "Current net lag value (duration and status)");
  lblNetLag = value("lblNetLag", "0", "Current net lag duration (in turns)", Label::lblNetLag);
  lblNetLag->setAlignment(Qt::AlignCenter);
  SetLabelColors(Label::lblNetLag, sw::color::Silver, sw::color::Black);
  lblPUTimerT = caption("lblPUTimerT", "Download Time:", nullptr);
  lblPUTimer = value("lblPUTimer", "9999", "Remaining power-up download time (in turns)", Label::lblPUTimer);

  pbrNetLag = new ProgBar(pctInfoBar);
  pbrNetLag->setObjectName("pbrNetLag");
  pbrNetLag->setToolTip("Current net lag status");
  pbrNetLag->setAccessibleName("pbrNetLag");
  pbrNetLag->setMouseTracking(true);
  pbrNetLag->installEventFilter(this);

  auto shape = [&](const char* name, const char* tip) {
    auto* f = new QFrame(pctInfoBar);
    f->setObjectName(name);
    f->setToolTip(tip);
    f->setFrameShape(QFrame::Panel);
    f->setFrameShadow(QFrame::Sunken);
    f->setLineWidth(1);
    f->setAutoFillBackground(true);
    QPalette pal = f->palette();
    pal.setColor(QPalette::Window, QColor(0x80, 0x80, 0x80));
    f->setPalette(pal);
    f->setFixedSize(tw_.X(165), tw_.Y(165));
    f->setMouseTracking(true);
    f->installEventFilter(this);
    return f;
  };
  auto puCaption = [&](const char* name, const char* text, const char* tip) {
    QLabel* l = MakeLabel(pctInfoBar, name, text, tip);
    l->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return l;
  };
  shpAntiVirus = shape("shpAntiVirus", "Anti-Virus Software power-up status");
  lblAntiVirusT = puCaption("lblAntiVirusT", "Anti-Virus Software", "Anti-Virus Software power-up status");
  shpBackup = shape("shpBackup", "Backup / Restore power-up status");
  lblBackupT = puCaption("lblBackupT", "Backup / Restore", "Backup / Restore power-up status");
  shpReboot = shape("shpReboot", "Reboot power-up status");
  lblRebootT = puCaption("lblRebootT", "Reboot", "Reboot power-up status");
  shpSoftUpgrade = shape("shpSoftUpgrade", "Software Upgrade power-up status");
  lblSoftUpgradeT = puCaption("lblSoftUpgradeT", "Software Upgrade", "Software Upgrade power-up status");
  shpDedLine = shape("shpDedLine", "Dedicated Line power-up status");
  lblDedLine = puCaption("lblDedLine", "Dedicated Line", "Dedicated Line power-up status");

  // Three rows: the counters; difficulty, net lag and download time; the power-ups.
  auto* grid = new QGridLayout(pctInfoBar);
  grid->setContentsMargins(tw_.X(90), tw_.Y(60), tw_.X(90), tw_.Y(60));
  grid->setHorizontalSpacing(tw_.X(60));
  grid->setVerticalSpacing(tw_.Y(45));
  const int valueH = tw_.Y(285);
  auto put = [&](QLabel* cap, QWidget* val, int row, int col, int valueWidthTw) {
    grid->addWidget(cap, row, col);
    if (val != nullptr) {
      val->setFixedSize(tw_.X(valueWidthTw), valueH);
      grid->addWidget(val, row, col + 1);
    }
  };
  put(lblScoreT, lblScore, 0, 0, 1500);
  put(lblHighScoreT, lblHighScore, 0, 2, 1500);
  put(lblReconnectsT, lblReconnects, 0, 4, 700);
  put(lbSitesHitT, lblSitesHit, 0, 6, 700);
  put(lblVirusT, lblVirus, 0, 8, 700);

  put(lblDiffT, lblDiff, 1, 0, 1500);
  grid->addWidget(lblNetLagT, 1, 2);
  // A borderless row of the bar that passes mouse moves on like the bar itself.
  const auto row = [this](int spacingTwips) {
    auto* w = new QWidget(pctInfoBar);
    w->setMouseTracking(true);
    w->installEventFilter(this);
    auto* layout = new QHBoxLayout(w);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(tw_.X(spacingTwips));
    return std::pair{w, layout};
  };
  const auto [lag, lagRow] = row(60);
  lblNetLag->setFixedSize(tw_.X(360), valueH);
  pbrNetLag->setFixedHeight(valueH);
  lagRow->addWidget(lblNetLag);
  lagRow->addWidget(pbrNetLag, 1);
  lag->setFixedHeight(valueH);
  grid->addWidget(lag, 1, 3, 1, 3);
  // The caption spans to the value's left edge.
  lblPUTimer->setFixedSize(tw_.X(700), valueH);
  grid->addWidget(lblPUTimerT, 1, 6, 1, 3);
  grid->addWidget(lblPUTimer, 1, 9);

  const auto [pu, puRow] = row(75);
  const std::pair<QFrame*, QLabel*> powerUps[] = {{shpAntiVirus, lblAntiVirusT},
                                                   {shpBackup, lblBackupT},
                                                   {shpReboot, lblRebootT},
                                                   {shpSoftUpgrade, lblSoftUpgradeT},
                                                   {shpDedLine, lblDedLine}};
  bool first = true;
  for (const auto& [shp, lbl] : powerUps) {
    if (!first) puRow->addStretch(1);
    first = false;
    puRow->addWidget(shp);
    puRow->addWidget(lbl);
  }
  grid->addWidget(pu, 2, 0, 1, 10);
  grid->setColumnStretch(1, 2);
  grid->setColumnStretch(3, 2);
  grid->setColumnStretch(5, 1);
  grid->setColumnStretch(7, 1);
  grid->setColumnStretch(9, 1);
}

void frmMain::BuildMenus() {
  QMenuBar* bar = menuBar();
  auto menu = [&](QMenu* parent, const char* name, const char* caption) {
    QMenu* m = parent != nullptr ? parent->addMenu(QString::fromUtf8(caption)) : bar->addMenu(QString::fromUtf8(caption));
    m->setObjectName(name);
    m->menuAction()->setObjectName(name);
    return m;
  };
  auto item = [&](QMenu* m, const QString& name, const char* caption, bool checkable = false) {
    QAction* a = m->addAction(QString::fromUtf8(caption));
    a->setObjectName(name);
    a->setCheckable(checkable);
    return a;
  };
  // A checkable item's mark is the handler's business: undo the toolkit's own toggle first.
  auto onClick = [&](QAction* a, auto handler) {
    connect(a, &QAction::triggered, this, [a, handler](bool checked) {
      if (a->isCheckable()) a->setChecked(!checked);
      handler();
    });
  };

  menGame = menu(nullptr, "menGame", "&Game");
  menNewGame = item(menGame, "menNewGame", "&New Game");
  menGame->addSeparator();
  menChangePlayer = item(menGame, "menChangePlayer", "&Player Login...");
  menHighScores = item(menGame, "menHighScores", "&Webmaster Lists...");
  menGame->addSeparator();
  menQuit = item(menGame, "menQuit", "&Quit");

  menOptions = menu(nullptr, "menOptions", "&Options");
  menSound = item(menOptions, "menSound", "&Sound", true);
  menGrid = item(menOptions, "menGrid", "&Grid", true);
  menControls = item(menOptions, "menControls", "&Controls...");
  menOptions->addSeparator();
  menDownServers = item(menOptions, "menDownServers", "D&own Servers");
  menSafeMode = item(menOptions, "menSafeMode", "Safe &Mode");
  menDiff = menu(menOptions, "menDiff", "&Difficulty");
  const char* const diffCaptions[5] = {"", "&Easy", "&Normal", "&Hard", "Night&mare"};
  for (int16_t i = 1; i <= 4; ++i)
    menDiffLevel[i] = item(menDiff, QStringLiteral("menDiffLevel(%1)").arg(i), diffCaptions[i], true);
  menPowerUps = menu(menOptions, "menPowerUps", "&Power-Ups");
  menReboot = item(menPowerUps, "menReboot", "&Reboot");
  menBackup = item(menPowerUps, "menBackup", "&Backup/Restore");
  menAntiVirus = item(menPowerUps, "menAntiVirus", "&Anti-Virus Software");
  menSoftUpgrade = item(menPowerUps, "menSoftUpgrade", "&Software Upgrade");
  menDedLine = item(menPowerUps, "menDedLine", "&Dedicated Line");
  menPowerUps->addSeparator();
  menPUDownload = item(menPowerUps, "menPUDownload", "&Power-Up Download");
  menStartSite = menu(menOptions, "menStartSite", "S&tarting Site");
  for (int16_t i = 0; i <= 9; ++i) {
    const QByteArray caption = QStringLiteral("&%1").arg(i).toUtf8();
    menStartSiteNum[i] = item(menStartSite, QStringLiteral("menStartSiteNum(%1)").arg(i), caption.constData(), true);
  }
  menMapSize = menu(menOptions, "menMapSize", "Map Si&ze");
  const char* const sizeCaptions[5] = {"&Tiny (# x #)", "&Small (# x #)", "&Normal (24 x 14)", "&Large (# x #)",
                                       "&Huge (# x #)"};
  for (int i = 0; i < 5; ++i)
    menSizeSetting[i] = item(menMapSize, QStringLiteral("menSizeSetting(%1)").arg(i), sizeCaptions[i]);

  menDebug = menu(nullptr, "menDebug", "&Debug");
  menUseDL = item(menDebug, "menUseDL", "&Use Debug Log", true);
  menClearDL = item(menDebug, "menClearDL", "&Clear Debug Log");
  menMarkDL = item(menDebug, "menMarkDL", "&Mark Debug Log...");
  menClearDL->setEnabled(false);
  menMarkDL->setEnabled(false);

  menHelp = menu(nullptr, "menHelp", "&Help");
  menHelpFile = item(menHelp, "menHelpFile", "&Help... F1");
  menHowPlay = item(menHelp, "menHowPlay", "How to &Play...");
  menScoring = item(menHelp, "menScoring", "&Scoring...");
  menHelp->addSeparator();
  menCredits = item(menHelp, "menCredits", "&Credits...");
  menAbout = item(menHelp, "menAbout", "&About...");

  onClick(menNewGame, [this] { menNewGame_Click(); });
  onClick(menQuit, [this] { menQuit_Click(); });
  onClick(menSound, [this] { menSound_Click(); });
  onClick(menGrid, [this] { menGrid_Click(); });
  for (int16_t i = 1; i <= 4; ++i) onClick(menDiffLevel[i], [this, i] { menDiffLevel_Click(i); });
  for (int16_t i = 0; i <= 9; ++i) onClick(menStartSiteNum[i], [this, i] { menStartSiteNum_Click(i); });
  onClick(menUseDL, [this] { menUseDL_Click(); });
  onClick(menClearDL, [this] { menClearDL_Click(); });
  onClick(menCredits, [this] { menCredits_Click(); });
  onClick(menAbout, [this] { menAbout_Click(); });
}

// ---------------------------------------------------------------------------
// Geometry

void frmMain::ApplyGeometry(int32_t windowWidth, int32_t infoBarWidth) {
  const int32_t gridH = int32_t{sw.game.gnMapRows} * kCellTwips;
  const int32_t gridW = int32_t{sw.game.gnMapCols} * kCellTwips;
  // The client area holds the grid with the information bar below it; the
  // title bar, menu bar and borders come on top, as the window system draws them.
  central_->setFixedSize(tw_.X(windowWidth), tw_.Y(gridH) + tw_.Y(kInfoBarHeight));
  grdMap->setGeometry(tw_.X((windowWidth - gridW) / 2), 0, tw_.X(gridW), tw_.Y(gridH));
  pctInfoBar->setGeometry(0, tw_.Y(gridH), tw_.X(infoBarWidth), tw_.Y(kInfoBarHeight));
  widthTw_ = windowWidth;
  infoBarWidthTw_ = infoBarWidth;
  heightTw_ = gridH + kInfoBarHeight + kFrameHeight;
  layout()->activate();
  setFixedSize(sizeHint());
}

void frmMain::SetSize() {
  int32_t lWidth = int32_t{sw.game.gnMapCols} * kCellTwips;
  int32_t lInfoWidth = 0;
  if (lWidth >= kMinWidth) {
    lInfoWidth = lWidth;
  } else {
    lWidth = kMinWidth;
    lInfoWidth = kMinWidth;
  }
  ApplyGeometry(lWidth, lInfoWidth);
  heightTw_ = int32_t{sw.game.gnMapRows} * kCellTwips + kInfoBarHeight + kFrameHeight;
  if (sw.dbg.On()) {
    sw.dbg.DebugWrite(Trace("SetSize")
                          .Var("frmMain.Height", heightTw_)
                          .Var("frmMain.Width", widthTw_)
                          .Var("frmMain..pctInfoBar.Width", infoBarWidthTw_));
  }
}

void frmMain::SetGrid() {
  const int16_t cols = sw.game.gnMapCols;
  const int16_t rows = sw.game.gnMapRows;
  grdMap->SetDimensions(cols, rows);
  const int32_t gridW = int32_t{cols} * kCellTwips;
  const int32_t gridH = int32_t{rows} * kCellTwips;
  grdMap->setGeometry(tw_.X((widthTw_ - gridW) / 2), 0, tw_.X(gridW), tw_.Y(gridH));
  int16_t nCellSize = kCellGridOff;
  try {
    nCellSize = sw.opts.Current().bGrid ? kCellGridOn : kCellGridOff;
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("SetGrid", e);
  }
  grdMap->SetCellSize(tw_.X(nCellSize), tw_.Y(nCellSize));
  if (sw.dbg.On()) {
    sw.dbg.DebugWrite(Trace("SetGrid")
                          .Var("frmMain.grdMap.Cols/Rows",
                               sw::NumText(int64_t{cols}) + "/" + sw::NumText(int64_t{rows}))
                          .Var("frmMain.grdMap.Height/Width",
                               sw::NumText(int64_t{gridH}) + "/" + sw::NumText(int64_t{gridW}))
                          .Var("nCellSize", nCellSize));
  }
}

// ---------------------------------------------------------------------------
// Start-up and the window's events

void frmMain::Form_Load() {
  sw::Game& game = sw.game;
  game.gbGameInit = -1;
  sw.opts.LoadOptions();
  if (sw.dbg.On()) sw.dbg.DebugWrite(Trace("frmMain.Form_Load"));
  sw.score.InitScore();
  game.gnPlayerDir = 5;
  game.gbGameOn = -1;
  game.gbWaitOn = 0;
  game.gbLinkOn = 0;

  SetLagBarRange(0, 13);
  SetLagBarValue(0);
  pbrNetLag->repaint();

  game.gnMapCols = 24;
  game.gnMapRows = 14;

  SetCaption(Label::lblSitesHit, sw::NumText(int64_t{game.gnSitesHit}));
  SetCaption(Label::lblReconnects, "2");
  SetCaption(Label::lblScore, "0");
  SetCaption(Label::lblVirus, "0");
  game.gnGameNum = 0;

  try {
    const sw::OptionProfile& op = sw.opts.Current();
    menSound->setChecked(op.bSound != 0);
    menGrid->setChecked(op.bGrid != 0);
    const int16_t nDiff = op.nDiff;
    const int16_t nStartSite = op.nStartSite;
    menDiffLevel_Click(nDiff);
    menStartSiteNum_Click(nStartSite);
    menGrid_Click();
    menSound_Click();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.Form_Load", e);
  }
  game.gbGameInit = 0;

  game.StartGame();

  sw.hs.LoadHighScores();
  ShowHighScoreLabel();
  setFocus();
}

void frmMain::ShowHighScoreLabel() {
  try {
    const int16_t nDiff = sw.opts.Current().nDiff;
    if (nDiff < 1 || nDiff > 4) throw sw::RuntimeError(sw::errSubscript);
    SetCaption(Label::lblHighScore, sw::FormatThousands(sw.hs.Entry(sw::HighScores::kAllTime, nDiff, 1).lScore));
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.Form_Load", e);
  }
}

void frmMain::Form_KeyDown(int /*KeyCode*/, int /*Shift*/) { SetPointer(Pointer::Custom); }

void frmMain::Form_MouseMove() {
  if (pointer_ != Pointer::Hourglass) SetPointer(Pointer::Arrow);
}

void frmMain::Form_Unload() {
  SoundCommand("Close");
  menQuit_Click();
}

bool frmMain::event(QEvent* e) {
  // Tab is a game key here, not focus navigation.
  if (e->type() == QEvent::KeyPress) {
    auto* ke = static_cast<QKeyEvent*>(e);
    if (ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab) {
      keyPressEvent(ke);
      return true;
    }
  }
  return QMainWindow::event(e);
}

void frmMain::keyPressEvent(QKeyEvent* e) {
  Form_KeyDown(e->key(), static_cast<int>(e->modifiers()));
  const QString text = e->text();
  if (text.isEmpty()) {
    QMainWindow::keyPressEvent(e);
    return;
  }
  e->accept();
  sw.game.Form_KeyPress(static_cast<int16_t>(text.at(0).unicode()));
}

void frmMain::closeEvent(QCloseEvent* e) {
  if (quitting_) {
    e->accept();
    return;
  }
  e->ignore();
  Form_Unload();
}

bool frmMain::eventFilter(QObject* watched, QEvent* e) {
  if (e->type() == QEvent::MouseMove) {
    Form_MouseMove();
  } else if (e->type() == QEvent::MouseButtonPress && (watched == lblDiff || watched == lblDiffT)) {
    auto* me = static_cast<QMouseEvent*>(e);
    const int button = me->button() == Qt::LeftButton ? 1 : me->button() == Qt::RightButton ? 2 : 4;
    if (watched == lblDiff) {
      lblDiff_MouseDown(button);
    } else {
      lblDiffT_MouseDown(button);
    }
    return true;
  }
  return QMainWindow::eventFilter(watched, e);
}

void frmMain::lblDiff_MouseDown(int Button) {
  if (Button != 2) return;
  try {
    int16_t next = static_cast<int16_t>(sw.opts.Current().nDiff + 1);
    if (next > 4) next = 1;
    menDiffLevel_Click(next);
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.lblDiff_MouseDown", e);
  }
}

void frmMain::lblDiffT_MouseDown(int Button) { lblDiff_MouseDown(Button); }

void frmMain::lblVirus_Change() {
  QPalette pal = lblVirus->palette();
  const QColor fore =
      sw.game.gnVirusLive == 30 ? QColor(255, 0, 0) : QApplication::palette().color(QPalette::ButtonText);
  pal.setColor(QPalette::WindowText, fore);
  lblVirus->setPalette(pal);
}

// ---------------------------------------------------------------------------
// Menu commands

bool frmMain::Refused() {
  if (sw.shell.gbSleepOn || sw.game.gbWaitOn) {
    sw.shell.PlaySound("powerup2.mp3");
    return true;
  }
  return false;
}

void frmMain::RecordGame() {
  if (sw.game.gbGameOn) sw.hs.CheckHighScore();
}

void frmMain::menNewGame_Click() {
  if (Refused()) return;
  try {
    if (sw.game.gbGameOn) {
      sw.shell.ShowMsg(std::string("Starting a new game will end the game in progress.") + "\n" +
                           "Do you want to end the current game?",
                       4, "Start New Game", "comp-abort game.mp3");
      if (sw.shell.gnMsgReturn != 6) return;
    }
    if (sw.dbg.On()) sw.dbg.DebugWrite(Trace("frmMain.menNewGame_Click"));
    RecordGame();
    sw.game.StartGame();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menNewGame_Click", e);
  }
}

void frmMain::menQuit_Click() {
  if (Refused()) return;
  try {
    if (sw.game.gbGameOn) {
      sw.shell.ShowMsg("Are you sure you want to quit and loose your game in progress?", 4, "Quit Skitterweb",
                       "comp-abort game.mp3");
      if (sw.shell.gnMsgReturn != 6) return;
    }
    RecordGame();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menQuit_Click", e);
  }
  try {
    sw.opts.SaveOptions();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menQuit_Click", e);
  }
  try {
    if (sw.dbg.On()) {
      sw.dbg.DebugWrite(Trace("frmMain.menQuit_Click"));
      sw.dbg.DebugExit();
      sw.opts.Current().bDebug = 0;
      sw.dbg.DebugClose();
    }
    if (sw.opts.Current().bSound) {
      sw.shell.PlaySound("comp-goodbye.mp3");
      sw.shell.SleepTurn(2000);
    }
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menQuit_Click", e);
  }
  quitting_ = true;
  QCoreApplication::exit(0);
}

void frmMain::menSound_Click() {
  try {
    sw::OptionProfile& op = sw.opts.Current();
    if (!sw.game.gbGameInit) op.bSound = op.bSound ? 0 : -1;
    menSound->setChecked(op.bSound != 0);
    if (!sw.game.gbGameInit && op.bSound) sw.shell.PlaySound("comp-program start.mp3");
    if (sw.dbg.On()) sw.dbg.DebugWrite(Trace("frmMain.menSound_Click").Var("gopOpts(gnOpt).bSound", op.bSound));
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menSound_Click", e);
  }
}

void frmMain::menGrid_Click() {
  try {
    sw::OptionProfile& op = sw.opts.Current();
    if (!sw.game.gbGameInit) {
      op.bGrid = op.bGrid ? 0 : -1;
      menGrid->setChecked(op.bGrid != 0);
      sw.shell.PlaySound("comp-option change.mp3");
    } else {
      menGrid->setChecked(op.bGrid != 0);
    }
    grdMap->setShowGrid(op.bGrid != 0);
    SetGrid();
    if (sw.dbg.On()) sw.dbg.DebugWrite(Trace("frmMain.menGrid_Click").Var("gopOpts(gnOpt).bGrid", op.bGrid));
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menGrid_Click", e);
  }
}

void frmMain::menDiffLevel_Click(int16_t Index) {
  if (Refused()) return;
  try {
    if (sw.dbg.On()) sw.dbg.DebugWrite(Trace("frmMain.menDiffLevel_Click").In("Index", Index));
    if (Index < 1 || Index > 4) throw sw::RuntimeError(sw::errSubscript);
    sw::OptionProfile& op = sw.opts.Current();
    if (!sw.game.gbGameInit) {
      if (Index == op.nDiff) {
        menDiffLevel[Index]->setChecked(true);
        return;
      }
      if (sw.game.gbGameOn) {
        sw.shell.ShowMsg(std::string("Changing the game difficulty to ") + kDiffWords[Index] +
                             " will start a new game." + "\n" +
                             "Are you sure you want to loose your game in progress?",
                         4, "Change Game Difficulty", "comp-abort game.mp3");
        if (sw.shell.gnMsgReturn != 6) return;
      }
      sw.shell.PlaySound("comp-option change.mp3");
      RecordGame();
    }
    sw.opts.Current().nDiff = Index;
    SetCaption(Label::lblDiff, kDiffNames[Index]);
    SetCaption(Label::lblHighScore,
               sw::FormatThousands(sw.hs.Entry(sw::HighScores::kAllTime, Index, 1).lScore));
    for (int16_t i = 1; i <= 4; ++i) menDiffLevel[i]->setChecked(i == Index);
    sw.game.StartGame();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menDiffLevel_Click", e);
  }
}

void frmMain::menStartSiteNum_Click(int16_t Index) {
  if (Refused()) return;
  try {
    sw::OptionProfile& op = sw.opts.Current();
    int16_t bNewGame = -1;
    if (!sw.game.gbGameInit) {
      if (Index == op.nStartSite) {
        if (Index >= 0 && Index <= 9) menStartSiteNum[Index]->setChecked(true);
        return;
      }
      if (sw.game.gbGameOn) {
        sw.shell.ShowMsg("Would you like to abandon your current game and start a new one with " +
                             sw::NumText(int64_t{Index}) + " sites already hit?",
                         4, "Change Starting Site Number", "comp-abort game.mp3");
        bNewGame = sw.shell.gnMsgReturn == 6 ? -1 : 0;
      }
      sw.shell.PlaySound("comp-option change.mp3");
    }
    for (QAction* a : menStartSiteNum) a->setChecked(false);
    if (Index >= 0 && Index <= 9) menStartSiteNum[Index]->setChecked(true);
    sw.opts.Current().nStartSite = Index;
    if (sw.dbg.On())
      sw.dbg.DebugWrite(Trace("frmMain.menStartSiteNum_Click").In("Index", Index).Var("bNewGame", bNewGame));
    if (bNewGame) sw.game.StartGame();
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menStartSiteNum_Click", e);
  }
}

void frmMain::menUseDL_Click() {
  try {
    sw::OptionProfile& op = sw.opts.Current();
    if (op.bDebug) {
      menUseDL->setChecked(false);
      menClearDL->setEnabled(false);
      menMarkDL->setEnabled(false);
      sw.dbg.DebugExit();
      sw.opts.Current().bDebug = 0;
      sw.dbg.DebugClose();
    } else {
      menUseDL->setChecked(true);
      menClearDL->setEnabled(true);
      menMarkDL->setEnabled(true);
      op.bDebug = -1;
      sw.dbg.DebugOpen(false, true);
      if (sw.opts.Current().bDebug) {
        sw.dbg.DebugWriteAll();
        sw.shell.PlaySound("comp-option change.mp3");
      }
    }
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menUseDL_Click", e);
  }
}

void frmMain::menClearDL_Click() {
  try {
    sw.dbg.DebugClear();
    sw.shell.PlaySound("powerup2.mp3");
  } catch (const sw::RuntimeError& e) {
    sw.shell.ReportError("frmMain.menClearDL_Click", e);
  }
}

void frmMain::menAbout_Click() {
  const std::string nl = "\n";
  sw.shell.ShowMsg("Skitterweb" + nl + "Version " + sw::DebugLog::kVersion + nl + nl +
                       "Written by the Skitterweb team." + nl + "Built from the Skitterweb sources." + nl + nl +
                       "Thanks to everyone who played the early versions" + nl +
                       "and to the makers of the old chase games that inspired it.",
                   0, "About Skitterweb", "comp-program start.mp3");
}

void frmMain::menCredits_Click() {
  const std::string nl = "\n";
  const std::string dots = " . . . . . . ";
  const std::string team = "the Skitterweb team";
  sw.shell.ShowMsg("--Game Development--" + nl + "Design and programming" + dots + team + nl +
                       "Original game" + dots + team + nl + "Help file" + dots + team + nl +
                       "Cipher code" + dots + team + nl + "Progress bar object" + dots + team + nl + nl +
                       "--Art--" + nl + "Mouse, dead mouse and infected server" + dots + team + nl + "Virus art" +
                       dots + team + nl + nl + "--Sound--" + nl + "Computer voice" + dots + team,
                   0, "Credits for Skitterweb", "jad0025a3.mp3");
}

// ---------------------------------------------------------------------------
// IMainWindow

void frmMain::SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) {
  if (nCol < 0 || nRow < 0 || nCol >= grdMap->columnCount() || nRow >= grdMap->rowCount()) return;
  grdMap->SetPicture(nCol, nRow, pic);
}

void frmMain::Refresh() { repaint(); }

QLabel* frmMain::Caption(Label lbl) const {
  auto it = labels_.find(lbl);
  return it == labels_.end() ? nullptr : it->second;
}

void frmMain::SetCaption(Label lbl, const std::string& text) {
  QLabel* l = Caption(lbl);
  if (l == nullptr) return;
  SetLabelText(l, QString::fromStdString(text));
  if (lbl == Label::lblVirus) lblVirus_Change();
}

QColor frmMain::ToQColor(uint32_t bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

uint32_t frmMain::FromQColor(const QColor& c) { return sw::color::RGB(c.red(), c.green(), c.blue()); }

void frmMain::SetLabelColors(Label lbl, uint32_t backColor, uint32_t foreColor) {
  QLabel* l = Caption(lbl);
  if (l == nullptr) return;
  QPalette pal = l->palette();
  pal.setColor(QPalette::Window, ToQColor(backColor));
  pal.setColor(QPalette::WindowText, ToQColor(foreColor));
  l->setPalette(pal);
  l->setAutoFillBackground(true);
}

uint32_t frmMain::LagBarColor() const { return FromQColor(pbrNetLag->BarColor()); }
int32_t frmMain::LagBarMax() const { return pbrNetLag->Max(); }
void frmMain::SetLagBarColor(uint32_t barColor) { pbrNetLag->setBarColor(ToQColor(barColor)); }
void frmMain::SetLagBarValue(int32_t value) { pbrNetLag->setValue(value); }

void frmMain::SetLagBarRange(int32_t min, int32_t max) {
  pbrNetLag->setMin(min);
  pbrNetLag->setMax(max);
}

int16_t frmMain::MsgBox(const std::string& text, int16_t nButtons, const std::string& szTitle) {
  frmMsgBox box(this, widthTw_);
  box.Setup(QString::fromStdString(text), nButtons, QString::fromStdString(szTitle));
  const int16_t answer = box.ShowModal();
  activateWindow();
  setFocus();
  return answer;
}

void frmMain::SetSoundFileName(const std::string& fileName) { mmcSound.SetFileName(fileName); }
void frmMain::SoundCommand(const std::string& command) { mmcSound.Command(command); }

void frmMain::SetPointer(Pointer p) {
  pointer_ = p;
  switch (p) {
    case Pointer::Custom:
      setCursor(customPointer_);
      break;
    case Pointer::Hourglass:
      setCursor(Qt::WaitCursor);
      break;
    case Pointer::Arrow:
      setCursor(Qt::ArrowCursor);
      break;
  }
}

void frmMain::Sleep(int32_t ms) {
  QEventLoop loop;
  QTimer::singleShot(std::max<int32_t>(ms, 0), &loop, &QEventLoop::quit);
  loop.exec();
}

void frmMain::DoEvents() { QCoreApplication::processEvents(); }

QAction* frmMain::MenuAction(Menu item) const {
  switch (item) {
    case Menu::menSound: return menSound;
    case Menu::menGrid: return menGrid;
    case Menu::menUseDL: return menUseDL;
    case Menu::menClearDL: return menClearDL;
    case Menu::menMarkDL: return menMarkDL;
    case Menu::menDiffLevel1: return menDiffLevel[1];
    case Menu::menDiffLevel2: return menDiffLevel[2];
    case Menu::menDiffLevel3: return menDiffLevel[3];
    case Menu::menDiffLevel4: return menDiffLevel[4];
    case Menu::menStartSiteNum0: return menStartSiteNum[0];
    case Menu::menStartSiteNum1: return menStartSiteNum[1];
    case Menu::menStartSiteNum2: return menStartSiteNum[2];
    case Menu::menStartSiteNum3: return menStartSiteNum[3];
    case Menu::menStartSiteNum4: return menStartSiteNum[4];
    case Menu::menStartSiteNum5: return menStartSiteNum[5];
    case Menu::menStartSiteNum6: return menStartSiteNum[6];
    case Menu::menStartSiteNum7: return menStartSiteNum[7];
    case Menu::menStartSiteNum8: return menStartSiteNum[8];
    case Menu::menStartSiteNum9: return menStartSiteNum[9];
  }
  return nullptr;
}

void frmMain::SetMenuChecked(Menu item, bool checked) {
  if (QAction* a = MenuAction(item)) a->setChecked(checked);
}

void frmMain::SetMenuEnabled(Menu item, bool enabled) {
  if (QAction* a = MenuAction(item)) a->setEnabled(enabled);
}

}  // namespace swui
