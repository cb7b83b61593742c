// SPDX-License-Identifier: MIT
#include "clipboard/entry_list.h"

#include "base/clock.h"
#include "clipboard/clipboard_store.h"
#include "clipboard/relative_time.h"
#include "clipboard/thumbnails.h"
#include "platform/workspace/workspace.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

using Wanted = std::vector<const ClipboardItem *>;

/// By kind, in the order of the kinds.
constexpr std::array symbols{"doc.text", "doc.richtext", "photo", "",
                             "chevron.left.forwardslash.chevron.right"};

/// Above this many separate changes a list is quicker told to begin anew.
constexpr int mostSteps = 32;

template <typename Items>
QSet<QUuid> idsOf(const Items &items) {
    QSet<QUuid> ids;
    ids.reserve(qsizetype(items.size()));
    for (const auto &item : items) {
        if constexpr (std::is_pointer_v<std::decay_t<decltype(item)>>)
            ids.insert(item->id);
        else
            ids.insert(item.id);
    }
    return ids;
}

std::vector<ClipboardItem> copied(const Wanted &wanted) {
    std::vector<ClipboardItem> items;
    items.reserve(wanted.size());
    for (const ClipboardItem *item : wanted)
        items.push_back(*item);
    return items;
}

QString lengthText(std::optional<qsizetype> characters) {
    return characters ? EntryList::tr("%n chars", nullptr, int(*characters)) : QString();
}

}  // namespace

EntryList::EntryList(ClipboardStore &store, Thumbnails &thumbnails, WorkspaceService &workspace,
                     const Clock &clock)
    : store_(store), thumbnails_(thumbnails), workspace_(workspace), clock_(clock),
      rows_(copied(store.filteredItems())) {
    connect(&store, &ClipboardStore::itemsChanged, this, &EntryList::follow);
    connect(&store, &ClipboardStore::searchQueryChanged, this, &EntryList::follow);
    connect(&thumbnails, &Thumbnails::decoded, this, &EntryList::tellDecoded);
}

int EntryList::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(rows_.size());
}

std::optional<ClipboardItem> EntryList::itemAt(int row) const {
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    return rows_[std::size_t(row)];
}

QVariant EntryList::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ClipboardItem &item = rows_[std::size_t(index.row())];
    switch (role) {
    case itemID:
        return item.id.toString();
    case preview:
        return store_.preview(item);
    case symbol:
        return QString::fromLatin1(symbols[item.content.index()]);
    case fileIcon: {
        const auto *file = std::get_if<FileURLContent>(&item.content);
        return file ? workspace_.fileIcon(file->url.toLocalFile()) : QIcon();
    }
    case isImage:
    case thumbnail:
        return picture(item, role);
    case sourceApp:
        return item.sourceApp;
    case time:
        return relativeTime(item.timestamp.toDateTime(), clock_.wallTime());
    case characters:
        return lengthText(store_.characterCount(item));
    case isPinned:
        return item.isPinned;
    default:
        return {};
    }
}

QVariant EntryList::picture(const ClipboardItem &item, int role) const {
    const auto *content = std::get_if<ImageContent>(&item.content);
    if (!content)
        return role == isImage ? QVariant(false) : QVariant(QImage());
    const std::optional<QImage> image = thumbnails_.thumbnail(item.id, content->bytes);
    if (role == isImage)
        return !image || !image->isNull();
    return image.value_or(QImage());
}

QHash<int, QByteArray> EntryList::roleNames() const {
    return {{itemID, "itemID"},       {preview, "preview"}, {symbol, "symbol"},
            {fileIcon, "fileIcon"},   {isImage, "isImage"}, {thumbnail, "thumbnail"},
            {sourceApp, "sourceApp"}, {time, "time"},       {characters, "characters"},
            {isPinned, "isPinned"}};
}

void EntryList::follow() {
    const Wanted wanted = store_.filteredItems();
    if (!canFollowInSteps(wanted)) {
        beginResetModel();
        rows_ = copied(wanted);
        endResetModel();
        return;
    }
    removeMissing(wanted);
    insertNew(wanted);
    takePins(wanted);
}

/// Whether what stays keeps its order, and what comes and goes does so in few runs of rows.
bool EntryList::canFollowInSteps(const Wanted &wanted) const {
    const QSet<QUuid> before = idsOf(rows_);
    const QSet<QUuid> after = idsOf(wanted);
    int steps = 0;
    bool isRun = false;
    std::vector<QUuid> staying;
    for (const ClipboardItem &row : rows_) {
        const bool stays = after.contains(row.id);
        steps += !stays && !isRun;
        isRun = !stays;
        if (stays)
            staying.push_back(row.id);
    }
    isRun = false;
    auto next = staying.begin();
    for (const ClipboardItem *item : wanted) {
        const bool isNew = !before.contains(item->id);
        steps += isNew && !isRun;
        isRun = isNew;
        if (!isNew && (next == staying.end() || *next++ != item->id))
            return false;
    }
    return next == staying.end() && steps <= mostSteps;
}

void EntryList::removeMissing(const Wanted &wanted) {
    const QSet<QUuid> after = idsOf(wanted);
    const auto isMissing = [&](int row) { return !after.contains(rows_[std::size_t(row)].id); };
    for (int last = rowCount() - 1; last >= 0; --last) {
        if (!isMissing(last))
            continue;
        int first = last;
        while (first > 0 && isMissing(first - 1))
            --first;
        beginRemoveRows({}, first, last);
        rows_.erase(rows_.begin() + first, rows_.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

void EntryList::insertNew(const Wanted &wanted) {
    // The rows are now a part of what is wanted, in its order.
    for (std::size_t row = 0; row < wanted.size(); ++row) {
        if (row < rows_.size() && rows_[row].id == wanted[row]->id)
            continue;
        std::size_t end = row;
        while (end < wanted.size() && (row == rows_.size() || wanted[end]->id != rows_[row].id))
            ++end;
        beginInsertRows({}, int(row), int(end) - 1);
        const std::vector<ClipboardItem> added =
            copied(Wanted(wanted.begin() + std::ptrdiff_t(row), wanted.begin() + std::ptrdiff_t(end)));
        rows_.insert(rows_.begin() + std::ptrdiff_t(row), added.begin(), added.end());
        endInsertRows();
        row = end - 1;
    }
}

void EntryList::takePins(const Wanted &wanted) {
    for (std::size_t row = 0; row < wanted.size(); ++row) {
        if (rows_[row].isPinned == wanted[row]->isPinned)
            continue;
        rows_[row].isPinned = wanted[row]->isPinned;
        emit dataChanged(index(int(row)), index(int(row)), {isPinned});
    }
}

void EntryList::tellDecoded(const QUuid &id) {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const ClipboardItem &row) { return row.id == id; });
    if (found == rows_.end())
        return;
    const QModelIndex changed = index(int(found - rows_.begin()));
    emit dataChanged(changed, changed, {isImage, thumbnail});
}

}  // namespace pimloft
