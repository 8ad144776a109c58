#include "game/TurnSummary.h"

#include <algorithm>

#include "game/Game.h"
#include "game/Review.h"

namespace sw {

namespace {

std::string Count(long n, const char* one, const char* many) { return std::to_string(n) + " " + (n == 1 ? one : many); }

// "7 viruses, nearest 2 up 1 left, then 3 right".
std::string VirusNews(const TurnView& v) {
  if (v.viruses.empty()) return "no viruses";
  const std::vector<CoordPair> order = ByDistance(v.viruses, v.whisk);
  std::string text =
      Count(static_cast<long>(v.viruses.size()), "virus", "viruses") + ", nearest " + OffsetText(v.whisk, order[0]);
  if (order.size() > 1) text += ", then " + OffsetText(v.whisk, order[1]);
  return text;
}

}  // namespace

std::string LagTierWord(const ProgBarState& bar) {
  switch (bar.BarColor) {
    case color::Blue: return "blue";
    case color::Yellow: return "yellow";
    case color::Red: return "red";
    case color::Black: return "timeout";
    default: return "";
  }
}

TurnView TurnView::Of(const GameState& game) {
  return {game.gctPlayerPos,
          LiveViruses(game),
          game.gnInfectedCount,
          game.gnReconnects,
          game.gnSitesHit,
          game.gnGameNum,
          static_cast<bool>(game.gbGameOn),
          static_cast<bool>(game.gbEndSite),
          LagTierWord(game.pbrNetLag)};
}

std::string Summarize(const TurnView& before, const TurnView& after) {
  if (before == after) return "";
  std::vector<std::string> parts;
  // A game that ended and started again inside one key press was lost and played again.
  const bool newGame = after.nGameNum != before.nGameNum;
  const bool gameOver = newGame || (before.bGameOn && !after.bGameOn);
  const bool siteHit = !gameOver && after.nSitesHit > before.nSitesHit;
  // A death ends the site and lays it out again: a reconnect fewer (unless the same turn earned
  // one), the viruses back to full strength.
  const bool died = !gameOver && !siteHit &&
                    ((!before.bEndSite && after.bEndSite) || after.nReconnects < before.nReconnects ||
                     after.viruses.size() > before.viruses.size());
  const bool laidOut = newGame || siteHit || died;
  if (gameOver) parts.emplace_back("Game over");
  if (newGame) parts.emplace_back("New game");
  if (died) parts.emplace_back("Died");
  if (siteHit) parts.emplace_back("Site hit");
  if (!laidOut && !gameOver) {
    const long crashes = after.nInfected - before.nInfected;
    const long lost = static_cast<long>(before.viruses.size()) - static_cast<long>(after.viruses.size()) - 2 * crashes;
    if (crashes > 0) parts.push_back(Count(crashes, "crash", "crashes"));
    if (lost > 0)
      parts.push_back(lost == 1 ? "1 virus died on an infected server"
                                : std::to_string(lost) + " viruses died on infected servers");
  }
  if (after.bGameOn) {
    const bool moved = laidOut || !(after.whisk == before.whisk);
    if (moved) parts.push_back("Whisk at " + CellNumbers(after.whisk));
    if (moved || after.viruses != before.viruses) parts.push_back(VirusNews(after));
    if (after.lag != before.lag && !after.lag.empty()) parts.push_back("lag: " + after.lag);
  }
  std::string text;
  for (const std::string& p : parts) text += (text.empty() ? "" : ". ") + p;
  return text.empty() ? text : text + ".";
}

TurnSummary::TurnSummary(const GameState& game, Game& engine, IMainWindow& frmMain)
    : game(game), engine(engine), frmMain(frmMain) {}

void TurnSummary::Form_KeyPress(int16_t KeyAscii) {
  const TurnView before = TurnView::Of(game);
  engine.Form_KeyPress(KeyAscii);
  const std::string news = Summarize(before, TurnView::Of(game));
  if (!news.empty()) frmMain.Announce(news);
}

}  // namespace sw
