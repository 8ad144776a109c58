#include "ui/Sound.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace swui {

namespace {

bool IsFile(const std::filesystem::path& p) {
  std::error_code ec;
  return std::filesystem::is_regular_file(p, ec);
}

}  // namespace

Sound::Sound(std::unique_ptr<SoundOutput> output) : output_(std::move(output)) {}

Sound::~Sound() = default;

std::string Sound::Resolve(const std::string& fileName) {
  std::string rel = fileName;
  std::replace(rel.begin(), rel.end(), '\\', '/');
  if (rel.rfind("./", 0) == 0) rel.erase(0, 2);
  if (rel.empty()) return {};
  const std::filesystem::path relPath(rel);
  if (relPath.is_absolute()) return IsFile(relPath) ? rel : std::string{};

  std::vector<std::filesystem::path> candidates{relPath};
  // The installed and the source-tree folders hold the sounds folder itself.
  std::filesystem::path inSounds;
  auto it = relPath.begin();
  if (it != relPath.end() && *it == "sounds") {
    for (++it; it != relPath.end(); ++it) inSounds /= *it;
  }
  if (!inSounds.empty()) {
#ifdef SKITTERWEB_DATADIR
    candidates.push_back(std::filesystem::path(SKITTERWEB_DATADIR) / "sounds" / inSounds);
#endif
#ifdef SKITTERWEB_SOURCE_ASSETS
    candidates.push_back(std::filesystem::path(SKITTERWEB_SOURCE_ASSETS) / "sounds" / inSounds);
#endif
  }
  for (const auto& c : candidates)
    if (IsFile(c)) return c.string();
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
