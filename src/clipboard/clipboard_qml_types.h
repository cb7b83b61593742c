// SPDX-License-Identifier: MIT
#pragma once

// Makes the models of the popup and of the page known to them by their types.

#include "clipboard/clipboard_popup.h"
#include "clipboard/clipboard_settings.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct ClipboardPopupType {
    Q_GADGET
    QML_FOREIGN(pimloft::ClipboardPopup)
    QML_NAMED_ELEMENT(PopupModel)
    QML_UNCREATABLE("made by the popup's controller")
};

struct ClipboardSettingsType {
    Q_GADGET
    QML_FOREIGN(pimloft::ClipboardSettings)
    QML_NAMED_ELEMENT(SettingsModel)
    QML_UNCREATABLE("made by the module")
};

}  // namespace pimloft
