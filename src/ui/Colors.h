#pragma once
// Colours worked out from the desktop's palette.
#include <QColor>
#include <QtGlobal>

namespace swui {

// The colour t of the way from a to b (0: a, 1: b).
inline QColor Mix(const QColor& a, const QColor& b, double t) {
  auto mix = [t](int x, int y) { return qRound(x + (y - x) * t); };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

}  // namespace swui
