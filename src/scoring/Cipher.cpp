#include "scoring/Cipher.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace sw {

namespace {

constexpr int kFirstPrintable = 59;  // ";": the stretched alphabet runs from ";" to "z"

inline int Code(char c) { return static_cast<unsigned char>(c); }
inline char Char(int code) { return static_cast<char>(static_cast<unsigned char>(code & 0xFF)); }

// The six-bit value a stretched character stands for. Characters outside ";".."z"
// (a damaged file) are masked like any other: (code - 59) in two's complement,
// low six bits kept.
inline int SixBits(char c) { return (Code(c) - kFirstPrintable) & 63; }

}  // namespace

void Cipher::KeyString(const std::string& key) {
  key_ = key;
  Seed();
}

// Key schedule: forget whatever came before, then fold each key character into the state.
void Cipher::Seed() {
  rnd_.Randomize(static_cast<double>(rnd_.Rnd(-1.0f)));
  for (char ch : key_) {
    const float c = static_cast<float>(Code(ch));
    const float v = -(rnd_.Rnd() * c);
    rnd_.Randomize(static_cast<double>(rnd_.Rnd(v)));
  }
}

void Cipher::DoXor() {
  for (char& ch : text_) {
    const float x = rnd_.Rnd() * 256.0f;
    const int r = static_cast<int>(std::floor(x));
    ch = Char(Code(ch) ^ r);
  }
}

void Cipher::Stretch() {
  const size_t len = text_.size();
  std::string out(len + (len + 2) / 3, ' ');
  size_t j = 0;
  int acc = 0;
  for (size_t i = 1; i <= len; ++i) {
    const int c = Code(text_[i - 1]);
    out[j++] = Char((c & 63) + kFirstPrintable);
    switch (i % 3) {
      case 1: acc |= (c / 64) * 16; break;
      case 2: acc |= (c / 64) * 4; break;
      default:
        acc |= c / 64;
        out[j++] = Char(acc + kFirstPrintable);
        acc = 0;
        break;
    }
  }
  if (len % 3 != 0) out[j++] = Char(acc + kFirstPrintable);
  text_ = std::move(out);
}

void Cipher::Shrink() {
  const size_t len = text_.size();
  const size_t groups = (len + 3) / 4;
  std::string out(len - groups, ' ');
  for (size_t i = 0; i < out.size(); ++i) {
    const size_t group = i / 3;
    const size_t k = i % 3;
    // The group's high-part character is its fourth, or its last for a short last group.
    const size_t high = std::min(group * 4 + 3, len - 1);
    const int low6 = SixBits(text_[group * 4 + k]);
    const int high2 = (SixBits(text_[high]) >> (4 - 2 * k)) & 3;
    out[i] = Char(low6 | (high2 << 6));
  }
  text_ = std::move(out);
}

}  // namespace sw
