#include "ui/frmSelect.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/frmNamedCombo.h"

namespace swui {

frmSelect::frmSelect(sw::SelectDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("frmSelect");
  setWindowTitle(QString::fromStdString(model.szCaption));
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setModal(true);

  auto* select = new NamedCombo(this);
  cmbSelect = select;
  cmbSelect->setObjectName("cmbSelect");
  cmbSelect->setEditable(true);
  select->SetName(windowTitle());  // what the dialog asks for: "Save Control Profile As"
  cmbSelect->setInsertPolicy(QComboBox::NoInsert);
  cmbSelect->setToolTip(tr("Type or click on your selection"));
  // Wide enough for its title in the title bar's bolder type, and the bar's buttons.
  QFont titleFont = font();
  titleFont.setBold(true);
  const int titleWidth = QFontMetrics(titleFont).horizontalAdvance(windowTitle()) + 120;
  cmbSelect->setMinimumWidth(std::max(fontMetrics().horizontalAdvance(QLatin1Char('M')) * 20, titleWidth));
  for (const std::string& item : model.cmbItems) cmbSelect->addItem(QString::fromStdString(item));
  cmbSelect->setCurrentIndex(-1);
  cmbSelect->setEditText(QString());

  cmdOk = new QPushButton(tr("&Ok"), this);
  cmdCancel = new QPushButton(tr("&Cancel"), this);
  cmdOk->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(cmbSelect);
  layout->addSpacing(6);
  layout->addLayout(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(cmdOk, &QPushButton::clicked, this, [this] {
    // An item picked and left as it is counts as picked; anything else as typed.
    const int k = cmbSelect->currentIndex();
    if (k >= 0 && cmbSelect->currentText() == cmbSelect->itemText(k)) {
      model_.cmbSelect_Click(static_cast<int16_t>(k));
    } else {
      model_.cmbSelect_Change(cmbSelect->currentText().toStdString());
    }
    model_.cmdOk_Click();
    if (model_.bShown) return;  // nothing chosen: the dialog stays
    cmbSelect->setEditText(QString::fromStdString(model_.gszSelect));
    accept();
  });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  cmbSelect->setFocus();
}

void frmSelect::done(int r) {
  if (model_.bShown) model_.cmdCancel_Click();  // Cancel, Esc or the close box
  QDialog::done(r);
}

}  // namespace swui
