// SPDX-License-Identifier: MIT
#pragma once

// Makes the mixer and what the pages need to show it known to the pages by their types.

#include "quickvolume/audio_output_device.h"
#include "quickvolume/volume_display.h"
#include "quickvolume/volume_mixer.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct VolumeMixerType {
    Q_GADGET
    QML_FOREIGN(pimloft::VolumeMixer)
    QML_NAMED_ELEMENT(VolumeMixer)
    QML_UNCREATABLE("made by the module")
};

struct RecordListModelType {
    Q_GADGET
    QML_FOREIGN(pimloft::RecordListModel)
    QML_NAMED_ELEMENT(RecordListModel)
    QML_UNCREATABLE("part of a mixer")
};

struct AudioAppType {
    Q_GADGET
    QML_FOREIGN(pimloft::AudioApp)
    QML_VALUE_TYPE(audioApp)
};

struct AudioOutputDeviceType {
    Q_GADGET
    QML_FOREIGN(pimloft::AudioOutputDevice)
    QML_VALUE_TYPE(audioOutputDevice)
};

/// How a volume is shown, for pages. Main thread.
class VolumeDisplay : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(VolumeDisplay)
    QML_SINGLETON

public:
    Q_INVOKABLE static QString systemSymbol(float volume, bool muted) {
        return systemVolumeSymbol(volume, muted);
    }
    Q_INVOKABLE static QString percent(float volume) { return volumeText(volume); }
};

}  // namespace pimloft
