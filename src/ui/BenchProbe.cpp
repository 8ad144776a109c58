#include "ui/BenchProbe.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ui/frmMain.h"
#include "ui/frmMsgBox.h"

// Under callgrind, each measured move is written out as a profile part of its own, so that the
// benchmark can tell plain moves from the rest.
#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define SWUI_END_OF_MOVE() CALLGRIND_DUMP_STATS
#else
#define SWUI_END_OF_MOVE() ((void)0)
#endif

namespace swui {

namespace {

int boxes = 0;

void Key(frmMain& w, Qt::Key key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)));
  QCoreApplication::sendEvent(&w, &press);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

// The unit of work that the instruction count covers: one key, painted. (The
// barriers keep the calls from becoming jumps, which would end the count early.)
[[gnu::noinline]] void MeasuredMove(frmMain& w, Qt::Key key) {
  Key(w, key);
  asm volatile("" ::: "memory");
}

// A direction whose cell is on the board, free, and two steps or more from every virus.
int PlainDirection(frmMain& w, int turn) {
  const sw::GameState& g = w.sw.game;
  for (int k = 0; k < 8; ++k) {
    static constexpr int kDirs[8] = {4, 6, 8, 2, 7, 9, 1, 3};
    const int16_t dir = static_cast<int16_t>(kDirs[(turn + k) % 8]);
    sw::CoordPair to = g.gctPlayerPos;
    w.sw.engine.MoveNumDir(to, static_cast<sw::Direction>(dir));
    if (to.nCol < 0 || to.nRow < 0 || to.nCol >= g.gnMapCols || to.nRow >= g.gnMapRows) continue;
    bool safe = g.gnVirusLive >= 2;
    for (int16_t i = 1; safe && i <= g.gnVirusLive; ++i) {
      const sw::CoordPair v = g.gctVirusPos[static_cast<size_t>(i)];
      safe = std::abs(v.nCol - to.nCol) > 2 || std::abs(v.nRow - to.nRow) > 2;
    }
    for (int16_t i = 1; safe && i <= g.gnInfectedCount; ++i) safe = !(g.gctInfectedPos[static_cast<size_t>(i)] == to);
    if (safe) return dir;
  }
  return 0;
}

double Microseconds(std::chrono::steady_clock::duration d) {
  return std::chrono::duration<double, std::micro>(d).count();
}

// The pointer swept over the board, then plain moves with it standing still; see the header.
void BenchHover(frmMain& w, int n) {
  MapGrid& grid = *w.grdMap;
  const QRect board = grid.CellRect(0, 0).united(grid.CellRect(grid.columnCount() - 1, grid.rowCount() - 1));
  using Clock = std::chrono::steady_clock;
  Clock::duration spent{};
  long steps = 0, painting = 0;
  const qint64 painted0 = grid.PaintedPixels();
  for (int y = board.top() + 2; y < board.bottom(); y += 8)
    for (int i = 0; i < board.width() / 4; ++i, ++steps) {
      // Row by row, back and forth, as a hand would sweep it.
      const int x = (y / 8) % 2 == 0 ? board.left() + 4 * i : board.right() - 4 * i;
      const qint64 before = grid.PaintedPixels();
      const Clock::time_point t0 = Clock::now();
      QMouseEvent move(QEvent::MouseMove, QPointF(x, y), grid.mapToGlobal(QPointF(x, y)), Qt::NoButton, Qt::NoButton,
                       Qt::NoModifier);
      QCoreApplication::sendEvent(&grid, &move);
      QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
      spent += Clock::now() - t0;
      painting += grid.PaintedPixels() != before ? 1 : 0;
    }
  const qint64 hoverPixels = grid.PaintedPixels() - painted0;
  Clock::duration turns{};
  const qint64 painted1 = grid.PaintedPixels();
  int moves = 0;
  for (int turn = 0; moves < n && turn < 50 * n; ++turn) {
    const int dir = PlainDirection(w, turn / 3);
    const auto key = static_cast<Qt::Key>(Qt::Key_0 + (dir == 0 ? 5 : dir));
    const Clock::time_point t0 = Clock::now();
    Key(w, key);
    turns += Clock::now() - t0;
    ++moves;
  }
  std::fprintf(stderr, "hover: %ld %.1f %.0f %ld turn: %d %.1f %.0f\n", steps, Microseconds(spent) / double(steps),
               double(hoverPixels) / double(steps), painting, moves, Microseconds(turns) / moves,
               double(grid.PaintedPixels() - painted1) / moves);
}

}  // namespace

void StartBenchMoves(frmMain& w) {
  const char* hover = std::getenv("SKITTERWEB_BENCH_HOVER");
  const char* moves = std::getenv("SKITTERWEB_BENCH_MOVES");
  if (hover == nullptr && moves == nullptr) return;
  // Nobody is there to answer: boxes take their default, other dialogs are closed.
  frmMsgBox::testAnswer = [](frmMsgBox& box) {
    ++boxes;
    return box.cmdYes->isVisibleTo(&box) ? sw::MsgAnswer::Yes : sw::MsgAnswer::Ok;
  };
  auto* closer = new QTimer(&w);
  QObject::connect(closer, &QTimer::timeout, [] {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
  });
  closer->start(50);
  if (hover != nullptr) {
    const int n = std::atoi(hover);
    auto* begin = new QTimer(&w);
    QObject::connect(begin, &QTimer::timeout, [&w, n, begin] {
      if (w.sw.game.gbSleepOn) return;
      begin->stop();
      BenchHover(w, n);
      QCoreApplication::exit(0);
    });
    begin->start(500);
    return;
  }
  const int n = std::atoi(moves);
  // The moves begin once the start is over: keys typed inside its pause play nothing.
  auto* begin = new QTimer(&w);
  QObject::connect(begin, &QTimer::timeout, [&w, n, begin] {
    if (w.sw.game.gbSleepOn) return;
    begin->stop();
    int measured = 0, boxesDuring = 0, warm = 0;
    // One letter per measured move: 'p' for a plain move, 'x' when a virus or a box came into it.
    std::string kinds;
    for (int turn = 0; measured < n && turn < 50 * n; ++turn) {
      const int dir = PlainDirection(w, turn / 3);
      if (dir == 0) {  // cornered: pause a turn, unmeasured
        Key(w, Qt::Key_5);
        continue;
      }
      const auto key = static_cast<Qt::Key>(Qt::Key_0 + dir);
      // The first moves draw each picture for the first time: they warm up, unmeasured.
      if (warm < n) {
        Key(w, key);
        ++warm;
        continue;
      }
      const int before = boxes;
      const sw::GameState& g = w.sw.game;
      const int16_t viruses = g.gnVirusLive, infected = g.gnInfectedCount;
      MeasuredMove(w, key);
      SWUI_END_OF_MOVE();
      boxesDuring += boxes - before;
      kinds += boxes == before && g.gnVirusLive == viruses && g.gnInfectedCount == infected ? 'p' : 'x';
      ++measured;
    }
    std::fprintf(stderr, "moves=%d boxes=%d kinds=%s\n", measured, boxesDuring, kinds.c_str());
    QCoreApplication::exit(0);
  });
  begin->start(500);
}

}  // namespace swui
