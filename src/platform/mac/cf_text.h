// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/cf_ref.h"

#include <QString>

namespace pimloft {

// Texts of the C frameworks and Qt's. Pure; any thread.

CfRef<CFStringRef> cfText(const QString &text);
/// Empty for no text.
QString qtText(CFStringRef text);

}  // namespace pimloft
