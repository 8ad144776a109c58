#pragma once
// The options file "sw.opt": every player's record and saved control profiles.
#include <string>

namespace sw {

class Options;
class DebugLog;
class DebugSession;
class Shell;
class IMainWindow;

class OptionsFile {
 public:
  OptionsFile(Options& opts, DebugLog& dbg, DebugSession& session, Shell& shell, IMainWindow& frmMain);

  void LoadOptions();
  void SaveOptions();
  // The text SaveOptions writes.
  std::string OptionsText() const;

 private:
  // Settings out of their range are reported once and replaced by their defaults.
  void CorrectSettings();

  Options& opts;
  DebugLog& dbg;
  DebugSession& session;
  Shell& shell;
  IMainWindow& frmMain;
};

}  // namespace sw
