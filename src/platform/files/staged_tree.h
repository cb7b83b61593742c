// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/copied_entry.h"
#include "platform/files/descriptor.h"
#include "platform/files/files.h"

namespace pimloft {

class FileCalls;

/// A copy under a hidden name, ".NAME.part-" and six letters, in the folder that it is for. Such a name stays
/// behind only when the program is killed.
class StagedTree final : public StagedCopy {
public:
    /// From an entry of `source` to one of `target`, both open.
    StagedTree(const FileCalls &calls, Descriptor source, Descriptor target);
    ~StagedTree() override;

    /// Copies the entry `name`. Zero or the error number.
    int make(const QByteArray &name, const FileService::IsCancelled &isCancelled);

    FileOutcome placeAs(const QByteArray &name) override;
    FileOutcome removeOriginal() override;

private:
    const FileCalls &calls_;
    Descriptor source_;
    Descriptor target_;
    CopiedEntry original_;
    QByteArray hiddenName_;  ///< empty while there is nothing under it
};

}  // namespace pimloft
