// SPDX-License-Identifier: MIT
#include "app/bundle_info.h"

namespace pimloft {

namespace {

QString orElse(const char *value, const char *fallback) {
    return QString::fromUtf8(*value ? value : fallback);
}

}  // namespace

QString appVersion() {
    return orElse(PIMLOFT_VERSION, "1.0.0");
}
QString buildNumber() {
    return orElse(PIMLOFT_BUILD_NUMBER, "1");
}

}  // namespace pimloft
