// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <functional>
#include <vector>

namespace pimloft {

/// Where an entry's encoded form lies in the history file that was written last. A value.
struct HistoryPlace {
    qint64 offset = -1;
    qint64 size = 0;

    bool isKnown() const { return offset >= 0; }
};

/// The file that the history is kept in. Main thread.
///
/// Each time it is written whole. Entries that are as they were are copied from the file before, in as few
/// ranges as possible, so that writing costs the encoding of what is new and one pass over the file. That
/// file is kept open; when anybody else has touched it, everything is encoded anew.
class HistoryFile {
public:
    /// Removes what an earlier run has left half written.
    explicit HistoryFile(QString path);
    ~HistoryFile();
    HistoryFile(const HistoryFile &) = delete;
    HistoryFile &operator=(const HistoryFile &) = delete;

    /// An entry to be written; its place is brought up to date when the file is complete.
    struct Entry {
        const ClipboardItem &item;
        HistoryPlace &place;
    };
    using EntryAt = std::function<Entry(std::size_t)>;

    /// Replaces the file by these many entries. On failure the file is as it was, and the answer says why.
    std::optional<QString> save(std::size_t count, const EntryAt &entry);

    /// Bytes; zero when there is no file.
    qint64 size() const;
    /// Replaces `items` by the file's entries, unless there is no file. On failure `items` is as it was, and
    /// the answer says why. Any thread, while nothing is saved.
    std::optional<QString> load(std::vector<ClipboardItem> &items) const;

private:
    /// Tells whether a file is still the one that was written.
    struct Fingerprint {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 modified = 0;  ///< nanoseconds, and so is the next
        qint64 changed = 0;

        friend bool operator==(const Fingerprint &, const Fingerprint &) = default;
    };
    static std::optional<Fingerprint> fingerprint(int descriptor);
    std::optional<QString> write(std::size_t count, const EntryAt &entry, int source);
    void keep(const Fingerprint &written);
    bool isLastStillThere() const;

    const QString path_;
    int last_ = -1;  ///< the file that was written last
    Fingerprint lastFingerprint_;
};

}  // namespace pimloft
