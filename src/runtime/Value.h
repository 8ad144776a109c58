#pragma once
// A loosely typed value, as a trace line prints it: numbers without a
// leading blank, booleans as "True"/"False", strings as they are.
#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

#include "runtime/Flag.h"

namespace sw {

class Value {
 public:
  Value() = default;
  Value(bool b) : v_(b) {}
  Value(int16_t n) : v_(int64_t{n}) {}
  Value(int32_t n) : v_(int64_t{n}) {}
  Value(int64_t n) : v_(n) {}
  Value(float f) : v_(Single{f}) {}
  Value(double d) : v_(d) {}
  Value(const char* s) : v_(std::string(s)) {}
  Value(std::string s) : v_(std::move(s)) {}
  // A flag prints as its number, -1 or 0.
  Value(Flag f) : v_(int64_t{f.Code()}) {}
  // A named code prints as its number.
  template <class E>
  requires std::is_enum_v<E> Value(E e) : v_(int64_t{static_cast<std::underlying_type_t<E>>(e)}) {}

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(v_); }
  // The text the concatenation operator gives for this value.
  std::string Text() const;

 private:
  struct Single {
    float f;
  };
  std::variant<std::monostate, bool, int64_t, double, Single, std::string> v_;
};

}  // namespace sw
