// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace pimloft {

class LoginItemService;
class PreferencesService;

/// The one place that knows the preferences' default values. Main thread.
class SettingsManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)

public:
    static SettingsManager &shared();
    /// Registers all defaults.
    SettingsManager(PreferencesService &defaults, LoginItemService &loginItem);

    /// True also for a module that nothing is known of.
    bool isModuleEnabled(const QString &id) const;
    void setModuleEnabled(const QString &id, bool enabled);

    /// Setting stores the wish and carries it out; a desktop that refuses is reported on standard output and
    /// the wish stays.
    bool launchAtLogin() const;
    void setLaunchAtLogin(bool enabled);

    /// The store itself, for the preferences that belong to one module.
    PreferencesService &defaults() const { return defaults_; }

signals:
    void launchAtLoginChanged();

private:
    void registerDefaults();
    void updateLaunchAtLogin(bool enabled);

    PreferencesService &defaults_;
    LoginItemService &loginItem_;
};

}  // namespace pimloft
