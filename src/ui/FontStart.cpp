#include "ui/FontStart.h"

#include <dlfcn.h>
#include <pthread.h>

namespace swui {

FontConfigReader::FontConfigReader() {
  // fontconfig comes with the toolkit's own libraries; without it there is nothing to read ahead.
  using Init = int (*)();
  const auto init = reinterpret_cast<Init>(dlsym(RTLD_DEFAULT, "FcInit"));
  if (init == nullptr) return;
  thread_ = std::thread([init] {
    pthread_setname_np(pthread_self(), "fonts");
    init();
  });
}

FontConfigReader::~FontConfigReader() { Wait(); }

void FontConfigReader::Wait() {
  if (thread_.joinable()) thread_.join();
}

}  // namespace swui
