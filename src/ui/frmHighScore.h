#pragma once
// frmHighScore: the form of the "Webmaster Lists" dialog.
#include <QDialog>
#include <array>
#include <utility>

#include "scoring/HighScoreDialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace swui {

// The ten rows as a screen reader reads them: a table of place, name, sites hit and score,
// the headings its column headers and the list shown its caption (its accessible name).
class ListTable : public QWidget {
  Q_OBJECT
 public:
  explicit ListTable(QWidget* parent) : QWidget(parent) {}
  // Row 0 the headings, rows 1 to 10 the places; columns place, name, sites hit, score.
  // A name's cell holds its box.
  std::array<std::array<QWidget*, 4>, 11> cells{};
  // Where a widget stands among the cells: {row, column}, or {-1, -1}.
  std::pair<int, int> Where(const QObject* o) const;
  // Makes the table and its cells known to Qt's accessibility; safe to call any number of times.
  static void InstallAccessibility();
};

class frmHighScore : public QDialog {
  Q_OBJECT

 public:
  frmHighScore(sw::HighScoreDialog& model, QWidget* parent);

  std::array<QRadioButton*, 2> optType{};  // 0 personal, 1 all time
  std::array<QRadioButton*, 5> optDiff{};  // 1 to 4
  std::array<QLabel*, 11> lblSlotNum{}, lblSitesHit{}, lblScore{};
  std::array<QLineEdit*, 11> txtName{};  // 1 to 10
  ListTable* grdList = nullptr;          // the rows, read as a table
  QPushButton *cmdClearCur = nullptr, *cmdClearAll = nullptr, *cmdDone = nullptr;

  void done(int r) override;

 protected:
  void showEvent(QShowEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void Redraw();
  int RowOf(QObject* o) const;

  sw::HighScoreDialog& model_;
  bool redrawing_ = false;
};

}  // namespace swui
