// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

#include <sys/stat.h>

#include <string>
#include <vector>

namespace pimloft {

/// Gives a file or folder another name in one step; EEXIST where something has it. Zero or the error number.
/// A file system that cannot do that in one step is asked first. Any thread.
int renameWithoutReplacing(const std::string &from, const std::string &to);

/// A copy under a hidden name, ".NAME.part-" and six letters, in the folder that it is for. Such a name stays
/// behind only when the program is killed.
class MacStagedCopy final : public StagedCopy {
public:
    MacStagedCopy(std::string original, std::string folder);
    ~MacStagedCopy() override;

    /// Zero or the error number.
    int make(const FileService::IsCancelled &isCancelled);

    FileOutcome placeAs(const QByteArray &name) override;
    FileOutcome removeOriginal() override;

private:
    /// One thing as it was before it was copied.
    struct Entry {
        std::string path;
        struct stat status {};
        qint64 modified = 0;  ///< milliseconds
    };
    static Entry look(const std::string &path);
    static bool isStill(const Entry &entry);
    int record();

    const std::string original_;
    const std::string folder_;
    std::vector<Entry> entries_;  ///< a folder before what is in it
    std::string hidden_;          ///< empty while there is nothing under it
};

}  // namespace pimloft
