#include "ui/system/freed_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ui::system {

void keepToFewHeaps() {
#ifdef __GLIBC__
    constexpr int heaps = 2; // else every thread of the browser gets one
    mallopt(M_ARENA_MAX, heaps);
#endif
}

void returnFreedMemory() {
#ifdef __GLIBC__
    constexpr int largeBlock = 128 * 1024; // the library begins with that too, but does not stay with it
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_TRIM_THRESHOLD, largeBlock);
#endif
}

}
