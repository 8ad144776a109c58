#pragma once
// What plays the game's sounds, without Qt: an MP3 file is decoded (mpg123)
// when it is opened, and only the last one is kept as PCM, so that a session
// holds one or two clips whatever it plays; one clip plays at a time on a thread of its own
// that sleeps on a condition variable while nothing plays, and holds the
// audio device (ALSA) only while a clip plays. Every failure is silent.
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace swui {

struct Clip {
  long rate = 0;
  int channels = 0;
  std::vector<int16_t> samples;  // interleaved
  size_t Frames() const { return channels > 0 ? samples.size() / static_cast<size_t>(channels) : 0; }
};

// Where the samples go. The real one is ALSA's default device.
class SoundOutput {
 public:
  virtual ~SoundOutput() = default;
  virtual bool Open(long rate, int channels) = 0;
  // Writes up to `frames` frames, waiting while the device is full; how many were taken, or -1.
  virtual long Write(const int16_t* samples, size_t frames) = 0;
  // Frames written but not yet heard (starting them if the device still waits for more): the
  // player sleeps that long, ready to be cut off, until none are left.
  virtual long Queued() { return 0; }
  virtual void Drain() = 0;  // the clip has played out
  virtual void Drop() = 0;   // stops at once
  virtual void Close() = 0;
  // False when Open is bound to fail (no device to open): the player then decodes nothing.
  virtual bool MayOpen() const { return true; }
};

// An ALSA device ("default" unless named); quiet when it does not exist.
std::unique_ptr<SoundOutput> MakeAlsaOutput(const std::string& device = "default");

// Decodes an MP3 file into 16-bit PCM; null when the file cannot be decoded.
std::shared_ptr<const Clip> DecodeMp3(const std::string& path);

class SoundPlayer {
 public:
  explicit SoundPlayer(std::unique_ptr<SoundOutput> output);
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  // The decoded clip of a file: from memory when it is the file loaded last, else decoded now
  // (a clip of a second or two takes about a millisecond) in place of that one; null, with nothing
  // decoded, when the output has no device to open.
  std::shared_ptr<const Clip> Load(const std::string& path);
  // Starts a clip, cutting off the one playing; returns at once.
  void Play(std::shared_ptr<const Clip> clip);
  void Stop();
  bool Playing() const;
  int Decodes() const { return decodes_; }
  // How often the playing thread has woken (for tests of an idle player).
  long Wakeups() const;

 private:
  void Run();
  // Writes a clip to the output; false when a new sound or Stop cut it off.
  bool Feed(const Clip& clip, uint64_t generation);

  std::unique_ptr<SoundOutput> output_;
  std::string lastPath_;
  std::shared_ptr<const Clip> last_;  // null when the file did not decode
  int decodes_ = 0;

  mutable std::mutex m_;
  std::condition_variable cv_;
  std::shared_ptr<const Clip> next_;  // waiting to start
  uint64_t generation_ = 0;           // bumped by Play and Stop: the clip playing is cut off
  bool playing_ = false;
  bool quit_ = false;
  long wakeups_ = 0;
  std::thread thread_;
};

}  // namespace swui
