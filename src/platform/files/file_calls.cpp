// SPDX-License-Identifier: MIT
#include "platform/files/file_calls.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

int error(long result) {
    return result < 0 ? errno : 0;
}

}  // namespace

int FileCalls::renameWithoutReplacing(Place from, Place to) const {
    return error(renameat2(from.folder, from.name, to.folder, to.name, RENAME_NOREPLACE));
}

int FileCalls::rename(Place from, Place to) const {
    return error(renameat(from.folder, from.name, to.folder, to.name));
}

int FileCalls::link(Place from, Place to) const {
    return error(linkat(from.folder, from.name, to.folder, to.name, 0));
}

int FileCalls::makeFolder(Place place, mode_t mode) const {
    return error(mkdirat(place.folder, place.name, mode));
}

int FileCalls::makeLink(const char *target, Place place) const {
    return error(symlinkat(target, place.folder, place.name));
}

int FileCalls::makeNode(Place place, mode_t mode, dev_t device) const {
    return error(mknodat(place.folder, place.name, mode, device));
}

int FileCalls::makeFile(Place place, mode_t mode, int &descriptor) const {
    descriptor = openat(place.folder, place.name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    return error(descriptor);
}

int FileCalls::removeFile(Place place) const {
    return error(unlinkat(place.folder, place.name, 0));
}

int FileCalls::removeFolder(Place place) const {
    return error(unlinkat(place.folder, place.name, AT_REMOVEDIR));
}

int FileCalls::copyRange(int from, int to, off_t position, std::size_t &count) const {
    off_t in = position;
    off_t out = position;
    const ssize_t copied = copy_file_range(from, &in, to, &out, count, 0);
    const int failure = error(copied);
    count = failure ? 0 : std::size_t(copied);
    return failure;
}

int FileCalls::write(int to, const char *bytes, std::size_t count, off_t position) const {
    while (count > 0) {
        const ssize_t written = pwrite(to, bytes, count, position);
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0) {
            bytes += written;
            count -= std::size_t(written);
            position += written;
        }
    }
    return 0;
}

int FileCalls::sync(int descriptor) const {
    return error(fsync(descriptor));
}

int FileCalls::syncVolume(int descriptor) const {
    return error(syncfs(descriptor));
}

}  // namespace pimloft
