#include "ui/SoundLibs.h"

#include <dlfcn.h>

namespace swui {

namespace {

template <class Fn>
bool Bind(void* handle, const char* name, Fn& fn) {
  fn = reinterpret_cast<Fn>(dlsym(handle, name));
  return fn != nullptr;
}

// A library missing any one function counts as missing.
template <class Lib, class BindAll>
const Lib* Open(const char* file, BindAll bindAll) {
  static Lib lib;
  void* handle = dlopen(file, RTLD_NOW | RTLD_LOCAL);
  return handle != nullptr && bindAll(handle, lib) ? &lib : nullptr;
}

#define SWUI_BIND(name) ok = Bind(handle, #name, lib.name) && ok;

}  // namespace

const AlsaLib* Alsa() {
  static const AlsaLib* const lib = Open<AlsaLib>("libasound.so.2", [](void* handle, AlsaLib& lib) {
    bool ok = true;
    SWUI_ALSA_FUNCTIONS(SWUI_BIND)
    return ok;
  });
  return lib;
}

const Mpg123Lib* Mpg123() {
  static const Mpg123Lib* const lib = Open<Mpg123Lib>("libmpg123.so.0", [](void* handle, Mpg123Lib& lib) {
    bool ok = true;
    SWUI_MPG123_FUNCTIONS(SWUI_BIND)
    return ok;
  });
  return lib;
}

#undef SWUI_BIND

}  // namespace swui
