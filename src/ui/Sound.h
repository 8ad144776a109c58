#pragma once
// mmcSound: the media device behind PlaySound. One loaded sound on one
// channel; a new sound cuts off the last. Every failure is silent: a missing
// or broken file, or no audio device at all, just means no sound.
#include <string>

struct Mix_Chunk;

namespace swui {

class Sound {
 public:
  Sound() = default;
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

  bool DeviceOpen() const { return deviceOpen_; }
  bool Loaded() const { return chunk_ != nullptr; }
  bool Playing() const;

 private:
  bool EnsureDevice();
  void Stop();
  void Close();
  void Open();
  void Play();

  std::string fileName_;
  Mix_Chunk* chunk_ = nullptr;
  bool deviceOpen_ = false;
  bool deviceFailed_ = false;
};

}  // namespace swui
