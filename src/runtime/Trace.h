#pragma once
// The trace calls every procedure makes: the record it fills and the log it
// hands the record to. The log itself (the file, its header and marks) is the
// debug log's; what stands below it sees only this.
#include <array>
#include <string>
#include <utility>

#include "runtime/Value.h"

namespace sw {

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

  TraceRecord& In(std::string name, Value value) { return Fill(szInName, vInValue, std::move(name), std::move(value)); }
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

// Where trace records go.
class TraceLog {
 public:
  // True when the current player's debug flag is set (the test every procedure makes).
  virtual bool On() const = 0;
  // Writes the record's lines; bMark puts a mark before them and bDumpAll the state dump after.
  virtual void DebugWrite(const TraceRecord& rec, bool bMark = false, bool bDumpAll = false) = 0;

 protected:
  ~TraceLog() = default;
};

}  // namespace sw
