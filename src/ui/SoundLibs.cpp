#include "ui/SoundLibs.h"

#include <dlfcn.h>

namespace swui {

namespace {

template <class Fn>
bool Bind(void* handle, const char* name, Fn& fn) {
  fn = reinterpret_cast<Fn>(dlsym(handle, name));
  return fn != nullptr;
}

#define SWUI_BIND(name) ok = Bind(handle, #name, lib.name) && ok;

// A library missing any one function counts as missing.
bool BindAll(void* handle, AlsaLib& lib) {
  bool ok = true;
  SWUI_ALSA_FUNCTIONS(SWUI_BIND)
  return ok;
}

bool BindAll(void* handle, Mpg123Lib& lib) {
  bool ok = true;
  SWUI_MPG123_FUNCTIONS(SWUI_BIND)
  return ok;
}

#undef SWUI_BIND

const char* FileOf(const AlsaLib*) { return "libasound.so.2"; }
const char* FileOf(const Mpg123Lib*) { return "libmpg123.so.0"; }

}  // namespace

template <class Lib>
const Lib* HeldLib<Lib>::Get() {
  if (handle_ != nullptr) return &lib_;
  handle_ = dlopen(FileOf(&lib_), RTLD_NOW | RTLD_LOCAL);
  if (handle_ != nullptr && !BindAll(handle_, lib_)) Release();
  return handle_ != nullptr ? &lib_ : nullptr;
}

template <class Lib>
void HeldLib<Lib>::Release() {
  if (handle_ != nullptr) dlclose(handle_);
  handle_ = nullptr;
  lib_ = Lib{};
}

template class HeldLib<AlsaLib>;
template class HeldLib<Mpg123Lib>;

}  // namespace swui
