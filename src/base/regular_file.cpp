// SPDX-License-Identifier: MIT
#include "base/regular_file.h"

#include <QFileInfo>

namespace pimloft {

std::optional<QByteArray> readRegularFile(const QString &path, qsizetype limit) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > limit)
        return std::nullopt;
    return bytes;
}

}  // namespace pimloft
