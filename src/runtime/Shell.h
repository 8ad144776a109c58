#pragma once
// The model's side of the main window: the timed pause, the program's own
// message box and sound playback, each reached through the window seam.
#include <cstdint>
#include <functional>
#include <string>

#include "runtime/MainWindow.h"

namespace sw {

struct GameState;
class Options;
class TraceLog;
class RuntimeError;

class Shell {
 public:
  Shell(GameState& game, Options& opts, TraceLog& dbg, IMainWindow& frmMain);

  MsgAnswer gnMsgReturn = MsgAnswer::None;  // the answer of the last message box
  // Called when the first of overlapping pauses begins and when the last of them ends.
  std::function<void()> onPause;

  // A timed pause, or any stretch that must be kept like one: while one lives,
  // gbSleepOn is set, so key presses are dropped and the guarded commands
  // refused. It stays set until the last of the pauses that overlap ends,
  // whatever order they end in.
  class Pause {
   public:
    explicit Pause(Shell& shell);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    Shell& shell_;
  };

  // Hourglass, sleep ms, custom pointer, pending window events, all inside a Pause.
  void SleepTurn(int32_t ms);
  // A command that may not run while a pause runs or Wait is in force: true
  // (after the refusal sound) when it must not run now.
  bool Refused();
  // The only message box. Answer in gnMsgReturn.
  void ShowMsg(const std::string& text, MsgButtons nButtons, const std::string& szTitle, const std::string& szSound);
  // Plays a file of the sounds folder, cutting off the last one; nothing while sound is off.
  void PlaySound(const std::string& szFileName);
  // A run-time error caught in procedure szProc: traced, then shown with the
  // title "Error: " + szProc and the sound "powerup2.mp3"; the program goes on.
  void ReportError(const std::string& szProc, const RuntimeError& err);

  // The folder the sound files are named in.
  static constexpr const char* kSoundFolder = ".\\sounds\\";

 private:
  GameState& game;
  Options& opts;
  TraceLog& dbg;
  IMainWindow& frmMain;
  int pauses_ = 0;  // the Pauses alive
};

}  // namespace sw
