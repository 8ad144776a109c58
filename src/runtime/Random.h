#pragma once
// The classic runtime's pseudo-random generator, reproduced bit for bit:
// a 24-bit state, Rnd(x) and Randomize(x). Files enciphered by one build
// of the game decipher in another only if these match exactly.
#include <cstdint>

namespace sw {

class Random {
 public:
  static constexpr uint32_t kStartState = 0x50000;

  // Rnd() / Rnd(x): x < 0 restarts the sequence at a point fixed by x alone,
  // x == 0 repeats the last number, x > 0 (and no argument) gives the next one.
  float Rnd();
  float Rnd(float x);
  // Mixes d into the current state (the upper 32 bits of its IEEE pattern).
  void Randomize(double d);
  // Randomize with the seconds since midnight, as the classic Timer gives them.
  void RandomizeTimer();

  uint32_t State() const { return state_; }
  void SetState(uint32_t s) { state_ = s & 0xFFFFFF; }

  // The classic Timer: seconds since local midnight, as a single.
  static float Timer();

 private:
  uint32_t state_ = kStartState;
};

}  // namespace sw
