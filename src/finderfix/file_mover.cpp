// SPDX-License-Identifier: MIT
#include "finderfix/file_mover.h"

#include "finderfix/unique_name.h"

namespace pimloft {

namespace {

/// Tries one name after the other. Whether one is free is only known by taking it.
template <typename Take>
FileOutcome takeFirstFree(const QByteArray &name, Take take) {
    for (int number = 1;; ++number) {
        FileOutcome outcome = take(uniqueName(name, number));
        if (!outcome || outcome->problem != FileProblem::exists)
            return outcome;
    }
}

}  // namespace

FileOutcome FileMover::move(const FileUrl &item, const FileUrl &folder,
                            const FileService::IsCancelled &isCancelled) const {
    FileOutcome outcome = takeFirstFree(item.lastPathComponent(), [&](const QByteArray &name) {
        return files_.rename(item, folder.appending(name));
    });
    const bool isElsewhere = outcome && outcome->problem == FileProblem::otherVolume;
    return isElsewhere ? moveToOtherVolume(item, folder, isCancelled) : outcome;
}

FileOutcome FileMover::moveToOtherVolume(const FileUrl &item, const FileUrl &folder,
                                         const FileService::IsCancelled &isCancelled) const {
    const FileService::Staged staged = files_.stage(item, folder, isCancelled);
    if (staged.error)
        return staged.error;
    const FileOutcome outcome = takeFirstFree(
        item.lastPathComponent(), [&](const QByteArray &name) { return staged.copy->placeAs(name); });
    return outcome ? outcome : staged.copy->removeOriginal();
}

}  // namespace pimloft
