// SPDX-License-Identifier: MIT
#include "platform/files/no_replace_rename.h"

#include "platform/files/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace pimloft {

namespace {

bool isFolder(Place place) {
    struct stat status {};
    return fstatat(place.folder, place.name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

/// An empty folder may be replaced by another one, and by nothing else.
int renameByFolder(const FileCalls &calls, Place from, Place to) {
    if (const int error = calls.makeFolder(to, 0700))
        return error;
    const int error = calls.rename(from, to);
    if (error)
        calls.removeFolder(to);
    return error;
}

/// For file systems that have no links either.
int renameByPlaceholder(const FileCalls &calls, Place from, Place to) {
    int descriptor = -1;
    if (const int error = calls.makeFile(to, 0600, descriptor))
        return error;
    const Descriptor placeholder(descriptor);
    const int error = calls.rename(from, to);
    if (error)
        calls.removeFile(to);
    return error;
}

int renameByLink(const FileCalls &calls, Place from, Place to) {
    const int linked = calls.link(from, to);
    if (linked == EPERM || linked == EOPNOTSUPP || linked == ENOSYS || linked == EMLINK)
        return renameByPlaceholder(calls, from, to);
    if (linked)
        return linked;
    const int error = calls.removeFile(from);
    if (error)
        calls.removeFile(to);
    return error;
}

bool isSame(const struct stat &a, const struct stat &b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

int renameNeverReplacing(const FileCalls &calls, Place from, Place to) {
    const int error = calls.renameWithoutReplacing(from, to);
    if (error != EINVAL && error != ENOSYS)
        return error;
    if (!isFolder(from))
        return renameByLink(calls, from, to);
    return isInside(to.folder, from) ? EINVAL : renameByFolder(calls, from, to);
}

bool isInside(int folder, Place item) {
    struct stat wanted {};
    if (fstatat(item.folder, item.name, &wanted, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISDIR(wanted.st_mode))
        return false;
    struct stat here {};
    Descriptor current(openat(folder, ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    while (current && fstat(current.get(), &here) == 0) {
        if (isSame(here, wanted))
            return true;
        Descriptor parent(openat(current.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        struct stat above {};
        if (!parent || fstat(parent.get(), &above) != 0 || isSame(above, here))
            return false;
        current = std::move(parent);
    }
    return false;
}

}  // namespace pimloft
