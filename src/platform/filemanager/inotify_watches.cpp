// SPDX-License-Identifier: MIT
#include "platform/filemanager/inotify_watches.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <optional>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace pimloft {

namespace {

/// How the kernel puts the two parts of a device's number together.
constexpr int minorBits = 20;

std::optional<std::uint64_t> hexadecimal(const QByteArray &line, const char *name) {
    const qsizetype at = line.indexOf(name);
    if (at < 0)
        return std::nullopt;
    const qsizetype start = at + qsizetype(qstrlen(name));
    const qsizetype end = line.indexOf(' ', start);
    bool isNumber = false;
    const std::uint64_t value =
        line.mid(start, end < 0 ? -1 : end - start).trimmed().toULongLong(&isNumber, 16);
    return isNumber ? std::optional(value) : std::nullopt;
}

}  // namespace

std::vector<InotifyWatch> inotifyWatches(const QByteArray &fdinfo) {
    std::vector<InotifyWatch> result;
    for (const QByteArray &line : fdinfo.split('\n')) {
        if (!line.startsWith("inotify "))
            continue;
        const auto inode = hexadecimal(line, " ino:");
        const auto device = hexadecimal(line, " sdev:");
        if (inode && device)
            result.push_back({*inode, *device});
    }
    return result;
}

std::vector<InotifyWatch> inotifyWatches(ProcessId process) {
    const QString base = QStringLiteral("/proc/%1/").arg(qint32(process));
    std::vector<InotifyWatch> result;
    for (const QString &descriptor : QDir(base + QStringLiteral("fdinfo")).entryList(QDir::Files)) {
        QFile info(base + QStringLiteral("fdinfo/") + descriptor);
        if (!info.open(QIODevice::ReadOnly))
            continue;
        const auto watches = inotifyWatches(info.readAll());
        result.insert(result.end(), watches.begin(), watches.end());
    }
    return result;
}

bool isWatched(const QByteArray &folder, const std::vector<InotifyWatch> &watches) {
    struct stat status {};
    if (stat(folder.constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        return false;
    const std::uint64_t device =
        (std::uint64_t(major(status.st_dev)) << minorBits) | std::uint64_t(minor(status.st_dev));
    // File systems of several parts give each its own number, which the kernel does not know the watch by.
    const bool isOfParts = major(status.st_dev) == 0;
    return std::any_of(watches.begin(), watches.end(), [&](const InotifyWatch &watch) {
        return watch.inode == status.st_ino && (watch.device == device || isOfParts);
    });
}

}  // namespace pimloft
