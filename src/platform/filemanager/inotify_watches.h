// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <QByteArray>

#include <vector>

namespace pimloft {

/// A file or folder whose changes a process follows.
struct InotifyWatch {
    std::uint64_t inode;
    std::uint64_t device;  ///< as the kernel numbers it, not as stat() does

    friend bool operator==(const InotifyWatch &, const InotifyWatch &) = default;
};

/// The watches in the text of an entry of /proc/PID/fdinfo. Pure; any thread.
std::vector<InotifyWatch> inotifyWatches(const QByteArray &fdinfo);

/// All watches of a process; none where it has none or is another user's. Any thread.
std::vector<InotifyWatch> inotifyWatches(ProcessId process);

/// Whether one of the watches is of the folder. A file manager follows the folders that it shows. Any thread;
/// waits for the folder's disk.
bool isWatched(const QByteArray &folder, const std::vector<InotifyWatch> &watches);

}  // namespace pimloft
