#pragma once
// The sound libraries, loaded when a sound needs them and let go when it is
// done, instead of at start: the window is up before they are loaded, a game
// with sound off never maps them, a game that sits quiet holds neither, and a
// machine without them plays silently.
#include <alsa/asoundlib.h>
#include <mpg123.h>

namespace swui {

// The functions taken from each library, one a line. (The formatter would pack these
// lists differently on every run.)
// clang-format off
#define SWUI_ALSA_FUNCTIONS(X)      \
  X(snd_lib_error_set_handler)      \
  X(snd_pcm_open)                   \
  X(snd_pcm_set_params)             \
  X(snd_pcm_writei)                 \
  X(snd_pcm_wait)                   \
  X(snd_pcm_recover)                \
  X(snd_pcm_state)                  \
  X(snd_pcm_start)                  \
  X(snd_pcm_delay)                  \
  X(snd_pcm_drop)                   \
  X(snd_pcm_close)                  \
  X(snd_config_update_free_global)

// mpg123_param is a macro for mpg123_param2.
#define SWUI_MPG123_FUNCTIONS(X)    \
  X(mpg123_new)                     \
  X(mpg123_delete)                  \
  X(mpg123_param2)                  \
  X(mpg123_format_none)             \
  X(mpg123_format)                  \
  X(mpg123_open)                    \
  X(mpg123_getformat)               \
  X(mpg123_scan)                    \
  X(mpg123_length)                  \
  X(mpg123_read)                    \
  X(mpg123_close)
// clang-format on

#define SWUI_FUNCTION_POINTER(name) decltype(&::name) name = nullptr;

struct AlsaLib {
  SWUI_ALSA_FUNCTIONS(SWUI_FUNCTION_POINTER)
};

struct Mpg123Lib {
  SWUI_MPG123_FUNCTIONS(SWUI_FUNCTION_POINTER)
};

#undef SWUI_FUNCTION_POINTER

// One library, held from Get() until Release() or the end of the holder. A
// library is used by one thread at a time: mpg123 by the decoder on the game's
// thread, ALSA by the sound thread. Loading counts in the system's loader, so
// two holders of one library are safe; the library goes when the last lets go.
template <class Lib>
class HeldLib {
 public:
  HeldLib() = default;
  HeldLib(const HeldLib&) = delete;
  HeldLib& operator=(const HeldLib&) = delete;
  ~HeldLib() { Release(); }
  // The library's functions, loaded now if not held yet; null when it cannot be loaded.
  const Lib* Get();
  void Release();

 private:
  void* handle_ = nullptr;
  Lib lib_;
};

extern template class HeldLib<AlsaLib>;
extern template class HeldLib<Mpg123Lib>;

}  // namespace swui
