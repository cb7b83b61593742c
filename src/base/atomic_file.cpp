// SPDX-License-Identifier: MIT
#include "base/atomic_file.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// What QSaveFile names its temporary file with, after the file's own name and a dot.
constexpr qsizetype randomLetters = 6;

}  // namespace

bool makePrivateFolder(const QString &path) {
    if (QFileInfo(path).isDir())
        return true;
    const QString parent = QFileInfo(path).path();
    if (parent != path && !makePrivateFolder(parent))
        return false;
    // Not QDir: it would make the folder with the process's mask first and narrow it afterwards.
    return mkdir(QFile::encodeName(path).constData(), 0700) == 0 || errno == EEXIST;
}

QString errorText(int number) {
    return QString::fromLocal8Bit(std::strerror(number));
}

int writeFully(int descriptor, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t written = write(descriptor, bytes.data(), std::size_t(bytes.size()));
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0)
            bytes = bytes.sliced(written);
    }
    return 0;
}

std::optional<QString> writeAtomically(const QString &path,
                                       const std::function<std::optional<QString>(int)> &fill) {
    if (!makePrivateFolder(QFileInfo(path).path()))
        return errorText(errno);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return file.errorString();
    // Tells others that it is not abandoned. Ends with the process, however that ends.
    flock(file.handle(), LOCK_EX | LOCK_NB);
    // Past the file's own buffer, which would not tell that a full disk has cut the last part off.
    if (auto failure = fill(file.handle())) {
        file.cancelWriting();
        return failure;
    }
    if (!file.commit())
        return file.errorString();
    return std::nullopt;
}

std::optional<QString> writeAtomically(const QString &path, const QByteArray &bytes) {
    return writeAtomically(path, [&bytes](int descriptor) -> std::optional<QString> {
        const int error = writeFully(descriptor, bytes);
        return error ? std::optional(errorText(error)) : std::nullopt;
    });
}

void removeAbandonedWrites(const QString &path) {
    const QFileInfo file(path);
    const QString prefix = file.fileName() + QLatin1Char('.');
    for (const QFileInfo &each : file.dir().entryInfoList(QDir::Files | QDir::Hidden)) {
        if (!each.fileName().startsWith(prefix) || each.fileName().size() != prefix.size() + randomLetters)
            continue;
        const QByteArray name = QFile::encodeName(each.filePath());
        const int descriptor = open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        if (descriptor < 0)
            continue;
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            unlink(name.constData());
        close(descriptor);
    }
}

}  // namespace pimloft
