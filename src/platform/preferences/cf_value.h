// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/cf_ref.h"

#include <QVariant>

namespace pimloft {

// Plain values as the user defaults hold them: flags, whole and floating-point numbers, texts, lists of them.
// Pure; any thread.

/// Empty for what is no plain value.
CfRef<CFTypeRef> cfValue(const QVariant &value);
/// Invalid for what is no plain value.
QVariant qtValue(CFTypeRef value);

}  // namespace pimloft
