// The webmaster lists' rows as a screen reader reads them: a table with its caption, column headers
// and cells, the name boxes inside their cells.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QWindow>

#include "ui/frmHighScore.h"

namespace swui {

namespace {

// A cell of the lists' table, or one of its column headers (row 0): named by the name set on it
// (a place without its dot), or else by its label's text or the text of the box it holds.
class ListCellAccessible : public QAccessibleWidget, public QAccessibleTableCellInterface {
 public:
  ListCellAccessible(QWidget* w, ListTable* table, int row, int col)
      : QAccessibleWidget(w, row == 0 ? QAccessible::ColumnHeader : QAccessible::Cell), table_(table), row_(row),
        col_(col) {}
  QString text(QAccessible::Text t) const override {
    if (t != QAccessible::Name || !widget()->accessibleName().isEmpty()) return QAccessibleWidget::text(t);
    if (const auto* label = qobject_cast<const QLabel*>(widget())) return label->text();
    const auto* box = widget()->findChild<QLineEdit*>();
    return box != nullptr ? box->text() : QString();
  }
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::TableCellInterface && row_ > 0) return static_cast<QAccessibleTableCellInterface*>(this);
    return QAccessibleWidget::interface_cast(t);
  }
  bool isSelected() const override { return false; }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    return {QAccessible::queryAccessibleInterface(table_->cells[0][static_cast<size_t>(col_)])};
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return col_; }
  int rowIndex() const override { return row_ - 1; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return QAccessible::queryAccessibleInterface(table_); }

 private:
  ListTable* table_;
  int row_, col_;
};

// The table's caption: the list shown, as the table is named.
class CaptionAccessible : public QAccessibleInterface {
 public:
  explicit CaptionAccessible(ListTable* table) : table_(table) {}
  bool isValid() const override { return !table_.isNull(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return table_ ? table_->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(table_.data()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text t) const override {
    return (t == QAccessible::Name && table_) ? table_->accessibleName() : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override { return QRect(); }
  QAccessible::Role role() const override { return QAccessible::StaticText; }
  QAccessible::State state() const override { return {}; }

 private:
  QPointer<ListTable> table_;
};

// The lists' table: the headings first, then the ten rows of four cells.
class ListTableAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit ListTableAccessible(ListTable* t) : QAccessibleWidget(t, QAccessible::Table) {}
  ~ListTableAccessible() override {
    if (caption_ != 0) QAccessible::deleteAccessibleInterface(caption_);
  }
  ListTable* list() const { return static_cast<ListTable*>(widget()); }
  QWidget* At(int index) const {
    return (index < 0 || index >= 44) ? nullptr : list()->cells[static_cast<size_t>(index / 4)][index % 4];
  }
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(t);
  }

  int childCount() const override { return 44; }
  QAccessibleInterface* child(int index) const override { return QAccessible::queryAccessibleInterface(At(index)); }
  int indexOfChild(const QAccessibleInterface* iface) const override {
    const auto [row, col] = iface != nullptr ? list()->Where(iface->object()) : std::pair{-1, -1};
    return row < 0 ? -1 : row * 4 + col;
  }

  QAccessibleInterface* cellAt(int row, int column) const override {
    return (row < 0 || row >= 10 || column < 0 || column >= 4) ? nullptr : child((row + 1) * 4 + column);
  }
  QAccessibleInterface* caption() const override {
    if (caption_ == 0) caption_ = QAccessible::registerAccessibleInterface(new CaptionAccessible(list()));
    return QAccessible::accessibleInterface(caption_);
  }
  QAccessibleInterface* summary() const override { return nullptr; }
  QString columnDescription(int column) const override {
    QAccessibleInterface* heading = child(column);
    return heading != nullptr ? heading->text(QAccessible::Name) : QString();
  }
  QString rowDescription(int) const override { return QString(); }
  int columnCount() const override { return 4; }
  int rowCount() const override { return 10; }
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
  mutable QAccessible::Id caption_ = 0;
};

QAccessibleInterface* ListFactory(const QString& className, QObject* object) {
  if (object == nullptr || !object->isWidgetType()) return nullptr;
  auto* w = static_cast<QWidget*>(object);
  if (className == QLatin1String("swui::ListTable")) return new ListTableAccessible(static_cast<ListTable*>(w));
  auto* table = qobject_cast<ListTable*>(object->parent());
  if (table == nullptr) return nullptr;
  const auto [row, col] = table->Where(object);
  return row < 0 ? nullptr : new ListCellAccessible(w, table, row, col);
}

}  // namespace

std::pair<int, int> ListTable::Where(const QObject* o) const {
  for (size_t r = 0; r < cells.size(); ++r)
    for (size_t c = 0; c < cells[r].size(); ++c)
      if (o != nullptr && cells[r][c] == o) return {static_cast<int>(r), static_cast<int>(c)};
  return {-1, -1};
}

void ListTable::InstallAccessibility() {
  static const bool installed = (QAccessible::installFactory(ListFactory), true);
  (void)installed;
}

}  // namespace swui
