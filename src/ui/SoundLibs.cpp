#include "ui/SoundLibs.h"

#include <dlfcn.h>

namespace swui {

namespace {

template <class Fn>
bool Bind(void* lib, const char* name, Fn& fn) {
  fn = reinterpret_cast<Fn>(dlsym(lib, name));
  return fn != nullptr;
}

// A library missing any one function counts as missing.
#define SWUI_BIND(name) ok = Bind(handle, #name, lib.name) && ok;

const AlsaLib* LoadAlsa() {
  static AlsaLib lib;
  void* handle = dlopen("libasound.so.2", RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) return nullptr;
  bool ok = true;
  SWUI_ALSA_FUNCTIONS(SWUI_BIND)
  return ok ? &lib : nullptr;
}

const Mpg123Lib* LoadMpg123() {
  static Mpg123Lib lib;
  void* handle = dlopen("libmpg123.so.0", RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) return nullptr;
  bool ok = true;
  SWUI_MPG123_FUNCTIONS(SWUI_BIND)
  return ok ? &lib : nullptr;
}

#undef SWUI_BIND

}  // namespace

const AlsaLib* Alsa() {
  static const AlsaLib* const lib = LoadAlsa();
  return lib;
}

const Mpg123Lib* Mpg123() {
  static const Mpg123Lib* const lib = LoadMpg123();
  return lib;
}

}  // namespace swui
