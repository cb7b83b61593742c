// SPDX-License-Identifier: MIT
#include "clipboard/history_output.h"

#include "base/atomic_file.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace pimloft {

namespace {
constexpr qsizetype capacity = 2 * HistoryOutput::largestRoom;
}  // namespace

HistoryOutput::HistoryOutput(int descriptor)
    : descriptor_(descriptor), buffer_(std::make_unique_for_overwrite<char[]>(capacity)) {
}

void HistoryOutput::append(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qsizetype part = std::min(bytes.size(), largestRoom);
        advance(std::copy_n(bytes.data(), part, room(part)));
        bytes = bytes.sliced(part);
    }
}

char *HistoryOutput::room(qsizetype bytes) {
    if (capacity - used_ < bytes)
        flush();
    return buffer_.get() + used_;
}

void HistoryOutput::copyFrom(int source, qint64 offset, qint64 size) {
    while (size > 0 && error_ == 0) {
        char *const to = room(largestRoom);
        const ssize_t got =
            pread(source, to, std::size_t(std::min<qint64>(size, largestRoom)), off_t(offset));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            error_ = got == 0 ? EIO : errno;
            return;
        }
        advance(to + got);
        offset += got;
        size -= got;
    }
}

int HistoryOutput::flush() {
    if (error_ == 0)
        error_ = writeFully(descriptor_, {buffer_.get(), used_});
    written_ += used_;
    used_ = 0;
    return error_;
}

}  // namespace pimloft
