#include "ui/GameStyle.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPointer>
#include <QStyle>

namespace swui {

namespace {

// An icon that asks the style for the real one the first time it is drawn or measured.
class DeferredIcon : public QIconEngine {
 public:
  DeferredIcon(QStyle* style, QStyle::StandardPixmap sp) : style_(style), sp_(sp) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    Real().paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Real().pixmap(size, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Real().actualSize(size, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return Real().availableSizes(mode, state);
  }
  QIconEngine* clone() const override { return new DeferredIcon(style_, sp_); }

 private:
  const QIcon& Real() {
    if (!loaded_) {
      loaded_ = true;
      if (style_ != nullptr) real_ = style_->standardIcon(sp_);
    }
    return real_;
  }
  QPointer<QStyle> style_;
  QStyle::StandardPixmap sp_;
  bool loaded_ = false;
  QIcon real_;
};

}  // namespace

GameStyle::GameStyle() : QProxyStyle(QApplication::style()->name()) {}

QIcon GameStyle::standardIcon(StandardPixmap sp, const QStyleOption* option, const QWidget* widget) const {
  if (sp == SP_ToolBarHorizontalExtensionButton || sp == SP_ToolBarVerticalExtensionButton)
    return QIcon(new DeferredIcon(baseStyle(), sp));
  return QProxyStyle::standardIcon(sp, option, widget);
}

}  // namespace swui
