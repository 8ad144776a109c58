#include "ui/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QTimer>
#include <utility>

#include "ui/Accessible.h"
#include "ui/BoardInput.h"
#include "ui/Heap.h"
#include "ui/ProgBar.h"
#include "ui/frmCommandList.h"
#include "ui/frmDebugMark.h"
#include "ui/frmHighScore.h"
#include "ui/frmMsgBox.h"
#include "ui/frmSelect.h"

// The pictures are compiled into the UI library; make sure they are linked in.
static void InitAssets() { Q_INIT_RESOURCE(assets); }

namespace swui {

namespace {

using sw::Label;
using sw::Menu;
using sw::Picture;
using sw::Pointer;

// The map the window is laid out for until the first game sizes it.
constexpr int16_t kDesignCols = 24, kDesignRows = 14;

}  // namespace

// ---------------------------------------------------------------------------
// Construction

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
  InitAssets();
  setObjectName("frmMain");
  setWindowTitle("Skitterweb");
  tw_ = Twips::Of(*this);
  // The window's own captions and counters are plain Latin text: drawn from the font's glyphs and
  // advances, without the shaping engine, whose work and code would cost the start for nothing
  // (text in a script that needs shaping is still shaped).
  QFont font(QStringLiteral("MS Sans Serif"), 8);
  font.setStyleStrategy(QFont::PreferNoShaping);
  setFont(font);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);

  central_ = new QWidget(this);
  central_->setObjectName("frmMainClient");
  central_->setMouseTracking(true);
  central_->installEventFilter(this);
  setCentralWidget(central_);

  grdMap = new MapGrid(pictures_, central_);
  grdMap->setMouseTracking(true);
  grdMap->installEventFilter(this);
  grdMapInput_ = std::make_unique<BoardInput>(*grdMap, sw.input, *this);

  BuildInfoBar();
  BuildMenus();
  ApplyLook();

  grdMap->SetDimensions(kDesignCols, kDesignRows);
  const int32_t width = std::max<int32_t>(kDesignCols * sw::twips::kCell, sw::twips::kMinWidth);
  const int32_t height = kDesignRows * sw::twips::kCell + sw::twips::kInfoBarHeight + sw::twips::kFrameHeight;
  SetWindowSize(width, height, width);
  grdMap->SetCellSize(tw_.X(sw::twips::kCellGridOn), tw_.Y(sw::twips::kCellGridOn));
}

frmMain::~frmMain() = default;

// ---------------------------------------------------------------------------
// Start-up and the window's events

void frmMain::Form_Load() {
  sw.menu.Form_Load();
  grdMap->setFocus();
}

void frmMain::Form_KeyDown() { SetPointer(Pointer::Custom); }

void frmMain::Form_MouseMove() {
  if (pointer_ != Pointer::Hourglass) SetPointer(Pointer::Arrow);
}

int16_t frmMain::KeyAsciiOf(const QKeyEvent& e) {
  const QString text = e.text();
  if (!text.isEmpty()) return static_cast<int16_t>(text.at(0).unicode());
  if (!(e.modifiers() & Qt::KeypadModifier)) return 0;
  // With Num Lock off the number pad sends navigation keys: the digits they carry.
  switch (e.key()) {
    case Qt::Key_Home: return '7';
    case Qt::Key_Up: return '8';
    case Qt::Key_PageUp: return '9';
    case Qt::Key_Left: return '4';
    case Qt::Key_Clear: return '5';
    case Qt::Key_Right: return '6';
    case Qt::Key_End: return '1';
    case Qt::Key_Down: return '2';
    case Qt::Key_PageDown: return '3';
    case Qt::Key_Insert: return '0';
    case Qt::Key_Delete: return '.';
    default: return 0;
  }
}

std::optional<sw::ReviewKey> frmMain::ReviewKeyOf(const QKeyEvent& e) {
  if (e.modifiers() & (Qt::KeypadModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return {};
  switch (e.key()) {
    case Qt::Key_Left: return sw::ReviewKey::Left;
    case Qt::Key_Right: return sw::ReviewKey::Right;
    case Qt::Key_Up: return sw::ReviewKey::Up;
    case Qt::Key_Down: return sw::ReviewKey::Down;
    case Qt::Key_Home: return sw::ReviewKey::Whisk;
    case Qt::Key_End: return sw::ReviewKey::NearestVirus;
    default: return {};
  }
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
  const bool handled = QMainWindow::event(e);
  if (e->type() == QEvent::Paint && firstFrameDue_) {
    firstFrameDue_ = false;
    // The start sound, and its pause, follow the first frame.
    QTimer::singleShot(0, this, &frmMain::RunStartSteps);
  }
  return handled;
}

void frmMain::keyPressEvent(QKeyEvent* e) {
  Form_KeyDown();
  if (const std::optional<sw::ReviewKey> review = ReviewKeyOf(*e)) {
    // Reading the board plays no turn, and works while a pause runs too.
    e->accept();
    sw.review.Key(*review);
    return;
  }
  const int16_t KeyAscii = KeyAsciiOf(*e);
  if (KeyAscii == 0) {
    QMainWindow::keyPressEvent(e);
    return;
  }
  e->accept();
  sw.input.Form_KeyPress(KeyAscii);
}

void frmMain::closeEvent(QCloseEvent* e) {
  if (quitting_) {
    e->accept();
    return;
  }
  e->ignore();
  sw.menu.Form_Unload();
}

bool frmMain::eventFilter(QObject* watched, QEvent* e) {
  if (watched == grdMap && e->type() == QEvent::KeyPress) {
    // The board holds the focus; every key typed there, Tab too, is the window's.
    keyPressEvent(static_cast<QKeyEvent*>(e));
    return true;
  }
  if (e->type() == QEvent::MouseMove) {
    Form_MouseMove();
  } else if (e->type() == QEvent::MouseButtonPress && (watched == lblDiff || watched == lblDiffT)) {
    auto* me = static_cast<QMouseEvent*>(e);
    const int16_t button = me->button() == Qt::LeftButton ? 1 : me->button() == Qt::RightButton ? 2 : 4;
    sw.menu.lblDiff_MouseDown(button);
    return true;
  }
  return QMainWindow::eventFilter(watched, e);
}

// ---------------------------------------------------------------------------
// IMainWindow

void frmMain::SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) {
  if (nCol < 0 || nRow < 0 || nCol >= grdMap->columnCount() || nRow >= grdMap->rowCount()) return;
  grdMap->SetPicture(nCol, nRow, pic);
}

// Paints what has changed since the last paint (the cells moved, a label), now.
void frmMain::Refresh() { QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest); }

void frmMain::SetWindowSize(int32_t widthTw, int32_t heightTw, int32_t infoBarWidthTw) {
  // The client area holds the grid with the information bar below it; the
  // title bar, menu bar and borders come on top, as the window system draws them.
  const int32_t gridH = heightTw - sw::twips::kInfoBarHeight - sw::twips::kFrameHeight;
  central_->setFixedSize(tw_.X(widthTw), tw_.Y(gridH) + tw_.Y(sw::twips::kInfoBarHeight));
  pctInfoBar->setGeometry(0, tw_.Y(gridH), tw_.X(infoBarWidthTw), tw_.Y(sw::twips::kInfoBarHeight));
  widthTw_ = widthTw;
  heightTw_ = heightTw;
  PlaceGrid();
  layout()->activate();
  setFixedSize(sizeHint());
}

void frmMain::PlaceGrid() {
  // Centred over the information bar when the map is narrower than the window.
  grdMap->setGeometry(tw_.X((widthTw_ - gridWidthTw_) / 2), 0, tw_.X(gridWidthTw_), tw_.Y(gridHeightTw_));
}

void frmMain::SetGridLayout(int16_t cols, int16_t rows, int32_t widthTw, int32_t heightTw, int16_t cellTw,
                            bool bLines) {
  grdMap->SetDimensions(cols, rows);
  gridWidthTw_ = widthTw;
  gridHeightTw_ = heightTw;
  PlaceGrid();
  grdMap->setShowGrid(bLines);
  grdMap->SetCellSize(tw_.X(cellTw), tw_.Y(cellTw));
}

QLabel* frmMain::Caption(Label lbl) const {
  auto it = labels_.find(lbl);
  return it == labels_.end() ? nullptr : it->second;
}

void frmMain::SetCaption(Label lbl, const std::string& text) {
  if (QLabel* l = Caption(lbl)) SetLabelText(l, QString::fromStdString(text));
}

QColor frmMain::ToQColor(uint32_t bgr) {
  // System colours (the high bit set) follow the desktop's palette.
  switch (bgr) {
    case sw::color::ButtonText: return QApplication::palette().color(QPalette::ButtonText);
    case 0x8000000D: return QApplication::palette().color(QPalette::Highlight);
    case 0x8000000F: return QApplication::palette().color(QPalette::Button);
    default: return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
  }
}

void frmMain::SetLabelColors(Label lbl, uint32_t backColor, uint32_t foreColor) {
  QLabel* l = Caption(lbl);
  if (l == nullptr) return;
  // The counter's tile takes the game's colour. Unchanged colours paint nothing.
  const QColor back = ToQColor(backColor), fore = ToQColor(foreColor);
  if (l->property("gameBackColor").value<QColor>() == back && l->palette().color(QPalette::WindowText) == fore) return;
  QPalette pal = l->palette();
  pal.setColor(QPalette::WindowText, fore);
  l->setPalette(pal);
  l->setProperty("gameBackColor", back);
  l->update();
}

void frmMain::SetLabelForeColor(Label lbl, uint32_t foreColor) {
  QLabel* l = Caption(lbl);
  if (l == nullptr) return;
  QPalette pal = l->palette();
  pal.setColor(QPalette::WindowText, ToQColor(foreColor));
  l->setPalette(pal);
}

void frmMain::ShowLagBar(const sw::ProgBarState& bar) {
  pbrNetLag->setMin(bar.Min);
  pbrNetLag->setMax(bar.Max);
  pbrNetLag->setBarColor(ToQColor(bar.BarColor));
  pbrNetLag->setValue(bar.Value);
  // The tier, told by colour on screen, in words for a screen reader.
  const std::string tier = sw::LagTierWord(bar);
  const QString description = tier.empty() ? tr("no lag") : QStringLiteral("lag: %1").arg(QString::fromStdString(tier));
  if (pbrNetLag->accessibleDescription() != description) pbrNetLag->setAccessibleDescription(description);
}

void frmMain::Announce(const std::string& text) { announcer->Say(QString::fromStdString(text)); }

// (While the window is being taken down, the board's side is gone first: nothing to show.)
void frmMain::ShowStep(sw::Direction nDir, const sw::CoordPair& ctOutline) {
  if (grdMapInput_) grdMapInput_->ShowStep(nDir, ctOutline);
}

int16_t frmMain::PopupMenu(const std::vector<sw::PopupItem>& items) {
  if (!grdMapInput_) return -1;
  const int16_t chosen = grdMapInput_->PopupMenu(items);
  ReturnFocus();
  return chosen;
}

sw::MsgAnswer frmMain::MsgBox(const std::string& text, sw::MsgButtons nButtons, const std::string& szTitle) {
  frmMsgBox box(DialogParent(), widthTw_);
  box.Setup(QString::fromStdString(text), nButtons, QString::fromStdString(szTitle));
  const sw::MsgAnswer answer = box.ShowModal();
  ReturnFocus();
  return answer;
}

QAction* frmMain::MenuAction(Menu item) const {
  const int i = static_cast<int>(item);
  if (item >= Menu::menDiffLevel1 && item <= Menu::menDiffLevel4)
    return menDiffLevel[static_cast<size_t>(i - static_cast<int>(Menu::menDiffLevel1) + 1)];
  if (item >= Menu::menStartSiteNum0 && item <= Menu::menStartSiteNum9)
    return menStartSiteNum[static_cast<size_t>(i - static_cast<int>(Menu::menStartSiteNum0))];
  switch (item) {
    case Menu::menSound: return menSound;
    case Menu::menGrid: return menGrid;
    case Menu::menUseDL: return menUseDL;
    case Menu::menClearDL: return menClearDL;
    case Menu::menMarkDL: return menMarkDL;
    default: return nullptr;
  }
}

void frmMain::SetMenuChecked(Menu item, bool checked) {
  if (QAction* a = MenuAction(item)) a->setChecked(checked);
}

void frmMain::SetMenuEnabled(Menu item, bool enabled) {
  if (QAction* a = MenuAction(item)) a->setEnabled(enabled);
}

void frmMain::ShowDialog(sw::Dialog which) {
  // Each dialog's form is built on its Qt-free half, shown modally, and gone when closed.
  switch (which) {
    case sw::Dialog::frmHighScore: {
      frmHighScore form(sw.webmasters, this);
      form.exec();
      break;
    }
    case sw::Dialog::frmCommandList: {
      frmCommandList form(sw.controls, this);
      form.exec();
      break;
    }
    case sw::Dialog::frmSelect: {
      frmSelect form(sw.select, DialogParent());
      form.exec();
      break;
    }
    case sw::Dialog::frmDebugMark: {
      frmDebugMark form(sw.mark, this);
      form.exec();
      break;
    }
  }
  ReturnFocus();
}

QWidget* frmMain::DialogParent() {
  if (starting_ && !isVisible()) {
    // A box at start stands alone (with the program's icon) before the window, which is not
    // ready yet; what waited for the window (the box's sound) happens now.
    if (!noticeAtStart_) {
      noticeAtStart_ = true;
      QApplication::setWindowIcon(AppIcon());
      RunStartSteps();
    }
    return nullptr;
  }
  // A box or dialog opened from a dialog stands over that dialog.
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : this;
}

void frmMain::ReturnFocus() {
  // What the closed box or dialog took goes back to the system once it is gone.
  QTimer::singleShot(0, this, &ReturnFreeMemory);
  // Back to the board, unless a dialog is still open or the window is not up yet.
  if (QApplication::activeModalWidget() != nullptr || !isVisible()) return;
  activateWindow();
  grdMap->setFocus();
}

void frmMain::SendKeys(const std::string& keys) {
  if (keys != "{F1}") return;
  QCoreApplication::postEvent(this, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
  QCoreApplication::postEvent(this, new QKeyEvent(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier));
}

void frmMain::EndProgram() {
  quitting_ = true;
  QCoreApplication::exit(0);
}

}  // namespace swui
