// SPDX-License-Identifier: MIT
#include "fake_files.h"

#include "fake_mac.h"

#include <cerrno>
#include <copyfile.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stdio.h>

namespace pimloft::test::mac {

namespace {

int copyStates = 0;

}  // namespace

FileSystem &fileSystem() {
    static FileSystem system;
    return system;
}

void resetFiles() {
    fileSystem() = {};
    copyStates = 0;
}

int liveCopyStates() {
    return copyStates;
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

struct _copyfile_state {
    copyfile_callback_t callback = nullptr;
    void *context = nullptr;
};

extern "C" {

copyfile_state_t copyfile_state_alloc(void) {
    ++copyStates;
    return new _copyfile_state;
}

int copyfile_state_free(copyfile_state_t state) {
    --copyStates;
    delete state;
    return 0;
}

int copyfile_state_set(copyfile_state_t state, std::uint32_t key, const void *value) {
    if (key == COPYFILE_STATE_STATUS_CB)
        state->callback = reinterpret_cast<copyfile_callback_t>(const_cast<void *>(value));
    else if (key == COPYFILE_STATE_STATUS_CTX)
        state->context = const_cast<void *>(value);
    else
        complain("copyfile_state_set: an unexpected key");
    return 0;
}

int copyfile(const char *from, const char *to, copyfile_state_t state, copyfile_flags_t flags) {
    namespace fs = std::filesystem;
    note("copy with flags " + hex(flags));
    std::error_code error;
    if (fs::exists(fs::symlink_status(to))) {
        errno = EEXIST;
        return -1;
    }
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (fileSystem().whileCopying)
        fileSystem().whileCopying();
    if (state->callback && state->callback(1, 1, state, from, to, state->context) == COPYFILE_QUIT)
        return -1;
    errno = error ? error.value() : fileSystem().copyError;
    return errno ? -1 : 0;
}

int renamex_np(const char *from, const char *to, unsigned flags) {
    if (flags != RENAME_EXCL)
        complain("renamex_np: would replace");
    note("rename without replacing");
    if (const int error = fileSystem().knowsExclusiveRename ? fileSystem().renameError : ENOTSUP) {
        errno = error;
        return -1;
    }
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
}

int sync_volume_np(const char *, int flags) {
    note("sync volume " + std::to_string(flags));
    return 0;
}

}  // extern "C"
