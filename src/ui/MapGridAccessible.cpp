// The board as assistive technology reads it: a table of named cells.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QWindow>

#include "game/Review.h"
#include "ui/MapGrid.h"

namespace swui {

namespace {

// One cell of the board: named by what it holds, at its row and column.
class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  CellAccessible(MapGrid* grid, int row, int col) : grid_(grid), row_(row), col_(col) {}

  bool isValid() const override { return grid_ && row_ < grid_->rowCount() && col_ < grid_->columnCount(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return grid_ ? grid_->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(grid_.data()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text t) const override {
    if (!isValid()) return QString();
    const sw::Picture pic = grid_->PictureAt(col_, row_);
    if (t == QAccessible::Name) return QString::fromStdString(sw::PictureWord(pic));
    if (t == QAccessible::Description) return QString::fromStdString(sw::PictureFacing(pic));
    return QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!isValid()) return QRect();
    const QRect r = grid_->CellRect(col_, row_);
    return QRect(grid_->mapToGlobal(r.topLeft()), r.size());
  }
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QAccessible::State state() const override {
    QAccessible::State s;
    if (!grid_ || !grid_->isVisible()) s.invisible = true;
    return s;
  }
  void* interface_cast(QAccessible::InterfaceType t) override {
    return t == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
  }

  bool isSelected() const override { return false; }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return col_; }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  QPointer<MapGrid> grid_;
  int row_, col_;
};

// The board: a table of 14 rows and 24 columns. Cells are made when first asked for
// and kept for as long as the board lives, so that each keeps its identity.
class BoardAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit BoardAccessible(MapGrid* grid) : QAccessibleWidget(grid, QAccessible::Table) { grid->StartReporting(); }
  ~BoardAccessible() override {
    for (QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
  }

  MapGrid* grid() const { return static_cast<MapGrid*>(widget()); }
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(t);
  }

  int childCount() const override { return rowCount() * columnCount(); }
  QAccessibleInterface* child(int index) const override {
    const int cols = columnCount();
    return (index < 0 || cols == 0) ? nullptr : cellAt(index / cols, index % cols);
  }
  int indexOfChild(const QAccessibleInterface* iface) const override {
    if (iface == nullptr || iface->role() != QAccessible::Cell) return -1;
    auto* cell = const_cast<QAccessibleInterface*>(iface)->tableCellInterface();
    if (cell == nullptr || cell->table() != this) return -1;
    return cell->rowIndex() * columnCount() + cell->columnIndex();
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint p = grid()->mapFromGlobal(QPoint(x, y));
    for (int r = 0; r < rowCount(); ++r)
      for (int c = 0; c < columnCount(); ++c)
        if (grid()->CellRect(c, r).contains(p)) return cellAt(r, c);
    return nullptr;
  }

  QAccessibleInterface* cellAt(int row, int column) const override {
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
    const int key = row * 1024 + column;
    if (auto it = cells_.constFind(key); it != cells_.constEnd()) return QAccessible::accessibleInterface(*it);
    auto* cell = new CellAccessible(grid(), row, column);
    cells_.insert(key, QAccessible::registerAccessibleInterface(cell));
    return cell;
  }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QString columnDescription(int) const override { return QString(); }
  QString rowDescription(int) const override { return QString(); }
  int columnCount() const override { return grid()->columnCount(); }
  int rowCount() const override { return grid()->rowCount(); }
  int selectedCellCount() const override { return 0; }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override { return 0; }
  QList<QAccessibleInterface*> selectedCells() const override { return {}; }
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

 private:
  mutable QHash<int, QAccessible::Id> cells_;
};

QAccessibleInterface* BoardFactory(const QString& className, QObject* object) {
  if (object == nullptr || className != QLatin1String("swui::MapGrid")) return nullptr;
  return new BoardAccessible(static_cast<MapGrid*>(object));
}

}  // namespace

void MapGrid::InstallAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(BoardFactory);
    return true;
  }();
  (void)installed;
}

}  // namespace swui
