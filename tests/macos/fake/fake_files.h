// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace pimloft::test::mac {

/// The file system's own calls, carried out on the real one, with the faults that a test puts in.
struct FileSystem {
    int renameError = 0;
    bool knowsExclusiveRename = true;
    int copyError = 0;
    std::function<void()> whileCopying;  ///< before the copy asks whether it may go on
};
FileSystem &fileSystem();

}  // namespace pimloft::test::mac
