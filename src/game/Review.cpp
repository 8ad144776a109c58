#include "game/Review.h"

#include <algorithm>
#include <cstdlib>

namespace sw {

std::string PictureWord(Picture pic) {
  switch (pic) {
    case Picture::None: return "empty";
    case Picture::Death: return "dead mouse";
    case Picture::Virus: return "virus";
    case Picture::Infected: return "infected server";
    default: return "Whisk";  // the nine facings
  }
}

std::string PictureFacing(Picture pic) {
  switch (pic) {
    case Picture::Player1: return "facing down-left";
    case Picture::Player2: return "facing down";
    case Picture::Player3: return "facing down-right";
    case Picture::Player4: return "facing left";
    case Picture::Player5: return "standing";
    case Picture::Player6: return "facing right";
    case Picture::Player7: return "facing up-left";
    case Picture::Player8: return "facing up";
    case Picture::Player9: return "facing up-right";
    default: return "";
  }
}

std::string OffsetText(const CoordPair& from, const CoordPair& to) {
  const int dc = to.nCol - from.nCol, dr = to.nRow - from.nRow;
  std::string text;
  auto add = [&text](int n, const char* way) { text += (text.empty() ? "" : " ") + std::to_string(n) + way; };
  if (dr < 0) add(-dr, " up");
  if (dr > 0) add(dr, " down");
  if (dc < 0) add(-dc, " left");
  if (dc > 0) add(dc, " right");
  return text.empty() ? "here" : text;
}

std::string CellNumbers(const CoordPair& ct) {
  return std::to_string(ct.nCol + 1) + ", " + std::to_string(ct.nRow + 1);
}

int Steps(const CoordPair& a, const CoordPair& b) {
  return std::max(std::abs(a.nCol - b.nCol), std::abs(a.nRow - b.nRow));
}

std::vector<CoordPair> LiveViruses(const GameState& game) {
  if (game.gnVirusLive == 0) return {};
  return {game.gctVirusPos.begin() + 1, game.gctVirusPos.begin() + 1 + game.gnVirusLive};
}

std::vector<CoordPair> ByDistance(std::vector<CoordPair> v, const CoordPair& from) {
  auto key = [&from](const CoordPair& c) {
    const int dc = c.nCol - from.nCol, dr = c.nRow - from.nRow;
    return std::pair{Steps(c, from), dc * dc + dr * dr};
  };
  std::stable_sort(v.begin(), v.end(), [&key](const CoordPair& a, const CoordPair& b) { return key(a) < key(b); });
  return v;
}

Review::Review(const GameState& game, IMainWindow& frmMain) : game(game), frmMain(frmMain) {}

Picture Review::PictureAt(const CoordPair& ct) const {
  if (ct == game.gctPlayerPos) {
    // A game lost keeps the dead mouse on the board until the next one starts.
    return (!game.gbGameOn && game.gnReconnects < 0) ? Picture::Death : PlayerPicture(game.gnPlayerDir);
  }
  for (const CoordPair& v : LiveViruses(game))
    if (v == ct) return Picture::Virus;
  for (int16_t i = 1; i <= game.gnInfectedCount && static_cast<size_t>(i) < game.gctInfectedPos.size(); ++i)
    if (game.gctInfectedPos[static_cast<size_t>(i)] == ct) return Picture::Infected;
  return Picture::None;
}

std::string Review::CellPhrase(const CoordPair& ct) const {
  const std::string word = PictureWord(PictureAt(ct));
  if (ct == game.gctPlayerPos) return word + " at " + CellNumbers(ct);
  return word + ", " + OffsetText(game.gctPlayerPos, ct);
}

void Review::Follow() {
  // The cursor starts on Whisk, and goes back to Whisk once Whisk has moved.
  if (!(game.gctPlayerPos == whisk_)) cursor_ = whisk_ = game.gctPlayerPos;
}

void Review::Key(ReviewKey key) {
  Follow();
  if (cursor_.nCol < 0) return;  // no mouse on the map (-1, -1): nothing to read from
  std::string prefix;
  switch (key) {
    case ReviewKey::Left:
    case ReviewKey::Right:
    case ReviewKey::Up:
    case ReviewKey::Down: {
      CoordPair next = cursor_;
      if (key == ReviewKey::Left) --next.nCol;
      if (key == ReviewKey::Right) ++next.nCol;
      if (key == ReviewKey::Up) --next.nRow;
      if (key == ReviewKey::Down) ++next.nRow;
      if (!game.OnMap(next))
        prefix = "edge, ";
      else
        cursor_ = next;
      break;
    }
    case ReviewKey::Whisk: cursor_ = game.gctPlayerPos; break;
    case ReviewKey::NearestVirus: {
      const std::vector<CoordPair> order = ByDistance(LiveViruses(game), game.gctPlayerPos);
      if (order.empty()) {
        frmMain.Announce("no viruses");
        return;
      }
      // Pressed again on a virus, it goes on to the next nearest.
      auto at = std::find(order.begin(), order.end(), cursor_);
      cursor_ = (at == order.end() || at + 1 == order.end()) ? order.front() : *(at + 1);
      break;
    }
  }
  frmMain.Announce(prefix + CellPhrase(cursor_));
}

}  // namespace sw
