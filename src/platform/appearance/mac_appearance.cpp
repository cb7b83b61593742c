// SPDX-License-Identifier: MIT
#include "platform/appearance/mac_appearance.h"

#include <utility>

namespace pimloft {

MacAppearance::MacAppearance() : isDark_(effectiveAppearanceIsDark()), changes_([this] { update(); }) {
}

void MacAppearance::update() {
    const bool isDark = effectiveAppearanceIsDark();
    if (std::exchange(isDark_, isDark) == isDark)
        return;
    QMetaObject::invokeMethod(
        &calls_,
        [this] {
            if (onChanged)
                onChanged();
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
