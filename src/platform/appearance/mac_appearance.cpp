// SPDX-License-Identifier: MIT
#include "platform/appearance/mac_appearance.h"

#include "platform/mac/mac_picture.h"

#include <utility>

namespace pimloft {

MacAppearance::MacAppearance()
    : look_(current()), appearance_([this] { update(); }),
      options_(MacNotice::Kind::displayOptionsChanged, [this] { update(); }) {
}

QIcon MacAppearance::traySymbol(const QString &name) const {
    return templateIcon(name);
}

MacAppearance::Look MacAppearance::current() {
    return {effectiveAppearanceIsDark(), systemIncreasesContrast(), systemReducesMotion()};
}

void MacAppearance::update() {
    const Look now = current();
    if (std::exchange(look_, now) == now)
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
