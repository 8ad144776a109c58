#include "ui/frmHighScore.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "runtime/Difficulty.h"

namespace swui {

namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

void Heading(QLabel* l, const QString& text, Qt::Alignment align) {
  QFont f = l->font();
  f.setBold(true);
  l->setFont(f);
  l->setAlignment(align | Qt::AlignVCenter);
  l->setText(text);
}

}  // namespace

frmHighScore::frmHighScore(sw::HighScoreDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
  ListTable::InstallAccessibility();
  setObjectName("frmHighScore");
  setWindowTitle(sw::HighScoreDialog::kCaption);
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setModal(true);

  // Which list: the type and the difficulty.
  auto* choose = new QGridLayout;
  auto* lblScoreBoard = new QLabel(tr("Score Board:"), this);
  auto* lblDiff = new QLabel(tr("Difficulty:"), this);
  choose->addWidget(lblScoreBoard, 0, 0, Qt::AlignRight);
  choose->addWidget(lblDiff, 1, 0, Qt::AlignRight);
  auto* typeRow = new QHBoxLayout;
  const char* const typeText[] = {"&Personal", "All &Time"};
  const char* const typeTip[] = {"View your personal webmaster lists", "View the all time higest webmaster lists"};
  auto* types = new QButtonGroup(this);
  for (int i = 0; i < 2; ++i) {
    optType[i] = new QRadioButton(tr(typeText[i]), this);
    optType[i]->setObjectName(QStringLiteral("optType(%1)").arg(i));
    optType[i]->setToolTip(typeTip[i]);
    types->addButton(optType[i], i);
    typeRow->addWidget(optType[i]);
  }
  typeRow->addStretch();
  auto* diffRow = new QHBoxLayout;
  const char* const diffText[5] = {"", "&Easy", "&Normal", "&Hard", "Night&mare"};
  auto* diffs = new QButtonGroup(this);
  for (int i = 1; i <= 4; ++i) {
    optDiff[i] = new QRadioButton(tr(diffText[i]), this);
    optDiff[i]->setObjectName(QStringLiteral("optDiff(%1)").arg(i));
    optDiff[i]->setToolTip(QStringLiteral("View the %1 difficulty webmaster list").arg(sw::kDifficulties[i].szName));
    diffs->addButton(optDiff[i], i);
    diffRow->addWidget(optDiff[i]);
  }
  diffRow->addStretch();
  choose->addLayout(typeRow, 0, 1);
  choose->addLayout(diffRow, 1, 1);
  lblScoreBoard->setBuddy(optType[0]);
  lblDiff->setBuddy(optDiff[1]);
  // A label names only its buddy: every button of a row also says which row it is in.
  for (int i = 0; i < 2; ++i) optType[i]->setAccessibleDescription(tr("Score Board"));
  for (int i = 1; i <= 4; ++i) optDiff[i]->setAccessibleDescription(tr("Difficulty"));

  // The ten rows under their headings.
  grdList = new ListTable(this);
  grdList->setObjectName("grdList");
  auto* list = new QGridLayout(grdList);
  list->setContentsMargins(0, 0, 0, 0);
  list->setHorizontalSpacing(12);
  list->setVerticalSpacing(4);
  // Each cell is known to the table before it shows anything, so that it is read as a cell.
  auto cell = [this, list](int row, int col, QWidget* w) {
    grdList->cells[static_cast<size_t>(row)][static_cast<size_t>(col)] = w;
    list->addWidget(w, row, col);
  };
  auto* lblPlace = new QLabel(grdList);  // the places' column has no heading on screen
  cell(0, 0, lblPlace);
  lblPlace->setAccessibleName(tr("Place"));
  const QString headings[3] = {tr("Webmaster Name"), tr("Sites Hit"), tr("Score")};
  for (int c = 1; c <= 3; ++c) {
    auto* heading = new QLabel(grdList);
    cell(0, c, heading);
    Heading(heading, headings[c - 1], c == 1 ? Qt::AlignLeft : Qt::AlignRight);
  }
  const QFont digits = font();
  const int nameWidth = fontMetrics().horizontalAdvance(QLatin1Char('M')) * 18;
  for (int i = 1; i <= 10; ++i) {
    lblSlotNum[i] = new QLabel(grdList);
    cell(i, 0, lblSlotNum[i]);
    auto* nameCell = new QWidget(grdList);
    cell(i, 1, nameCell);
    lblSitesHit[i] = new QLabel(grdList);
    cell(i, 2, lblSitesHit[i]);
    lblScore[i] = new QLabel(grdList);
    cell(i, 3, lblScore[i]);
    txtName[i] = new QLineEdit(nameCell);
    txtName[i]->setObjectName(QStringLiteral("txtName(%1)").arg(i));
    txtName[i]->setAccessibleName(Q(sw::HighScoreDialog::PlaceName(static_cast<int16_t>(i))));
    txtName[i]->setToolTip(tr("Enter player name"));
    txtName[i]->setMinimumWidth(nameWidth);
    txtName[i]->installEventFilter(this);
    auto* box = new QHBoxLayout(nameCell);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(txtName[i]);
    for (QLabel* l : {lblSlotNum[i], lblSitesHit[i], lblScore[i]}) {
      l->setFont(digits);
      l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    lblScore[i]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("999,999,999")));
    connect(txtName[i], &QLineEdit::textEdited, this,
            [this, i](const QString& t) { model_.txtName_Change(static_cast<int16_t>(i), t.toStdString()); });
  }
  list->setColumnStretch(1, 1);

  cmdClearCur = new QPushButton(tr("Clear &Current List"), this);
  cmdClearCur->setToolTip(tr("Clear the currently displayed webmaster list"));
  cmdClearAll = new QPushButton(tr("Clear &All Webmaster Lists"), this);
  cmdClearAll->setToolTip(tr("Clear the webmaster lists for all difficulties"));
  cmdDone = new QPushButton(tr("&Done"), this);
  cmdDone->setToolTip(tr("Return to game"));
  cmdDone->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdClearCur);
  buttons->addWidget(cmdClearAll);
  buttons->addStretch(1);
  buttons->addWidget(cmdDone);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choose);
  layout->addSpacing(8);
  layout->addWidget(grdList);
  layout->addSpacing(8);
  layout->addLayout(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(types, &QButtonGroup::idClicked, this, [this](int id) {
    model_.optType_Click(static_cast<int16_t>(id));
    Redraw();
  });
  connect(diffs, &QButtonGroup::idClicked, this, [this](int id) {
    model_.optDiff_Click(static_cast<int16_t>(id));
    Redraw();
  });
  connect(cmdClearCur, &QPushButton::clicked, this, [this] {
    model_.cmdClearCur_Click();
    Redraw();
  });
  connect(cmdClearAll, &QPushButton::clicked, this, [this] {
    model_.cmdClearAll_Click();
    Redraw();
  });
  connect(cmdDone, &QPushButton::clicked, this, &QDialog::accept);

  setTabOrder(optType[0], optType[1]);
  Redraw();
}

void frmHighScore::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  activateWindow();
  Redraw();
}

int frmHighScore::RowOf(QObject* o) const {
  for (int i = 1; i <= 10; ++i)
    if (txtName[i] == o) return i;
  return 0;
}

bool frmHighScore::eventFilter(QObject* watched, QEvent* e) {
  const int row = RowOf(watched);
  if (row == 0 || redrawing_) return QDialog::eventFilter(watched, e);
  const auto Index = static_cast<int16_t>(row);
  switch (e->type()) {
    case QEvent::FocusIn:
      model_.txtName_GotFocus(Index);
      Redraw();
      break;
    case QEvent::FocusOut:
      // A box the model already left (Enter) has stored its name.
      if (model_.nFocus == Index) {
        model_.txtName_LostFocus(Index);
        model_.nFocus = sw::HighScoreDialog::kDone;
      }
      break;
    case QEvent::KeyPress: {
      const int key = static_cast<QKeyEvent*>(e)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        model_.txtName_KeyPress(Index, 13);
        Redraw();
        return true;
      }
      break;
    }
    default: break;
  }
  return QDialog::eventFilter(watched, e);
}

void frmHighScore::done(int r) {
  // Esc or Done while a name is being typed: the name is kept as leaving the box would.
  if (model_.nFocus != sw::HighScoreDialog::kDone) {
    model_.txtName_LostFocus(model_.nFocus);
    model_.nFocus = sw::HighScoreDialog::kDone;
  }
  model_.cmdDone_Click();
  QDialog::done(r);
}

void frmHighScore::Redraw() {
  redrawing_ = true;
  optType[static_cast<size_t>(model_.nType)]->setChecked(true);
  optDiff[static_cast<size_t>(model_.nDiff)]->setChecked(true);
  const QString caption = Q(model_.ListCaption());
  if (grdList->accessibleName() != caption) grdList->setAccessibleName(caption);
  // After a game that earned a place, the dialog says which as it opens: a screen reader reads a
  // dialog's description with its title.
  const QString prompt = Q(model_.NamePrompt());
  if (accessibleDescription() != prompt) setAccessibleDescription(prompt);
  for (int i = 1; i <= 10; ++i) {
    const sw::HighScoreDialog::Row& r = model_.rows[static_cast<size_t>(i)];
    lblSlotNum[i]->setText(Q(r.lblSlotNum) + QLatin1Char('.'));
    lblSlotNum[i]->setAccessibleName(Q(r.lblSlotNum));
    if (txtName[i]->text() != Q(r.txtName)) txtName[i]->setText(Q(r.txtName));
    // Only the row just earned looks and acts like a box to type in.
    const bool bEarned = model_.Earned(static_cast<int16_t>(i));
    txtName[i]->setReadOnly(!bEarned);
    txtName[i]->setFrame(bEarned);
    QPalette pal = txtName[i]->palette();
    pal.setColor(QPalette::Base, palette().color(bEarned ? QPalette::Base : QPalette::Window));
    txtName[i]->setPalette(pal);
    lblSitesHit[i]->setText(Q(r.lblSitesHit));
    lblScore[i]->setText(Q(r.lblScore));
  }
  if (model_.nFocus >= 1 && model_.nFocus <= 10) {
    QLineEdit* box = txtName[static_cast<size_t>(model_.nFocus)];
    box->setFocus();
    box->end(false);
  } else {
    cmdDone->setFocus();
  }
  redrawing_ = false;
}

}  // namespace swui
