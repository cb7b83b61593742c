// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>

namespace pimloft {

/// A sound device that can play. A value.
struct AudioOutputDevice {
    Q_GADGET
    Q_PROPERTY(quint32 id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString uid MEMBER uid)
    Q_PROPERTY(bool isDefault MEMBER isDefault)

public:
    std::uint32_t id = 0;
    QString name;
    QString uid;  ///< the same in every run
    bool isDefault = false;

    friend bool operator==(const AudioOutputDevice &, const AudioOutputDevice &) = default;
};

}  // namespace pimloft
