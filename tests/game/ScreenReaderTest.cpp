// What a player who cannot see the board is told: the news of each turn, and
// the review keys that read the board without playing.
#include <gtest/gtest.h>

#include <cctype>

#include "game/Board.h"

namespace sw::test {

// Whether text matches pattern, where # stands for a number and * for anything.
static bool Like(const char* t, const char* p) {
  if (*p == '*') return Like(t, p + 1) || (*t != 0 && Like(t + 1, p));
  if (*p == '#') return std::isdigit(static_cast<unsigned char>(*t)) && (Like(t + 1, p + 1) || Like(t + 1, p));
  return *p == *t && (*p == 0 || Like(t + 1, p + 1));
}

// One key, one sentence of news, or none when the board did not change.
TEST(TurnNewsTest, EachTurnSaysWhatChanged) {
  // Each box the turn shows is answered by its default button; the news is a pattern (# a number, * anything),
  // "" for silence. Whisk stands at 6, 6.
  const struct {
    const char* name;
    Cells viruses;
    char key;
    int16_t reconnects;
    const char* news;
    Cells infected = {};  // servers infected before the turn
  } cases[] = {
      {"move", {At(10, 5), At(5, 12)}, '6', 2, "Whisk at 7, 6. 2 viruses, nearest 3 right, then 6 down."},
      {"a third dies on the server",
       {At(8, 5), At(8, 5), At(8, 5), At(20, 13)},
       '5',
       2,
       "1 crash. 1 virus died on an infected server. 1 virus, nearest 7 down 14 right.",
       {At(0, 0)}},
      {"two such",
       {At(8, 5), At(8, 5), At(8, 5), At(8, 2), At(8, 2), At(8, 2), At(20, 13)},
       '5',
       2,
       "2 crashes. 2 viruses died on infected servers. 1 virus, nearest *."},
      {"unbound key", {At(20, 13)}, 'q', 2, ""},
      {"death", {At(6, 6), At(20, 13)}, '5', 2, "Died. Whisk at #, #. 7 viruses, nearest *."},
      {"site hit", {At(9, 4), At(9, 6)}, '5', 2, "Site hit. Whisk at #, #. 8 viruses, nearest *."},
      {"played again", {At(6, 6)}, '5', 0, "Game over. New game. Whisk at #, #. 7 viruses*"},
      {"link", {At(23, 13)}, '+', 2, "Whisk at #, #. 1 virus, nearest *. lag: yellow."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Board b(2, At(5, 5), c.viruses, c.infected);
    b.g.gnReconnects = c.reconnects;
    b.g.gbEndSite = false;  // a turn in the middle of a site
    b.sw.news.Form_KeyPress(c.key);
    ASSERT_EQ(b.w.announced.size(), *c.news ? 1u : 0u);
    if (*c.news) {
      EXPECT_TRUE(Like(b.w.announced[0].c_str(), c.news)) << b.w.announced[0];
    }
  }
}

// The review cursor starts on Whisk, steps over the cells, jumps to Whisk and to
// the viruses nearest first, and goes back to Whisk once Whisk has moved.
TEST(ReviewTest, KeysReadTheCellsAroundWhisk) {
  Board b;
  b.Set(At(5, 5), {At(3, 4), At(9, 1)}, {At(6, 5)});
  Review& review = b.sw.review;
  const std::pair<ReviewKey, const char*> steps[] = {
      {ReviewKey::Right, "infected server, 1 right"},
      {ReviewKey::Up, "empty, 1 up 1 right"},
      {ReviewKey::Down, "infected server, 1 right"},
      {ReviewKey::Down, "empty, 1 down 1 right"},
      {ReviewKey::Left, "empty, 1 down"},
      {ReviewKey::Whisk, "Whisk at 6, 6"},
      {ReviewKey::NearestVirus, "virus, 1 up 2 left"},
      {ReviewKey::NearestVirus, "virus, 4 up 4 right"},
      {ReviewKey::NearestVirus, "virus, 1 up 2 left"},
  };
  for (const auto& [key, said] : steps) {
    review.Key(key);
    EXPECT_EQ(b.w.announced.back(), said);
  }
  // At each of the four edges of the map the cursor stays where it is.
  const std::pair<CoordPair, ReviewKey> edges[] = {{At(0, 0), ReviewKey::Up},
                                                   {At(23, 13), ReviewKey::Right},
                                                   {At(23, 13), ReviewKey::Down},
                                                   {At(0, 0), ReviewKey::Left}};
  for (const auto& [whisk, key] : edges) {
    b.Set(whisk, {At(3, 4)});
    review.Key(key);
    EXPECT_EQ(b.w.announced.back(), "edge, Whisk at " + CellNumbers(whisk));
  }
  b.g.gbGameOn = false;  // a game lost: the dead mouse stays until the next game
  b.g.gnReconnects = -1;
  review.Key(ReviewKey::Whisk);
  EXPECT_EQ(b.w.announced.back(), "dead mouse at 1, 1");
  // Whisk's cell, as the board describes it: the way the last step went.
  EXPECT_EQ(PictureFacing(Picture::Player1) + ", " + PictureFacing(Picture::Player5) + ", " +
                PictureFacing(Picture::Player6) + ", " + PictureFacing(Picture::Death),
            "facing down-left, standing, facing right, ");
}

}  // namespace sw::test
