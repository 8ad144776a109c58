#include "ui/Heap.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace swui {

void TuneHeap() {
#if defined(__GLIBC__)
  // The sound thread and Qt's own allocate little: a heap apiece would keep the little they free.
  mallopt(M_ARENA_MAX, 1);
  // A fixed threshold: left to itself the allocator raises it after each large block freed, and
  // the next window images come from the heap, where they leave holes when they go.
  mallopt(M_MMAP_THRESHOLD, 64 * 1024);
#endif
}

void ReturnFreeMemory() {
#if defined(__GLIBC__)
  malloc_trim(0);
#endif
}

}  // namespace swui
