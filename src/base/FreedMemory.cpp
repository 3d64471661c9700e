#include "base/FreedMemory.h"

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace korvane {

void KeepFreedMemory() {
#ifdef M_TRIM_THRESHOLD
    // What glibc comes to by itself once a block of 32 MB has been freed.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 64 << 20);
#endif
}

}  // namespace korvane
