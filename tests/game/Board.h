#pragma once
// A game in progress on the recording fake window, with the board set up by
// hand: the mouse, the viruses and the infected servers put straight into the lists.
#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "runtime/NumText.h"
#include "support/App.h"

namespace sw::test {

inline CoordPair At(int c, int r) { return CoordPair{static_cast<int16_t>(c), static_cast<int16_t>(r)}; }
using Cells = std::vector<CoordPair>;
using Ints = std::vector<int>;  // several counters compared at once

struct Board : App {
  GameState& g = sw.game;
  Game& eng = sw.engine;
  Score& sc = sw.score;

  // Sound off, so that the only pauses recorded are the game's own; a fixed seed.
  explicit Board(int16_t nDiff = 2, double seed = 1.0) {
    sw.opts.Current().nDiff = nDiff;
    sw.opts.Current().bSound = false;
    sc.InitScore();
    g.bSeedFromTimer = false;
    g.pbrNetLag.Max = 13;  // the range start-up gives the lag bar
    sw.rnd.Randomize(seed);
    eng.StartGame();
    w.messages.clear();
    w.sleeps.clear();
  }
  // The same, with the board set up at once.
  Board(int16_t nDiff, CoordPair mouse, const Cells& viruses, const Cells& infected = {}) : Board(nDiff) {
    Set(mouse, viruses, infected);
  }

  // Empties the map and puts the objects on a fresh site: no moves, no link, lag in blue.
  void Set(CoordPair mouse, const Cells& viruses, const Cells& infected = {}) {
    eng.ResetObjects();
    g.gctPlayerPos = mouse;
    eng.DrawCell(mouse, Picture::Player5);
    g.gctVirusPos.assign(1, CoordPair{-1, -1});
    g.gctVirusPos.insert(g.gctVirusPos.end(), viruses.begin(), viruses.end());
    g.gnVirusLive = g.gnVirusMax = static_cast<int16_t>(viruses.size());
    g.gctInfectedPos.assign(1, CoordPair{-1, -1});
    for (const CoordPair& c : infected) {
      g.gctInfectedPos.push_back(c);
      eng.DrawCell(c, Picture::Infected);
    }
    g.gnInfectedCount = static_cast<int16_t>(infected.size());
    eng.DrawViruses();
    w.captions[Label::lblVirus] = std::to_string(viruses.size());
    g.gbScoreNoLinkSite = g.gbEndSite = true;
    g.gnMoveCount = 0;
    g.gbWaitOn = false;
    g.gbScoreMinLag = 1;
  }

  // Every cell of the map more than one cell away from `around`.
  Cells AllCellsAwayFrom(CoordPair around) const {
    Cells cells;
    for (int16_t c = 0; c < g.gnMapCols; ++c)
      for (int16_t r = 0; r < g.gnMapRows; ++r)
        if (std::abs(c - around.nCol) > 1 || std::abs(r - around.nRow) > 1) cells.push_back(CoordPair{c, r});
    return cells;
  }

  // Types one character of the default number-pad profile.
  void Key(char c) { eng.Form_KeyPress(static_cast<int16_t>(c)); }
  Cells Viruses() const {  // the live ones; never beyond the list, whatever the count says
    Cells v(g.gctVirusPos.begin() + (g.gctVirusPos.empty() ? 0 : 1), g.gctVirusPos.end());
    v.resize(std::min(v.size(), static_cast<size_t>(std::max<int>(g.gnVirusLive, 0))));
    return v;
  }
  std::string Caption(Label l) const { return w.captions.contains(l) ? w.captions.at(l) : std::string(); }

  // What holds after every turn of a game in progress: the first rule broken, or "".
  std::string Broken() const {
    std::set<std::pair<int, int>> cells;
    for (const CoordPair& v : Viruses()) {
      // Crashes and infections are resolved, and a virus on the mouse ends the site.
      if (!cells.insert({v.nCol, v.nRow}).second) return "two viruses on " + v.Text();
      if (v == g.gctPlayerPos || eng.CheckInfected(v) || w.At(v.nCol, v.nRow) != Picture::Virus)
        return "virus " + v.Text();
    }
    if (w.Count(Picture::Virus) != g.gnVirusLive) return "viruses drawn";
    if (Caption(Label::lblVirus) != std::to_string(g.gnVirusLive) ||
        Caption(Label::lblScore) != FormatThousands(sc.glScore) ||
        Caption(Label::lblSitesHit) != std::to_string(g.gnSitesHit) ||
        Caption(Label::lblReconnects) != std::to_string(g.gnReconnects))
      return "labels";
    return sc.gnScoreMesgNum == 0 ? "" : "score messages not shown";
  }
};

}  // namespace sw::test
