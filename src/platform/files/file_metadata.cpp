// SPDX-License-Identifier: MIT
#include "platform/files/file_content.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// Whether this is no quirk of the other file system but a loss that must not go unnoticed.
bool isGrave(int error) {
    return error == ENOSPC || error == EDQUOT || error == EIO;
}

/// Calls `read` with growing room until all of it fits. Empty where there is nothing to be had.
template <typename Read>
std::string readWhole(Read read) {
    std::string bytes;
    ssize_t size = read(nullptr, 0);
    while (size > 0) {
        bytes.resize(std::size_t(size));
        size = read(bytes.data(), bytes.size());
        if (size >= 0) {
            bytes.resize(std::size_t(size));
            return bytes;
        }
        size = errno == ERANGE ? read(nullptr, 0) : 0;
    }
    return {};
}

int copyAttributes(int from, int to) {
    const std::string names =
        readWhole([from](char *into, std::size_t size) { return flistxattr(from, into, size); });
    for (const char *name = names.c_str(); name < names.c_str() + names.size();
         name += std::strlen(name) + 1) {
        const std::string value = readWhole(
            [from, name](char *into, std::size_t size) { return fgetxattr(from, name, into, size); });
        if (fsetxattr(to, name, value.data(), value.size(), 0) != 0 && isGrave(errno))
            return errno;
    }
    return 0;
}

/// What stays of the mode: no rights of an owner or group that the copy could not be given.
mode_t modeFor(const struct stat &original, int to) {
    struct stat copy {};
    mode_t mode = original.st_mode & 07777;
    if (fstat(to, &copy) != 0 || copy.st_uid != original.st_uid)
        mode &= ~mode_t(S_ISUID);
    if (copy.st_gid != original.st_gid)
        mode &= ~mode_t(S_ISGID);
    return mode;
}

}  // namespace

int copyMetadata(int from, const struct stat &original, int to) {
    // The group may be one of ours where the owner is somebody else.
    if (fchown(to, original.st_uid, original.st_gid) != 0 && fchown(to, uid_t(-1), original.st_gid) != 0 &&
        isGrave(errno))
        return errno;
    if (const int error = copyAttributes(from, to))
        return error;
    if (fchmod(to, modeFor(original, to)) != 0 && isGrave(errno))
        return errno;
    const struct timespec times[] = {original.st_atim, original.st_mtim};
    if (futimens(to, times) != 0 && isGrave(errno))
        return errno;
    return 0;
}

}  // namespace pimloft
