#include "ui/MapGrid.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>

#include "game/Review.h"
#include "ui/Colors.h"
#include "ui/PictureRender.h"
#include "ui/Prerendered.h"

namespace swui {

namespace {

const char* PictureFile(sw::Picture pic) {
  switch (pic) {
    case sw::Picture::Player1: return ":/pictures/player1.svg";
    case sw::Picture::Player2: return ":/pictures/player2.svg";
    case sw::Picture::Player3: return ":/pictures/player3.svg";
    case sw::Picture::Player4: return ":/pictures/player4.svg";
    case sw::Picture::Player5: return ":/pictures/player5.svg";
    case sw::Picture::Player6: return ":/pictures/player6.svg";
    case sw::Picture::Player7: return ":/pictures/player7.svg";
    case sw::Picture::Player8: return ":/pictures/player8.svg";
    case sw::Picture::Player9: return ":/pictures/player9.svg";
    case sw::Picture::Death: return ":/pictures/death.svg";
    case sw::Picture::Virus: return ":/pictures/virus.svg";
    case sw::Picture::Infected: return ":/pictures/infected.svg";
    case sw::Picture::None: break;
  }
  return nullptr;
}

}  // namespace

PictureSet::PictureSet() = default;

PictureSet::~PictureSet() = default;

QImage PictureSet::Prerendered(sw::Picture pic, int device) {
  const char* file = PictureFile(pic);
  if (file == nullptr) return {};
  // ":/pictures/virus.svg" is "virus".
  QByteArray name(file);
  name = name.mid(name.lastIndexOf('/') + 1).chopped(4);
  return PrerenderedImage(name.constData(), device);
}

QImage PictureSet::FromSvg(sw::Picture pic, int device) const {
  // Each size of a picture is drawn once (Pixmap keeps it): a start shows only a few of them.
  const char* file = PictureFile(pic);
  QImage image;
  if (file != nullptr) {
    ++svgReads_;
    image = ReadPicture(QString::fromLatin1(file), device);
  }
  if (image.isNull()) {
    image = QImage(device, device, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
  }
  return image;
}

QPixmap PictureSet::Pixmap(sw::Picture pic, int size, qreal dpr) const {
  const int device = qRound(size * dpr);
  const quint64 key = (quint64(static_cast<int>(pic)) << 48) | (quint64(device) << 16) | quint64(qRound(dpr * 100));
  auto it = cache_.constFind(key);
  if (it != cache_.constEnd()) return *it;
  // Drawn ahead at the common sizes; otherwise from the SVG, read on first use.
  QImage image = Prerendered(pic, device);
  if (image.isNull()) image = FromSvg(pic, device);
  QPixmap pm = QPixmap::fromImage(image);
  pm.setDevicePixelRatio(dpr);
  cache_.insert(key, pm);
  return pm;
}

MapGrid::MapGrid(const PictureSet& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {
  InstallAccessibility();
  setObjectName("grdMap");
  setAccessibleName(tr("Map"));
  setFocusPolicy(Qt::StrongFocus);
  // Every pixel is painted by the board itself: nothing to clear first.
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void MapGrid::SetDimensions(int cols, int rows) {
  if (cols_ == cols && rows_ == rows) return;
  cols_ = std::max(0, cols);
  rows_ = std::max(0, rows);
  cells_.assign(static_cast<size_t>(cols_) * static_cast<size_t>(rows_), sw::Picture::None);
  update();
}

void MapGrid::SetCellSize(int widthPx, int heightPx) {
  if (cellW_ == widthPx && cellH_ == heightPx) return;
  cellW_ = std::max(1, widthPx);
  cellH_ = std::max(1, heightPx);
  update();
}

void MapGrid::setShowGrid(bool on) {
  if (showGrid_ == on) return;
  showGrid_ = on;
  update();
}

void MapGrid::SetPicture(int col, int row, sw::Picture pic) {
  if (col < 0 || row < 0 || col >= cols_ || row >= rows_) return;
  sw::Picture& cell = cells_[static_cast<size_t>(row) * static_cast<size_t>(cols_) + static_cast<size_t>(col)];
  if (cell == pic) return;
  cell = pic;
  update(CellRect(col, row));
  if (reporting_ && !reportDue_) {
    reportDue_ = true;
    QTimer::singleShot(0, this, &MapGrid::ReportChanges);
  }
}

void MapGrid::StartReporting() {
  if (reporting_) return;
  reporting_ = true;
  reported_ = cells_;
}

void MapGrid::ReportChanges() {
  reportDue_ = false;
  reported_.resize(cells_.size(), sw::Picture::None);
  QAccessibleInterface* board = QAccessible::queryAccessibleInterface(this);
  QAccessibleTableInterface* table = board != nullptr ? board->tableInterface() : nullptr;
  if (table == nullptr) return;
  for (int r = 0; r < rows_; ++r)
    for (int c = 0; c < cols_; ++c) {
      const size_t i = static_cast<size_t>(r) * static_cast<size_t>(cols_) + static_cast<size_t>(c);
      const sw::Picture was = reported_[i], now = cells_[i];
      reported_[i] = now;
      if (was == now) continue;
      QAccessibleInterface* cell = table->cellAt(r, c);
      if (cell == nullptr) continue;
      if (sw::PictureWord(was) != sw::PictureWord(now)) {
        QAccessibleEvent named(cell, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&named);
      }
      if (sw::PictureFacing(was) != sw::PictureFacing(now)) {
        QAccessibleEvent described(cell, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&described);
      }
    }
}

sw::Picture MapGrid::PictureAt(int col, int row) const {
  if (col < 0 || row < 0 || col >= cols_ || row >= rows_) return sw::Picture::None;
  return cells_[static_cast<size_t>(row) * static_cast<size_t>(cols_) + static_cast<size_t>(col)];
}

QPoint MapGrid::Origin() const {
  // The block of cells sits centred in the control.
  return {std::max(0, (width() - cols_ * cellW_) / 2), std::max(0, (height() - rows_ * cellH_) / 2)};
}

QRect MapGrid::CellRect(int col, int row) const {
  const QPoint o = Origin();
  return {o.x() + col * cellW_, o.y() + row * cellH_, cellW_, cellH_};
}

QPoint MapGrid::CellAt(QPoint at) const {
  const QPoint o = Origin();
  if (at.x() < o.x() || at.y() < o.y()) return {-1, -1};
  const int col = (at.x() - o.x()) / cellW_, row = (at.y() - o.y()) / cellH_;
  return col < cols_ && row < rows_ ? QPoint(col, row) : QPoint(-1, -1);
}

void MapGrid::SetOutline(int col, int row) {
  const QPoint cell = col >= 0 && row >= 0 && col < cols_ && row < rows_ ? QPoint(col, row) : QPoint(-1, -1);
  if (cell == outline_) return;
  // Only the two cells whose outline changes are painted again.
  if (outline_.x() >= 0) update(CellRect(outline_.x(), outline_.y()));
  outline_ = cell;
  if (outline_.x() >= 0) update(CellRect(outline_.x(), outline_.y()));
}

QColor MapGrid::BoardColor() const {
  // A quiet board a shade away from the window, so that the pictures stand out.
  const QPalette& pal = palette();
  return Mix(pal.color(QPalette::Base), pal.color(QPalette::Window), 0.35);
}

QColor MapGrid::LineColor() const { return Mix(BoardColor(), palette().color(QPalette::Text), 0.12); }

void MapGrid::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  // The cells that changed are scattered over the board: each is painted on its own.
  for (const QRect& dirty : e->region()) {
    PaintArea(p, dirty);
    painted_ += qint64{dirty.width()} * dirty.height();
  }
}

void MapGrid::PaintArea(QPainter& p, const QRect& dirty) {
  const QPoint o = Origin();
  const QRect board(o.x(), o.y(), cols_ * cellW_, rows_ * cellH_);
  const QRect area = dirty & board;
  // The surround, where the dirty rectangle reaches past the board.
  if (area != dirty) p.fillRect(dirty, palette().color(QPalette::Window));
  if (area.isEmpty()) return;
  p.fillRect(area, BoardColor());
  // Only the cells that the dirty rectangle touches, with their own stretches of line.
  const int c0 = (area.left() - o.x()) / cellW_, c1 = (area.right() - o.x()) / cellW_;
  const int r0 = (area.top() - o.y()) / cellH_, r1 = (area.bottom() - o.y()) / cellH_;
  if (showGrid_) {
    // Each cell has its line on the right and at the bottom; the block is closed on
    // the left and top. Lines are one-pixel rectangles: the painter's quickest fill.
    const QColor lineColor = LineColor();
    for (int c = c0; c <= std::min(c1 + 1, cols_); ++c) {
      const int x = c == 0 ? board.left() : board.left() + c * cellW_ - 1;
      if (x >= area.left() && x <= area.right()) p.fillRect(QRect(x, area.top(), 1, area.height()), lineColor);
    }
    for (int r = r0; r <= std::min(r1 + 1, rows_); ++r) {
      const int y = r == 0 ? board.top() : board.top() + r * cellH_ - 1;
      if (y >= area.top() && y <= area.bottom()) p.fillRect(QRect(area.left(), y, area.width(), 1), lineColor);
    }
  }
  // Inside the grid lines of the right and bottom edges.
  const int line = showGrid_ ? 1 : 0;
  const int inner = std::min(cellW_, cellH_) - line;
  if (inner <= 0) return;
  const qreal dpr = p.device()->devicePixelRatioF();
  const bool outlined = outline_.x() >= c0 && outline_.x() <= c1 && outline_.y() >= r0 && outline_.y() <= r1;
  // The landing cell: a soft wash under its picture and a ring over it, inside the grid lines.
  const QColor mark = palette().color(QPalette::Highlight);
  const QRectF landing =
      outlined ? QRectF(CellRect(outline_.x(), outline_.y()).adjusted(0, 0, -line, -line)) : QRectF();
  if (outlined) p.fillRect(landing.intersected(QRectF(area)), QColor(mark.red(), mark.green(), mark.blue(), 48));
  for (int r = r0; r <= r1; ++r)
    for (int c = c0; c <= c1; ++c) {
      const sw::Picture pic = cells_[static_cast<size_t>(r) * static_cast<size_t>(cols_) + static_cast<size_t>(c)];
      if (pic == sw::Picture::None) continue;
      const QRect cell = CellRect(c, r);
      p.drawPixmap(
          QPoint(cell.left() + (cell.width() - line - inner) / 2, cell.top() + (cell.height() - line - inner) / 2),
          pictures_.Pixmap(pic, inner, dpr));
    }
  if (!outlined) return;
  const qreal pen = std::max(2, inner / 16);
  p.save();
  p.setClipRect(area);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(mark, pen));
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(landing.adjusted(pen / 2 + 1, pen / 2 + 1, -pen / 2 - 1, -pen / 2 - 1), pen * 2, pen * 2);
  p.restore();
}

void MapGrid::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  update();
}

void MapGrid::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  if (e->type() == QEvent::PaletteChange || e->type() == QEvent::StyleChange) {
    update();
  }
}

}  // namespace swui
