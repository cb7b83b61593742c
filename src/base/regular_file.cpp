// SPDX-License-Identifier: MIT
#include "base/regular_file.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

bool isRegular(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

std::optional<QByteArray> readRegularFile(const QString &path, qsizetype limit) {
    // What is looked at is what is read, whatever stands there a moment later; opening a pipe does not wait
    // either.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return std::nullopt;
    QFile file;
    if (!isRegular(descriptor) || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        close(descriptor);
        return std::nullopt;
    }
    QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > limit)
        return std::nullopt;
    return bytes;
}

}  // namespace pimloft
