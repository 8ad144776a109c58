#include "ui/frmMsgBox.h"

#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>

#include "ui/Accessible.h"

namespace swui {

std::function<sw::MsgAnswer(frmMsgBox&)> frmMsgBox::testAnswer;
std::optional<QMargins> frmMsgBox::testFrame;
QMargins frmMsgBox::lastFrame_;

QMargins frmMsgBox::FrameMargins(const QWidget* owner) {
  if (testFrame) return *testFrame;
  if (!lastFrame_.isNull()) return lastFrame_;
  // Before any box has been shown, the main window's frame is the best guess:
  // the same window manager draws both.
  if (owner != nullptr) {
    const QWidget* top = owner->window();
    if (top->isVisible() && top->windowHandle() != nullptr) return top->windowHandle()->frameMargins();
  }
  return {};
}

int frmMsgBox::TitleBarWidth(const QString& title) const {
  if (title.isEmpty()) return 0;  // no title, nothing to cut
  const int text = lblTitleTest->fontMetrics().horizontalAdvance(title);
  // The bar holds the window icon on the left and, on the right, the close
  // button and, with window managers that give them to every window whatever
  // the window asks, minimise and maximise too: each about as wide as the bar is high.
  const int barHeight = std::max(style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this),
                                 lblTitleTest->fontMetrics().height() + 6);
  return text + 4 * barHeight + barHeight / 2;
}

frmMsgBox::Layout frmMsgBox::ComputeLayout(int32_t textW, int32_t textH, int32_t wrappedH, int32_t titleW,
                                           int32_t windowW, sw::MsgButtons nButtons) {
  Layout l;
  l.lblWidth = textW;
  l.lblHeight = textH;
  if (windowW < l.lblWidth) {
    l.wordWrap = true;
    l.lblWidth = windowW;
    l.lblHeight = wrappedH;
  }
  if (l.lblWidth < titleW) l.lblWidth = titleW;

  const int32_t H = l.lblHeight;
  const int32_t W = l.lblWidth;
  int32_t minWidth = 0;
  switch (nButtons) {
    case sw::MsgButtons::OkOnly:
      l.nButtons = 1;
      minWidth = 1595;
      break;
    case sw::MsgButtons::OkCancel:
    case sw::MsgButtons::YesNo:
      l.nButtons = 2;
      minWidth = 2950;
      break;
    default: l.nButtons = 0; break;
  }
  l.height = H + 195 + 240 + 375 + 455;
  l.width = std::max(W + 120 + 240, minWidth);
  const int32_t D = l.width;
  if (l.nButtons == 1) {
    l.btnLeft[0] = (D - 120 - 1235 - 240) / 2 + 120;
  } else if (l.nButtons == 2) {
    l.btnLeft[0] = (D - 120 - 1235 - 120 - 1235 - 240) / 2 + 120;
    l.btnLeft[1] = l.btnLeft[0] + 1235 + 120;
  }
  l.btnTop = H + 195 + 240;
  return l;
}

frmMsgBox::frmMsgBox(QWidget* owner, int32_t ownerWidth)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                         Qt::MSWindowsFixedSizeDialogHint),
      tw_(Twips::Of(owner != nullptr ? static_cast<const QPaintDevice&>(*owner) : *this)), ownerWidth_(ownerWidth) {
  InstallAccessibility();
  setObjectName("frmMsgBox");
  setModal(true);
  setSizeGripEnabled(false);
  // The box's text and captions are plain Latin, like the main window's: measured and drawn from
  // the font's glyphs and advances, without the shaping engine, whose code a box would otherwise
  // bring in for nothing (text in a script that needs shaping is still shaped).
  QFont plain = font();
  plain.setStyleStrategy(QFont::PreferNoShaping);
  setFont(plain);

  auto makeButton = [this](const char* name, const char* caption, sw::MsgAnswer code) {
    auto* b = new QPushButton(QString::fromUtf8(caption), this);
    b->setObjectName(name);
    b->hide();
    connect(b, &QPushButton::clicked, this, [this, code] { Answered(code); });
    return b;
  };
  cmdCancel = makeButton("cmdCancel", "&Cancel", sw::MsgAnswer::Cancel);
  cmdNo = makeButton("cmdNo", "&No", sw::MsgAnswer::No);
  cmdYes = makeButton("cmdYes", "&Yes", sw::MsgAnswer::Yes);
  cmdOK = makeButton("cmdOK", "&Ok", sw::MsgAnswer::Ok);

  lblTitleTest = new QLabel(this);
  lblTitleTest->setObjectName("lblTitleTest");
  lblTitleTest->setTextFormat(Qt::PlainText);
  // Title bars show their text in a bold face.
  QFont titleFont = QFontDatabase::systemFont(QFontDatabase::TitleFont);
  titleFont.setBold(true);
  titleFont.setStyleStrategy(QFont::PreferNoShaping);
  lblTitleTest->setFont(titleFont);
  lblTitleTest->hide();

  lblMesg = new QLabel(this);
  lblMesg->setObjectName("lblMesg");
  lblMesg->setTextFormat(Qt::PlainText);
  lblMesg->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void frmMsgBox::Setup(const QString& text, sw::MsgButtons nButtons, const QString& szTitle) {
  setWindowTitle(szTitle);
  lblTitleTest->setText(szTitle);
  lblMesg->setText(text);
  lblMesg->setAccessibleName(text);
  // Read as an alert: its title, then the text of its label.
  setAccessibleName(szTitle);

  // The label sizes itself to its text, one line high when empty.
  const int lineHeight = lblMesg->fontMetrics().height();
  lblMesg->setWordWrap(false);
  const QSize natural = lblMesg->sizeHint();
  const int textWpx = natural.width();
  const int textHpx = std::max(natural.height(), lineHeight);
  lblMesg->setWordWrap(true);
  const int wrapWpx = tw_.X(ownerWidth_);
  const int wrappedHpx = std::max(lblMesg->heightForWidth(wrapWpx), lineHeight);
  lblMesg->setWordWrap(false);
  const int titleWpx = TitleBarWidth(szTitle);

  layout_ = ComputeLayout(tw_.FromX(textWpx), tw_.FromY(textHpx), tw_.FromY(wrappedHpx), tw_.FromX(titleWpx),
                          ownerWidth_, nButtons);

  lblMesg->setWordWrap(layout_.wordWrap);
  lblMesg->setGeometry(tw_.X(layout_.lblLeft), tw_.Y(layout_.lblTop), tw_.X(layout_.lblWidth),
                       tw_.Y(layout_.lblHeight));

  QPushButton* shown[2] = {nullptr, nullptr};
  switch (nButtons) {
    case sw::MsgButtons::OkOnly: shown[0] = cmdOK; break;
    case sw::MsgButtons::OkCancel:
      shown[0] = cmdOK;
      shown[1] = cmdCancel;
      break;
    case sw::MsgButtons::YesNo:
      shown[0] = cmdYes;
      shown[1] = cmdNo;
      break;
    default: break;
  }
  // The first button is the default; the last one shown answers Esc.
  defaultButton_ = shown[0];
  cancelButton_ = shown[1] != nullptr ? shown[1] : shown[0];
  for (QPushButton* b : {cmdCancel, cmdNo, cmdYes, cmdOK}) {
    b->setDefault(b == defaultButton_);
    b->setVisible(b == shown[0] || b == shown[1]);
  }
  for (int i = 0; i < layout_.nButtons; ++i) {
    shown[i]->setGeometry(tw_.X(layout_.btnLeft[i]), tw_.Y(layout_.btnTop), tw_.X(layout_.btnWidth),
                          tw_.Y(layout_.btnHeight));
  }
  FitFrame(FrameMargins(parentWidget()));
  if (defaultButton_ != nullptr) defaultButton_->setFocus();
}

void frmMsgBox::FitFrame(const QMargins& frame) {
  frame_ = frame;
  setFixedSize(std::max(1, tw_.X(layout_.width) - frame.left() - frame.right()),
               std::max(1, tw_.Y(layout_.height) - frame.top() - frame.bottom()));
}

bool frmMsgBox::event(QEvent* e) {
  const bool handled = QDialog::event(e);
  // Once the window manager has framed the box, its real frame is known:
  // keep the outer size, and remember the frame for the next box.
  switch (e->type()) {
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::WindowActivate:
      if (!testFrame && windowHandle() != nullptr) {
        const QMargins real = windowHandle()->frameMargins();
        if (!real.isNull()) lastFrame_ = real;
        if (!real.isNull() && real != frame_) FitFrame(real);
      }
      break;
    default: break;
  }
  return handled;
}

sw::MsgAnswer frmMsgBox::ShowModal() {
  answer_ = sw::MsgAnswer::None;
  if (testAnswer) return testAnswer(*this);
  // Centred over the main window; a box with no window under it yet, on the screen.
  const QWidget* owner = parentWidget();
  const QPoint centre =
      owner != nullptr ? owner->mapToGlobal(owner->rect().center()) : screen()->availableGeometry().center();
  move(centre - QPoint(tw_.X(layout_.width) / 2, tw_.Y(layout_.height) / 2));
  exec();
  return answer_;
}

void frmMsgBox::Answered(sw::MsgAnswer code) {
  answer_ = code;
  done(static_cast<int>(code));
}

void frmMsgBox::reject() {
  // Esc, and closing the box by other means, answer as the cancel button does.
  if (cancelButton_ != nullptr) {
    cancelButton_->click();
    return;
  }
  QDialog::reject();
}

}  // namespace swui
