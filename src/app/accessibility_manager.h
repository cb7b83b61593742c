// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>

class QTimer;

namespace pimloft {

class WindowService;

/// Where the user gives the permission, as WorkspaceService opens it.
QUrl accessibilitySettings();

/// Whether the desktop trusts this process to observe and control other programs. Main thread.
class AccessibilityManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isAccessibilityGranted READ isAccessibilityGranted NOTIFY isAccessibilityGrantedChanged)

public:
    static AccessibilityManager &shared();
    explicit AccessibilityManager(WindowService &windows);
    ~AccessibilityManager() override;

    /// As it was known last.
    bool isAccessibilityGranted() const { return isAccessibilityGranted_; }
    /// Reads it from the desktop.
    void refresh();

    /// Reads it every `interval` seconds until it is granted; then runs `onGranted` once, from the event
    /// loop. Replaces a watch that is running.
    void startPolling(double interval, std::function<void()> onGranted);

signals:
    void isAccessibilityGrantedChanged();

private:
    WindowService &windows_;
    bool isAccessibilityGranted_;
    std::unique_ptr<QTimer> pollingTimer_;
};

}  // namespace pimloft
