// SPDX-License-Identifier: MIT
#include "platform/files/mac_files.h"

#include "platform/files/file_error.h"
#include "platform/files/mac_staged_copy.h"

#include <QFileInfo>

#include <cerrno>

namespace pimloft {

namespace {

/// Whether `folder` is `item` or lies somewhere in it, links on the way followed.
bool isInside(const FileUrl &folder, const FileUrl &item) {
    const auto canonical = [](const FileUrl &url) {
        return QFileInfo(QFile::decodeName(url.path())).canonicalFilePath() + QLatin1Char('/');
    };
    return !QFileInfo(QFile::decodeName(item.path())).isSymLink() &&
           canonical(folder).startsWith(canonical(item));
}

}  // namespace

FileOutcome MacFiles::rename(const FileUrl &item, const FileUrl &newName) {
    if (isInside(newName.folder(), item))
        return intoItself();
    return fileOutcome(renameWithoutReplacing(item.path().toStdString(), newName.path().toStdString()));
}

FileService::Staged MacFiles::stage(const FileUrl &item, const FileUrl &folder,
                                    const IsCancelled &isCancelled) {
    if (isInside(folder, item))
        return {nullptr, intoItself()};
    auto copy = std::make_unique<MacStagedCopy>(item.path().toStdString(), folder.path().toStdString());
    if (const int error = copy->make(isCancelled))
        return {nullptr, fileOutcome(error)};
    return {std::move(copy), std::nullopt};
}

}  // namespace pimloft
