// SPDX-License-Identifier: MIT
#include "platform/files/file_content.h"

#include <cerrno>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

constexpr std::size_t bufferSize = 256 * 1024;
/// Between two looks at whether the copy is still wanted.
constexpr std::size_t stride = 8 * 1024 * 1024;

/// Copies parts of a file, without taking them through this process for as long as the file systems agree.
class ContentCopy {
public:
    ContentCopy(const FileCalls &calls, int from, int to, const std::function<bool()> &isCancelled)
        : calls_(calls), from_(from), to_(to), isCancelled_(isCancelled) {}

    int copy(off_t begin, off_t end) {
        while (begin < end) {
            if (isCancelled_())
                return ECANCELED;
            std::size_t count = std::size_t(std::min<off_t>(end - begin, stride));
            if (const int error = copySome(begin, count))
                return error;
            // Cut off behind our back; whoever removes the original will see that it has changed.
            if (count == 0)
                return 0;
            begin += off_t(count);
        }
        return 0;
    }

private:
    int copySome(off_t position, std::size_t &count) {
        if (directly_) {
            const std::size_t wanted = count;
            const int error = calls_.copyRange(from_, to_, position, count);
            if (!error && count > 0)
                return 0;
            directly_ = error == EINTR;
            count = wanted;
            // What a full disk says counts. Everything else may only mean that this way is none.
            if (error == ENOSPC || error == EDQUOT)
                return error;
        }
        if (!buffer_)
            buffer_ = std::make_unique<char[]>(bufferSize);
        ssize_t got = 0;
        do
            got = pread(from_, buffer_.get(), std::min(count, bufferSize), position);
        while (got < 0 && errno == EINTR);
        if (got < 0)
            return errno;
        count = std::size_t(got);
        return calls_.write(to_, buffer_.get(), count, position);
    }

    const FileCalls &calls_;
    const int from_;
    const int to_;
    const std::function<bool()> &isCancelled_;
    bool directly_ = true;
    std::unique_ptr<char[]> buffer_;
};

}  // namespace

int copyContent(const FileCalls &calls, int from, int to, const std::function<bool()> &isCancelled) {
    struct stat status {};
    if (fstat(from, &status) != 0)
        return errno;
    ContentCopy content(calls, from, to, isCancelled);
    // Some file systems do not know the size before they are read.
    if (status.st_size == 0)
        return content.copy(0, std::numeric_limits<off_t>::max());
    for (off_t hole = 0; hole < status.st_size;) {
        off_t data = lseek(from, hole, SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            break;
        if (data < 0)
            data = hole;
        hole = lseek(from, data, SEEK_HOLE);
        if (hole < 0)
            hole = status.st_size;
        if (const int error = content.copy(data, hole))
            return error;
    }
    return ftruncate(to, status.st_size) == 0 ? 0 : errno;
}

}  // namespace pimloft
