// SPDX-License-Identifier: MIT
#pragma once

// Makes the page's model known to the page by its type.

#include "finderfix/finder_fix_settings.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct FinderFixSettingsType {
    Q_GADGET
    QML_FOREIGN(pimloft::FinderFixSettings)
    QML_NAMED_ELEMENT(FinderFixModel)
    QML_UNCREATABLE("made by the module")
};

}  // namespace pimloft
