// Net lag: one step down per turn, and the colour tier the display shows.
#include <iterator>

#include "debuglog/DebugLog.h"
#include "game/Game.h"
#include "runtime/NumText.h"

namespace sw {

namespace {

// One colour tier of the lag display. The tier's number is the lag above its floor.
struct LagTier {
  int16_t nFloor;  // the tier holds lags above this
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

void Game::ShowLag(uint32_t labelBack, uint32_t labelFore, const std::string& caption) {
  frmMain.ShowLagBar(game.pbrNetLag);
  frmMain.SetLabelColors(Label::lblNetLag, labelBack, labelFore);
  frmMain.SetCaption(Label::lblNetLag, caption);
}

void Game::LagDown() {
  // Easy has no lag; the timeout is a trap that lasts until the site is laid out again.
  if (!Level().bLag || game.pbrNetLag.BarColor == color::Black || game.gnLag <= 0) return;

  game.gnLag = static_cast<int16_t>(game.gnLag - 1);
  if (dbg.On()) dbg.DebugWrite(Trace("LagDown").Var("gnLag", game.gnLag));

  const LagTier& t = TierOf(game.gnLag);
  const bool bTimeout = &t == &kTimeout;
  if (game.gbScoreMinLag < t.nMinLag) game.gbScoreMinLag = t.nMinLag;
  // The timeout shows a full bar and an "X" in place of its number.
  game.gnColorLag = bTimeout ? int16_t{-1} : static_cast<int16_t>(game.gnLag - t.nFloor);
  game.pbrNetLag.BarColor = t.barColor;
  game.pbrNetLag.SetValue(bTimeout ? game.pbrNetLag.Max : game.gnLag);
  ShowLag(t.backColor, t.foreColor, bTimeout ? std::string("X") : NumText(int64_t{game.gnColorLag}));

  if (dbg.On()) dbg.DebugWrite(Trace("LagDown").Var("lag color", t.szColor).Var("gnColorLag", game.gnColorLag));
}

}  // namespace sw
