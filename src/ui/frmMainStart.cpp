// The main window's side of the game's pauses, pointer and sound, and the
// program's start: the first game is set up before the window shows, so that
// its first frame is the whole board; the start sound and its pause follow it.
// A notice at start (a first run: no options, no lists yet) stands alone,
// centred on the screen, and the window comes up after the last one, its
// first game drawn.
#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "ui/Heap.h"
#include "ui/PictureRender.h"
#include "ui/frmMain.h"

namespace swui {

using sw::Pointer;

namespace {

QCursor MakeCustomPointer(qreal dpr) {
  QPixmap pm = QPixmap::fromImage(PictureImage("pointer", qRound(32 * dpr)));
  if (pm.isNull()) return QCursor(Qt::ArrowCursor);
  pm.setDevicePixelRatio(dpr);
  return QCursor(pm, 0, 0);
}

}  // namespace

bool frmMain::WindowDue() const { return starting_ && !isVisible() && !noticeAtStart_; }

void frmMain::SetSoundFileName(const std::string& fileName) {
  if (WindowDue())
    afterFirstFrame_.push_back([this, fileName] { mmcSound.SetFileName(fileName); });
  else
    mmcSound.SetFileName(fileName);
}

void frmMain::SoundCommand(const std::string& command) {
  if (WindowDue())
    afterFirstFrame_.push_back([this, command] { mmcSound.Command(command); });
  else
    mmcSound.Command(command);
}

void frmMain::SetPointer(Pointer p) {
  pointer_ = p;
  // Before the window is up nobody sees the pointer: Start sets the last one asked for.
  if (starting_ && !isVisible()) return;
  switch (p) {
    case Pointer::Custom:
      if (!customPointer_) customPointer_ = MakeCustomPointer(devicePixelRatioF());
      setCursor(*customPointer_);
      break;
    case Pointer::Hourglass: setCursor(Qt::WaitCursor); break;
    case Pointer::Arrow: setCursor(Qt::ArrowCursor); break;
  }
}

void frmMain::Start() {
  starting_ = true;
  Form_Load();
  starting_ = false;
  // The icon is for the window manager and the task bar: it can follow the first frame too.
  if (QApplication::windowIcon().isNull())
    afterFirstFrame_.insert(afterFirstFrame_.begin(), [] { QApplication::setWindowIcon(AppIcon()); });
  // So can the pointer: it is drawn from its picture.
  afterFirstFrame_.insert(afterFirstFrame_.begin(), [this] { SetPointer(pointer_); });
  startPause_.emplace(sw.shell);
  firstFrameDue_ = true;
  show();
  // After a notice the window takes the focus the notice had.
  if (noticeAtStart_) activateWindow();
  grdMap->setFocus();
}

void frmMain::RunStartSteps() {
  const sw::Shell::Pause pause(sw.shell);
  auto steps = std::move(afterFirstFrame_);
  afterFirstFrame_.clear();
  for (auto& step : steps) step();
  startPause_.reset();
  // What only the start needed (the font files' parse, the start sound's decoding) goes back.
  QTimer::singleShot(0, this, &ReturnFreeMemory);
}

QIcon frmMain::AppIcon() {
  // At the sizes a title bar and a task switcher use, not at every size on demand.
  QIcon icon;
  for (int size : {16, 32, 48, 64}) {
    const QPixmap pm = QPixmap::fromImage(PictureImage("icon", size));
    if (!pm.isNull()) icon.addPixmap(pm);
  }
  return icon;
}

void frmMain::Sleep(int32_t ms) {
  if (WindowDue()) {
    afterFirstFrame_.push_back([this, ms] {
      SetPointer(Pointer::Hourglass);
      Sleep(ms);
      SetPointer(Pointer::Custom);
    });
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(std::max<int32_t>(ms, 0), &loop, &QEventLoop::quit);
  loop.exec();
}

void frmMain::DoEvents() { QCoreApplication::processEvents(); }

}  // namespace swui
