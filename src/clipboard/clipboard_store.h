// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <QObject>

#include <memory>
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
    /// Reads the history that an earlier run left in `supportFolder`, which is made if need be.
    ClipboardStore(PreferencesService &defaults, const QString &supportFolder);
    ~ClipboardStore() override;

    /// Records a new copy on top, unless the newest entry holds the same. Unpinned entries with the same
    /// content go, and so do the oldest unpinned ones above the limit.
    void add(const ClipboardItem &item);
    void togglePin(const ClipboardItem &item);
    void remove(const ClipboardItem &item);
    /// Removes every entry that is not pinned.
    void removeAll();

    /// Writes the whole history.
    void saveToDisk();

    const std::vector<ClipboardItem> &items() const { return items_; }

    const QString &searchQuery() const { return searchQuery_; }
    void setSearchQuery(const QString &query);

    /// The entries whose preview or source application holds the search text, in their order; all without
    /// one. Valid until the entries change.
    std::vector<const ClipboardItem *> filteredItems() const;

    /// The same text as the item's own; not worked out again for an entry of `items()`.
    QString preview(const ClipboardItem &item) const;

signals:
    void itemsChanged();
    void searchQueryChanged();

private:
    void loadFromDisk();
    void enforceMaxItems();

    PreferencesService &defaults_;
    QString storageURL_;
    std::vector<ClipboardItem> items_;
    QString searchQuery_;
};

}  // namespace pimloft
