// SPDX-License-Identifier: MIT
#include "app/permission_request.h"

#include "app/accessibility_manager.h"
#include "platform/workspace/workspace.h"

#include <QPointer>
#include <QTimer>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

constexpr auto timeToSeeThatItIsGranted = 500ms;

/// Seconds between two looks at whether the user has granted it.
constexpr double pollingInterval = 1;

}  // namespace

PermissionRequest::PermissionRequest(AccessibilityManager &accessibilityManager, WorkspaceService &workspace,
                                     std::function<void()> onGranted)
    : accessibilityManager_(accessibilityManager), workspace_(workspace), onGranted_(std::move(onGranted)) {
}

void PermissionRequest::appear() {
    accessibilityManager_.refresh();
    if (accessibilityManager_.isAccessibilityGranted())
        QTimer::singleShot(timeToSeeThatItIsGranted, this, [this] { onGranted_(); });
}

void PermissionRequest::openSystemSettings() {
    workspace_.open(accessibilitySettings());
    // Nothing ends the polling but the grant, which may come long after the page has gone.
    accessibilityManager_.startPolling(pollingInterval, [request = QPointer(this)] {
        if (request)
            request->onGranted_();
    });
}

void PermissionRequest::skip() {
    onGranted_();
}

}  // namespace pimloft
