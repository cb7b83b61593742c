// SPDX-License-Identifier: MIT
#include "platform/files/linux_files.h"

#include "base/atomic_file.h"
#include "platform/files/no_replace_rename.h"
#include "platform/files/staged_tree.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <fcntl.h>

namespace pimloft {

namespace {

constexpr struct {
    int number;
    FileProblem problem;
} problems[] = {
    {EEXIST, FileProblem::exists},       {EXDEV, FileProblem::otherVolume},
    {EACCES, FileProblem::noPermission}, {EPERM, FileProblem::noPermission},
    {ENOSPC, FileProblem::noSpace},      {EDQUOT, FileProblem::noSpace},
    {ECANCELED, FileProblem::cancelled},
};

FileOutcome outcome(int number) {
    return number ? std::optional(fileError(number)) : std::nullopt;
}

FileError intoItself() {
    return {FileProblem::other,
            QCoreApplication::translate("Files", "A folder cannot be moved into itself.")};
}

Descriptor openFolder(const FileUrl &folder) {
    return Descriptor(open(folder.path().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

FileError fileError(int number) {
    for (const auto &each : problems)
        if (each.number == number)
            return {each.problem, errorText(number)};
    return {FileProblem::other, errorText(number)};
}

LinuxFiles::LinuxFiles(const FileCalls &calls) : calls_(calls) {
}

FileOutcome LinuxFiles::rename(const FileUrl &item, const FileUrl &newName) {
    const QByteArray name = newName.lastPathComponent();
    const Descriptor folder = openFolder(newName.folder());
    if (!folder)
        return outcome(errno);
    const Place from{AT_FDCWD, item.path().constData()};
    const int error = renameNeverReplacing(calls_, from, {folder.get(), name.constData()});
    if (error == EINVAL && isInside(folder.get(), from))
        return intoItself();
    return outcome(error);
}

FileService::Staged LinuxFiles::stage(const FileUrl &item, const FileUrl &folder,
                                      const IsCancelled &isCancelled) {
    Descriptor source = openFolder(item.folder());
    if (!source)
        return {nullptr, outcome(errno)};
    Descriptor target = openFolder(folder);
    if (!target)
        return {nullptr, outcome(errno)};
    const QByteArray name = item.lastPathComponent();
    // Also where another volume is mounted somewhere in the folder: the copy would never end.
    if (isInside(target.get(), {source.get(), name.constData()}))
        return {nullptr, intoItself()};
    auto copy = std::make_unique<StagedTree>(calls_, std::move(source), std::move(target));
    if (const int error = copy->make(name, isCancelled))
        return {nullptr, outcome(error)};
    return {std::move(copy), std::nullopt};
}

}  // namespace pimloft
