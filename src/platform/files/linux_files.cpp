// SPDX-License-Identifier: MIT
#include "platform/files/linux_files.h"

#include "platform/files/file_error.h"
#include "platform/files/no_replace_rename.h"
#include "platform/files/staged_tree.h"

#include <cerrno>
#include <fcntl.h>

namespace pimloft {

namespace {

Descriptor openFolder(const FileUrl &folder) {
    return Descriptor(open(folder.path().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

LinuxFiles::LinuxFiles(const FileCalls &calls) : calls_(calls) {
}

FileOutcome LinuxFiles::rename(const FileUrl &item, const FileUrl &newName) {
    const QByteArray name = newName.lastPathComponent();
    const Descriptor folder = openFolder(newName.folder());
    if (!folder)
        return fileOutcome(errno);
    const Place from{AT_FDCWD, item.path().constData()};
    const int error = renameNeverReplacing(calls_, from, {folder.get(), name.constData()});
    if (error == EINVAL && isInside(folder.get(), from))
        return intoItself();
    return fileOutcome(error);
}

FileService::Staged LinuxFiles::stage(const FileUrl &item, const FileUrl &folder,
                                      const IsCancelled &isCancelled) {
    Descriptor source = openFolder(item.folder());
    if (!source)
        return {nullptr, fileOutcome(errno)};
    Descriptor target = openFolder(folder);
    if (!target)
        return {nullptr, fileOutcome(errno)};
    const QByteArray name = item.lastPathComponent();
    // Also where another volume is mounted somewhere in the folder: the copy would never end.
    if (isInside(target.get(), {source.get(), name.constData()}))
        return {nullptr, intoItself()};
    auto copy = std::make_unique<StagedTree>(calls_, std::move(source), std::move(target));
    if (const int error = copy->make(name, isCancelled))
        return {nullptr, fileOutcome(error)};
    return {std::move(copy), std::nullopt};
}

}  // namespace pimloft
