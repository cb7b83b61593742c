// SPDX-License-Identifier: MIT
#include "base/atomic_file.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace pimloft {

bool makePrivateFolder(const QString &path) {
    if (QFileInfo(path).isDir())
        return true;
    const QString parent = QFileInfo(path).path();
    if (parent != path && !makePrivateFolder(parent))
        return false;
    // Not QDir: it would make the folder with the process's mask first and narrow it afterwards.
    return mkdir(QFile::encodeName(path).constData(), 0700) == 0 || errno == EEXIST;
}

std::optional<QString> writeAtomically(const QString &path, const QByteArray &bytes) {
    if (!makePrivateFolder(QFileInfo(path).path()))
        return QString::fromLocal8Bit(std::strerror(errno));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return file.errorString();
    // On a full disk the last part is cut off, which commit() alone would not notice.
    errno = 0;
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        const int reason = errno;
        file.cancelWriting();
        return reason ? QString::fromLocal8Bit(std::strerror(reason)) : file.errorString();
    }
    if (!file.commit())
        return file.errorString();
    return std::nullopt;
}

}  // namespace pimloft
