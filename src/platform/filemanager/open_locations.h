// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/file_manager_window.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QMap>
#include <QStringList>

namespace pimloft {

/// The locations that each window has open, by its object's path: one for each of its tabs.
using OpenLocations = QMap<QString, QStringList>;

/// The folder that the window shows; nothing where it is none of this computer, or where several tabs may be
/// in front. Pure.
std::optional<QByteArray> shownFolder(const OpenLocations &locations, const FileManagerWindow &window);

/// Asks the window's program for it. Only that program is asked, whoever calls himself the file manager of
/// this session. Main thread; `done` is not called after `context` is gone.
void askShownFolder(const QDBusConnection &bus, const FileManagerWindow &window, QObject *context,
                    std::function<void(std::optional<QByteArray>)> done);

}  // namespace pimloft
