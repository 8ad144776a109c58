#pragma once
// frmSelect: the form of the selection dialog.
#include <QDialog>

#include "options/SelectDialog.h"

class QComboBox;
class QPushButton;

namespace swui {

class frmSelect : public QDialog {
  Q_OBJECT

 public:
  frmSelect(sw::SelectDialog& model, QWidget* parent);

  QComboBox* cmbSelect = nullptr;
  QPushButton* cmdOk = nullptr;
  QPushButton* cmdCancel = nullptr;

  void done(int r) override;

 private:
  sw::SelectDialog& model_;
};

}  // namespace swui
