// SPDX-License-Identifier: MIT
#include "quickvolume/volume_display.h"

#include <QCoreApplication>

namespace pimloft {

QString systemVolumeSymbol(float volume, bool muted) {
    if (muted)
        return QStringLiteral("speaker.slash.fill");
    if (volume == 0)
        return QStringLiteral("speaker.fill");
    if (volume < 0.33F)
        return QStringLiteral("speaker.wave.1.fill");
    if (volume < 0.66F)
        return QStringLiteral("speaker.wave.2.fill");
    return QStringLiteral("speaker.wave.3.fill");
}

QString volumeText(float volume) {
    return QCoreApplication::translate("VolumeDisplay", "%1%").arg(int(volume * 100));
}

}  // namespace pimloft
