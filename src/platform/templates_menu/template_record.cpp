// SPDX-License-Identifier: MIT
#include "platform/templates_menu/template_record.h"

#include "base/atomic_file.h"
#include "base/regular_file.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace pimloft {

namespace {

const QString folderKey = QStringLiteral("folder");
const QString entriesKey = QStringLiteral("entries");
const QString nameKey = QStringLiteral("name");
const QString digestsKey = QStringLiteral("sha256");
const QString madeKey = QStringLiteral("made");

constexpr qsizetype largestRecord = 4 << 20;

QJsonObject object(const RecordedTemplate &entry) {
    QJsonArray digests;
    for (const QByteArray &digest : entry.digests)
        digests << QString::fromLatin1(digest);
    return {{nameKey, QString::fromLatin1(entry.name.toPercentEncoding(" "))},
            {digestsKey, digests},
            {madeKey, entry.isMade}};
}

std::optional<RecordedTemplate> entry(const QJsonObject &object) {
    RecordedTemplate entry{.name =
                               QByteArray::fromPercentEncoding(object.value(nameKey).toString().toLatin1()),
                           .digests = {},
                           .isMade = object.value(madeKey).toBool()};
    const QJsonArray digests = object.value(digestsKey).toArray();
    for (const QJsonValue digest : digests)
        entry.digests << digest.toString().toLatin1();
    // A name that leads out of the folder was not written by this program.
    const bool isName = !entry.name.isEmpty() && entry.name != "." && entry.name != ".." &&
                        !entry.name.contains('/') && !entry.name.contains('\0');
    return isName ? std::optional(std::move(entry)) : std::nullopt;
}

}  // namespace

RecordedTemplate *TemplateRecord::find(const QByteArray &name) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&name](const RecordedTemplate &each) { return each.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

TemplateRecord TemplateRecord::parse(const QByteArray &bytes) {
    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    TemplateRecord record{.folder = FileUrl::fromText(root.value(folderKey).toString()), .entries = {}};
    const QJsonArray entries = root.value(entriesKey).toArray();
    for (const QJsonValue each : entries)
        if (auto one = entry(each.toObject()))
            record.entries.push_back(*std::move(one));
    return record;
}

QByteArray TemplateRecord::encoded() const {
    QJsonArray list;
    for (const RecordedTemplate &each : entries)
        list << object(each);
    QJsonObject root{{entriesKey, list}};
    if (folder)
        root.insert(folderKey, QString::fromLatin1(folder->encoded()));
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

TemplateRecord TemplateRecord::read(const QString &path) {
    return parse(readRegularFile(path, largestRecord).value_or(QByteArray()));
}

bool TemplateRecord::write(const QString &path) const {
    if (entries.empty())
        return QFile::remove(path) || !QFile::exists(path);
    return !writeAtomically(path, encoded());
}

}  // namespace pimloft
