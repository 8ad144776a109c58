#include "ui/frmDebugMark.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace swui {

frmDebugMark::frmDebugMark(sw::DebugMarkDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("frmDebugMark");
  setWindowTitle(sw::DebugMarkDialog::kCaption);
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setModal(true);

  lblPrompt = new QLabel(sw::DebugMarkDialog::kPrompt, this);
  lblPrompt->setWordWrap(true);
  txtComment = new QLineEdit(this);
  txtComment->setObjectName("txtComment");
  txtComment->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);
  lblPrompt->setBuddy(txtComment);
  lblDateTime = new QLabel(this);
  lblDateTime->setObjectName("lblDateTime");
  QPalette muted = lblDateTime->palette();
  muted.setColor(QPalette::WindowText, muted.color(QPalette::PlaceholderText));
  lblDateTime->setPalette(muted);

  auto* buttons = new QDialogButtonBox(this);
  cmdOk = buttons->addButton(tr("&OK"), QDialogButtonBox::AcceptRole);
  cmdCancel = buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
  cmdOk->setObjectName("cmdOk");
  cmdCancel->setObjectName("cmdCancel");
  cmdOk->setDefault(true);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblPrompt);
  layout->addWidget(txtComment);
  layout->addWidget(lblDateTime);
  layout->addSpacing(6);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(txtComment, &QLineEdit::textEdited, this, [this](const QString& t) { model_.txtComment = t.toStdString(); });
  connect(cmdOk, &QPushButton::clicked, this, [this] {
    model_.cmdOk_Click();
    Redraw();
  });
  // Esc and the close box come here as well.
  connect(this, &QDialog::rejected, this, [this] { model_.cmdCancel_Click(); });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDebugMark::showEvent(QShowEvent* e) {
  model_.Form_Activate();
  Redraw();
  txtComment->setFocus();
  QDialog::showEvent(e);
}

void frmDebugMark::Redraw() {
  if (!model_.bShown) {
    accept();
    return;
  }
  if (txtComment->text().toStdString() != model_.txtComment)
    txtComment->setText(QString::fromStdString(model_.txtComment));
  lblDateTime->setText(QString::fromStdString(model_.lblDateTime));
}

}  // namespace swui
