#include "debuglog/DebugLog.h"

#include <cstdio>
#include <ctime>

#include "runtime/Files.h"
#include "runtime/GameState.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"

namespace sw {

DebugLog::DebugLog(Options& opts, GameState& game) : opts(opts), game(game) {}

DebugLog::~DebugLog() {
  if (file1_ != nullptr) std::fclose(file1_);
}

bool DebugLog::On() const { return opts.DebugOn(); }

std::string DebugLog::DateTimeText() {
  const std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  char buf[64];
  std::strftime(buf, sizeof buf, "%x %X", &local);
  return buf;
}

namespace {

// " (label) name=value ..." for the named slots, in slot order; nothing when every slot is free.
std::string Slots(const char* label, const std::array<std::string, 3>& names, const std::array<Value, 3>& values) {
  std::string text;
  for (size_t i = 0; i < names.size(); ++i)
    if (!names[i].empty()) text += " " + names[i] + "=" + values[i].Text();
  return text.empty() ? text : std::string(" (") + label + ")" + text;
}

}  // namespace

std::string DebugLog::TraceLines(const TraceRecord& rec) {
  std::string line = "{{ " + rec.szProc + " }}";
  if (rec.bBegin) line += " [BEGIN]";
  line += Slots("input", rec.szInName, rec.vInValue);
  if (!rec.szReturnName.empty()) line += " (return) " + rec.szReturnName + "=" + rec.vReturnValue.Text();
  line += Slots("variables", rec.szVarName, rec.vVarValue);
  line += "\r\n";
  if (!rec.szComment.empty()) line += "     --> " + rec.szComment + "\r\n";
  return line;
}

void DebugLog::Print(const std::string& line) {
  if (file1_ == nullptr) return;
  // Written by length: a value may hold a character 0 (a key with no code).
  std::fwrite(line.data(), 1, line.size(), file1_);
  std::fputs("\r\n", file1_);
  std::fflush(file1_);
}

void DebugLog::DebugWrite(const TraceRecord& rec, bool bMark, bool bDumpAll) {
  if (bMark) DebugMark(bDumpAll ? 3 : 1);
  if (file1_ != nullptr) {
    const std::string lines = TraceLines(rec);
    std::fwrite(lines.data(), 1, lines.size(), file1_);
    std::fflush(file1_);
  }
  if (bDumpAll && dumpState) dumpState();
}

void DebugLog::DebugMark(int16_t nType) {
  switch (nType) {
    case 2: Print(std::string(64, '|')); break;
    case 3: {
      Print("");
      std::string a, b;
      for (int i = 0; i < 45; ++i) {
        a += "#-";
        b += "-#";
      }
      Print(a);
      Print(b);
      break;
    }
    default: Print(std::string(64, '*')); break;
  }
}

void DebugLog::DebugHeader() {
  DebugMark(2);
  Print("| SKITTERWEB");
  Print(std::string("| version: ") + kVersion);
  Print("| " + DateTimeText());
  DebugMark(2);
}

bool DebugLog::OpenFile(bool bClear) {
  if (file1_ != nullptr) {
    std::fclose(file1_);
    file1_ = nullptr;
  }
  file1_ = std::fopen(kFileName, bClear ? "wb" : "ab");
  if (file1_ == nullptr) return false;
  DebugHeader();
  return true;
}

void DebugLog::DebugExit() {
  DebugMark(1);
  Print("Games played=" + NumText(int64_t{game.gnGameNum}));
  Print("Exit Program - " + DateTimeText());
  Print("");
  if (file1_ != nullptr) {
    std::fclose(file1_);
    file1_ = nullptr;
  }
}

void DebugLog::Flush() {
  if (file1_ == nullptr) return;
  std::fclose(file1_);
  file1_ = std::fopen(kFileName, "ab");
}

}  // namespace sw
