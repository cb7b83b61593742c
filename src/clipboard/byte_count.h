// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

/// The size of a file as file managers show it, in units of 1000: "Zero KB", "1 byte", "999 bytes", "12 KB",
/// "1.2 MB", "1.25 GB". Kilobytes are whole, megabytes have one decimal, larger units two; zeros at the end
/// are left out. Pure; any thread.
QString byteCountText(qint64 bytes);

}  // namespace pimloft
