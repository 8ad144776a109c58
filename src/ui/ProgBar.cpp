#include "ui/ProgBar.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace swui {

namespace {

// The net-lag bar: a progress bar with its value and range.
class ProgBarAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ProgBarAccessible(ProgBar* bar) : QAccessibleWidget(bar, QAccessible::ProgressBar) {}
  ProgBar* bar() const { return static_cast<ProgBar*>(widget()); }
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(t);
  }
  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Value) return QString::number(bar()->Value());
    return QAccessibleWidget::text(t);
  }
  QVariant currentValue() const override { return bar()->Value(); }
  void setCurrentValue(const QVariant&) override {}
  QVariant maximumValue() const override { return bar()->Max(); }
  QVariant minimumValue() const override { return bar()->Min(); }
  QVariant minimumStepSize() const override { return 1; }
};

QAccessibleInterface* BarFactory(const QString& className, QObject* object) {
  if (object == nullptr || className != QLatin1String("swui::ProgBar")) return nullptr;
  return new ProgBarAccessible(static_cast<ProgBar*>(object));
}

}  // namespace

void ProgBar::InstallAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(BarFactory);
    return true;
  }();
  (void)installed;
}

ProgBar::ProgBar(QWidget* parent) : QWidget(parent) {
  InstallAccessibility();
  backColor_ = palette().color(QPalette::Button);
  barColor_ = palette().color(QPalette::Highlight);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ProgBar::setBackColor(const QColor& c) {
  if (backColor_ == c) return;
  backColor_ = c;
  update();
}

void ProgBar::setBarColor(const QColor& c) {
  if (barColor_ == c) return;
  barColor_ = c;
  update();
}

void ProgBar::setVertical(bool v) {
  vertical_ = v;
  update();
}

void ProgBar::setMax(int32_t v) {
  if (max_ == v) return;
  max_ = v;
  update();
}

void ProgBar::setMin(int32_t v) {
  if (min_ == v) return;
  min_ = v;
  update();
}

void ProgBar::setValue(int32_t v) {
  if (v > max_) v = max_;
  v = std::max(v, min_);
  if (value_ == v) return;
  value_ = v;
  update();
  if (QAccessible::isActive()) {
    QAccessibleValueChangeEvent changed(this, value_);
    QAccessible::updateAccessibility(&changed);
  }
}

void ProgBar::setBorderStyle(int16_t v) {
  borderStyle_ = v;
  update();
}

QRect ProgBar::InnerRect() const { return borderStyle_ == 1 ? rect().adjusted(1, 1, -1, -1) : rect(); }

void ProgBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect inner = InnerRect();
  if (borderStyle_ == 1) {
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (inner.isEmpty()) return;

  // Scale units to pixels: the inner width and height both measure Max - Min.
  const int64_t span = int64_t{max_} - min_;
  const int64_t units = span == 0 ? 1 : span;
  const int64_t p = int64_t{value_} - min_;
  auto toX = [&](int64_t u) { return inner.left() + static_cast<int>(u * inner.width() / units); };
  auto toY = [&](int64_t u) { return inner.top() + static_cast<int>(u * inner.height() / units); };
  auto box = [&](int x1, int y1, int x2, int y2, const QColor& c) {
    if (x2 > x1 && y2 > y1) painter.fillRect(QRect(QPoint(x1, y1), QPoint(x2 - 1, y2 - 1)), c);
  };
  const int right = inner.left() + inner.width();
  const int bottom = inner.top() + inner.height();
  if (!vertical_) {
    const int xp = std::clamp(toX(p), inner.left(), right);
    box(xp, inner.top(), right, bottom, backColor_);
    if (p >= 1) box(inner.left(), inner.top(), xp, bottom, barColor_);
  } else {
    const int yp = std::clamp(toY(units - p), inner.top(), bottom);
    box(inner.left(), inner.top(), right, yp, backColor_);
    if (p >= 1) box(inner.left(), yp, right, bottom, barColor_);
  }
}

void ProgBar::mousePressEvent(QMouseEvent* e) { pressed_ = e->button() == Qt::LeftButton; }

void ProgBar::mouseReleaseEvent(QMouseEvent* e) {
  if (pressed_ && e->button() == Qt::LeftButton && rect().contains(e->position().toPoint())) emit clicked();
  pressed_ = false;
}

}  // namespace swui
