#pragma once
// ProgBar: a small self-drawn progress bar. A rectangle is filled partly with
// the bar colour and partly with the background, from the left (horizontal)
// or from the bottom (vertical). The drawing scale measures Max - Min units
// across the inner width and the inner height.
#include <QColor>
#include <QWidget>
#include <cstdint>

namespace swui {

class ProgBar : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QColor BackColor READ BackColor WRITE setBackColor)
  Q_PROPERTY(QColor BarColor READ BarColor WRITE setBarColor)
  Q_PROPERTY(bool Vertical READ Vertical WRITE setVertical)
  Q_PROPERTY(int Max READ Max WRITE setMax)
  Q_PROPERTY(int Min READ Min WRITE setMin)
  Q_PROPERTY(int Value READ Value WRITE setValue)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)

 public:
  explicit ProgBar(QWidget* parent = nullptr);
  // Makes the bar known to assistive technology as a progress bar with its value and range;
  // safe to call any number of times.
  static void InstallAccessibility();

  QColor BackColor() const { return backColor_; }
  QColor BarColor() const { return barColor_; }
  bool Vertical() const { return vertical_; }
  int32_t Max() const { return max_; }
  int32_t Min() const { return min_; }
  int32_t Value() const { return value_; }
  int16_t BorderStyle() const { return borderStyle_; }

  void setBackColor(const QColor& c);
  void setBarColor(const QColor& c);
  void setVertical(bool v);
  void setMax(int32_t v);
  void setMin(int32_t v);
  // Above Max becomes Max; then never below Min.
  void setValue(int32_t v);
  // 0 none, 1 single fixed border.
  void setBorderStyle(int16_t v);

  // The inner area the bar is drawn in (inside the border).
  QRect InnerRect() const;

  QSize sizeHint() const override { return {100, 16}; }

 signals:
  void clicked();

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  QColor backColor_;
  QColor barColor_;
  bool vertical_ = false;
  int32_t max_ = 100;
  int32_t min_ = 0;
  int32_t value_ = 50;
  int16_t borderStyle_ = 1;
  bool pressed_ = false;
};

}  // namespace swui
