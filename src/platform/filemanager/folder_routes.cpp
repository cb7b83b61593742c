// SPDX-License-Identifier: MIT
#include "platform/filemanager/folder_routes.h"

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

using enum FolderRoute;

constexpr std::array usual = {title, pathBar, selection};
constexpr std::array byBus = {openLocations, selection};
/// Tells programs that read the screen nothing.
constexpr std::array byKeys = {title, selection, locationKeys};
/// Its path bar has no names.
constexpr std::array byAction = {title, selection, pathBar, locationAction};

QByteArray folder(const QByteArray &file) {
    return file.left(std::max<qsizetype>(file.lastIndexOf('/'), 1));
}

}  // namespace

std::span<const FolderRoute> folderRoutes(FileManagerKind kind) {
    switch (kind) {
    case FileManagerKind::nautilus:
        return byBus;
    case FileManagerKind::pcmanfm:
        return byKeys;
    case FileManagerKind::dolphin:
        return byAction;
    default:
        return usual;
    }
}

std::optional<QByteArray> commonFolder(const std::vector<QByteArray> &files) {
    if (files.empty())
        return std::nullopt;
    const QByteArray first = folder(files.front());
    const bool isCommon = std::all_of(files.begin(), files.end(),
                                      [&first](const QByteArray &file) { return folder(file) == first; });
    return isCommon ? std::optional(first) : std::nullopt;
}

}  // namespace pimloft
