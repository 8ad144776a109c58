#include "ui/Sound.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace swui {

namespace {

constexpr int kChannel = 0;

bool IsFile(const std::filesystem::path& p) {
  std::error_code ec;
  return std::filesystem::is_regular_file(p, ec);
}

}  // namespace

Sound::~Sound() {
  Close();
  if (deviceOpen_) {
    Mix_CloseAudio();
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    deviceOpen_ = false;
  }
}

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

bool Sound::EnsureDevice() {
  if (deviceOpen_) return true;
  if (deviceFailed_) return false;
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
    deviceFailed_ = true;
    return false;
  }
  Mix_Init(MIX_INIT_MP3);
  if (Mix_OpenAudio(MIX_DEFAULT_FREQUENCY, MIX_DEFAULT_FORMAT, 2, 2048) != 0) {
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    deviceFailed_ = true;
    return false;
  }
  deviceOpen_ = true;
  return true;
}

bool Sound::Playing() const { return deviceOpen_ && Mix_Playing(kChannel) != 0; }

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
  if (deviceOpen_) Mix_HaltChannel(kChannel);
}

void Sound::Close() {
  Stop();
  if (chunk_ != nullptr) {
    Mix_FreeChunk(chunk_);
    chunk_ = nullptr;
  }
}

void Sound::Open() {
  Close();
  const std::string path = Resolve(fileName_);
  if (path.empty()) return;
  if (!EnsureDevice()) return;
  chunk_ = Mix_LoadWAV(path.c_str());
}

void Sound::Play() {
  if (!deviceOpen_ || chunk_ == nullptr) return;
  Mix_PlayChannel(kChannel, chunk_, 0);
}

}  // namespace swui
