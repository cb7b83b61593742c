// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <QString>

#include <optional>

namespace pimloft {

/// What the kernel tells of a process. Texts are empty where it belongs to another user. A value; any thread.
struct ProcessInfo {
    QString name;           ///< as ps shows it, cut off at 15 characters
    QString executable;     ///< base name of the running file
    QString launchedEntry;  ///< path of the desktop entry that this very process was started from
};

/// When a process started, in ticks since the computer did: together with its id it names a process for ever.
/// Nothing when there is no such process.
std::optional<quint64> processStart(ProcessId process);

ProcessInfo processInfo(ProcessId process);

}  // namespace pimloft
