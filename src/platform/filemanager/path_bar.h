// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/accessible_tree.h"

#include <QByteArray>

namespace pimloft {

/// The paths that a window may say it shows, by its location field and its path bar, the likeliest first.
/// They are made of names as people read them, or half typed, and need to be looked at. `home` is the path of
/// the home folder. Pure; any thread.
std::vector<QByteArray> pathsShown(const AccessibleTree &tree, const QByteArray &home);

/// The path that a title consists of, if it is one: some file managers can be told to show it. Pure.
std::vector<QByteArray> pathsInTitle(const QString &title);

/// Of several folders that may be the one that is shown, the only one, or the only one that the title names.
/// Nothing where that does not decide. Pure.
QByteArray folderByTitle(const std::vector<QByteArray> &folders, const QString &title);

}  // namespace pimloft
