#pragma once
// A game on the recording fake window, with the board set up by hand: the
// mouse, the viruses and the infected servers put straight into the lists.
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

#include "game/Skitterweb.h"
#include "support/FakeWindow.h"

namespace sw::test {

struct Board {
  FakeWindow w;
  Skitterweb sw{w};
  Game& g = sw.game;
  Score& sc = sw.score;

  // A game in progress on the given difficulty; sound off, so that the only
  // pauses recorded are the game's own. The generator starts from a fixed seed.
  explicit Board(int16_t nDiff = 2, double seed = 1.0) {
    sw.opts.Current().nDiff = nDiff;
    sw.opts.Current().bSound = 0;
    sc.InitScore();
    g.bSeedFromTimer = false;
    sw.rnd.Randomize(seed);
    g.StartGame();
    w.messages.clear();
    w.sleeps.clear();
  }

  // Empties the map and puts the objects where the test wants them. The site
  // is fresh: no moves yet, no link, lag in blue.
  void Set(CoordPair mouse, std::initializer_list<CoordPair> viruses, std::initializer_list<CoordPair> infected = {}) {
    SetLists(mouse, std::vector<CoordPair>(viruses), std::vector<CoordPair>(infected));
  }
  void SetLists(CoordPair mouse, const std::vector<CoordPair>& viruses, const std::vector<CoordPair>& infected) {
    g.ResetObjects();
    g.gctPlayerPos = mouse;
    g.DrawCell(mouse, Picture::Player5);
    g.gctVirusPos.assign(1, CoordPair{-1, -1});
    for (const CoordPair& v : viruses) g.gctVirusPos.push_back(v);
    g.gnVirusLive = static_cast<int16_t>(viruses.size());
    g.gnVirusMax = g.gnVirusLive;
    g.gctInfectedPos.assign(1, CoordPair{-1, -1});
    for (const CoordPair& c : infected) {
      g.gctInfectedPos.push_back(c);
      g.DrawCell(c, Picture::Infected);
    }
    g.gnInfectedCount = static_cast<int16_t>(infected.size());
    g.DrawViruses();
    g.gbScoreNoLinkSite = -1;
    g.gnMoveCount = 0;
    g.gbScoreMinLag = 1;
    g.gbEndSite = -1;
    g.gbWaitOn = 0;
  }

  // Every cell of the map not within one cell of `around`.
  std::vector<CoordPair> AllCellsAwayFrom(CoordPair around) const {
    std::vector<CoordPair> cells;
    for (int16_t c = 0; c < g.gnMapCols; ++c)
      for (int16_t r = 0; r < g.gnMapRows; ++r)
        if (std::abs(c - around.nCol) > 1 || std::abs(r - around.nRow) > 1) cells.push_back(CoordPair{c, r});
    return cells;
  }

  // Types one character of the default number-pad profile.
  void Key(char c) { g.Form_KeyPress(static_cast<int16_t>(c)); }

  std::vector<CoordPair> Viruses() const {
    return std::vector<CoordPair>(g.gctVirusPos.begin() + 1, g.gctVirusPos.begin() + 1 + g.gnVirusLive);
  }
  std::string Caption(Label l) const {
    auto it = w.captions.find(l);
    return it == w.captions.end() ? std::string() : it->second;
  }
  const ShownMsg& LastMsg() const { return w.messages.back(); }
};

inline CoordPair At(int c, int r) { return CoordPair{static_cast<int16_t>(c), static_cast<int16_t>(r)}; }

}  // namespace sw::test
