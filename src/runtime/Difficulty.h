#pragma once
// The four difficulties and what each one changes.
#include <cstdint>

namespace sw {

struct Difficulty {
  const char* szName;       // as the difficulty label shows it: "Easy"
  const char* szWord;       // as a question names it: "easy"
  int16_t nScoreMod;        // every score event is multiplied by this
  int32_t lExtraLifeBonus;  // points between two extra reconnects
  bool bLag;                // links cost net lag and every turn lowers it
  bool bTwice;              // the viruses move twice for each command
  int32_t nLinkPause;       // ms before the viruses answer a link; 0: a link is a free turn
};

// Index 1 easy to 4 nightmare. Index 0 stands for a level that does not
// exist: lag applies, the viruses move once and a link is a free turn.
inline constexpr Difficulty kDifficulties[5] = {
    {"", "", 0, 0, true, false, 0},
    {"Easy", "easy", 1, 2000, false, false, 0},
    {"Normal", "normal", 5, 10000, true, false, 0},
    {"Hard", "hard", 25, 25000, true, false, 325},
    {"Nightmare", "nightmare", 150, 60000, true, true, 325},
};

inline const Difficulty& DifficultyOf(int16_t nDiff) { return kDifficulties[(nDiff >= 1 && nDiff <= 4) ? nDiff : 0]; }

}  // namespace sw
