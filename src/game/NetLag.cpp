// Net lag: one step down per turn, and the colour tier the display shows.
#include <iterator>

#include "game/Game.h"
#include "game/Skitterweb.h"
#include "runtime/NumText.h"

namespace sw {

namespace {

// One colour tier of the lag display. The tier's number is the lag above its floor.
struct LagTier {
  int16_t nFloor;     // the tier holds lags above this
  const char* szColor;
  int16_t nMinLag;    // the worst tier of the site, for the low-lag bonus (1 blue .. 4 timeout)
  int16_t nLinkCost;  // what a link adds before the step it also costs; no link in the timeout
  uint32_t barColor, backColor, foreColor;
};

// Worst first; blue takes what is left.
constexpr LagTier kLagTiers[] = {
    {12, "timeout", 4, 0, color::Black, color::Black, color::White},
    {6, "red", 3, 6, color::Red, color::Red, color::White},
    {2, "yellow", 2, 5, color::Yellow, color::Yellow, color::Black},
    {0, "blue", 1, 4, color::Blue, color::Blue, color::White},
};
constexpr const LagTier& kTimeout = kLagTiers[0];

const LagTier& TierOf(int16_t nLag) {
  for (const LagTier& t : kLagTiers)
    if (nLag > t.nFloor) return t;
  return kLagTiers[std::size(kLagTiers) - 1];
}

}  // namespace

int16_t Game::LinkCost(uint32_t barColor) {
  for (const LagTier& t : kLagTiers)
    if (t.barColor == barColor) return t.nLinkCost;
  return 0;
}

void Game::LagDown() {
  // Easy has no lag; the timeout is a trap that lasts until the site is laid out again.
  if (Diff() == 1 || frmMain.LagBarColor() == color::Black || gnLag <= 0) return;

  gnLag = static_cast<int16_t>(gnLag - 1);
  if (dbg.On()) dbg.DebugWrite(Trace("LagDown").Var("gnLag", gnLag));

  const LagTier& t = TierOf(gnLag);
  const bool bTimeout = &t == &kTimeout;
  if (gbScoreMinLag < t.nMinLag) gbScoreMinLag = t.nMinLag;
  // The timeout shows a full bar and an "X" in place of its number.
  gnColorLag = bTimeout ? int16_t{-1} : static_cast<int16_t>(gnLag - t.nFloor);
  frmMain.SetLagBarColor(t.barColor);
  frmMain.SetLagBarValue(bTimeout ? frmMain.LagBarMax() : gnLag);
  frmMain.SetLabelColors(Label::lblNetLag, t.backColor, t.foreColor);
  frmMain.SetCaption(Label::lblNetLag, bTimeout ? std::string("X") : NumText(int64_t{gnColorLag}));

  if (dbg.On()) dbg.DebugWrite(Trace("LagDown").Var("lag color", t.szColor).Var("gnColorLag", gnColorLag));
}

}  // namespace sw
