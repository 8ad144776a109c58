#pragma once
// Scrambles a text with a keyed pseudo-random stream and turns the result
// into printable characters (";" to "z") and back.
#include <string>

#include "runtime/Random.h"

namespace sw {

class Cipher {
 public:
  // Stores the key, then runs the key schedule.
  void KeyString(const std::string& key);
  void Text(const std::string& text) { text_ = text; }
  const std::string& Text() const { return text_; }
  // Scrambles or unscrambles the text in place.
  void DoXor();
  // Every 3 characters become 4 printable ones.
  void Stretch();
  // The exact inverse of Stretch.
  void Shrink();

 private:
  void Seed();
  std::string key_;
  std::string text_;
  Random rnd_;  // its own generator, so enciphering never disturbs the game's draws
};

}  // namespace sw
