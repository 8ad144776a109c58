#pragma once
// The options file "sw.opt": every player's record and saved control profiles.
#include <functional>
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

  // Reads "sw.opt". A file that fails to load is copied aside as "sw.opt.bad"
  // before the next save replaces it, so that nothing in it is lost.
  void LoadOptions();
  // The same from the file's bytes, as if read from the file.
  void LoadOptionsFrom(const std::string& bytes);
  void SaveOptions();
  // The text SaveOptions writes.
  std::string OptionsText() const;

 private:
  void Load(const std::function<std::string()>& read);
  // Settings out of their range are reported once and replaced by their defaults.
  void CorrectSettings();

  bool keepAside_ = false;  // the file on disk failed to load: keep it before replacing it

  Options& opts;
  DebugLog& dbg;
  DebugSession& session;
  Shell& shell;
  IMainWindow& frmMain;
};

}  // namespace sw
