// The baseline of the start-up benchmark: a bare Qt window of the game's size
// painting a 24 x 14 grid of 32-pixel cells, with the same first-frame probe.
#include <QApplication>
#include <QPainter>
#include <QWidget>

#include "ui/FirstFrame.h"

namespace {

class Grid : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Base));
    p.setPen(palette().color(QPalette::Mid));
    for (int c = 0; c <= 24; ++c) p.drawLine(c * 32, 0, c * 32, 14 * 32);
    for (int r = 0; r <= 14; ++r) p.drawLine(0, r * 32, 24 * 32, r * 32);
  }
};

}  // namespace

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  Grid w;
  w.setWindowTitle("Bare");
  w.setFixedSize(24 * 33, 14 * 33 + 84);
  swui::FirstFrame::Watch(w);
  w.show();
  return app.exec();
}
