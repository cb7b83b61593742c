// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QMetaType>
#include <QString>

#include <optional>

namespace pimloft {

/// A running application that is known to play sound. A value.
struct AudioApp {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QIcon icon READ iconForPages)
    Q_PROPERTY(bool hasIcon READ hasIcon)
    Q_PROPERTY(float volume MEMBER volume)
    Q_PROPERTY(bool isMuted MEMBER isMuted)
    Q_PROPERTY(bool isActive MEMBER isActive)

public:
    std::int32_t id = 0;  ///< of its process
    QString name;         ///< in the user's language
    std::optional<QString> bundleID;
    QIcon icon;  ///< null where it has none
    float volume = 1;
    bool isMuted = false;  ///< shown only: nothing is silenced by it
    bool isActive = false;

    QIcon iconForPages() const { return icon; }
    bool hasIcon() const { return !icon.isNull(); }

    friend bool operator==(const AudioApp &a, const AudioApp &b) {
        return a.id == b.id && a.name == b.name && a.bundleID == b.bundleID &&
               a.icon.cacheKey() == b.icon.cacheKey() && a.volume == b.volume && a.isMuted == b.isMuted &&
               a.isActive == b.isActive;
    }
};

}  // namespace pimloft
