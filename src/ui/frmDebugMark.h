#pragma once
// frmDebugMark: the form of the "Mark Debug Log" dialog.
#include <QDialog>

#include "debuglog/DebugMarkDialog.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace swui {

class frmDebugMark : public QDialog {
  Q_OBJECT

 public:
  frmDebugMark(sw::DebugMarkDialog& model, QWidget* parent);

  QLabel* lblPrompt = nullptr;
  QLineEdit* txtComment = nullptr;
  QLabel* lblDateTime = nullptr;
  QPushButton* cmdOk = nullptr;
  QPushButton* cmdCancel = nullptr;

 protected:
  void showEvent(QShowEvent* e) override;

 private:
  void Redraw();

  sw::DebugMarkDialog& model_;
};

}  // namespace swui
