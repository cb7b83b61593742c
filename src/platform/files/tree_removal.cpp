// SPDX-License-Identifier: MIT
#include "platform/files/tree_removal.h"

#include "platform/files/descriptor.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace pimloft {

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { closedir(folder); }
};

}  // namespace

std::vector<QByteArray> namesIn(int folder, int &error) {
    std::vector<QByteArray> names;
    const int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, CloseFolder> stream(own < 0 ? nullptr : fdopendir(own));
    if (!stream) {
        error = errno;
        return names;
    }
    errno = 0;
    while (const dirent *entry = readdir(stream.get()))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    error = errno;
    return names;
}

int removeCopied(const FileCalls &calls, int folder, const CopiedEntry &entry) {
    const Place place{folder, entry.name.constData()};
    struct stat now {};
    if (fstatat(folder, place.name, &now, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? 0 : errno;
    if (!entry.isStill(now))
        return EBUSY;
    if (entry.type() != S_IFDIR)
        return calls.removeFile(place);
    const Descriptor opened(openat(folder, place.name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!opened || fstat(opened.get(), &now) != 0)
        return errno;
    if (!entry.isStill(now))
        return EBUSY;
    for (const CopiedEntry &each : entry.entries)
        if (const int error = removeCopied(calls, opened.get(), each))
            return error;
    return calls.removeFolder(place);
}

void removeTree(const FileCalls &calls, Place place) {
    const auto open = [place] {
        return Descriptor(openat(place.folder, place.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    };
    Descriptor folder = open();
    // One that already has its final mode may be closed to ourselves.
    if (!folder && errno == EACCES && fchmodat(place.folder, place.name, 0700, 0) == 0)
        folder = open();
    if (!folder) {
        calls.removeFile(place);
        return;
    }
    fchmod(folder.get(), 0700);
    int error = 0;
    for (const QByteArray &name : namesIn(folder.get(), error))
        removeTree(calls, {folder.get(), name.constData()});
    calls.removeFolder(place);
}

}  // namespace pimloft
