// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/file_manager_window.h"

#include <QDBusConnection>

namespace pimloft {

/// A window of Dolphin, whose actions are on the session bus. Main thread; waits for nobody. No callback is
/// called after `context` is gone.
class DolphinWindow {
public:
    DolphinWindow(QDBusConnection bus, const FileManagerWindow &window, QObject *context);

    /// Nothing where the window does not answer.
    void hasSelection(std::function<void(std::optional<bool>)> done) const;
    /// Copies what is selected; where nothing is, that would change what the window looks like.
    void copy(std::function<void(bool)> done) const;
    /// Shows the path as text in place of the path bar, or the path bar again.
    void toggleLocationField(std::function<void(bool)> done) const;

private:
    void activate(const char *action, std::function<void(bool)> done) const;

    QDBusConnection bus_;
    QString service_, path_;
    QObject *context_;
};

}  // namespace pimloft
