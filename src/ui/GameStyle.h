#pragma once
// The desktop's own style, with one thing put off: the menu bar's extension
// arrow (shown only when the menus do not fit) is drawn on first use. Loading
// it at once would read the image-format plugins before the first frame.
#include <QProxyStyle>

namespace swui {

class GameStyle : public QProxyStyle {
 public:
  // The style the application would have used (the desktop's, or -style / QT_STYLE_OVERRIDE).
  GameStyle();
  QIcon standardIcon(StandardPixmap sp, const QStyleOption* option = nullptr,
                     const QWidget* widget = nullptr) const override;
};

}  // namespace swui
