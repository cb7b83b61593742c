// SPDX-License-Identifier: MIT
#include "platform/files/staged_tree.h"

#include "platform/files/file_error.h"
#include "platform/files/no_replace_rename.h"
#include "platform/files/tree_copy.h"
#include "platform/files/tree_removal.h"

#include <QRandomGenerator>

#include <cerrno>
#include <fcntl.h>

namespace pimloft {

namespace {

/// The name's part is cut where the whole would be longer than a name may be.
QByteArray hiddenNameFor(const QByteArray &name) {
    constexpr qsizetype longest = 200;
    QByteArray result = '.' + name.left(longest) + ".part-";
    for (int letter = 0; letter < 6; ++letter)
        result += char('a' + QRandomGenerator::global()->bounded(26));
    return result;
}

bool isTaken(int folder, const QByteArray &name) {
    struct stat status {};
    return fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace

StagedTree::StagedTree(const FileCalls &calls, Descriptor source, Descriptor target)
    : calls_(calls), source_(std::move(source)), target_(std::move(target)) {
}

StagedTree::~StagedTree() {
    if (!hiddenName_.isEmpty())
        removeTree(calls_, {target_.get(), hiddenName_.constData()});
}

int StagedTree::make(const QByteArray &name, const FileService::IsCancelled &isCancelled) {
    do
        hiddenName_ = hiddenNameFor(name);
    while (isTaken(target_.get(), hiddenName_));
    TreeCopy copy(calls_, isCancelled);
    return copy.copy({source_.get(), name.constData()}, {target_.get(), hiddenName_.constData()}, original_);
}

FileOutcome StagedTree::placeAs(const QByteArray &name) {
    const int error = renameNeverReplacing(calls_, {target_.get(), hiddenName_.constData()},
                                           {target_.get(), name.constData()});
    if (error)
        return fileOutcome(error);
    hiddenName_.clear();
    // The name is to outlive the original when the power fails. A folder that may not be read cannot be told.
    const Descriptor folder(openat(target_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder)
        calls_.sync(folder.get());
    return std::nullopt;
}

FileOutcome StagedTree::removeOriginal() {
    return fileOutcome(removeCopied(calls_, source_.get(), original_));
}

}  // namespace pimloft
