// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace pimloft {

/// The whole content of the file at `path`. Nothing when it has more than `limit` bytes, cannot be read, or
/// is something else than a file: a pipe would keep the reader waiting. Any thread.
std::optional<QByteArray> readRegularFile(const QString &path, qsizetype limit);

}  // namespace pimloft
