#include "ui/BoardInput.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleHints>

#include "game/PlayerInput.h"
#include "ui/MapGrid.h"
#include "ui/PictureRender.h"

namespace swui {

BoardInput::BoardInput(MapGrid& grdMap, sw::PlayerInput& input, QWidget& window)
    : grdMap_(grdMap), input_(input), window_(window) {
  hold_.setSingleShot(true);
  connect(&hold_, &QTimer::timeout, this, &BoardInput::Held);
  grdMap_.installEventFilter(this);
}

sw::CoordPair BoardInput::CellAt(QPoint at) const {
  const QPoint cell = grdMap_.CellAt(at);
  return sw::CoordPair{static_cast<int16_t>(cell.x()), static_cast<int16_t>(cell.y())};
}

void BoardInput::Hover(std::optional<QPoint> at) { input_.grdMap_MouseMove(at ? CellAt(*at) : sw::CoordPair{}); }

bool BoardInput::eventFilter(QObject* watched, QEvent* e) {
  if (watched != &grdMap_) return false;
  switch (e->type()) {
    case QEvent::MouseMove: {
      auto* me = static_cast<QMouseEvent*>(e);
      // A finger that moves is no hold: it shows the step toward it.
      if (hold_.isActive() &&
          (me->position().toPoint() - touchStart_).manhattanLength() > QApplication::startDragDistance())
        hold_.stop();
      touchAt_ = me->position().toPoint();
      Hover(touchAt_);
      return false;  // the window's pointer rule sees it too
    }
    case QEvent::Enter: Hover(static_cast<QEnterEvent*>(e)->position().toPoint()); return false;
    case QEvent::Leave: Hover(std::nullopt); return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {  // two quick clicks are two steps
      auto* me = static_cast<QMouseEvent*>(e);
      if (me->button() == Qt::RightButton) {
        menuAt_ = me->globalPosition().toPoint();
        input_.grdMap_MouseDown(2);
        return true;
      }
      if (me->button() != Qt::LeftButton) return false;
      pressed_ = true;
      held_ = false;
      // A finger (the toolkit turns a touch the board does not take into mouse events) held still opens the menu.
      touchStart_ = touchAt_ = me->position().toPoint();
      if (Touching(*me)) hold_.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
      return false;
    }
    case QEvent::MouseButtonRelease: {
      auto* me = static_cast<QMouseEvent*>(e);
      if (me->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return false;
      hold_.stop();
      // Released off the board (the board keeps the pointer while a button is down), or after a hold: nothing.
      const sw::CoordPair cell = CellAt(me->position().toPoint());
      if (!held_ && cell.nCol >= 0) input_.grdMap_MouseUp(1, cell);  // a tap is a click too
      if (Touching(*me)) Hover(std::nullopt);                        // the finger has gone
      return true;
    }
    case QEvent::ContextMenu: return true;  // the secondary button's press opens the menu
    default: return false;
  }
}

bool BoardInput::Touching(const QMouseEvent& e) {
  return e.pointingDevice() != nullptr && e.pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
}

void BoardInput::Held() {
  held_ = true;
  menuAt_ = grdMap_.mapToGlobal(touchAt_);
  input_.grdMap_MouseDown(2);
}

int16_t BoardInput::PopupMenu(const std::vector<sw::PopupItem>& items) {
  QMenu menu(&window_);
  menu.setObjectName("menBoard");
  menu.setAccessibleName(tr("Board"));
  // A click that closes the menu takes no step, and while it is open no cell is outlined.
  menu.setAttribute(Qt::WA_NoMouseReplay);
  Hover(std::nullopt);
  std::vector<QAction*> actions;
  for (const sw::PopupItem& item : items) {
    QAction* a = menu.addAction(QString::fromStdString(item.caption));
    a->setEnabled(item.bEnabled);
    actions.push_back(a);
  }
  QAction* chosen = menu.exec(menuAt_.value_or(QCursor::pos()));
  menuAt_.reset();
  for (size_t i = 0; i < actions.size(); ++i)
    if (actions[i] == chosen) return static_cast<int16_t>(i);
  return -1;
}

QCursor BoardInput::StepPointer(int16_t nDir) const {
  const qreal dpr = grdMap_.devicePixelRatioF();
  const int device = qRound(32 * dpr);
  const auto key = std::pair{int{nDir}, device};
  if (auto it = pointers_.find(key); it != pointers_.end()) return it->second;
  // Drawn ahead at the sizes of a 96 DPI screen at scale 1 and 2, from the SVG at any other.
  QPixmap pm = QPixmap::fromImage(PictureImage(QByteArray("pointer").append(char('0' + nDir)).constData(), device));
  QCursor pointer(Qt::ArrowCursor);
  if (!pm.isNull()) {
    pm.setDevicePixelRatio(dpr);
    // The hot spot is the centre. X11 takes it in the picture's own pixels, not at the screen's scale.
    const int hot = QGuiApplication::platformName() == QLatin1String("xcb") ? device / 2 : 16;
    pointer = QCursor(pm, hot, hot);
  }
  return pointers_.emplace(key, pointer).first->second;
}

void BoardInput::ShowStep(sw::Direction nDir, const sw::CoordPair& ct) {
  grdMap_.SetOutline(ct.nCol, ct.nRow);
  const int16_t n = sw::DirCode(nDir);
  shown_ = n >= 1 && n <= 9 ? n : 0;
  if (shown_ != 0)
    grdMap_.setCursor(StepPointer(shown_));
  else
    grdMap_.unsetCursor();  // the window's own pointer: the arrow, the custom one, the hourglass
}

}  // namespace swui
