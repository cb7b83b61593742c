// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What this build calls itself. Any thread.
namespace pimloft {

/// "1.0.0" when the build does not say.
QString appVersion();
/// "1" when the build does not say.
QString buildNumber();

}  // namespace pimloft
