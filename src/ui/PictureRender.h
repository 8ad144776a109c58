#pragma once
// How a picture is drawn from its SVG: a square of `device` pixels, transparent
// around the picture, antialiased, read through Qt's SVG image plugin. The game
// and the build tool that draws the common sizes ahead of time share it, so both
// give the same pixels; and the game loads Qt's SVG code only on the first
// picture it must draw at a size not drawn ahead.
#include <QImage>
#include <QImageReader>
#include <QString>

#include "ui/Prerendered.h"

namespace swui {

// The SVG file drawn `device` pixels square; null when it cannot be read.
inline QImage ReadPicture(const QString& file, int device) {
  QImageReader reader(file, "svg");
  reader.setScaledSize(QSize(device, device));
  QImage image = reader.read();
  if (image.isNull() || image.size() != QSize(device, device)) return {};
  return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Picture `name` (":/pictures/NAME.svg") `device` pixels square: drawn ahead at this size,
// or else drawn from its SVG now; null when there is no such picture.
inline QImage PictureImage(const char* name, int device) {
  QImage image = PrerenderedImage(name, device);
  if (!image.isNull()) return image;
  return ReadPicture(QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(name)), device);
}

}  // namespace swui
