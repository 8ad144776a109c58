// How the main window looks in a light and in a dark desktop palette: every
// caption and counter reads against what is behind it, the board is a quiet
// shade apart from the window, and the pictures stand out on it.
//   SKITTERWEB_SHOTS=DIR tst_frmMainLook   also saves main-light.png and main-dark.png there.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <cmath>

#include "ui/GameStyle.h"
#include "ui/UiTestSupport.h"
#include "ui/frmMain.h"

using swui::frmMain;

namespace {

double Luminance(const QColor& c) {
  auto lin = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
  return 0.2126 * lin(c.redF()) + 0.7152 * lin(c.greenF()) + 0.0722 * lin(c.blueF());
}

// The contrast ratio of two colours, from 1 (the same) to 21 (black on white).
double Contrast(const QColor& a, const QColor& b) {
  const double la = Luminance(a), lb = Luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QPalette DarkPalette() {
  QPalette p;
  p.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x31));
  p.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
  p.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  p.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2d, 0x31));
  p.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
  p.setColor(QPalette::Button, QColor(0x36, 0x38, 0x3d));
  p.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xe6));
  p.setColor(QPalette::Highlight, QColor(0x3d, 0x7a, 0xd6));
  p.setColor(QPalette::HighlightedText, Qt::white);
  p.setColor(QPalette::ToolTipBase, QColor(0x36, 0x38, 0x3d));
  p.setColor(QPalette::ToolTipText, QColor(0xe6, 0xe6, 0xe6));
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x88));
  return p;
}

struct Session {
  uitest::FreshDir dir;
  uitest::ScriptedBoxes boxes;
  frmMain w;
};

}  // namespace

class TestFrmMainLook : public QObject {
  Q_OBJECT

  void Check(const QString& name) {
    Session s;
    s.w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s.w));
    s.w.Form_Load();
    QApplication::processEvents();
    const QImage shot = s.w.grab().toImage();
    if (const QByteArray dir = qgetenv("SKITTERWEB_SHOTS"); !dir.isEmpty())
      shot.save(QString::fromLocal8Bit(dir) + "/main-" + name + ".png");

    const QColor window = s.w.palette().color(QPalette::Window);
    // Captions are muted but readable; counters stand out on their tiles.
    for (QLabel* l : {s.w.lblScoreT, s.w.lblHighScoreT, s.w.lblReconnectsT, s.w.lbSitesHitT, s.w.lblVirusT,
                      s.w.lblDiffT, s.w.lblNetLagT})
      QVERIFY2(Contrast(l->palette().color(QPalette::WindowText), window) >= 4.5, qPrintable(l->objectName()));
    for (QLabel* l : {s.w.lblScore, s.w.lblHighScore, s.w.lblReconnects, s.w.lblSitesHit, s.w.lblDiff}) {
      const QPoint inside = l->mapTo(&s.w, QPoint(2, l->height() / 2));
      const QColor tile = shot.pixelColor(inside * shot.devicePixelRatio());
      QVERIFY2(Contrast(l->palette().color(QPalette::WindowText), tile) >= 7.0, qPrintable(l->objectName()));
    }
    // The inactive power-ups read as switched off: fainter than the captions, still legible.
    const double off = Contrast(s.w.lblRebootT->palette().color(QPalette::WindowText), window);
    QVERIFY(off >= 2.0 && off < Contrast(s.w.lblScoreT->palette().color(QPalette::WindowText), window));

    // A quiet board a shade apart from the window, with faint lines.
    const QColor board = s.w.grdMap->BoardColor();
    QVERIFY(Contrast(board, window) > 1.02 && Contrast(board, window) < 1.6);
    QVERIFY(Contrast(s.w.grdMap->LineColor(), board) < 1.6);
  }

 private slots:
  void light() {
    QApplication::setPalette(QApplication::style()->standardPalette());
    Check("light");
  }

  void dark() {
    QApplication::setPalette(DarkPalette());
    Check("dark");
  }

  // On a 96 DPI screen at scale 1 the board's pictures were drawn at build time, with the grid
  // or without it: the window reads no SVG to show them.
  void aBoardAt96DpiReadsNoSvg() {
    Session s;
    QCOMPARE(s.w.logicalDpiX(), 96);
    s.w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s.w));
    s.w.Form_Load();
    (void)s.w.grab();
    s.w.sw.menu.menGrid_Click();
    (void)s.w.grab();
    QVERIFY(!s.w.grdMap->showGrid());
    QCOMPARE(s.w.grdMap->Pictures().SvgReads(), 0);
    s.w.SetPointer(sw::Pointer::Custom);
    QCOMPARE(s.w.cursor().pixmap().size(), QSize(32, 32));
    QCOMPARE(swui::frmMain::AppIcon().availableSizes().size(), 4);
    QVERIFY(!uitest::Mapped("libQt6Svg"));  // the pointer and the icon come from the tables too
    // A size not drawn ahead is drawn from the SVG, which brings in Qt's SVG code only then.
    (void)s.w.grdMap->Pictures().Pixmap(sw::Picture::Virus, 45, 1.0);
    QCOMPARE(s.w.grdMap->Pictures().SvgReads(), 1);
    QVERIFY(uitest::Mapped("libQt6Svg"));
  }

  // The game's style keeps the desktop's and puts off drawing the menu bar's arrow until the menus
  // do not fit; then the arrow is the desktop's own.
  void theMenuBarArrowWhenTheMenusDoNotFit() {
    auto* style = new swui::GameStyle;
    QApplication::setStyle(style);
    QCOMPARE(style->baseStyle()->name(), QStringLiteral("fusion"));
    QMainWindow w;
    for (int i = 1; i <= 8; ++i) w.menuBar()->addMenu(QStringLiteral("Menu %1").arg(i));
    w.resize(160, 100);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* arrow = w.menuBar()->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
    QVERIFY(arrow != nullptr);
    QTRY_VERIFY(arrow->isVisible());
    const QImage real =
        style->baseStyle()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton).pixmap(16).toImage();
    QVERIFY(!real.isNull());
    QCOMPARE(arrow->icon().pixmap(16).toImage(), real);
  }
};

int main(int argc, char** argv) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication app(argc, argv);
  QApplication::setStyle(new swui::GameStyle);  // as the game has it
  TestFrmMainLook t;
  return QTest::qExec(&t, argc, argv);
}
#include "tst_frmMainLook.moc"
