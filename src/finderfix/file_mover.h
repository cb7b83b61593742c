// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

namespace pimloft {

/// Moves one file or folder into a folder, under the first name that is free there; also onto another volume.
/// Any thread; waits for the disk.
class FileMover {
public:
    explicit FileMover(FileService &files) : files_(files) {}

    /// Nothing on success. After an error the item is where it was; it is also in the folder when only its
    /// removal failed.
    FileOutcome move(const FileUrl &item, const FileUrl &folder,
                     const FileService::IsCancelled &isCancelled) const;

private:
    FileOutcome moveToOtherVolume(const FileUrl &item, const FileUrl &folder,
                                  const FileService::IsCancelled &isCancelled) const;

    FileService &files_;
};

}  // namespace pimloft
