#include "runtime/Random.h"

#include <bit>
#include <chrono>
#include <ctime>

namespace sw {

float Random::Rnd() { return Rnd(1.0f); }

float Random::Rnd(float x) {
  if (x < 0.0f) {
    const uint32_t bits = std::bit_cast<uint32_t>(x);
    state_ = ((bits >> 24) + bits) & 0xFFFFFF;
  }
  if (x != 0.0f) {
    state_ = (0xFFC39EC3u - state_ * 0x2BC03u) & 0xFFFFFF;
  }
  return static_cast<float>(state_) / 16777216.0f;
}

void Random::Randomize(double d) {
  const uint64_t bits = std::bit_cast<uint64_t>(d);
  const uint32_t hi = static_cast<uint32_t>(bits >> 32);
  state_ = (((hi & 0xFFFF) << 8) ^ ((hi >> 8) & 0xFFFF00)) | (state_ & 0xFF0000FF);
  state_ &= 0xFFFFFF;
}

float Random::Timer() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t t = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&t, &local);
  const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  const double secs = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + ms / 1000.0;
  return static_cast<float>(secs);
}

void Random::RandomizeTimer() { Randomize(static_cast<double>(Timer())); }

}  // namespace sw
