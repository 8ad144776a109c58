#pragma once
// frmMsgBox: the program's own message box. ShowMsg fills it, sizes it to the
// text, picks one of three button sets and shows it modally over the main
// window. Geometry is worked out in twips and converted to pixels.
#include <QDialog>
#include <QMargins>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

#include "runtime/MainWindow.h"
#include "ui/Twips.h"

class QLabel;
class QPushButton;

namespace swui {

class frmMsgBox : public QDialog {
  Q_OBJECT

 public:
  static constexpr int32_t kMesgLeft = 120;
  static constexpr int32_t kMesgTop = 195;
  static constexpr int32_t kButtonWidth = 1235;
  static constexpr int32_t kButtonHeight = 375;

  // Where everything goes, in twips: controls inside the box, width and height
  // of the whole box with its title bar and borders.
  struct Layout {
    int32_t lblLeft = kMesgLeft;
    int32_t lblTop = kMesgTop;
    int32_t lblWidth = 0;
    int32_t lblHeight = 0;
    bool wordWrap = false;
    int32_t width = 0;
    int32_t height = 0;
    int nButtons = 0;  // visible buttons: 0, 1 or 2
    int32_t btnLeft[2] = {0, 0};
    int32_t btnTop = 0;
    int32_t btnWidth = kButtonWidth;
    int32_t btnHeight = kButtonHeight;
  };

  // textW x textH: the message on its own lines; wrappedH: its height when
  // wrapped at windowW; titleW: the title's width; all in twips.
  static Layout ComputeLayout(int32_t textW, int32_t textH, int32_t wrappedH, int32_t titleW, int32_t windowW,
                              sw::MsgButtons nButtons);

  // The frame that the window system puts around a box (title bar and
  // borders), in pixels: what the last box shown really had, else what the
  // owner's window has; none where nothing draws a frame (offscreen).
  static QMargins FrameMargins(const QWidget* owner);
  // Tests: when set, the frame that FrameMargins reports.
  static std::optional<QMargins> testFrame;

  // The width that the title needs in the title bar, in pixels: its text in
  // the title bar's bold font, the window icon and the close button.
  int TitleBarWidth(const QString& title) const;

  // owner: the main window (none for a notice before it is up); ownerWidth: its width in twips (where long text wraps).
  frmMsgBox(QWidget* owner, int32_t ownerWidth);

  // Caption, message, button set and geometry. The layout's width and height
  // are the outer size of the box, frame included.
  void Setup(const QString& text, sw::MsgButtons nButtons, const QString& szTitle);
  // Shows the box modally; the answer, or None when no button was pressed.
  sw::MsgAnswer ShowModal();

  const Layout& layout() const { return layout_; }
  sw::MsgAnswer Answer() const { return answer_; }
  QPushButton* DefaultButton() const { return defaultButton_; }
  QPushButton* CancelButton() const { return cancelButton_; }
  const Twips& twips() const { return tw_; }

  // Tests: when set, ShowModal asks this for the answer instead of running the dialog.
  static std::function<sw::MsgAnswer(frmMsgBox&)> testAnswer;

  QPushButton* cmdCancel;
  QPushButton* cmdNo;
  QPushButton* cmdYes;
  QPushButton* cmdOK;
  QLabel* lblTitleTest;
  QLabel* lblMesg;

 public slots:
  void reject() override;

 protected:
  bool event(QEvent* e) override;

 private:
  // Sizes the inside so that the box with its frame has the layout's size.
  void FitFrame(const QMargins& frame);

  void Answered(sw::MsgAnswer code);

  Twips tw_;
  int32_t ownerWidth_;
  Layout layout_;
  sw::MsgAnswer answer_ = sw::MsgAnswer::None;
  QPushButton* defaultButton_ = nullptr;
  QPushButton* cancelButton_ = nullptr;
  QMargins frame_;
  static QMargins lastFrame_;
};

}  // namespace swui
