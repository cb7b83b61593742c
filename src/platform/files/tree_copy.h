// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/copied_entry.h"
#include "platform/files/file_calls.h"

#include <functional>
#include <map>
#include <utility>

namespace pimloft {

/// Copies one item with all that is in it: content, holes, links, several names of one file, and what
/// `copyMetadata` copies. One for each copy; any thread.
class TreeCopy {
public:
    TreeCopy(const FileCalls &calls, std::function<bool()> isCancelled);

    /// Makes `to`, which must not be there, and returns when the disk has it. Zero and what was copied in
    /// `copied`, or an error number and perhaps a part of the copy.
    int copy(Place from, Place to, CopiedEntry &copied);

private:
    int copyEntry(Place from, Place to, const QByteArray &path, CopiedEntry &copied);
    int copyFile(Place from, Place to, const QByteArray &path, CopiedEntry &copied);
    int copyFolder(Place from, Place to, const QByteArray &path, CopiedEntry &copied);
    int copyLink(Place from, Place to, const CopiedEntry &copied) const;
    int copyNode(Place to, const CopiedEntry &copied) const;
    static int finish(Place to, const struct stat &original);

    const FileCalls &calls_;
    const std::function<bool()> isCancelled_;
    int top_ = -1;  ///< the folder that the copy stands in
    /// Where in it the first name of a file was copied to that has several.
    std::map<std::pair<dev_t, ino_t>, QByteArray> manyNamed_;
};

}  // namespace pimloft
