// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace pimloft {

/// The number of characters as a reader counts them: an emoji or a letter with its accents is one, and so is
/// a line end of two codes. Pure; any thread.
qsizetype characterCount(QStringView text);

}  // namespace pimloft
