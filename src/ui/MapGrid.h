#pragma once
// grdMap: the map grid, one picture per cell. Pictures are the SVG templates
// rendered at the screen's device pixel ratio, so they stay crisp at any
// scale. The board takes the keyboard focus, so that a screen reader finds
// the player there, and passes the keys on to the main window.
#include <QHash>
#include <QPixmap>
#include <QWidget>
#include <vector>

#include "runtime/MainWindow.h"

class QPainter;

namespace swui {

// The hidden picture templates: imgPlayer(1..9), imgDeath, imgVirus, imgInfected.
class PictureSet {
 public:
  PictureSet();
  ~PictureSet();
  // The picture drawn into a square of `size` logical pixels.
  QPixmap Pixmap(sw::Picture pic, int size, qreal dpr) const;
  // The picture `device` pixels square as drawn at build time; null at a size not drawn ahead.
  static QImage Prerendered(sw::Picture pic, int device);
  // The picture `device` pixels square drawn now from its SVG.
  QImage FromSvg(sw::Picture pic, int device) const;
  // How many times an SVG file has been read so far.
  int SvgReads() const { return svgReads_; }

 private:
  mutable int svgReads_ = 0;
  mutable QHash<quint64, QPixmap> cache_;
};

// grdMap: the board. It keeps the picture of every cell and paints only the
// cells that changed, each with its own stretch of grid line: a move paints
// two cells, not the board.
class MapGrid : public QWidget {
  Q_OBJECT
 public:
  MapGrid(const PictureSet& pictures, QWidget* parent = nullptr);
  // Makes the board known to assistive technology as a table of cells, each named by what it
  // shows (MapGridAccessible.cpp); safe to call any number of times.
  static void InstallAccessibility();

  // Columns and rows, every cell empty.
  void SetDimensions(int cols, int rows);
  void SetCellSize(int widthPx, int heightPx);
  void setShowGrid(bool on);
  bool showGrid() const { return showGrid_; }
  int columnCount() const { return cols_; }
  int rowCount() const { return rows_; }
  int columnWidth(int) const { return cellW_; }
  int rowHeight(int) const { return cellH_; }

  void SetPicture(int col, int row, sw::Picture pic);
  const PictureSet& Pictures() const { return pictures_; }
  sw::Picture PictureAt(int col, int row) const;
  // From now on, tells assistive technology of every cell whose name or description
  // changes; called once a screen reader has asked for the board.
  void StartReporting();
  // Where a cell is drawn, in the board's coordinates.
  QRect CellRect(int col, int row) const;
  // The cell at a point of the board; (-1, -1) off the cells.
  QPoint CellAt(QPoint at) const;
  // The cell outlined as the landing cell of the step a click would take; (-1, -1): none.
  void SetOutline(int col, int row);
  QPoint Outline() const { return outline_; }
  // The pixels painted since the board was made (the benchmarks read it).
  qint64 PaintedPixels() const { return painted_; }
  // The board's colours, taken from the window's palette.
  QColor BoardColor() const;
  QColor LineColor() const;

 protected:
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  QPoint Origin() const;
  void PaintArea(QPainter& p, const QRect& dirty);
  // Tells assistive technology which cells changed since it was last told, once the
  // turn's drawing is done: a cell redrawn with what it held is no change.
  void ReportChanges();

  std::vector<sw::Picture> reported_;  // the cells as assistive technology was last told of them
  bool reporting_ = false, reportDue_ = false;

  const PictureSet& pictures_;
  std::vector<sw::Picture> cells_;
  int cols_ = 0, rows_ = 0;
  int cellW_ = 1, cellH_ = 1;
  bool showGrid_ = true;
  QPoint outline_{-1, -1};
  qint64 painted_ = 0;
};

}  // namespace swui
