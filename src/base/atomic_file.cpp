// SPDX-License-Identifier: MIT
#include "base/atomic_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// Between the name of a file and the letters of the temporary one that is to replace it.
constexpr QLatin1String ending(".pimloft-");
constexpr QLatin1String letters("XXXXXX");

/// A link stays one: what it leads to is replaced.
QString endOfLinks(const QString &path) {
    const QFileInfo file(path);
    if (const QString canonical = file.canonicalFilePath(); !canonical.isEmpty())
        return canonical;
    return file.isSymLink() ? file.symLinkTarget() : path;
}

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
    const QString target = endOfLinks(path);
    const QByteArray targetName = QFile::encodeName(target);
    // Who made it unwritable does not want it replaced either.
    if (access(targetName.constData(), W_OK) != 0 && errno != ENOENT)
        return errorText(errno);
    // Without a name where the file system can do that, so that a kill leaves nothing behind.
    QTemporaryFile file(target + ending + letters);
    if (!file.open())
        return file.errorString();
    // Tells others that it is not abandoned. Ends with the process, however that ends.
    flock(file.handle(), LOCK_EX | LOCK_NB);
    // Past the file's own buffer, which would not tell that a full disk has cut the last part off.
    if (auto failure = fill(file.handle()))
        return failure;
    if (fsync(file.handle()) != 0)
        return errorText(errno);
    const QString name = file.fileName();
    if (name.isEmpty())
        return file.errorString();
    if (std::rename(QFile::encodeName(name).constData(), targetName.constData()) != 0)
        return errorText(errno);
    file.setAutoRemove(false);
    return std::nullopt;
}

std::optional<QString> writeAtomically(const QString &path, const QByteArray &bytes) {
    return writeAtomically(path, [&bytes](int descriptor) -> std::optional<QString> {
        const int error = writeFully(descriptor, bytes);
        return error ? std::optional(errorText(error)) : std::nullopt;
    });
}

void removeAbandonedWrites(const QString &path) {
    const QFileInfo file(endOfLinks(path));
    const QString prefix = file.fileName() + ending;
    for (const QFileInfo &each : file.dir().entryInfoList(QDir::Files | QDir::Hidden)) {
        if (!each.fileName().startsWith(prefix) || each.fileName().size() != prefix.size() + letters.size())
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
