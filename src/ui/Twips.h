#pragma once
// Twips (1/1440 inch) to pixels and back, at the logical resolution of a
// screen, so that a window has the same physical size on every display.
#include <QPaintDevice>
#include <QtGlobal>
#include <cstdint>

namespace swui {

struct Twips {
  double dpiX = 96.0;
  double dpiY = 96.0;

  static Twips Of(const QPaintDevice& device) {
    return Twips{static_cast<double>(device.logicalDpiX()), static_cast<double>(device.logicalDpiY())};
  }
  int X(int64_t tw) const { return qRound(static_cast<double>(tw) * dpiX / 1440.0); }
  int Y(int64_t tw) const { return qRound(static_cast<double>(tw) * dpiY / 1440.0); }
  // Pixels to twips, rounded up so that a measured text always fits.
  int32_t FromX(int px) const { return static_cast<int32_t>(px * 1440.0 / dpiX + 0.999); }
  int32_t FromY(int px) const { return static_cast<int32_t>(px * 1440.0 / dpiY + 0.999); }
};

}  // namespace swui
