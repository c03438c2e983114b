#include "core/base/allocator_tuning.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace trackloom {

void tuneAllocatorForLargeDocuments() {
#if defined(__GLIBC__)
    mallopt(M_MXFAST, 0);
#endif
}

} // namespace trackloom
