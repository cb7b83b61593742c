// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

namespace pimloft {

// The times of a file, which C libraries keep under different names. Pure; any thread.

template <typename Status>
timespec modificationTime(const Status &status) {
    if constexpr (requires { status.st_mtim; })
        return status.st_mtim;
    else
        return status.st_mtimespec;
}

template <typename Status>
timespec changeTime(const Status &status) {
    if constexpr (requires { status.st_ctim; })
        return status.st_ctim;
    else
        return status.st_ctimespec;
}

}  // namespace pimloft
