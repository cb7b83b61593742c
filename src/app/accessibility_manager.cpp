// SPDX-License-Identifier: MIT
#include "app/accessibility_manager.h"

#include "app/process.h"
#include "platform/windows/windows.h"

#include <QTimer>

namespace pimloft {

QUrl accessibilitySettings() {
    return QUrl(
        QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
}

AccessibilityManager &AccessibilityManager::shared() {
    return Process::current().shared<AccessibilityManager>(
        [](Process &process) { return std::make_unique<AccessibilityManager>(process.platform().windows); });
}

AccessibilityManager::AccessibilityManager(WindowService &windows)
    : windows_(windows), isAccessibilityGranted_(windows.isTrusted()) {
}

AccessibilityManager::~AccessibilityManager() = default;

void AccessibilityManager::refresh() {
    const bool granted = windows_.isTrusted();
    if (std::exchange(isAccessibilityGranted_, granted) != granted)
        emit isAccessibilityGrantedChanged();
}

void AccessibilityManager::startPolling(double interval, std::function<void()> onGranted) {
    pollingTimer_ = std::make_unique<QTimer>();
    QTimer *timer = pollingTimer_.get();
    connect(timer, &QTimer::timeout, this, [this, timer, onGranted = std::move(onGranted)] {
        refresh();
        if (!isAccessibilityGranted_)
            return;
        timer->stop();
        QMetaObject::invokeMethod(this, onGranted, Qt::QueuedConnection);
    });
    timer->start(std::chrono::milliseconds(qRound64(interval * 1000)));
}

}  // namespace pimloft
