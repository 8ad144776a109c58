#pragma once
// A flag as the classic runtime keeps it: true is -1 and false is 0. It reads as a
// bool; the options file, the state dump and the trace lines write its number.
#include <cstdint>

namespace sw {

class Flag {
 public:
  constexpr Flag() = default;
  constexpr Flag(bool b) : n_(b ? int16_t{-1} : int16_t{0}) {}
  // Only a bool makes a flag: a number would not say which of the two it means.
  Flag(int) = delete;

  constexpr explicit operator bool() const { return n_ != 0; }
  // The number it is kept as: -1 for true, 0 for false.
  constexpr int16_t Code() const { return n_; }
  constexpr bool operator==(const Flag&) const = default;

 private:
  int16_t n_ = 0;
};

}  // namespace sw
