#include "ui/Sound.h"

#include <sys/stat.h>

#include <algorithm>
#include <vector>

namespace swui {

namespace {

// Plain stat() rather than std::filesystem: a sound's look-up then brings in none of the library's
// path code, which the rest of a session does not use.
bool IsFile(const std::string& p) {
  struct stat st {};
  return stat(p.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

Sound::Sound(std::unique_ptr<SoundOutput> output) : output_(std::move(output)) {}

Sound::~Sound() = default;

std::string Sound::Resolve(const std::string& fileName) {
  std::string rel = fileName;
  std::replace(rel.begin(), rel.end(), '\\', '/');
  if (rel.rfind("./", 0) == 0) rel.erase(0, 2);
  if (rel.empty()) return {};
  if (rel.front() == '/') return IsFile(rel) ? rel : std::string{};

  std::vector<std::string> candidates{rel};
  // The installed and the source-tree folders hold the sounds folder itself.
  std::string inSounds;
  if (rel.rfind("sounds/", 0) == 0) {
    const size_t at = rel.find_first_not_of('/', 7);
    if (at != std::string::npos) inSounds = rel.substr(at);
  }
  if (!inSounds.empty()) {
#ifdef SKITTERWEB_DATADIR
    candidates.push_back(std::string(SKITTERWEB_DATADIR) + "/sounds/" + inSounds);
#endif
#ifdef SKITTERWEB_SOURCE_ASSETS
    candidates.push_back(std::string(SKITTERWEB_SOURCE_ASSETS) + "/sounds/" + inSounds);
#endif
  }
  for (const auto& c : candidates)
    if (IsFile(c)) return c;
  return {};
}

void Sound::Command(const std::string& command) {
  if (command == "Stop") {
    Stop();
  } else if (command == "Close") {
    Close();
  } else if (command == "Open") {
    Open();
  } else if (command == "Play") {
    Play();
  }
}

void Sound::Stop() {
  if (player_ != nullptr) player_->Stop();
}

void Sound::Close() {
  Stop();
  clip_.reset();
}

void Sound::Open() {
  Close();
  const std::string path = Resolve(fileName_);
  if (path.empty()) return;
  if (player_ == nullptr)
    player_ = std::make_unique<SoundPlayer>(output_ != nullptr ? std::move(output_) : MakeAlsaOutput());
  clip_ = player_->Load(path);
}

void Sound::Play() {
  if (player_ != nullptr && clip_ != nullptr) player_->Play(clip_);
}

}  // namespace swui
