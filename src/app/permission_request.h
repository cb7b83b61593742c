// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace pimloft {

class AccessibilityManager;
class WorkspaceService;

/// Leads the user to where the accessibility permission is given, and notices when it is. Main thread.
class PermissionRequest : public QObject {
    Q_OBJECT
    Q_PROPERTY(pimloft::AccessibilityManager *accessibilityManager READ accessibilityManager CONSTANT)
    Q_MOC_INCLUDE("app/accessibility_manager.h")

public:
    /// `onGranted` is called when the permission is there, and when the user goes on without it; more than
    /// once where both happen.
    PermissionRequest(AccessibilityManager &accessibilityManager, WorkspaceService &workspace,
                      std::function<void()> onGranted);

    /// To be called each time its page is shown. Where the permission is there already, the user has half a
    /// second to see so.
    void appear();

    Q_INVOKABLE void openSystemSettings();
    Q_INVOKABLE void skip();

    AccessibilityManager *accessibilityManager() const { return &accessibilityManager_; }

private:
    AccessibilityManager &accessibilityManager_;
    WorkspaceService &workspace_;
    std::function<void()> onGranted_;
};

}  // namespace pimloft
