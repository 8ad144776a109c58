#pragma once
// How a board picture is drawn from its SVG: a square of `device` pixels,
// transparent around the picture, antialiased. The game and the build tool
// that draws the common sizes ahead of time share it, so both give the same pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace swui {

inline QImage RenderPicture(QSvgRenderer& svg, int device) {
  QImage image(device, device, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  if (svg.isValid()) {
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    svg.render(&p, QRectF(0, 0, device, device));
  }
  return image;
}

}  // namespace swui
