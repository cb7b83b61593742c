// SPDX-License-Identifier: MIT
#pragma once

// Makes the page's model known to the page by its type.

#include "windowsnap/window_snap_settings.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct WindowSnapSettingsType {
    Q_GADGET
    QML_FOREIGN(pimloft::WindowSnapSettings)
    QML_NAMED_ELEMENT(WindowSnapModel)
    QML_UNCREATABLE("made by the module")
};

}  // namespace pimloft
