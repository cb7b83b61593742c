// SPDX-License-Identifier: MIT
#include "platform/memory/memory.h"

#include <cstdlib>  // says which C library this is
#include <sys/resource.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace pimloft {

void returnFreeMemory() {
#ifdef __GLIBC__
    // glibc keeps freed memory until it is told. Other allocators give it back by themselves.
    malloc_trim(0);
#endif
}

void forbidCoreDumps() {
    rlimit limit{};
    if (getrlimit(RLIMIT_CORE, &limit) != 0)
        return;
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_CORE, &limit);
}

}  // namespace pimloft
