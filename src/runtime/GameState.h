#pragma once
// The state of one game: the map and its objects, the counters and flags of
// the turn, and the net-lag bar as the rules see it. Plain data; the game
// module's procedures (Game) and its neighbours read and write it.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/Flag.h"

namespace sw {

// A map cell: column (0 = left) and row (0 = top); (-1, -1) is nowhere.
struct CoordPair {
  int16_t nCol = -1;
  int16_t nRow = -1;
  bool operator==(const CoordPair&) const = default;
  // "5,3": column, comma, row, as trace lines write a pair.
  std::string Text() const;
};

// The direction codes, numbered as the digits of a numeric keypad and laid out as on the pad:
// 8 up, 2 down, 4 left, 6 right, 7, 9, 1 and 3 the diagonals. Pause (5) is no step: the mouse
// stands still. Trace lines and the state dump print the digit. None (0) is no direction at
// all; like every code outside 1 to 9 it moves nothing.
enum class Direction : int16_t {
  None = 0,
  DownLeft = 1,
  Down = 2,
  DownRight = 3,
  Left = 4,
  Pause = 5,
  Right = 6,
  UpLeft = 7,
  Up = 8,
  UpRight = 9,
};
// The digit of a direction, as trace lines and the state dump print it.
constexpr int16_t DirCode(Direction nDir) { return static_cast<int16_t>(nDir); }

// Causes of death passed to PlayerDead.
enum DeathCause : int16_t {
  kWalkedOntoVirus = 1,
  kVirusReachedMouse = 2,
  kWalkedOntoInfected = 3,
  kLinkedOntoVirus = 4,
  kLinkedOntoInfected = 5,
  kSleepingMouse = 6,
};

// The properties of a progress bar control that the rules depend on.
// Colours are &HBBGGRR values.
struct ProgBarState {
  uint32_t BarColor = 0x8000000D;  // the system colour for highlighted items until the rules colour it
  int32_t Min = 0;
  int32_t Max = 100;
  int32_t Value = 50;
  // Above Max becomes Max; then never below Min.
  void SetValue(int32_t v) { Value = std::max(std::min(v, Max), Min); }
  bool operator==(const ProgBarState&) const = default;
};

// Geometry of the main window, in twips.
namespace twips {
constexpr int32_t kCell = 499;         // one map cell in the window arithmetic
constexpr int32_t kMinWidth = 9555;    // the narrowest window
constexpr int32_t kFrameHeight = 610;  // added to the height for the frame
constexpr int32_t kInfoBarHeight = 1260;
constexpr int16_t kCellGridOn = 480;   // a cell drawn with grid lines
constexpr int16_t kCellGridOff = 490;  // and without
}  // namespace twips

struct GameState {
  // ---- map size (fixed at 24 x 14 when the main window loads)
  int16_t gnMapCols = 24;
  int16_t gnMapRows = 14;

  // ---- objects on the map; lists are 1-based, slot 0 holds (-1, -1)
  CoordPair gctPlayerPos{-1, -1};
  std::vector<CoordPair> gctVirusPos{CoordPair{}};
  std::vector<CoordPair> gctInfectedPos{CoordPair{}};
  // No down server is placed in this version: the list stays empty, but the moves and the
  // virus placement still look it up (CheckDownServers) and the state dump still lists it.
  std::vector<CoordPair> gctDownServerPos{CoordPair{}};
  int16_t gnVirusLive = 0;
  int16_t gnInfectedCount = 0;
  int16_t gnDownServerCount = 0;
  int16_t gnVirusMax = 0;

  // ---- counters and flags
  int16_t gnGameNum = 0;
  Flag gbGameOn;
  Flag gbGameInit;
  int16_t gnSitesHit = 0;
  int16_t gnReconnects = 0;
  int16_t gnMoveCount = 0;
  Direction gnPlayerDir = Direction::Pause;
  Flag gbEndSite;
  Flag gbWaitOn;
  Flag gbLinkOn;
  Flag gbScoreNoLinkSite = true;
  int16_t gbScoreMinLag = 1;  // the worst lag tier of the site so far (1 to 4): a number, not a flag
  int16_t gnLag = 0;
  int16_t gnColorLag = 0;
  // A timed pause is running; key presses and turn-starting commands are kept out.
  Flag gbSleepOn;

  // ---- the net-lag bar, pbrNetLag; the window draws it
  ProgBarState pbrNetLag;

  // Test hook: when false, StartGame leaves the random generator as it is
  // instead of seeding it from the timer, so a test can seed it itself.
  bool bSeedFromTimer = true;

  // True while a pause runs or Wait is in force: no turn may start now.
  bool Busy() const { return gbSleepOn || gbWaitOn; }
  // A cell of the map; (-1, -1), nowhere, is none.
  bool OnMap(const CoordPair& ct) const {
    return ct.nCol >= 0 && ct.nCol < gnMapCols && ct.nRow >= 0 && ct.nRow < gnMapRows;
  }
};

}  // namespace sw
