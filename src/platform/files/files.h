// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace pimloft {

/// What stands in the way of an operation on files.
enum class FileProblem {
    exists,        ///< something has that name already
    otherVolume,   ///< only a copy gets there
    noPermission,  ///< to read or to write
    noSpace,       ///< on the volume, or left to this user
    cancelled,
    other,
};

/// Why an operation failed. A value; any thread.
struct FileError {
    FileProblem problem;
    QString description;  ///< the system's words

    friend bool operator==(const FileError &, const FileError &) = default;
};

/// Nothing where it succeeded.
using FileOutcome = std::optional<FileError>;

/// A whole copy of a file or folder that has no name yet that a user would see. Goes away again unless it is
/// given one. To be used by one thread at a time.
class StagedCopy {
public:
    virtual ~StagedCopy() = default;

    /// Gives it a name in the folder that it was made for, in one step. Never replaces anything.
    virtual FileOutcome placeAs(const QByteArray &name) = 0;
    /// Removes what was copied, and nothing else: what has come or was changed in the meantime stays, and is
    /// an error. Stops at the first one.
    virtual FileOutcome removeOriginal() = 0;
};

/// The file system, in steps that are either done or not done at all, however the program ends. Any thread;
/// waits for the disk. Links are moved and copied, never followed.
class FileService {
public:
    virtual ~FileService() = default;

    /// Gives an item another name or folder on its volume, in one step. Never replaces anything.
    virtual FileOutcome rename(const FileUrl &item, const FileUrl &newName) = 0;

    /// Whether the work may be given up; asked often.
    using IsCancelled = std::function<bool()>;
    struct Staged {
        std::unique_ptr<StagedCopy> copy;  ///< null where there is an error
        FileOutcome error;
    };
    /// Copies an item with everything that belongs to it next to where it is to stand in `folder`, and has
    /// the disk write it. An error leaves nothing behind.
    virtual Staged stage(const FileUrl &item, const FileUrl &folder, const IsCancelled &isCancelled) = 0;
};

}  // namespace pimloft
