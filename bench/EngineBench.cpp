// The turn engine's speed: one virus phase with a full site, one move turn on
// nightmare, and a whole simulated game of 10,000 key presses.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "Skitterweb.h"
#include "support/FakeWindow.h"

namespace {

using sw::CoordPair;

struct Engine {
  sw::test::FakeWindow w;
  std::unique_ptr<sw::Skitterweb> sw;

  explicit Engine(int16_t nDiff) {
    w.record = false;
    sw = std::make_unique<sw::Skitterweb>(w);
    sw->opts.Current().nDiff = nDiff;
    sw->opts.Current().bSound = false;
    sw->score.InitScore();
    sw->game.bSeedFromTimer = false;
    sw->rnd.Randomize(42.0);
    sw->engine.StartGame();
  }

  // Puts the mouse and the viruses where the benchmark wants them: a fresh site.
  void Layout(CoordPair mouse, const std::vector<CoordPair>& viruses) {
    sw::GameState& g = sw->game;
    sw->engine.ResetObjects();
    g.gctPlayerPos = mouse;
    g.gctVirusPos.assign(1, CoordPair{-1, -1});
    g.gctVirusPos.insert(g.gctVirusPos.end(), viruses.begin(), viruses.end());
    g.gnVirusLive = static_cast<int16_t>(viruses.size());
    g.gnVirusMax = g.gnVirusLive;
    g.gbEndSite = true;
    g.gbWaitOn = false;
    g.gnMoveCount = 0;
    g.gbScoreNoLinkSite = true;
    g.gbScoreMinLag = 1;
    // A fresh game's score, so that no run piles up points and reconnects.
    g.gnReconnects = 2;
    sw->score.glScore = 0;
    sw->score.glNextExtraLife = sw->score.glExtraLifeBonus[static_cast<size_t>(sw->opts.Current().nDiff)];
  }
};

// Thirty viruses along the left and right edges and two on the top row, the
// mouse in the middle: the phase moves all of them and resolves the crashes
// of those that converge.
std::vector<CoordPair> EdgeViruses() {
  std::vector<CoordPair> v;
  for (int16_t r = 0; r < 14; ++r) v.push_back(CoordPair{0, r});
  for (int16_t r = 0; r < 14; ++r) v.push_back(CoordPair{23, r});
  v.push_back(CoordPair{5, 0});
  v.push_back(CoordPair{18, 0});
  return v;
}

void BM_VirusPhase30(benchmark::State& state) {
  Engine e(2);
  const std::vector<CoordPair> viruses = EdgeViruses();
  for (auto _ : state) {
    e.Layout(CoordPair{12, 7}, viruses);
    e.sw->game.gbEndSite = false;
    e.sw->engine.VirusPhase();
    benchmark::DoNotOptimize(e.sw->game.gnVirusLive);
  }
}
BENCHMARK(BM_VirusPhase30);

void BM_NightmareMoveTurn(benchmark::State& state) {
  Engine e(4);
  const std::vector<CoordPair> viruses = EdgeViruses();
  for (auto _ : state) {
    e.Layout(CoordPair{12, 7}, viruses);
    e.sw->engine.Form_KeyPress('6');  // move right: two virus phases, lag steps
    benchmark::DoNotOptimize(e.sw->game.gnVirusLive);
  }
}
BENCHMARK(BM_NightmareMoveTurn);

void BM_WholeGame10000Turns(benchmark::State& state) {
  const char keys[] = {'8', '9', '6', '3', '2', '1', '4', '7', '0', '5', '+', 'a', 'b'};
  int64_t games = 0;
  for (auto _ : state) {
    Engine e(static_cast<int16_t>(2));
    sw::Random pick;
    pick.Randomize(7.0);
    for (int turn = 0; turn < 10000; ++turn) {
      // "Play again?" is answered Yes by the fake's default button.
      e.sw->engine.Form_KeyPress(keys[static_cast<int>(pick.Rnd() * static_cast<float>(sizeof keys))]);
    }
    games += e.sw->game.gnGameNum;
    benchmark::DoNotOptimize(e.sw->score.glScore);
  }
  state.SetItemsProcessed(state.iterations() * 10000);
  state.counters["games"] = benchmark::Counter(static_cast<double>(games), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_WholeGame10000Turns)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
