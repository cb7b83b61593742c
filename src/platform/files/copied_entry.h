// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <sys/stat.h>
#include <vector>

namespace pimloft {

/// An entry of a folder as it was when it was copied. A value.
struct CopiedEntry {
    QByteArray name;
    struct stat status {};
    std::vector<CopiedEntry> entries;  ///< of a folder

    /// Whether this is still the same thing, with the same content.
    bool isStill(const struct stat &now) const {
        if (now.st_dev != status.st_dev || now.st_ino != status.st_ino || (now.st_mode & S_IFMT) != type())
            return false;
        return type() == S_IFDIR ||
               (now.st_size == status.st_size && now.st_mtim.tv_sec == status.st_mtim.tv_sec &&
                now.st_mtim.tv_nsec == status.st_mtim.tv_nsec);
    }
    mode_t type() const { return status.st_mode & S_IFMT; }
};

}  // namespace pimloft
