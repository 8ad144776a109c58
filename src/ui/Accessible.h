#pragma once
// What the window says to assistive technology (a screen reader, through
// AT-SPI on Linux): the message box as an alert, and the announcer that speaks
// the news of a turn. The board and the net-lag bar describe themselves
// (MapGrid, ProgBar).
#include <QString>
#include <QWidget>

namespace swui {

// Makes the message box and the announcer known to Qt's accessibility; safe to call any
// number of times.
void InstallAccessibility();

// Speaks short texts without taking the focus: a notification that the screen reader
// reads as it appears. It takes no room and draws nothing.
class Announcer : public QWidget {
  Q_OBJECT
 public:
  explicit Announcer(QWidget* parent = nullptr);
  void Say(const QString& text);
  // The last text said.
  const QString& Text() const { return text_; }

 private:
  QString text_;
};

}  // namespace swui
