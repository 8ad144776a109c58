#pragma once
// grdMap: the map grid, one picture per cell. Pictures are the SVG templates
// rendered at the screen's device pixel ratio, so they stay crisp at any
// scale. Cells are not editable, not selectable and take no keyboard focus.
#include <QHash>
#include <QPixmap>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <map>
#include <memory>

#include "game/MainWindow.h"

class QSvgRenderer;

namespace swui {

// The hidden picture templates: imgPlayer(1..9), imgDeath, imgVirus, imgInfected.
class PictureSet {
 public:
  PictureSet();
  ~PictureSet();
  QSvgRenderer* Renderer(sw::Picture pic) const;
  // The picture drawn into a square of `size` logical pixels.
  QPixmap Pixmap(sw::Picture pic, int size, qreal dpr) const;
  // What a cell shows, in words ("virus", "Whisk facing up", "" for an empty cell).
  static QString AccessibleText(sw::Picture pic);

 private:
  std::map<sw::Picture, std::unique_ptr<QSvgRenderer>> renderers_;
  mutable QHash<quint64, QPixmap> cache_;
};

class MapGrid : public QTableWidget {
  Q_OBJECT
 public:
  static constexpr int kPictureRole = Qt::UserRole + 1;

  MapGrid(const PictureSet& pictures, QWidget* parent = nullptr);

  // Columns and rows, each cell holding an empty picture.
  void SetDimensions(int cols, int rows);
  void SetCellSize(int widthPx, int heightPx);
  void SetPicture(int col, int row, sw::Picture pic);
  sw::Picture PictureAt(int col, int row) const;
  // The block of cells sits centred in the control.
  void CentreCells();

 protected:
  void resizeEvent(QResizeEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
};

}  // namespace swui
