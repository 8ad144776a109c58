// The main window's information bar and menu bar: the controls, their
// captions and tooltips, and where each menu click goes.
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>

#include "ui/Accessible.h"
#include "ui/Colors.h"
#include "ui/ProgBar.h"
#include "ui/frmMain.h"

namespace swui {

using sw::Label;

namespace {

constexpr const char* kGameBack = "gameBackColor";
constexpr const char* kCaption = "caption";  // a counter's caption, read with its value

// The bar itself: the window's colour with a fine line along its top edge.
class InfoBar : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Window));
    p.setPen(Mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.18));
    p.drawLine(0, 0, width() - 1, 0);
  }
};

// A counter: its text on a softly rounded tile. The tile takes the colour
// the game gives the label, else a shade between the window and its fields.
class ValueLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* e) override {
    {
      QPainter p(this);
      p.setRenderHint(QPainter::Antialiasing);
      p.setPen(Qt::NoPen);
      const QPalette& pal = palette();
      const QVariant game = property(kGameBack);
      p.setBrush(game.isValid() ? game.value<QColor>()
                                : Mix(pal.color(QPalette::Base), pal.color(QPalette::Window), 0.45));
      const qreal r = height() / 4.0;
      p.drawRoundedRect(QRectF(rect()), r, r);
    }
    QLabel::paintEvent(e);
  }
};

// A power-up's status: these are not active in this version, so the light is
// an empty ring, drawn as something switched off rather than missing.
class StatusLight : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor ring = Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.55);
    p.setPen(QPen(ring, 1.5));
    p.setBrush(Mix(palette().color(QPalette::Window), ring, 0.15));
    const qreal d = std::min(width(), height()) - 3.0;
    p.drawEllipse(QRectF((width() - d) / 2, (height() - d) / 2, d, d));
  }
};

}  // namespace

QLabel* frmMain::MakeLabel(QWidget* parent, const char* name, const char* caption, const char* tooltip, bool tile) {
  QLabel* l = tile ? new ValueLabel(parent) : new QLabel(parent);
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
  // A counter is read with its caption: "Score: 1,250".
  const QString caption = label->property(kCaption).toString();
  label->setAccessibleName(caption.isEmpty() ? text : caption + QLatin1Char(' ') + text);
}

void frmMain::ApplyLook() {
  const QPalette& pal = palette();
  const QColor muted = Mix(pal.color(QPalette::WindowText), pal.color(QPalette::Window), 0.32);
  const QColor off = Mix(pal.color(QPalette::WindowText), pal.color(QPalette::Window), 0.55);
  auto paint = [](QLabel* l, const QColor& c) {
    QPalette lp = l->palette();
    lp.setColor(QPalette::WindowText, c);
    l->setPalette(lp);
  };
  for (QLabel* l : {lblScoreT, lblHighScoreT, lblReconnectsT, lbSitesHitT, lblVirusT, lblDiffT, lblNetLagT})
    paint(l, muted);
  // The power-ups and their download time are not active in this version.
  for (QLabel* l : {lblPUTimerT, lblPUTimer, lblAntiVirusT, lblBackupT, lblRebootT, lblSoftUpgradeT, lblDedLine})
    paint(l, off);
}

void frmMain::changeEvent(QEvent* e) {
  QMainWindow::changeEvent(e);
  if (e->type() == QEvent::PaletteChange && lblScoreT != nullptr) ApplyLook();
}

void frmMain::BuildInfoBar() {
  pctInfoBar = new InfoBar(central_);
  pctInfoBar->setObjectName("pctInfoBar");
  pctInfoBar->setFrameShape(QFrame::NoFrame);
  pctInfoBar->setMouseTracking(true);
  pctInfoBar->installEventFilter(this);

  auto caption = [&](const char* name, const char* text, const char* tip) {
    QLabel* l = MakeLabel(pctInfoBar, name, text, tip);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return l;
  };
  auto value = [&](const char* name, const char* text, const char* tip, Label id, QLabel* cap) {
    QLabel* l = MakeLabel(pctInfoBar, name, text, tip, true);
    l->setProperty(kCaption, cap->text());
    SetLabelText(l, l->text());
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMargin(0);
    l->setIndent(tw_.X(90));
    QFont bold = l->font();
    bold.setBold(true);
    l->setFont(bold);
    labels_[id] = l;
    return l;
  };

  lblScoreT = caption("lblScoreT", "Score:", nullptr);
  lblScore = value("lblScore", "999,999,999", "The current game score", Label::lblScore, lblScoreT);
  lblHighScoreT = caption("lblHighScoreT", "High Score:", nullptr);
  lblHighScore = value("lblHighScore", "999,999,999", "The all time high score for the current difficulty level",
                       Label::lblHighScore, lblHighScoreT);
  lblReconnectsT = caption("lblReconnectsT", "Reconnects:", nullptr);
  lblReconnects =
      value("lblReconnects", "9999", "Number of remaining reconnects", Label::lblReconnects, lblReconnectsT);
  lbSitesHitT = caption("lbSitesHitT", "Sites Hit:", nullptr);
  lblSitesHit = value("lblSitesHit", "9999", "Number of sites already hit", Label::lblSitesHit, lbSitesHitT);
  lblVirusT = caption("lblVirusT", "Viruses:", nullptr);
  lblVirus = value("lblVirus", "9999", "Number of viruses currently on the game map", Label::lblVirus, lblVirusT);
  lblDiffT = caption("lblDiffT", "Difficulty:", "Current game difficulty (right click to advance)");
  lblDiff = value("lblDiff", "Normal", "Current game difficulty (right click to advance)", Label::lblDiff, lblDiffT);
  lblDiff->setAlignment(Qt::AlignCenter);
  lblNetLagT = caption("lblNetLagT", "Net Lag:", "Current net lag value (duration and status)");
  lblNetLag = value("lblNetLag", "0", "Current net lag duration (in turns)", Label::lblNetLag, lblNetLagT);
  lblNetLag->setAlignment(Qt::AlignCenter);
  SetLabelColors(Label::lblNetLag, sw::color::Silver, sw::color::Black);
  lblPUTimerT = caption("lblPUTimerT", "Download Time:", nullptr);
  lblPUTimer =
      value("lblPUTimer", "9999", "Remaining power-up download time (in turns)", Label::lblPUTimer, lblPUTimerT);

  pbrNetLag = new ProgBar(pctInfoBar);
  pbrNetLag->setObjectName("pbrNetLag");
  pbrNetLag->setToolTip("Current net lag status");
  pbrNetLag->setAccessibleName(tr("Net Lag"));
  pbrNetLag->setAccessibleDescription(tr("no lag"));
  pbrNetLag->setMouseTracking(true);
  pbrNetLag->installEventFilter(this);

  auto shape = [&](const char* name, const char* tip) {
    auto* f = new StatusLight(pctInfoBar);
    f->setObjectName(name);
    f->setToolTip(tip);
    f->setFrameShape(QFrame::NoFrame);
    f->setFixedSize(tw_.X(195), tw_.Y(195));
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
  grid->setContentsMargins(tw_.X(150), tw_.Y(90), tw_.X(150), tw_.Y(60));
  grid->setHorizontalSpacing(tw_.X(75));
  grid->setVerticalSpacing(tw_.Y(60));
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
    shp->setAccessibleName(lbl->text() + tr(" status"));  // the shape beside the power-up's caption
    puRow->addWidget(shp);
    puRow->addWidget(lbl);
  }
  grid->addWidget(pu, 2, 0, 1, 10);
  // The announcer takes no room: a pixel in the bar's corner that draws nothing.
  announcer = new Announcer(pctInfoBar);
  announcer->setObjectName("announcer");
  announcer->move(0, 0);
  grid->setColumnStretch(1, 2);
  grid->setColumnStretch(3, 2);
  grid->setColumnStretch(5, 1);
  grid->setColumnStretch(7, 1);
  grid->setColumnStretch(9, 1);
}

void frmMain::BuildMenus() {
  QMenuBar* bar = menuBar();
  auto menu = [&](QMenu* parent, const char* name, const char* caption) {
    QMenu* m =
        parent != nullptr ? parent->addMenu(QString::fromUtf8(caption)) : bar->addMenu(QString::fromUtf8(caption));
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

  sw::MainMenu& m = sw.menu;
  onClick(menNewGame, [&m] { m.menNewGame_Click(); });
  onClick(menQuit, [&m] { m.menQuit_Click(); });
  onClick(menHighScores, [&m] { m.menHighScores_Click(); });
  onClick(menSound, [&m] { m.menSound_Click(); });
  onClick(menGrid, [&m] { m.menGrid_Click(); });
  onClick(menControls, [&m] { m.menControls_Click(); });
  for (int16_t i = 1; i <= 4; ++i) onClick(menDiffLevel[i], [&m, i] { m.menDiffLevel_Click(i); });
  for (int16_t i = 0; i <= 9; ++i) onClick(menStartSiteNum[i], [&m, i] { m.menStartSiteNum_Click(i); });
  onClick(menUseDL, [&m] { m.menUseDL_Click(); });
  onClick(menClearDL, [&m] { m.menClearDL_Click(); });
  onClick(menMarkDL, [&m] { m.menMarkDL_Click(); });
  onClick(menCredits, [&m] { m.menCredits_Click(); });
  onClick(menAbout, [&m] { m.menAbout_Click(); });
  onClick(menHelpFile, [&m] { m.menHelpFile_Click(); });
}

}  // namespace swui
