// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace pimloft {

/// Replaces the private file at `path` with `bytes`: afterwards it holds all of them or what it held before,
/// also when the power fails. The file is readable by this user only (0600) before anything is written, and
/// so are folders that had to be made for it (0700). Any thread.
///
/// Answers nothing on success, else the system's description of the failure.
std::optional<QString> writeAtomically(const QString &path, const QByteArray &bytes);

/// The same for what is too large to be held in memory: `fill` writes to the open descriptor that it is given
/// and answers a description when that fails; then the file stays as it was.
std::optional<QString> writeAtomically(const QString &path,
                                       const std::function<std::optional<QString>(int)> &fill);

/// Writes all of `bytes` to a descriptor. Zero on success, else the error number.
int writeFully(int descriptor, QByteArrayView bytes);

/// Removes what processes that were killed in the middle of `writeAtomically` have left beside `path`.
void removeAbandonedWrites(const QString &path);

/// Makes a folder and its missing parents, each for this user only (0700). False when that fails.
bool makePrivateFolder(const QString &path);

/// The system's words for an error number.
QString errorText(int number);

}  // namespace pimloft
