// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_content.h"
#include "clipboard/reference_time.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace pimloft {

/// One entry of the clipboard history. A value; copies share the payload. Any thread.
struct ClipboardItem {
    QUuid id;  ///< made when it is captured, never changed
    ClipboardContent content;
    QString sourceApp;                         ///< the application that was in front, as the user knows it
    std::optional<QString> sourceAppBundleID;  ///< absent when unknown
    ReferenceTime timestamp;                   ///< when the copy was seen
    bool isPinned = false;                     ///< kept when the history is trimmed or cleared

    /// The text that lists show and searches look into. Worked out anew by every call.
    QString preview() const;

    /// The same entry, whatever has become of it. Whether two entries hold the same is asked of `content`.
    friend bool operator==(const ClipboardItem &a, const ClipboardItem &b) { return a.id == b.id; }
};

}  // namespace pimloft
