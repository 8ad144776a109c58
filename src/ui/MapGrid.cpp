#include "ui/MapGrid.h"

#include <QHeaderView>
#include <QPainter>
#include <QSvgRenderer>

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

class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(const PictureSet& pictures, QObject* parent) : QStyledItemDelegate(parent), pictures_(pictures) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const auto pic = static_cast<sw::Picture>(index.data(MapGrid::kPictureRole).toInt());
    if (pic == sw::Picture::None) return;
    const QRect r = option.rect;
    const int size = std::min(r.width(), r.height());
    if (size <= 0) return;
    const qreal dpr = painter->device() != nullptr ? painter->device()->devicePixelRatioF() : 1.0;
    const QPixmap pm = pictures_.Pixmap(pic, size, dpr);
    painter->drawPixmap(QPoint(r.left() + (r.width() - size) / 2, r.top() + (r.height() - size) / 2), pm);
  }

 private:
  const PictureSet& pictures_;
};

}  // namespace

PictureSet::PictureSet() {
  for (int i = 1; i <= 12; ++i) {
    const auto pic = static_cast<sw::Picture>(i);
    renderers_[pic] = std::make_unique<QSvgRenderer>(QString::fromLatin1(PictureFile(pic)));
  }
}

PictureSet::~PictureSet() = default;

QSvgRenderer* PictureSet::Renderer(sw::Picture pic) const {
  auto it = renderers_.find(pic);
  return it == renderers_.end() ? nullptr : it->second.get();
}

QPixmap PictureSet::Pixmap(sw::Picture pic, int size, qreal dpr) const {
  const int device = qRound(size * dpr);
  const quint64 key = (quint64(static_cast<int>(pic)) << 48) | (quint64(device) << 16) | quint64(qRound(dpr * 100));
  auto it = cache_.constFind(key);
  if (it != cache_.constEnd()) return *it;
  QPixmap pm(device, device);
  pm.fill(Qt::transparent);
  if (QSvgRenderer* r = Renderer(pic); r != nullptr && r->isValid()) {
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    r->render(&p, QRectF(0, 0, device, device));
  }
  pm.setDevicePixelRatio(dpr);
  cache_.insert(key, pm);
  return pm;
}

QString PictureSet::AccessibleText(sw::Picture pic) {
  switch (pic) {
    case sw::Picture::Player8: return QStringLiteral("Whisk facing up");
    case sw::Picture::Player9: return QStringLiteral("Whisk facing up-right");
    case sw::Picture::Player6: return QStringLiteral("Whisk facing right");
    case sw::Picture::Player3: return QStringLiteral("Whisk facing down-right");
    case sw::Picture::Player2: return QStringLiteral("Whisk facing down");
    case sw::Picture::Player1: return QStringLiteral("Whisk facing down-left");
    case sw::Picture::Player4: return QStringLiteral("Whisk facing left");
    case sw::Picture::Player7: return QStringLiteral("Whisk facing up-left");
    case sw::Picture::Player5: return QStringLiteral("Whisk standing");
    case sw::Picture::Virus: return QStringLiteral("virus");
    case sw::Picture::Infected: return QStringLiteral("infected server");
    case sw::Picture::Death: return QStringLiteral("dead mouse");
    case sw::Picture::None: break;
  }
  return QString();
}

MapGrid::MapGrid(const PictureSet& pictures, QWidget* parent) : QTableWidget(parent) {
  setObjectName("grdMap");
  setAccessibleName("grdMap");
  horizontalHeader()->hide();
  verticalHeader()->hide();
  horizontalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::NoSelection);
  setFocusPolicy(Qt::NoFocus);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::NoFrame);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setItemDelegate(new CellDelegate(pictures, this));
}

void MapGrid::SetDimensions(int cols, int rows) {
  if (columnCount() == cols && rowCount() == rows) return;
  setColumnCount(cols);
  setRowCount(rows);
  for (int r = 0; r < rows; ++r)
    for (int c = 0; c < cols; ++c)
      if (item(r, c) == nullptr) {
        auto* it = new QTableWidgetItem();
        it->setFlags(Qt::ItemIsEnabled);
        it->setData(kPictureRole, 0);
        setItem(r, c, it);
      }
  CentreCells();
}

void MapGrid::SetCellSize(int widthPx, int heightPx) {
  for (int c = 0; c < columnCount(); ++c) setColumnWidth(c, widthPx);
  for (int r = 0; r < rowCount(); ++r) setRowHeight(r, heightPx);
  CentreCells();
}

void MapGrid::SetPicture(int col, int row, sw::Picture pic) {
  QTableWidgetItem* it = item(row, col);
  if (it == nullptr) return;
  it->setData(kPictureRole, static_cast<int>(pic));
  it->setData(Qt::AccessibleTextRole, PictureSet::AccessibleText(pic));
}

sw::Picture MapGrid::PictureAt(int col, int row) const {
  const QTableWidgetItem* it = item(row, col);
  return it == nullptr ? sw::Picture::None : static_cast<sw::Picture>(it->data(kPictureRole).toInt());
}

void MapGrid::CentreCells() {
  int w = 0, h = 0;
  for (int c = 0; c < columnCount(); ++c) w += columnWidth(c);
  for (int r = 0; r < rowCount(); ++r) h += rowHeight(r);
  const int left = std::max(0, (width() - w) / 2);
  const int top = std::max(0, (height() - h) / 2);
  setViewportMargins(left, top, std::max(0, width() - w - left), std::max(0, height() - h - top));
}

void MapGrid::paintEvent(QPaintEvent* e) {
  QTableWidget::paintEvent(e);
  if (!showGrid()) return;
  // The view draws each cell's right and bottom line; close the block on the left and top.
  QPainter p(viewport());
  QStyleOptionViewItem opt;
  initViewItemOption(&opt);
  p.setPen(QColor::fromRgba(static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &opt, this))));
  const int w = horizontalHeader()->length();
  const int h = verticalHeader()->length();
  p.drawLine(0, 0, w - 1, 0);
  p.drawLine(0, 0, 0, h - 1);
}

void MapGrid::resizeEvent(QResizeEvent* e) {
  QTableWidget::resizeEvent(e);
  CentreCells();
}

}  // namespace swui
