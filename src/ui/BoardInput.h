#pragma once
// The board's side of playing with the mouse and by touch. It hands the pointer's
// moves, the buttons and the touches over the board to the model (sw.input), and
// shows what the model tells it: the direction pointer of the step a click would
// take and the outline of its landing cell. A tap is a click; a touch held still
// opens the board's menu, as the secondary button does; a finger moving over the
// board shows the step toward it.
#include <QCursor>
#include <QObject>
#include <QPoint>
#include <QTimer>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "runtime/MainWindow.h"

class QMouseEvent;

namespace sw {
class PlayerInput;
}

namespace swui {

class MapGrid;

class BoardInput : public QObject {
  Q_OBJECT
 public:
  // Watches the board and gives what happens on it to the model's input; the board's menu
  // belongs to the window.
  BoardInput(MapGrid& grdMap, sw::PlayerInput& input, QWidget& window);

  void ShowStep(sw::Direction nDir, const sw::CoordPair& ctOutline);
  // The board's menu where the button or the finger went down; the index chosen, -1 for none.
  int16_t PopupMenu(const std::vector<sw::PopupItem>& items);
  // The pointer of a step (1 to 9, as on the keypad) at the board's scale; its hot spot is its centre.
  QCursor StepPointer(int16_t nDir) const;
  // The step the board's pointer shows; 0 when it shows the window's own pointer.
  int16_t Shown() const { return shown_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  // The pointer or a finger is at this point of the board (nothing: it left the board).
  void Hover(std::optional<QPoint> at);
  // The event comes from a finger on a touch screen.
  static bool Touching(const QMouseEvent& e);
  sw::CoordPair CellAt(QPoint at) const;
  // The touch has been held still: the board's menu, under the finger.
  void Held();

  MapGrid& grdMap_;
  sw::PlayerInput& input_;
  QWidget& window_;
  QTimer hold_;
  bool pressed_ = false;  // the primary button went down on the board
  bool held_ = false;     // the touch under way opened the menu
  QPoint touchStart_, touchAt_;
  std::optional<QPoint> menuAt_;  // where the menu opens, on the screen
  int16_t shown_ = 0;
  mutable std::map<std::pair<int, int>, QCursor> pointers_;  // by step and size in device pixels
};

}  // namespace swui
