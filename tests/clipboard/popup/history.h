// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_store.h"
#include "platform/fake_desktop.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>

namespace pimloft::test {

/// A clock that stands still until it is set.
class StoppedClock final : public Clock {
public:
    Instant now() const override { return {}; }
    QDateTime wallTime() const override { return time; }

    QDateTime time = QDateTime(QDate(2026, 3, 14), QTime(12, 0), Qt::UTC);
};

/// An entry that was copied from Notes five minutes before the clock stopped.
inline ClipboardItem entry(const ClipboardContent &content, const QString &source = QStringLiteral("Notes")) {
    return {.id = QUuid::createUuid(),
            .content = content,
            .sourceApp = source,
            .sourceAppBundleID = {},
            .timestamp = ReferenceTime::from(StoppedClock().time.addSecs(-300))};
}
inline ClipboardItem text(const char *string) {
    return entry(TextContent{QString::fromUtf8(string)});
}
inline ClipboardItem pinned(ClipboardItem item) {
    item.isPinned = true;
    return item;
}
inline ClipboardItem image(QSize size, QColor color = Qt::red) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return entry(ImageContent{buffer.data()});
}

/// A store in a folder of its own on a pretended desktop.
struct History {
    /// Adds entries so that the list shows them in this order.
    void hold(const std::vector<ClipboardItem> &items) {
        for (auto item = items.rbegin(); item != items.rend(); ++item)
            store.add(*item);
    }

    QTemporaryDir folder;
    FakeDesktop desktop;
    StoppedClock clock;
    ClipboardStore store{desktop.preferences, folder.path()};
};

}  // namespace pimloft::test
