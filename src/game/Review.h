#pragma once
// Reading the board in words, for a player who cannot see it: what a cell
// holds, where something lies from Whisk, and the review cursor that the
// review keys move over the cells without playing a turn.
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/GameState.h"
#include "runtime/MainWindow.h"

namespace sw {

// What a picture shows, in words: "Whisk", "virus", "infected server", "dead mouse", "empty".
std::string PictureWord(Picture pic);
// Which way Whisk faces in the picture ("facing up-left"); "" for every other picture.
std::string PictureFacing(Picture pic);
// Where `to` lies from `from`, rows first: "2 up 1 left", "3 right"; "here" on the same cell.
std::string OffsetText(const CoordPair& from, const CoordPair& to);
// A cell as a player counts it, from 1 at the top left, column first: "7, 4".
std::string CellNumbers(const CoordPair& ct);
// Steps between two cells for a piece that moves diagonally too.
int Steps(const CoordPair& a, const CoordPair& b);
// The live viruses, in list order.
std::vector<CoordPair> LiveViruses(const GameState& game);
// The cells, nearest to `from` first: by steps, then straight-line distance, then their order.
std::vector<CoordPair> ByDistance(std::vector<CoordPair> cells, const CoordPair& from);

// The review keys: they type no character, so no control profile can hold them.
enum class ReviewKey { Left, Right, Up, Down, Whisk, NearestVirus };

class Review {
 public:
  Review(const GameState& game, IMainWindow& frmMain);

  // Moves the review cursor and announces the cell it reaches. Never plays a turn.
  // Left/Right/Up/Down step one cell (at the edge the cell is read again, after "edge");
  // Whisk goes to Whisk's cell; NearestVirus to the nearest virus, and on to the next
  // nearest each time it is pressed again.
  void Key(ReviewKey key);
  // The cell under the cursor; the cursor starts on Whisk and goes back to Whisk when Whisk moves.
  CoordPair Cursor() const { return cursor_; }
  // What the cell holds as the game state has it, drawn the way the board draws it.
  Picture PictureAt(const CoordPair& ct) const;
  // What the cursor reads on a cell: "virus, 2 up 1 left"; on Whisk's cell "Whisk at 7, 4".
  std::string CellPhrase(const CoordPair& ct) const;

 private:
  void Follow();

  const GameState& game;
  IMainWindow& frmMain;
  CoordPair cursor_{-1, -1};
  CoordPair whisk_{-1, -1};  // where Whisk stood when the cursor was last placed
};

}  // namespace sw
