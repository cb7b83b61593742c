// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QUrl>

namespace pimloft {

/// Starts the program that the user has chosen for a link or a file, and does not wait for it. False when
/// there is none, or no such file. Main thread.
bool openWithDefaultProgram(const QUrl &url);

/// Has the file manager show a file selected in its folder, or a folder's content; where none listens on the
/// bus, opens the folder. Returns at once. Main thread.
void revealInFileManager(const QDBusConnection &bus, const QString &path);

}  // namespace pimloft
