// SPDX-License-Identifier: MIT
#pragma once

// Makes the page's model known to the page by its type.

#include "keymapper/key_mapper_settings.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct CustomMappingsModelType {
    Q_GADGET
    QML_FOREIGN(pimloft::CustomMappingsModel)
    QML_NAMED_ELEMENT(CustomMappingsModel)
    QML_UNCREATABLE("made by the module")
};

struct KeyMapperSettingsType {
    Q_GADGET
    QML_FOREIGN(pimloft::KeyMapperSettings)
    QML_NAMED_ELEMENT(KeyMapperModel)
    QML_UNCREATABLE("made by the module")
};

}  // namespace pimloft
