// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_store.h"

#include "app/process.h"
#include "app/settings_manager.h"
#include "base/atomic_file.h"
#include "base/console.h"
#include "clipboard/clipboard_preferences.h"
#include "clipboard/clipboard_preview.h"
#include "clipboard/text_length.h"

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

/// Bytes of a history file that are read within a few milliseconds.
constexpr qint64 shortHistory = 2 << 20;

}  // namespace

ClipboardStore &ClipboardStore::shared() {
    return Process::current().shared<ClipboardStore>([](Process &process) {
        return std::make_unique<ClipboardStore>(SettingsManager::shared().defaults(), process.dirs().support);
    });
}

ClipboardStore::ClipboardStore(PreferencesService &defaults, const QString &supportFolder)
    : defaults_(defaults), file_(supportFolder + QStringLiteral("/clipboard_history.json")) {
    connect(&thumbnails_, &Thumbnails::decoded, this, &ClipboardStore::judgePicture);
    makePrivateFolder(supportFolder);
    loadFromDisk();
}

void ClipboardStore::add(const ClipboardItem &item) {
    awaitHistory();
    if (!items_.empty() && items_.front().content == item.content)
        return;
    // Not by reference: it may be one of those that go.
    const ClipboardItem added = item;
    removeWhere([&](const ClipboardItem &each) { return !each.isPinned && each.content == added.content; });
    items_.insert(items_.begin(), added);
    derived_.insert(derived_.begin(), Derived{});
    enforceMaxItems();
    emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::togglePin(const ClipboardItem &item) {
    awaitHistory();
    const auto index = indexOf(item.id);
    if (!index)
        return;
    items_[*index].isPinned = !items_[*index].isPinned;
    derived_[*index].place = {};
    emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::remove(const ClipboardItem &item) {
    awaitHistory();
    if (removeWhere([id = item.id](const ClipboardItem &each) { return each.id == id; }))
        emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::removeAll() {
    awaitHistory();
    if (removeWhere([](const ClipboardItem &each) { return !each.isPinned; }))
        emit itemsChanged();
    saveToDisk();
}

void ClipboardStore::enforceMaxItems() {
    const auto pinnedCount =
        std::count_if(items_.begin(), items_.end(), [](const ClipboardItem &each) { return each.isPinned; });
    const qint64 allowedUnpinned = maxItems(defaults_) - pinnedCount;
    qint64 unpinned = 0;
    removeWhere([&](const ClipboardItem &each) { return !each.isPinned && ++unpinned > allowedUnpinned; });
}

bool ClipboardStore::removeWhere(const std::function<bool(const ClipboardItem &)> &goes) {
    std::size_t kept = 0;
    for (std::size_t index = 0; index < items_.size(); ++index) {
        if (goes(items_[index]))
            continue;
        if (kept != index) {
            items_[kept] = std::move(items_[index]);
            derived_[kept] = std::move(derived_[index]);
        }
        ++kept;
    }
    const bool anyWent = kept < items_.size();
    items_.resize(kept);
    derived_.resize(kept);
    if (anyWent)
        forgetThumbnails();
    return anyWent;
}

/// What the user deletes is not to be kept as a picture.
void ClipboardStore::forgetThumbnails() {
    if (thumbnails_.isEmpty())
        return;
    QSet<QUuid> ids;
    for (const ClipboardItem &item : items_)
        ids.insert(item.id);
    thumbnails_.keepOnly(ids);
}

const std::vector<ClipboardItem> &ClipboardStore::items() const {
    awaitHistory();
    return items_;
}

void ClipboardStore::setSearchQuery(const QString &query) {
    if (searchQuery_ == query)
        return;
    searchQuery_ = query;
    emit searchQueryChanged();
}

std::vector<const ClipboardItem *> ClipboardStore::filteredItems() const {
    awaitHistory();
    const QString query = searchQuery_.toLower();
    std::vector<const ClipboardItem *> found;
    for (std::size_t index = 0; index < items_.size(); ++index)
        if (searchQuery_.isEmpty() || matches(index, query))
            found.push_back(&items_[index]);
    return found;
}

bool ClipboardStore::matches(std::size_t index, const QString &lowerCaseQuery) const {
    preview(index);
    const Derived &derived = derived_[index];
    return derived.searchablePreview.contains(lowerCaseQuery) ||
           derived.searchableSource.contains(lowerCaseQuery);
}

const QString &ClipboardStore::preview(std::size_t index) const {
    const ClipboardItem &item = items_[index];
    Derived &derived = derived_[index];
    if (!derived.preview) {
        derived.preview = workOutPreview(item);
        derived.searchablePreview = derived.preview->toLower();
        derived.searchableSource = item.sourceApp.toLower();
    }
    return *derived.preview;
}

QString ClipboardStore::preview(const ClipboardItem &item) const {
    awaitHistory();
    const auto index = indexOf(item.id);
    return index ? preview(*index) : item.preview();
}

std::optional<qsizetype> ClipboardStore::characterCount(const ClipboardItem &item) const {
    const auto *text = std::get_if<TextContent>(&item.content);
    if (!text)
        return std::nullopt;
    const auto index = indexOf(item.id);
    if (!index)
        return pimloft::characterCount(text->string);
    std::optional<qsizetype> &count = derived_[*index].characters;
    if (!count)
        count = pimloft::characterCount(text->string);
    return count;
}

/// A picture is first taken for what its header says. It is decoded for its thumbnail anyway, and until then
/// nobody has to wait.
QString ClipboardStore::workOutPreview(const ClipboardItem &item) const {
    const auto *picture = std::get_if<ImageContent>(&item.content);
    if (!picture)
        return item.preview();
    const std::optional<QImage> thumbnail = thumbnails_.thumbnail(item.id, picture->bytes);
    return picturePreview(picture->bytes, !thumbnail || !thumbnail->isNull());
}

void ClipboardStore::judgePicture(const QUuid &id) {
    const auto index = indexOf(id);
    if (!index || !derived_[*index].preview)
        return;
    const QString before = *std::exchange(derived_[*index].preview, std::nullopt);
    if (preview(*index) != before)
        emit itemsChanged();
}

std::optional<std::size_t> ClipboardStore::indexOf(const QUuid &id) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const ClipboardItem &each) { return each.id == id; });
    return found == items_.end() ? std::nullopt : std::optional(std::size_t(found - items_.begin()));
}

void ClipboardStore::saveToDisk() {
    awaitHistory();
    const auto entry = [this](std::size_t index) -> HistoryFile::Entry {
        return {items_[index], derived_[index].place};
    };
    if (const auto failure = file_.save(items_.size(), entry))
        printLine(QStringLiteral("ClipboardStore: Failed to save: ") + *failure);
}

void ClipboardStore::loadFromDisk() {
    if (file_.size() <= shortHistory)
        return take(readFile());
    loading_ = std::async(std::launch::async, [this] {
        Loaded loaded = readFile();
        // A failure is to be told even if nobody asks for an entry.
        QMetaObject::invokeMethod(
            this, [this] { awaitHistory(); }, Qt::QueuedConnection);
        return loaded;
    });
}

/// Any thread.
ClipboardStore::Loaded ClipboardStore::readFile() const {
    Loaded loaded;
    loaded.failure = file_.load(loaded.items);
    return loaded;
}

void ClipboardStore::take(Loaded loaded) const {
    if (loaded.failure)
        printLine(QStringLiteral("ClipboardStore: Failed to load: ") + *loaded.failure);
    items_ = std::move(loaded.items);
    derived_.resize(items_.size());
}

void ClipboardStore::awaitHistory() const {
    if (loading_.valid())
        take(loading_.get());
}

}  // namespace pimloft
