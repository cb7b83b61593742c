// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

/// Preferences in memory. Only values that a preferences file can hold are taken.
class FakePreferences final : public PreferencesService {
public:
    explicit FakePreferences(FakeLog &log) : log_(log) {}

    void registerDefaults(const QVariantMap &defaults) override;
    QVariant object(const QString &key) const override { return stored.value(key, registered.value(key)); }
    void set(const QString &key, const QVariant &value) override;

    QVariantMap registered;
    QVariantMap stored;  ///< what an earlier run may have left; a test may fill it

private:
    FakeLog &log_;
};

}  // namespace pimloft
