#pragma once
// Probes for the project's benchmarks, idle unless asked for in the environment.
namespace swui {

class frmMain;

// SKITTERWEB_BENCH_MOVES=N: once the game is up, plays N plain moves to warm
// up (each picture drawn for the first time), then N more (moves
// onto cells that no virus can reach this turn, so that no box interrupts
// them), each painted at once, then ends. Every plain move runs in
// MeasuredMove, which the instruction benchmark counts; any other step runs
// outside it. Writes "moves=<measured> boxes=<boxes during them>" to stderr.
//
// SKITTERWEB_BENCH_HOVER=N instead: once the game is up, sweeps the pointer over the
// whole board row by row, 4 pixels a step, each step painted at once, then plays N plain
// moves with the pointer standing on the board. Writes "hover: <steps> <microseconds per
// step> <pixels painted per step> <steps that painted> turn: <moves> <microseconds per move>
// <pixels per move>" to stderr, then ends.
void StartBenchMoves(frmMain& w);

}  // namespace swui
