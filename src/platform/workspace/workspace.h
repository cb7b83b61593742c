// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <QIcon>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

/// How much of an application the user sees.
enum class ActivationPolicy {
    regular,     ///< has windows in the task list
    accessory,   ///< lives in the tray or has no windows of its own
    prohibited,  ///< never shows anything
};

/// A running application. A value.
struct Application {
    QString name;                     ///< as the user knows it, in the user's language
    std::optional<QString> bundleId;  ///< absent when the desktop does not know the program
    ProcessId processId{};
    ActivationPolicy policy = ActivationPolicy::regular;

    friend bool operator==(const Application &, const Application &) = default;
};

/// The user's running applications, files and links. Main thread.
class WorkspaceService {
public:
    virtual ~WorkspaceService() = default;

    /// The application whose window has the keyboard. Cheap: kept current by notices.
    virtual std::optional<Application> frontmostApplication() = 0;

    /// In the order in which they were started, as far as the desktop tells.
    virtual std::vector<Application> runningApplications() = 0;

    /// A null icon where there is none.
    virtual QIcon icon(const Application &application) = 0;
    virtual QIcon fileIcon(const QString &path) = 0;

    /// Opens a link to the web or to the settings with the user's program for it. False for every other one.
    virtual bool open(const QUrl &url) = 0;

    /// Shows the file selected in a file manager, or a folder's content. Returns at once.
    virtual void reveal(const QString &path) = 0;

    /// Called, queued, when another application comes to the front.
    std::function<void()> onFrontmostChanged;
};

}  // namespace pimloft
