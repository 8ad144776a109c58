#include "ui/frmCommandList.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace swui {

namespace {

// Where each combo sits: laid out like a number pad, Link and Wait on its bottom row.
constexpr std::array<std::pair<int, int>, 11> kCell = {{
    {3, 0},
    {2, 0},
    {2, 1},
    {2, 2},
    {1, 0},
    {1, 1},
    {1, 2},
    {0, 0},
    {0, 1},
    {0, 2},
    {3, 2},
}};

}  // namespace

frmCommandList::frmCommandList(sw::CommandListDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("frmCommandList");
  setWindowTitle(sw::CommandListDialog::kCaption);
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setModal(true);

  const QString profileTip = tr("Select a saved profile to change your current control settings");
  auto* lblProfile = new QLabel(tr("Control Profile:"), this);
  lblProfile->setToolTip(profileTip);
  auto* profiles = new NamedCombo(this);
  profiles->SetName(tr("Control Profile"));
  cmbProfile = profiles;
  cmbProfile->setObjectName("cmbProfile");
  cmbProfile->setToolTip(profileTip);
  cmbProfile->setMinimumContentsLength(22);
  lblProfile->setBuddy(cmbProfile);
  auto* top = new QHBoxLayout;
  top->addWidget(lblProfile);
  top->addWidget(cmbProfile, 1);

  auto* pad = new QGroupBox(tr("Keys"), this);
  auto* grid = new QGridLayout(pad);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(8);
  const int comboWidth = fontMetrics().horizontalAdvance(QStringLiteral("Backspace")) + 48;
  for (int i = 0; i <= 10; ++i) {
    const auto& key = sw::CommandListDialog::kKeys[static_cast<size_t>(i)];
    lblKey[i] = new QLabel(tr(key.szLabel), pad);
    lblKey[i]->setToolTip(tr(key.szTip));
    auto* box = new NamedCombo(pad);
    cmbKey[i] = box;
    cmbKey[i]->setObjectName(QStringLiteral("cmbKey(%1)").arg(i));
    cmbKey[i]->setEditable(true);
    // Named by its command as the label reads ("Up/Left"); Redraw describes it by its key.
    QString command = lblKey[i]->text();
    if (command.endsWith(QLatin1Char(':'))) command.chop(1);
    box->SetName(command);
    cmbKey[i]->setInsertPolicy(QComboBox::NoInsert);
    cmbKey[i]->setToolTip(tr(key.szTip));
    cmbKey[i]->setFixedWidth(comboWidth);
    for (const char* name : sw::CommandListDialog::kSpecialNames) cmbKey[i]->addItem(tr(name));
    cmbKey[i]->installEventFilter(this);
    cmbKey[i]->lineEdit()->installEventFilter(this);
    lblKey[i]->setBuddy(cmbKey[i]);
    auto* cell = new QVBoxLayout;
    cell->setSpacing(2);
    cell->addWidget(lblKey[i]);
    cell->addWidget(cmbKey[i]);
    const auto [row, col] = kCell[static_cast<size_t>(i)];
    grid->addLayout(cell, row, col, 1, i == 0 ? 2 : 1);
    connect(cmbKey[i], &QComboBox::activated, this, [this, i](int item) {
      if (redrawing_) return;
      model_.cmbKey_Change(static_cast<int16_t>(i), std::string(), static_cast<int16_t>(item));
      Redraw();
    });
  }

  cmdOK = new QPushButton(tr("&Set"), this);
  cmdOK->setToolTip(tr("Set your current profile selection and return to the game"));
  cmdCancel = new QPushButton(tr("&Cancel"), this);
  cmdCancel->setToolTip(tr("Abort any changes to your control profile and return to game"));
  cmdSaveProfile = new QPushButton(tr("Save &Profile"), this);
  cmdSaveProfile->setToolTip(tr("Save your current control profile so it can be recalled later"));
  cmdDelProfile = new QPushButton(tr("&Delete Profile"), this);
  cmdDelProfile->setToolTip(tr("Delete the currently selected user control profile"));
  cmdHelp = new QPushButton(tr("&Help"), this);
  cmdHelp->setToolTip(tr("Help about how to use the control mapping feature"));
  for (QPushButton* b : {cmdOK, cmdCancel, cmdSaveProfile, cmdDelProfile, cmdHelp}) b->setAutoDefault(false);
  cmdOK->setDefault(true);
  auto* side = new QVBoxLayout;
  side->addWidget(cmdOK);
  side->addWidget(cmdCancel);
  side->addSpacing(12);
  side->addWidget(cmdSaveProfile);
  side->addWidget(cmdDelProfile);
  side->addStretch(1);
  side->addWidget(cmdHelp);

  auto* body = new QHBoxLayout;
  body->addWidget(pad, 1);
  body->addLayout(side);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(body);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(cmbProfile, &QComboBox::activated, this, [this](int k) {
    if (redrawing_) return;
    model_.cmbProfile_Click(static_cast<int16_t>(k));
    Redraw();
  });
  auto act = [this](QPushButton* b, auto handler) {
    connect(b, &QPushButton::clicked, this, [this, handler] {
      handler();
      Redraw();
    });
  };
  act(cmdSaveProfile, [this] { model_.cmdSaveProfile_Click(); });
  act(cmdDelProfile, [this] { model_.cmdDelProfile_Click(); });
  act(cmdHelp, [this] { model_.cmdHelp_Click(); });
  act(cmdOK, [this] { model_.cmdOK_Click(); });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

  // Tab walks the pad as it reads: top row first, Link and Wait last.
  QWidget* previous = cmbProfile;
  for (int i : {7, 8, 9, 4, 5, 6, 1, 2, 3, 0, 10}) {
    setTabOrder(previous, cmbKey[i]);
    previous = cmbKey[i];
  }
  for (QPushButton* b : {cmdOK, cmdCancel, cmdSaveProfile, cmdDelProfile, cmdHelp}) {
    setTabOrder(previous, b);
    previous = b;
  }
  Redraw();
}

int frmCommandList::KeyOf(QObject* o) const {
  for (int i = 0; i <= 10; ++i)
    if (cmbKey[i] == o || cmbKey[i]->lineEdit() == o) return i;
  return -1;
}

bool frmCommandList::eventFilter(QObject* watched, QEvent* e) {
  const int i = KeyOf(watched);
  if (i < 0 || redrawing_) return QDialog::eventFilter(watched, e);
  if (e->type() == QEvent::KeyPress) {
    auto* ke = static_cast<QKeyEvent*>(e);
    const QString text = ke->text();
    // A printable key is the new key itself; the rest move around the dialog as usual.
    if (text.size() == 1 && text.at(0).isPrint() && !(ke->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
      model_.cmbKey_Change(static_cast<int16_t>(i), text.toUpper().toStdString());
      Redraw();
      return true;
    }
  } else if (e->type() == QEvent::FocusOut && watched == cmbKey[i]) {
    model_.cmbKey_LostFocus(static_cast<int16_t>(i));
    Redraw();
  }
  return QDialog::eventFilter(watched, e);
}

void frmCommandList::done(int r) {
  if (model_.bShown) model_.cmdCancel_Click();  // Cancel, Esc or the close box
  QDialog::done(r);
}

void frmCommandList::Redraw() {
  if (!model_.bShown) {
    QDialog::done(Accepted);
    return;
  }
  redrawing_ = true;
  if (cmbProfile->count() != static_cast<int>(model_.cmbProfileItems.size())) cmbProfile->clear();
  for (size_t k = 0; k < model_.cmbProfileItems.size(); ++k) {
    const QString name = QString::fromStdString(model_.cmbProfileItems[k]);
    if (static_cast<int>(k) < cmbProfile->count())
      cmbProfile->setItemText(static_cast<int>(k), name);
    else
      cmbProfile->addItem(name);
  }
  cmbProfile->setCurrentIndex(model_.nProfileIndex);
  for (int i = 0; i <= 10; ++i) {
    const auto& c = model_.cmbKey[static_cast<size_t>(i)];
    cmbKey[i]->setCurrentIndex(c.nListIndex);
    cmbKey[i]->setEditText(QString::fromStdString(c.text));
    if (cmbKey[i]->hasFocus()) cmbKey[i]->lineEdit()->selectAll();
    const QString key = cmbKey[i]->currentText();
    if (cmbKey[i]->accessibleDescription() != key) {
      cmbKey[i]->setAccessibleDescription(key);
      cmbKey[i]->lineEdit()->setAccessibleDescription(key);
    }
  }
  cmdSaveProfile->setEnabled(model_.bSaveEnabled);
  cmdDelProfile->setEnabled(model_.bDelEnabled);
  redrawing_ = false;
}

}  // namespace swui
