// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

/// Writes one line to standard output at once: how a failure that nobody needs to answer is reported.
/// Never carries what the user copied, typed or mapped. Any thread.
void printLine(const QString &line);

}  // namespace pimloft
