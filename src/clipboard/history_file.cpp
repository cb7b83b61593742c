// SPDX-License-Identifier: MIT
#include "clipboard/history_file.h"

#include "base/atomic_file.h"
#include "base/file_times.h"
#include "clipboard/history_encoder.h"
#include "clipboard/history_output.h"
#include "clipboard/history_reader.h"

#include <QFile>
#include <QFileInfo>
#include <QThreadPool>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// Writes entries one after the other, from the last file where they lie in it.
class HistoryWriter {
public:
    /// Nothing is copied from a `source` below zero.
    HistoryWriter(int source, int descriptor) : source_(source), output_(descriptor) { output_.append('['); }

    std::optional<QString> add(const ClipboardItem &item, HistoryPlace place) {
        const bool copies = source_ >= 0 && place.isKnown();
        // Neighbours stay neighbours, with the comma between them.
        if (copies && range_.isKnown() && place.offset == range_.offset + range_.size + 1) {
            range_.size += 1 + place.size;
            places.push_back({output_.position() + range_.size - place.size, place.size});
            return std::nullopt;
        }
        copyRange();
        if (!places.empty())
            output_.append(',');
        const qint64 start = output_.position();
        if (copies) {
            range_ = place;
            places.push_back({start, place.size});
            return std::nullopt;
        }
        auto failure = encodeItem(item, output_);
        places.push_back({start, output_.position() - start});
        return failure;
    }

    std::optional<QString> finish() {
        copyRange();
        output_.append(']');
        const int error = output_.flush();
        return error ? std::optional(errorText(error)) : std::nullopt;
    }

    std::vector<HistoryPlace> places;  ///< of what has been added

private:
    void copyRange() {
        if (range_.isKnown())
            output_.copyFrom(source_, range_.offset, range_.size);
        range_ = {};
    }

    const int source_;
    HistoryOutput output_;
    HistoryPlace range_;  ///< to be copied, not yet part of the output
};

/// The file system then frees what a replaced file took up, which lasts tens of milliseconds for a long one.
void closeOnThread(int descriptor) {
    QThreadPool::globalInstance()->start([descriptor] { close(descriptor); });
}

int openFile(const QString &path) {
    // Not blocking: what is there need not be a file.
    return open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

/// A descriptor that is closed at the end of its scope.
struct Descriptor {
    explicit Descriptor(int number) : number(number) {}
    ~Descriptor() {
        if (number >= 0)
            close(number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    const int number;
};

qint64 nanoseconds(const timespec &time) {
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

HistoryFile::HistoryFile(QString path) : path_(std::move(path)) {
    removeAbandonedWrites(path_);
}

HistoryFile::~HistoryFile() {
    if (last_ >= 0)
        close(last_);
}

std::optional<QString> HistoryFile::save(std::size_t count, const EntryAt &entry) {
    if (isLastStillThere()) {
        auto failure = write(count, entry, last_);
        // Touched while it was copied from: then what has been written is not to be trusted.
        if (!failure || isLastStillThere())
            return failure;
    }
    return write(count, entry, -1);
}

std::optional<QString> HistoryFile::write(std::size_t count, const EntryAt &entry, int source) {
    std::vector<HistoryPlace> places;
    Fingerprint written;
    auto failure = writeAtomically(path_, [&](int descriptor) -> std::optional<QString> {
        HistoryWriter writer(source, descriptor);
        for (std::size_t index = 0; index < count; ++index) {
            const Entry each = entry(index);
            if (auto reason = writer.add(each.item, each.place))
                return reason;
        }
        if (auto reason = writer.finish())
            return reason;
        if (source >= 0 && !isLastStillThere())
            return errorText(ESTALE);
        places = std::move(writer.places);
        written = fingerprint(descriptor).value_or(Fingerprint{});
        return std::nullopt;
    });
    if (failure)
        return failure;
    for (std::size_t index = 0; index < count; ++index)
        entry(index).place = places[index];
    keep(written);
    return std::nullopt;
}

/// Opens what has just been written, unless something else has taken its place already.
void HistoryFile::keep(const Fingerprint &written) {
    if (last_ >= 0)
        closeOnThread(last_);
    last_ = openFile(path_);
    const auto now = fingerprint(last_);
    const bool isTheSame = now && now->inode == written.inode && now->device == written.device &&
                           now->size == written.size && now->modified == written.modified;
    lastFingerprint_ = isTheSame ? *now : Fingerprint{};
}

bool HistoryFile::isLastStillThere() const {
    return last_ >= 0 && fingerprint(last_) == lastFingerprint_;
}

std::optional<HistoryFile::Fingerprint> HistoryFile::fingerprint(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Fingerprint{quint64(status.st_dev), quint64(status.st_ino), status.st_size,
                       nanoseconds(modificationTime(status)), nanoseconds(changeTime(status))};
}

qint64 HistoryFile::size() const {
    return QFileInfo(path_).size();
}

std::optional<QString> HistoryFile::load(std::vector<ClipboardItem> &items) const {
    const Descriptor file(openFile(path_));
    struct stat status {};
    if (file.number < 0)
        return errno == ENOENT || errno == ENOTDIR ? std::nullopt : std::optional(errorText(errno));
    if (fstat(file.number, &status) != 0)
        return errorText(errno);
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? errorText(EISDIR) : QStringLiteral("It is not a file.");
    int error = 0;
    HistoryResult result = readHistory([&](char *to, qint64 size) -> qint64 {
        ssize_t got = 0;
        do {
            got = read(file.number, to, std::size_t(size));
        } while (got < 0 && errno == EINTR);
        if (got < 0)
            error = errno;
        return got;
    });
    if (error)
        return errorText(error);
    if (const QString *reason = std::get_if<QString>(&result))
        return *reason;
    items = std::get<std::vector<ClipboardItem>>(std::move(result));
    return std::nullopt;
}

}  // namespace pimloft
