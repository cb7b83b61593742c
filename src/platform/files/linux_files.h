// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/file_calls.h"
#include "platform/files/file_error.h"
#include "platform/files/files.h"

namespace pimloft {

/// The file system of this computer.
class LinuxFiles final : public FileService {
public:
    /// `calls` outlives the service and the copies that it makes.
    explicit LinuxFiles(const FileCalls &calls);

    FileOutcome rename(const FileUrl &item, const FileUrl &newName) override;
    Staged stage(const FileUrl &item, const FileUrl &folder, const IsCancelled &isCancelled) override;

private:
    const FileCalls &calls_;
};

}  // namespace pimloft
