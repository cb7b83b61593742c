// SPDX-License-Identifier: MIT
#include "platform/files/tree_copy.h"

#include "platform/files/descriptor.h"
#include "platform/files/file_content.h"
#include "platform/files/tree_removal.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace pimloft {

TreeCopy::TreeCopy(const FileCalls &calls, std::function<bool()> isCancelled)
    : calls_(calls), isCancelled_(std::move(isCancelled)) {
}

int TreeCopy::copy(Place from, Place to, CopiedEntry &copied) {
    top_ = to.folder;
    return copyEntry(from, to, to.name, copied);
}

int TreeCopy::copyEntry(Place from, Place to, const QByteArray &path, CopiedEntry &copied) {
    if (isCancelled_())
        return ECANCELED;
    copied.name = from.name;
    if (fstatat(from.folder, from.name, &copied.status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno;
    switch (copied.type()) {
    case S_IFREG:
        return copyFile(from, to, path, copied);
    case S_IFDIR:
        return copyFolder(from, to, path, copied);
    case S_IFLNK:
        return copyLink(from, to, copied);
    default:
        return copyNode(to, copied);
    }
}

int TreeCopy::copyFile(Place from, Place to, const QByteArray &path, CopiedEntry &copied) {
    if (copied.status.st_nlink > 1) {
        const auto [first, isNew] =
            manyNamed_.try_emplace({copied.status.st_dev, copied.status.st_ino}, path);
        if (!isNew && calls_.link({top_, first->second.constData()}, to) == 0)
            return 0;
    }
    // A pipe that has taken the name would keep us waiting.
    const Descriptor original(openat(from.folder, from.name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!original || fstat(original.get(), &copied.status) != 0)
        return errno;
    int descriptor = -1;
    if (const int error = calls_.makeFile(to, 0600, descriptor))
        return error;
    const Descriptor copy(descriptor);
    if (const int error = copyContent(calls_, original.get(), copy.get(), isCancelled_))
        return error;
    if (const int error = copyMetadata(original.get(), copied.status, copy.get()))
        return error;
    return to.folder == top_ ? calls_.sync(copy.get()) : 0;
}

int TreeCopy::copyFolder(Place from, Place to, const QByteArray &path, CopiedEntry &copied) {
    const Descriptor original(
        openat(from.folder, from.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!original || fstat(original.get(), &copied.status) != 0)
        return errno;
    if (const int error = calls_.makeFolder(to, 0700))
        return error;
    const Descriptor copy(openat(to.folder, to.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!copy)
        return errno;
    int error = 0;
    const std::vector<QByteArray> names = namesIn(original.get(), error);
    for (const QByteArray &name : names) {
        if (error)
            return error;
        error = copyEntry({original.get(), name.constData()}, {copy.get(), name.constData()},
                          path + '/' + name, copied.entries.emplace_back());
    }
    if (!error)
        // Last, since every entry that is made changes a folder's times and needs the right to make it.
        error = copyMetadata(original.get(), copied.status, copy.get());
    // Once for all files: a wait for each of thousands takes minutes.
    return !error && to.folder == top_ ? calls_.syncVolume(copy.get()) : error;
}

int TreeCopy::copyLink(Place from, Place to, const CopiedEntry &copied) const {
    QByteArray target(copied.status.st_size + 1, '\0');
    const ssize_t size = readlinkat(from.folder, from.name, target.data(), std::size_t(target.size()));
    if (size < 0)
        return errno;
    target.truncate(size);
    if (const int error = calls_.makeLink(target.constData(), to))
        return error;
    return finish(to, copied.status);
}

int TreeCopy::copyNode(Place to, const CopiedEntry &copied) const {
    if (const int error = calls_.makeNode(to, copied.type() | 0600, copied.status.st_rdev))
        return error;
    if (const int error = finish(to, copied.status))
        return error;
    return fchmodat(to.folder, to.name, copied.status.st_mode & 0777, 0) == 0 ? 0 : errno;
}

/// Owner and times of what cannot be opened, as far as this user may set them.
int TreeCopy::finish(Place to, const struct stat &original) {
    if (fchownat(to.folder, to.name, original.st_uid, original.st_gid, AT_SYMLINK_NOFOLLOW) != 0 &&
        errno == EIO)
        return errno;
    const struct timespec times[] = {original.st_atim, original.st_mtim};
    return utimensat(to.folder, to.name, times, AT_SYMLINK_NOFOLLOW) != 0 && errno == EIO ? EIO : 0;
}

}  // namespace pimloft
