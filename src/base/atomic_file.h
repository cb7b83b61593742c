// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace pimloft {

/// Replaces the private file at `path` with `bytes`: afterwards it holds all of them or what it held before,
/// also when the power fails. The file is readable by this user only (0600) before anything is written, and
/// so are folders that had to be made for it (0700). Any thread.
///
/// Answers nothing on success, else the system's description of the failure.
std::optional<QString> writeAtomically(const QString &path, const QByteArray &bytes);

/// Makes a folder and its missing parents, each for this user only (0700). False when that fails.
bool makePrivateFolder(const QString &path);

}  // namespace pimloft
