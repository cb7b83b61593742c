// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

namespace pimloft {

/// The file system of this computer, through the system's own copier, which knows what belongs to a file.
class MacFiles final : public FileService {
public:
    FileOutcome rename(const FileUrl &item, const FileUrl &newName) override;
    Staged stage(const FileUrl &item, const FileUrl &folder, const IsCancelled &isCancelled) override;
};

}  // namespace pimloft
