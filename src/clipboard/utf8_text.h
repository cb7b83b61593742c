// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace pimloft {

/// The text that `bytes` hold, a byte order mark at its beginning included; nothing when they are not UTF-8.
/// Pure; any thread.
std::optional<QString> textFromUtf8(const QByteArray &bytes);

}  // namespace pimloft
