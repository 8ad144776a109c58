#pragma once
// Whole-number arithmetic at its declared width: a result that does not fit
// raises the run-time error "Overflow" (6), as the classic runtime does.
#include <cstdint>
#include <limits>
#include <vector>

#include "runtime/RuntimeError.h"

namespace sw {

// Narrows a wide integer result to T, raising Overflow when it does not fit.
template <class T>
T Checked(int64_t v) {
  if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max()) {
    throw RuntimeError(errOverflow);
  }
  return static_cast<T>(v);
}

inline int16_t I16(int64_t v) { return Checked<int16_t>(v); }
inline int32_t I32(int64_t v) { return Checked<int32_t>(v); }

// 16-bit and 32-bit checked operations.
inline int16_t Add16(int16_t a, int16_t b) { return I16(int64_t{a} + b); }
inline int16_t Sub16(int16_t a, int16_t b) { return I16(int64_t{a} - b); }
inline int16_t Mul16(int16_t a, int16_t b) { return I16(int64_t{a} * b); }
inline int32_t Add32(int32_t a, int32_t b) { return I32(int64_t{a} + b); }
inline int32_t Sub32(int32_t a, int32_t b) { return I32(int64_t{a} - b); }
inline int32_t Mul32(int32_t a, int32_t b) { return I32(int64_t{a} * b); }

// Element i of a list, or "Subscript out of range" (9), as the classic runtime's arrays give it.
template <class List>
auto& Element(List& v, int64_t i) {
  if (i < 0 || static_cast<uint64_t>(i) >= v.size()) throw RuntimeError(errSubscript);
  return v[static_cast<size_t>(i)];
}

// Rounds to the nearest whole number, halves to the even neighbour (banker's rounding).
double RoundHalfEven(double v);

// CInt and CLng: round halves to even, then Overflow outside the 16-bit / 32-bit range.
int16_t CInt(double v);
int32_t CLng(double v);

}  // namespace sw
