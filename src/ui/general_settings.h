// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace pimloft {

class AccessibilityManager;
class SettingsManager;
class UpdateManager;
class WorkspaceService;
struct Page;

/// What the general page shows and does besides the preferences themselves. Main thread.
class GeneralSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString appVersion READ appVersion CONSTANT)
    Q_PROPERTY(QString buildNumber READ buildNumber CONSTANT)
    Q_PROPERTY(pimloft::SettingsManager *settings READ settings CONSTANT)
    Q_PROPERTY(pimloft::AccessibilityManager *accessibility READ accessibility CONSTANT)
    Q_PROPERTY(pimloft::UpdateManager *updateManager READ updateManager CONSTANT)
    Q_MOC_INCLUDE("app/accessibility_manager.h")
    Q_MOC_INCLUDE("app/settings_manager.h")
    Q_MOC_INCLUDE("updates/update_manager.h")

public:
    GeneralSettings(SettingsManager &settings, AccessibilityManager &accessibility,
                    UpdateManager &updateManager, WorkspaceService &workspace);

    /// The page, bound to this object.
    Page page();

    /// Shows the user where the accessibility permission is given.
    Q_INVOKABLE void openAccessibilitySettings();

    QString appVersion() const;
    QString buildNumber() const;
    SettingsManager *settings() const { return &settings_; }
    AccessibilityManager *accessibility() const { return &accessibility_; }
    UpdateManager *updateManager() const { return &updateManager_; }

private:
    SettingsManager &settings_;
    AccessibilityManager &accessibility_;
    UpdateManager &updateManager_;
    WorkspaceService &workspace_;
};

}  // namespace pimloft
