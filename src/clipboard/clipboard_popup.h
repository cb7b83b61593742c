// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/entry_list.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <optional>

namespace pimloft {

/// What the popup with the history shows, and what its view may ask for. Made anew for every popup. Main
/// thread.
class ClipboardPopup : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString searchQuery READ searchQuery WRITE setSearchQuery NOTIFY searchQueryChanged)
    Q_PROPERTY(QAbstractItemModel *entries READ entries CONSTANT)
    Q_PROPERTY(QString selectedID READ selectedText NOTIFY selectedIDChanged)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY searchQueryChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY countTextChanged)

public:
    /// What happens when an entry is to be pasted, and when the popup is to go.
    struct Actions {
        std::function<void(const ClipboardItem &)> onPaste;
        std::function<void()> onDismiss;
    };
    ClipboardPopup(ClipboardStore &store, Thumbnails &thumbnails, WorkspaceService &workspace,
                   const Clock &clock, Actions actions);

    QString searchQuery() const;
    void setSearchQuery(const QString &query);

    QAbstractItemModel *entries() { return &entries_; }
    /// What stands in place of an empty list.
    QString emptyText() const;
    /// The number of entries in the history, in words.
    QString countText() const;

    std::optional<QUuid> selectedID() const { return selectedID_; }
    /// Several entries cannot be selected: this is always empty.
    const QSet<QUuid> &selectedIDs() const { return selectedIDs_; }

    /// Rows that are no longer there are passed over.
    Q_INVOKABLE void select(int row);
    /// Pastes the entry and then dismisses the popup.
    Q_INVOKABLE void paste(int row);
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void togglePin(int row);
    /// Removes what is not pinned.
    Q_INVOKABLE void clearAll();
    Q_INVOKABLE void dismiss();

signals:
    void searchQueryChanged();
    void selectedIDChanged();
    void countTextChanged();

private:
    QString selectedText() const { return selectedID_ ? selectedID_->toString() : QString(); }

    ClipboardStore &store_;
    const Actions actions_;
    EntryList entries_;
    std::optional<QUuid> selectedID_;
    const QSet<QUuid> selectedIDs_;
};

}  // namespace pimloft
