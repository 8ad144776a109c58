#pragma once
// The debug log "SWDebug.log": one trace line per procedure while logging is
// on, separators, a header when opened and an exit block when closed.
#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>

#include "Version.h"
#include "runtime/Value.h"

namespace sw {

class Options;
struct GameState;

// What a procedure hands to the debug log. An empty name marks a free slot.
// Records are built in one expression, each call taking the next free slot:
//   Trace("CheckVirus").In("ctPos", ctPos.Text()).Var("gctVirusPos - index", n)
// A name beyond the third of its kind has no slot and is dropped.
struct TraceRecord {
  std::string szProc;
  bool bBegin = false;
  std::array<std::string, 3> szInName;
  std::array<Value, 3> vInValue;
  std::string szReturnName;
  Value vReturnValue;
  std::array<std::string, 3> szVarName;
  std::array<Value, 3> vVarValue;
  std::string szComment;

  TraceRecord& In(std::string name, Value value) {
    return Fill(szInName, vInValue, std::move(name), std::move(value));
  }
  TraceRecord& Var(std::string name, Value value) {
    return Fill(szVarName, vVarValue, std::move(name), std::move(value));
  }
  TraceRecord& Ret(std::string name, Value value) {
    szReturnName = std::move(name);
    vReturnValue = std::move(value);
    return *this;
  }
  TraceRecord& Note(std::string comment) {
    szComment = std::move(comment);
    return *this;
  }
  TraceRecord& Begin(bool b = true) {
    bBegin = b;
    return *this;
  }

 private:
  TraceRecord& Fill(std::array<std::string, 3>& names, std::array<Value, 3>& values, std::string name, Value value) {
    for (size_t i = 0; i < names.size(); ++i) {
      if (names[i].empty()) {
        names[i] = std::move(name);
        values[i] = std::move(value);
        break;
      }
    }
    return *this;
  }
};

// A record for the procedure, to be filled by the calls above.
inline TraceRecord Trace(std::string proc) {
  TraceRecord rec;
  rec.szProc = std::move(proc);
  return rec;
}

class DebugLog {
 public:
  static constexpr const char* kFileName = "SWDebug.log";
  static constexpr const char* kVersion = SKITTERWEB_VERSION;

  DebugLog(Options& opts, GameState& game);
  ~DebugLog();
  DebugLog(const DebugLog&) = delete;
  DebugLog& operator=(const DebugLog&) = delete;

  // True when the current player's debug flag is set (the test every procedure makes).
  bool On() const;

  // The text of a trace line (and its comment line, if any), without the separators.
  static std::string TraceLines(const TraceRecord& rec);

  void DebugWrite(const TraceRecord& rec, bool bMark = false, bool bDumpAll = false);
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
