#include "runtime/Checked.h"

#include <cfenv>
#include <cmath>

namespace sw {

double RoundHalfEven(double v) {
  if (!std::isfinite(v)) return v;
  const double fl = std::floor(v);
  const double diff = v - fl;
  if (diff < 0.5) return fl;
  if (diff > 0.5) return fl + 1.0;
  return std::fmod(fl, 2.0) == 0.0 ? fl : fl + 1.0;
}

int16_t CInt(double v) {
  const double r = RoundHalfEven(v);
  if (!(r >= -32768.0 && r <= 32767.0)) throw RuntimeError(errOverflow);
  return static_cast<int16_t>(r);
}

int32_t CLng(double v) {
  const double r = RoundHalfEven(v);
  if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw RuntimeError(errOverflow);
  return static_cast<int32_t>(r);
}

}  // namespace sw
