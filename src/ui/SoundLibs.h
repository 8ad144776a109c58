#pragma once
// The sound libraries, opened on first use instead of at start: the window is
// up before they are loaded, a game with sound off never maps them, and a
// machine without them plays silently.
#include <alsa/asoundlib.h>
#include <mpg123.h>

namespace swui {

#define SWUI_ALSA_FUNCTIONS(X)                                                                          \
  X(snd_lib_error_set_handler) X(snd_pcm_open) X(snd_pcm_set_params) X(snd_pcm_writei) X(snd_pcm_wait) \
  X(snd_pcm_recover) X(snd_pcm_state) X(snd_pcm_start) X(snd_pcm_delay) X(snd_pcm_drop) X(snd_pcm_close)  \
  X(snd_config_update_free_global)

// mpg123_param is a macro for mpg123_param2.
#define SWUI_MPG123_FUNCTIONS(X)                                                                     \
  X(mpg123_new) X(mpg123_delete) X(mpg123_param2) X(mpg123_format_none) X(mpg123_format) X(mpg123_open) \
  X(mpg123_getformat) X(mpg123_read) X(mpg123_close)

#define SWUI_FUNCTION_POINTER(name) decltype(&::name) name = nullptr;

struct AlsaLib {
  SWUI_ALSA_FUNCTIONS(SWUI_FUNCTION_POINTER)
};

struct Mpg123Lib {
  SWUI_MPG123_FUNCTIONS(SWUI_FUNCTION_POINTER)
};

#undef SWUI_FUNCTION_POINTER

// Each library is loaded once, by whichever thread asks first; null when it cannot be loaded.
const AlsaLib* Alsa();
const Mpg123Lib* Mpg123();

}  // namespace swui
