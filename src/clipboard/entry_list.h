// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <QAbstractListModel>

#include <vector>

namespace pimloft {

class ClipboardStore;
class Clock;
class Thumbnails;
class WorkspaceService;

/// The entries of the history that match the search, as rows of a list. It follows the store and tells only
/// what has changed, so that a list stays where the user scrolled it. Main thread.
class EntryList : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        itemID = Qt::UserRole,  ///< a text
        preview,
        symbol,     ///< the name of the system symbol for its kind; empty for a file
        fileIcon,   ///< a QIcon for a file, else null
        isImage,    ///< whether it is a picture that can be shown; one that is still being decoded is
        thumbnail,  ///< a QImage, null while it is being decoded
        sourceApp,
        time,        ///< how long ago it was copied
        characters,  ///< the length of a text in words, else empty
        isPinned,
    };

    EntryList(ClipboardStore &store, Thumbnails &thumbnails, WorkspaceService &workspace, const Clock &clock);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The entry in a row, as it was when the list was last told of it; nothing for a row that is not there.
    std::optional<ClipboardItem> itemAt(int row) const;

private:
    void follow();
    bool canFollowInSteps(const std::vector<const ClipboardItem *> &wanted) const;
    void removeMissing(const std::vector<const ClipboardItem *> &wanted);
    void insertNew(const std::vector<const ClipboardItem *> &wanted);
    void takePins(const std::vector<const ClipboardItem *> &wanted);
    void tellDecoded(const QUuid &id);
    QVariant picture(const ClipboardItem &item, int role) const;

    ClipboardStore &store_;
    Thumbnails &thumbnails_;
    WorkspaceService &workspace_;
    const Clock &clock_;
    std::vector<ClipboardItem> rows_;
};

}  // namespace pimloft
