// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/file_calls.h"

#include <functional>
#include <string>

namespace pimloft::test {

/// The system calls with a fault put in; otherwise those of this computer.
class FaultyCalls final : public FileCalls {
public:
    /// Asked before each call, by its name and the entry that it is about; answers an error number, or zero
    /// for a call that is carried out.
    std::function<int(const std::string &call, const std::string &name)> fault = [](auto &, auto &) {
        return 0;
    };
    /// Called before a call is carried out.
    std::function<void(const std::string &call)> before = [](auto &) {};

    int renameWithoutReplacing(Place from, Place to) const override {
        return either("renameat2", from.name, [&] { return FileCalls::renameWithoutReplacing(from, to); });
    }
    int rename(Place from, Place to) const override {
        return either("rename", from.name, [&] { return FileCalls::rename(from, to); });
    }
    int link(Place from, Place to) const override {
        return either("link", to.name, [&] { return FileCalls::link(from, to); });
    }
    int makeFolder(Place place, mode_t mode) const override {
        return either("mkdir", place.name, [&] { return FileCalls::makeFolder(place, mode); });
    }
    int makeLink(const char *target, Place place) const override {
        return either("symlink", place.name, [&] { return FileCalls::makeLink(target, place); });
    }
    int makeNode(Place place, mode_t mode, dev_t device) const override {
        return either("mknod", place.name, [&] { return FileCalls::makeNode(place, mode, device); });
    }
    int makeFile(Place place, mode_t mode, int &descriptor) const override {
        return either("create", place.name, [&] { return FileCalls::makeFile(place, mode, descriptor); });
    }
    int removeFile(Place place) const override {
        return either("unlink", place.name, [&] { return FileCalls::removeFile(place); });
    }
    int removeFolder(Place place) const override {
        return either("rmdir", place.name, [&] { return FileCalls::removeFolder(place); });
    }
    int copyRange(int from, int to, off_t position, std::size_t &count) const override {
        return either("copy_file_range", "", [&] { return FileCalls::copyRange(from, to, position, count); });
    }
    int write(int to, const char *bytes, std::size_t count, off_t position) const override {
        return either("write", "", [&] { return FileCalls::write(to, bytes, count, position); });
    }
    int sync(int descriptor) const override {
        return either("fsync", "", [&] { return FileCalls::sync(descriptor); });
    }
    int syncVolume(int descriptor) const override {
        return either("syncfs", "", [&] { return FileCalls::syncVolume(descriptor); });
    }

private:
    template <typename Call>
    int either(const char *call, const char *name, Call carryOut) const {
        before(call);
        const int error = fault(call, name);
        return error ? error : carryOut();
    }
};

}  // namespace pimloft::test
