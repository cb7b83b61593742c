// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace pimloft {

/// The names that a file can take in a folder where its own is taken: the name itself for 1, then
/// "report 2.txt", "report 3.txt" and so on. Pure; any thread.
///
/// What follows the last dot is the extension, unless the dot is the first or the last character.
QByteArray uniqueName(const QByteArray &name, int number);

}  // namespace pimloft
