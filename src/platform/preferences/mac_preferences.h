// SPDX-License-Identifier: MIT
#pragma once

#include "platform/preferences/preferences.h"

#include <QObject>

namespace pimloft {

/// The user defaults of this application. Main thread.
///
/// They hold for every reader at once; the disk gets what was changed in one turn of the event loop together.
class MacPreferences final : public PreferencesService {
public:
    MacPreferences() = default;
    /// Stores what is not stored yet.
    ~MacPreferences() override;

    void registerDefaults(const QVariantMap &defaults) override;
    QVariant object(const QString &key) const override;
    /// An invalid value forgets the stored one.
    void set(const QString &key, const QVariant &value) override;

private:
    void synchronize();

    QVariantMap defaults_;
    bool isDirty_ = false;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
