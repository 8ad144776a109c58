#include "ui/SoundPlayer.h"

#include "ui/SoundLibs.h"

#include <pthread.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

namespace swui {

namespace {

constexpr size_t kChunkFrames = 1024;                  // about 23 ms at 44.1 kHz: how quickly a new sound cuts in
constexpr int kStallMs = 1000;                         // a device that takes nothing for this long has failed
constexpr int kTailWaits = 3;                          // a tail that does not shrink after this many waits is dropped
constexpr off_t kMaxReservedFrames = 10 * 60 * 48000;  // a longer clip is decoded without counting it first

// ALSA reports a missing card on stderr unless told otherwise; the game stays quiet.
void QuietAlsa(const char*, int, const char*, int, const char*, ...) {}

// Whether ALSA's "default" device can be there. With no sound card and nothing in ALSA's
// configuration that could send "default" elsewhere (a sound server, another device), opening it is
// bound to fail: not trying spares each sound loading ALSA and parsing its configuration, about half
// a megabyte while it lasts. A card plugged in later is found by the next sound.
bool DefaultDeviceCanExist() {
  if (std::getenv("ALSA_CONFIG_PATH") != nullptr || std::getenv("ALSA_CONFIG_DIR") != nullptr) return true;
  std::vector<std::string> places{"/dev/snd",
                                  "/var/lib/alsa/conf.d",
                                  "/usr/etc/alsa/conf.d",
                                  "/etc/alsa/conf.d",
                                  "/usr/share/alsa/alsa.conf.d",
                                  "/etc/asound.conf",
                                  "/usr/etc/asound.conf"};
  const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  if (!home.empty()) places.push_back(home + "/.asoundrc");
  if (xdg != nullptr && *xdg != '\0')
    places.push_back(std::string(xdg) + "/alsa/asoundrc");
  else if (!home.empty())
    places.push_back(home + "/.config/alsa/asoundrc");
  return std::any_of(places.begin(), places.end(), [](const std::string& p) {
    struct stat st {};
    return stat(p.c_str(), &st) == 0;
  });
}

// Non-blocking underneath, so that a device that stops taking samples costs at most kStallMs.
// ALSA is loaded by each Open and let go by each Close: between sounds the game holds none of it.
class AlsaOutput : public SoundOutput {
 public:
  explicit AlsaOutput(std::string device) : device_(std::move(device)) {}
  ~AlsaOutput() override { Close(); }
  bool Open(long rate, int channels) override {
    Close();
    if (!MayOpen()) return false;
    a_ = alsa_.Get();
    if (a_ == nullptr) return false;  // no ALSA: the output never opens
    a_->snd_lib_error_set_handler(QuietAlsa);
    if (a_->snd_pcm_open(&pcm_, device_.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) {
      pcm_ = nullptr;
      Close();
      return false;
    }
    if (a_->snd_pcm_set_params(pcm_, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, static_cast<unsigned>(channels),
                               static_cast<unsigned>(rate), 1, 100000) < 0) {
      Close();
      return false;
    }
    return true;
  }
  long Write(const int16_t* samples, size_t frames) override {
    for (int tries = 0; pcm_ != nullptr && tries < 8; ++tries) {
      const snd_pcm_sframes_t n = a_->snd_pcm_writei(pcm_, samples, frames);
      if (n >= 0) return static_cast<long>(n);
      int err = static_cast<int>(n);
      if (err == -EAGAIN) {
        err = a_->snd_pcm_wait(pcm_, kStallMs);
        if (err == 0) return -1;  // stalled
        if (err > 0) continue;
      }
      if (a_->snd_pcm_recover(pcm_, err, 1) < 0) return -1;
    }
    return -1;
  }
  long Queued() override {
    if (pcm_ == nullptr) return 0;
    // A clip shorter than the buffer has not started yet: it starts now.
    if (a_->snd_pcm_state(pcm_) == SND_PCM_STATE_PREPARED) a_->snd_pcm_start(pcm_);
    snd_pcm_sframes_t delay = 0;
    return a_->snd_pcm_delay(pcm_, &delay) < 0 ? 0 : static_cast<long>(delay);
  }
  // The player drains only once Queued() is 0: nothing is left to hear, and closing loses nothing.
  void Drain() override {}
  void Drop() override {
    if (pcm_ != nullptr) a_->snd_pcm_drop(pcm_);
  }
  bool MayOpen() const override { return device_ != "default" || DefaultDeviceCanExist(); }
  void Close() override {
    if (pcm_ != nullptr) a_->snd_pcm_close(pcm_);
    pcm_ = nullptr;
    // The device's configuration is read again for the next sound; silent, it takes no memory.
    if (a_ != nullptr) a_->snd_config_update_free_global();
    a_ = nullptr;
    alsa_.Release();
  }

 private:
  HeldLib<AlsaLib> alsa_;
  const AlsaLib* a_ = nullptr;  // while a sound is open
  std::string device_;
  snd_pcm_t* pcm_ = nullptr;
};

}  // namespace

std::unique_ptr<SoundOutput> MakeAlsaOutput(const std::string& device) { return std::make_unique<AlsaOutput>(device); }

std::shared_ptr<const Clip> DecodeMp3(const std::string& path) {
  // Held while this file decodes: the samples are kept, the decoder is not.
  HeldLib<Mpg123Lib> lib;
  const Mpg123Lib* m = lib.Get();
  if (m == nullptr) return nullptr;
  mpg123_handle* h = m->mpg123_new(nullptr, nullptr);
  if (h == nullptr) return nullptr;
  auto clip = std::make_shared<Clip>();
  bool ok =
      m->mpg123_param2(h, MPG123_ADD_FLAGS, MPG123_QUIET, 0) == MPG123_OK && m->mpg123_format_none(h) == MPG123_OK;
  // Whatever rate the file has, as 16-bit samples.
  for (long rate : {8000L, 11025L, 12000L, 16000L, 22050L, 24000L, 32000L, 44100L, 48000L})
    ok = ok && m->mpg123_format(h, rate, MPG123_MONO | MPG123_STEREO, MPG123_ENC_SIGNED_16) == MPG123_OK;
  ok = ok && m->mpg123_open(h, path.c_str()) == MPG123_OK;
  if (ok) {
    long rate = 0;
    int channels = 0, encoding = 0;
    ok = m->mpg123_getformat(h, &rate, &channels, &encoding) == MPG123_OK;
    clip->rate = rate;
    clip->channels = channels;
    // Counted first, so that the samples take one block of their own size: grown by doubling,
    // a clip would hold up to twice its size, and leave the smaller blocks it outgrew behind.
    if (ok && m->mpg123_scan(h) == MPG123_OK) {
      const off_t frames = m->mpg123_length(h);
      if (frames > 0 && frames <= kMaxReservedFrames)
        clip->samples.reserve(static_cast<size_t>(frames) * static_cast<size_t>(channels));
    }
    unsigned char buf[4096];
    for (int err = MPG123_OK; ok && err != MPG123_DONE;) {
      size_t done = 0;
      err = m->mpg123_read(h, buf, sizeof buf, &done);
      if (err == MPG123_NEW_FORMAT) continue;  // the format was fixed above
      if (err != MPG123_OK && err != MPG123_DONE) ok = false;
      const auto* s = reinterpret_cast<const int16_t*>(buf);
      clip->samples.insert(clip->samples.end(), s, s + done / sizeof(int16_t));
    }
    m->mpg123_close(h);
    if (clip->samples.capacity() > clip->samples.size() + clip->samples.size() / 8) clip->samples.shrink_to_fit();
  }
  m->mpg123_delete(h);
  if (!ok || clip->channels <= 0 || clip->rate <= 0 || clip->Frames() == 0) return nullptr;
  return clip;
}

SoundPlayer::SoundPlayer(std::unique_ptr<SoundOutput> output) : output_(std::move(output)) {
  thread_ = std::thread([this] { Run(); });
}

SoundPlayer::~SoundPlayer() {
  {
    std::lock_guard lock(m_);
    quit_ = true;
    ++generation_;
  }
  cv_.notify_all();
  thread_.join();
}

std::shared_ptr<const Clip> SoundPlayer::Load(const std::string& path) {
  if (!output_->MayOpen()) {
    last_.reset();
    lastPath_.clear();
    return nullptr;
  }
  if (path == lastPath_ && decodes_ > 0) return last_;
  ++decodes_;
  last_.reset();  // the one kept goes first: its memory serves the new one
  last_ = DecodeMp3(path);
  lastPath_ = path;
  return last_;
}

void SoundPlayer::Play(std::shared_ptr<const Clip> clip) {
  if (!clip) return;
  {
    std::lock_guard lock(m_);
    next_ = std::move(clip);
    ++generation_;
    playing_ = true;
  }
  cv_.notify_all();
}

void SoundPlayer::Stop() {
  {
    std::lock_guard lock(m_);
    next_.reset();
    ++generation_;
    playing_ = false;
  }
  cv_.notify_all();
}

bool SoundPlayer::Playing() const {
  std::lock_guard lock(m_);
  return playing_;
}

long SoundPlayer::Wakeups() const {
  std::lock_guard lock(m_);
  return wakeups_;
}

void SoundPlayer::Run() {
  pthread_setname_np(pthread_self(), "sound");  // as top and /proc name it
  std::unique_lock lock(m_);
  for (;;) {
    cv_.wait(lock, [this] { return quit_ || next_ != nullptr; });
    ++wakeups_;
    if (quit_) return;
    std::shared_ptr<const Clip> clip = std::move(next_);
    next_.reset();
    const uint64_t generation = generation_;
    lock.unlock();
    if (output_->Open(clip->rate, clip->channels)) {
      bool cut = !Feed(*clip, generation);
      // The tail still in the device: slept through, unless a new sound or Stop comes first.
      bool stalled = false;
      for (int waits = 0; !cut; ++waits) {
        const long queued = output_->Queued();
        if (queued <= 0) break;
        if (waits == kTailWaits) {
          stalled = true;
          break;
        }
        const auto tail = std::chrono::microseconds(queued * 1000000LL / clip->rate) + std::chrono::milliseconds(2);
        lock.lock();
        cut = cv_.wait_for(lock, tail, [&] { return generation_ != generation; });
        lock.unlock();
      }
      if (cut || stalled)
        output_->Drop();
      else
        output_->Drain();
      output_->Close();
    }
    lock.lock();
    if (generation_ == generation) playing_ = false;
  }
}

bool SoundPlayer::Feed(const Clip& clip, uint64_t generation) {
  const size_t frames = clip.Frames();
  const auto channels = static_cast<size_t>(clip.channels);
  for (size_t at = 0; at < frames;) {
    {
      std::lock_guard check(m_);
      if (generation_ != generation) return false;
    }
    const long wrote = output_->Write(clip.samples.data() + at * channels, std::min(kChunkFrames, frames - at));
    if (wrote <= 0) break;
    at += static_cast<size_t>(wrote);
  }
  return true;
}

}  // namespace swui
