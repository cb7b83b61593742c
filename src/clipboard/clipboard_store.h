// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"
#include "clipboard/history_file.h"
#include "clipboard/thumbnails.h"

#include <QObject>

#include <functional>
#include <future>
#include <vector>

namespace pimloft {

class PreferencesService;

/// The clipboard history, newest entry first, and the text that is looked for in it. Every change of the
/// entries is in the history file before the operation returns; a failure is reported on standard output and
/// the entries are kept. Main thread.
class ClipboardStore : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString searchQuery READ searchQuery WRITE setSearchQuery NOTIFY searchQueryChanged)

public:
    static ClipboardStore &shared();
    /// Reads the history that an earlier run left in `supportFolder`, which is made if need be. A long one is
    /// read on a thread; whoever asks for entries before that has ended waits for it.
    ClipboardStore(PreferencesService &defaults, const QString &supportFolder);

    /// Records a new copy on top, unless the newest entry holds the same. Unpinned entries with the same
    /// content go, and so do the oldest unpinned ones above the limit.
    void add(const ClipboardItem &item);
    void togglePin(const ClipboardItem &item);
    void remove(const ClipboardItem &item);
    /// Removes every entry that is not pinned.
    void removeAll();

    /// Writes the whole history.
    void saveToDisk();

    const std::vector<ClipboardItem> &items() const;

    const QString &searchQuery() const { return searchQuery_; }
    void setSearchQuery(const QString &query);

    /// The entries whose preview or source application holds the search text, in their order; all without
    /// one. Valid until the entries change.
    std::vector<const ClipboardItem *> filteredItems() const;

    /// The same text as the item's own; not worked out again for an entry of `items()`. A picture that turns
    /// out to be broken changes its preview once it has been decoded.
    QString preview(const ClipboardItem &item) const;
    /// The length of a text in characters as a reader counts them, nothing for another kind. Not worked out
    /// again for an entry of `items()`.
    std::optional<qsizetype> characterCount(const ClipboardItem &item) const;

    /// The small pictures of the entries.
    Thumbnails &thumbnails() { return thumbnails_; }

signals:
    void itemsChanged();
    void searchQueryChanged();

private:
    /// What is worked out from an entry.
    struct Derived {
        HistoryPlace place;  ///< unknown once the entry has changed
        /// The rest is made when it is first asked for.
        std::optional<QString> preview;
        std::optional<qsizetype> characters;
        QString searchablePreview;  ///< in lower case, as the next
        QString searchableSource;
    };
    struct Loaded {
        std::vector<ClipboardItem> items;
        std::optional<QString> failure;
    };
    void loadFromDisk();
    Loaded readFile() const;
    void take(Loaded loaded) const;
    /// Comes before any use of the entries.
    void awaitHistory() const;
    void enforceMaxItems();
    /// Answers whether any entry went.
    bool removeWhere(const std::function<bool(const ClipboardItem &)> &goes);
    const QString &preview(std::size_t index) const;
    std::optional<std::size_t> indexOf(const QUuid &id) const;
    QString workOutPreview(const ClipboardItem &item) const;
    void forgetThumbnails();
    void judgePicture(const QUuid &id);
    bool matches(std::size_t index, const QString &lowerCaseQuery) const;

    PreferencesService &defaults_;
    HistoryFile file_;
    mutable std::vector<ClipboardItem> items_;
    mutable std::vector<Derived> derived_;  ///< one for each entry, in their order
    mutable std::future<Loaded> loading_;   ///< invalid once the entries are there
    QString searchQuery_;
    mutable Thumbnails thumbnails_;
};

}  // namespace pimloft
