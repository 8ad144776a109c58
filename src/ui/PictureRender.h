#pragma once
// How a board picture is drawn from its SVG: a square of `device` pixels,
// transparent around the picture, antialiased. The game and the build tool
// that draws the common sizes ahead of time share it, so both give the same pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "ui/Prerendered.h"

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

// Picture `name` (":/pictures/NAME.svg") `device` pixels square: drawn ahead at this size,
// or else drawn from its SVG now; null when there is no such picture.
inline QImage PictureImage(const char* name, int device) {
  QImage image = PrerenderedImage(name, device);
  if (!image.isNull()) return image;
  QSvgRenderer svg(QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(name)));
  return svg.isValid() ? RenderPicture(svg, device) : QImage();
}

}  // namespace swui
