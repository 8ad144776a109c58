#pragma once
// frmCommandList: the form of the "Controls" dialog.
#include <QDialog>
#include <array>

#include "options/CommandListDialog.h"
#include "ui/frmNamedCombo.h"

class QLabel;
class QPushButton;

namespace swui {

class frmCommandList : public QDialog {
  Q_OBJECT

 public:
  frmCommandList(sw::CommandListDialog& model, QWidget* parent);

  QComboBox* cmbProfile = nullptr;
  std::array<QLabel*, 11> lblKey{};
  std::array<QComboBox*, 11> cmbKey{};
  QPushButton *cmdOK = nullptr, *cmdCancel = nullptr, *cmdSaveProfile = nullptr, *cmdDelProfile = nullptr,
              *cmdHelp = nullptr;

  void done(int r) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void Redraw();
  int KeyOf(QObject* o) const;

  sw::CommandListDialog& model_;
  bool redrawing_ = false;
};

}  // namespace swui
