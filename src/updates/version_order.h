// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <compare>

namespace pimloft {

/// The order of two versions: runs of digits by their value, however long they are, and everything else
/// character by character, from left to right. So 1.9 comes before 1.10, and 1.01 is equivalent to 1.1.
/// Pure; any thread.
std::weak_ordering compareVersions(QStringView a, QStringView b);

}  // namespace pimloft
