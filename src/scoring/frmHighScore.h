#pragma once
// frmHighScore: the form of the "Webmaster Lists" dialog.
#include <QDialog>
#include <array>

#include "scoring/HighScoreDialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace swui {

class frmHighScore : public QDialog {
  Q_OBJECT

 public:
  frmHighScore(sw::HighScoreDialog& model, QWidget* parent);

  std::array<QRadioButton*, 2> optType{};  // 0 personal, 1 all time
  std::array<QRadioButton*, 5> optDiff{};  // 1 to 4
  std::array<QLabel*, 11> lblSlotNum{}, lblSitesHit{}, lblScore{};
  std::array<QLineEdit*, 11> txtName{};  // 1 to 10
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
