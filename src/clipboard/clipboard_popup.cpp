// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_popup.h"

#include "clipboard/clipboard_store.h"

namespace pimloft {

ClipboardPopup::ClipboardPopup(ClipboardStore &store, Thumbnails &thumbnails, WorkspaceService &workspace,
                               const Clock &clock, Actions actions)
    : store_(store), actions_(std::move(actions)), entries_(store, thumbnails, workspace, clock) {
    connect(&store, &ClipboardStore::searchQueryChanged, this, &ClipboardPopup::searchQueryChanged);
    connect(&store, &ClipboardStore::itemsChanged, this, &ClipboardPopup::countTextChanged);
}

QString ClipboardPopup::searchQuery() const {
    return store_.searchQuery();
}

void ClipboardPopup::setSearchQuery(const QString &query) {
    store_.setSearchQuery(query);
}

QString ClipboardPopup::emptyText() const {
    return searchQuery().isEmpty() ? tr("No clipboard history") : tr("No matches");
}

QString ClipboardPopup::countText() const {
    return tr("%n items", nullptr, int(store_.items().size()));
}

void ClipboardPopup::select(int row) {
    const auto item = entries_.itemAt(row);
    if (!item || selectedID_ == item->id)
        return;
    selectedID_ = item->id;
    emit selectedIDChanged();
}

void ClipboardPopup::paste(int row) {
    const auto item = entries_.itemAt(row);
    if (!item)
        return;
    actions_.onPaste(*item);
    actions_.onDismiss();
}

void ClipboardPopup::remove(int row) {
    if (const auto item = entries_.itemAt(row))
        store_.remove(*item);
}

void ClipboardPopup::togglePin(int row) {
    if (const auto item = entries_.itemAt(row))
        store_.togglePin(*item);
}

void ClipboardPopup::clearAll() {
    store_.removeAll();
}

void ClipboardPopup::dismiss() {
    actions_.onDismiss();
}

}  // namespace pimloft
