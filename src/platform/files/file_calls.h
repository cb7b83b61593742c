// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace pimloft {

/// An entry of a folder as system calls take it. `name` outlives the call.
struct Place {
    int folder;
    const char *name;
};

/// The system calls that change the file system; a test puts its own in the way. Each answers zero or the
/// error number. Any thread.
class FileCalls {
public:
    virtual ~FileCalls() = default;

    /// Fails with EEXIST where something has that name. Not every file system can do it: EINVAL, ENOSYS.
    virtual int renameWithoutReplacing(Place from, Place to) const;
    virtual int rename(Place from, Place to) const;
    virtual int link(Place from, Place to) const;
    virtual int makeFolder(Place place, mode_t mode) const;
    virtual int makeLink(const char *target, Place place) const;
    virtual int makeNode(Place place, mode_t mode, dev_t device) const;
    /// Makes a file that was not there, for writing.
    virtual int makeFile(Place place, mode_t mode, int &descriptor) const;
    virtual int removeFile(Place place) const;
    virtual int removeFolder(Place place) const;

    /// Without bytes going through this process. `count` is what is wanted, then what was copied.
    virtual int copyRange(int from, int to, off_t position, std::size_t &count) const;
    /// All of it.
    virtual int write(int to, const char *bytes, std::size_t count, off_t position) const;

    /// Returns when the disk has it.
    virtual int sync(int descriptor) const;
    virtual int syncVolume(int descriptor) const;
};

}  // namespace pimloft
