// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/file_manager_window.h"

#include <span>

namespace pimloft {

/// A way to find out which folder a window shows.
enum class FolderRoute {
    openLocations,   ///< its program tells on the session bus
    title,           ///< which may be the whole path
    pathBar,         ///< by what it tells programs that read the screen
    selection,       ///< the folder that the selected files are in
    locationAction,  ///< by its location field, which an action on the bus shows and hides again
    locationKeys,    ///< the same by keys
};

/// The ways to be tried with a file manager, in this order: what nobody can see comes first. Pure.
std::span<const FolderRoute> folderRoutes(FileManagerKind kind);

/// The folder that all of the files are in; nothing where there is not one. Pure.
std::optional<QByteArray> commonFolder(const std::vector<QByteArray> &files);

}  // namespace pimloft
