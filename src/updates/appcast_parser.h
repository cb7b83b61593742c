// SPDX-License-Identifier: MIT
#pragma once

#include "updates/appcast_item.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

class QXmlStreamReader;

namespace pimloft {

/// Reads a feed of releases. Any thread, one at a time.
///
/// Element and attribute names are taken as they are written; prefixes need no declaration. What was read
/// before the document turns out to be broken counts.
class AppcastParser {
public:
    explicit AppcastParser(QByteArray data);

    /// The first release of the document, whatever order it lists them in. Nothing when there is none.
    std::optional<AppcastItem> parse();

private:
    void startElement(const QXmlStreamReader &reader);
    void startEnclosure(const QXmlStreamReader &reader);
    void characters(QStringView text);
    void endElement(QStringView name);

    const QByteArray data_;
    std::vector<AppcastItem> items_;
    /// The element that was opened last; closing one changes nothing, so the white space after it counts to
    /// it.
    QString currentElement_;
    QString currentVersion_;
    QString currentReleaseNotes_;
    std::optional<QUrl> currentEnclosureURL_;
    bool inItem_ = false;
};

}  // namespace pimloft
