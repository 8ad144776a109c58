#pragma once
// mmcSound: the media device behind PlaySound. One loaded sound at a time; a
// new sound cuts off the last. Every failure is silent: a missing or broken
// file, or no audio device at all, just means no sound. A file is decoded as
// it opens (the last one is kept); the player and its thread start with the first sound.
#include <memory>
#include <string>

#include "ui/SoundPlayer.h"

namespace swui {

class Sound {
 public:
  // output: where the samples go (ALSA's default device unless given).
  explicit Sound(std::unique_ptr<SoundOutput> output = nullptr);
  ~Sound();
  Sound(const Sound&) = delete;
  Sound& operator=(const Sound&) = delete;

  void SetFileName(const std::string& fileName) { fileName_ = fileName; }
  const std::string& FileName() const { return fileName_; }
  // "Stop", "Close", "Open" or "Play"; anything else is ignored.
  void Command(const std::string& command);

  // Where a file named ".\sounds\<name>" is found: sounds/<name> under the
  // current directory, then the installed data folder, then the source tree's
  // assets. Empty when none of them holds the file.
  static std::string Resolve(const std::string& fileName);

  bool Loaded() const { return clip_ != nullptr; }
  bool Playing() const { return player_ != nullptr && player_->Playing(); }
  // Files decoded so far (the same file twice in a row once), and the player, once there is one.
  int Decodes() const { return player_ != nullptr ? player_->Decodes() : 0; }
  const SoundPlayer* Player() const { return player_.get(); }

 private:
  void Stop();
  void Close();
  void Open();
  void Play();

  std::string fileName_;
  std::unique_ptr<SoundOutput> output_;
  std::unique_ptr<SoundPlayer> player_;
  std::shared_ptr<const Clip> clip_;
};

}  // namespace swui
