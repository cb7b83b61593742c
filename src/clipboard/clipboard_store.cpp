// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_store.h"

#include "app/process.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "base/atomic_file.h"
#include "platform/preferences/preferences.h"

#include <algorithm>

namespace pimloft {

namespace {

constexpr qint64 usualMaxItems = 50;

}  // namespace

ClipboardStore &ClipboardStore::shared() {
    return Process::current().shared<ClipboardStore>([](Process &process) {
        return std::make_unique<ClipboardStore>(SettingsManager::shared().defaults(), process.dirs().support);
    });
}

ClipboardStore::ClipboardStore(PreferencesService &defaults, const QString &supportFolder)
    : defaults_(defaults), storageURL_(supportFolder + QStringLiteral("/clipboard_history.json")) {
    makePrivateFolder(supportFolder);
    loadFromDisk();
}

ClipboardStore::~ClipboardStore() = default;

void ClipboardStore::add(const ClipboardItem &item) {
    if (!items_.empty() && items_.front().content == item.content)
        return;
    const ClipboardItem added = item;
    std::erase_if(items_,
                  [&](const ClipboardItem &each) { return !each.isPinned && each.content == added.content; });
    items_.insert(items_.begin(), added);
    enforceMaxItems();
    emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::togglePin(const ClipboardItem &item) {
    const auto found = std::find(items_.begin(), items_.end(), item);
    if (found == items_.end())
        return;
    found->isPinned = !found->isPinned;
    emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::remove(const ClipboardItem &item) {
    const QUuid id = item.id;
    if (std::erase_if(items_, [&](const ClipboardItem &each) { return each.id == id; }) > 0)
        emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::removeAll() {
    if (std::erase_if(items_, [](const ClipboardItem &each) { return !each.isPinned; }) > 0)
        emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::enforceMaxItems() {
    const qint64 stored = defaults_.integer(SettingsKeys::clipboardMaxItems);
    const qint64 max = stored == 0 ? usualMaxItems : stored;
    const qint64 pinnedCount =
        std::count_if(items_.begin(), items_.end(), [](const ClipboardItem &each) { return each.isPinned; });
    const qint64 allowedUnpinned = max - pinnedCount;
    qint64 unpinned = 0;
    std::erase_if(items_,
                  [&](const ClipboardItem &each) { return !each.isPinned && ++unpinned > allowedUnpinned; });
}

void ClipboardStore::setSearchQuery(const QString &query) {
    if (searchQuery_ == query)
        return;
    searchQuery_ = query;
    emit searchQueryChanged();
}

std::vector<const ClipboardItem *> ClipboardStore::filteredItems() const {
    const QString query = searchQuery_.toLower();
    std::vector<const ClipboardItem *> found;
    for (const ClipboardItem &item : items_)
        if (query.isEmpty() || preview(item).toLower().contains(query) ||
            item.sourceApp.toLower().contains(query))
            found.push_back(&item);
    return found;
}

QString ClipboardStore::preview(const ClipboardItem &item) const {
    return item.preview();
}

void ClipboardStore::saveToDisk() {
}

void ClipboardStore::loadFromDisk() {
}

}  // namespace pimloft
