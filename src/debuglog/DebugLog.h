#pragma once
// The debug log "SWDebug.log": one trace line per procedure while logging is
// on, separators, a header when opened and an exit block when closed.
#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>

#include "runtime/Trace.h"

namespace sw {

class Options;
struct GameState;

class DebugLog : public TraceLog {
 public:
  static constexpr const char* kFileName = "SWDebug.log";
  static constexpr const char* kVersion = "1.14";

  DebugLog(Options& opts, GameState& game);
  ~DebugLog();
  DebugLog(const DebugLog&) = delete;
  DebugLog& operator=(const DebugLog&) = delete;

  // True when the current player's debug flag is set (the test every procedure makes).
  bool On() const override;

  // The text of a trace line (and its comment line, if any), without the separators.
  static std::string TraceLines(const TraceRecord& rec);

  void DebugWrite(const TraceRecord& rec, bool bMark = false, bool bDumpAll = false) override;
  void DebugMark(int16_t nType);
  // Opens file 1 (truncated when bClear, else for appending) and writes the
  // header; false when the file cannot be opened.
  bool OpenFile(bool bClear);
  void DebugHeader();
  void DebugExit();
  // The state dump that DebugWrite adds when asked to; attached by whoever
  // can see the whole game (nothing is written until then).
  std::function<void()> dumpState;

  // Print #1: one line, ended by CR LF. Does nothing while file 1 is closed.
  void Print(const std::string& line);
  bool IsOpen() const { return file1_ != nullptr; }
  // Closes file 1 and opens it again for appending (every 50th game).
  void Flush();

  // Current date and time in the system's short date and long time forms.
  static std::string DateTimeText();

 private:
  Options& opts;
  GameState& game;
  std::FILE* file1_ = nullptr;
};

}  // namespace sw
