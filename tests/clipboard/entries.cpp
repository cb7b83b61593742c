// SPDX-License-Identifier: MIT
#include "entries.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <random>

namespace pimloft::test {

ClipboardItem entry(ClipboardContent content) {
    return {QUuid::createUuid(),      std::move(content),
            QStringLiteral("Editor"), QStringLiteral("org.example.Editor"),
            {700'000'000.25},         false};
}

ClipboardItem text(const QString &string) {
    return entry(TextContent{string});
}

ClipboardItem pinned(ClipboardItem item) {
    item.isPinned = true;
    return item;
}

QByteArray noise(qsizetype size, unsigned seed) {
    std::minstd_rand random(seed + 1);
    QByteArray bytes(size, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(), [&random] { return char(random() >> 8); });
    return bytes;
}

std::string summary(const std::vector<ClipboardItem> &items) {
    QStringList words;
    for (const ClipboardItem &item : items)
        words << item.preview() + (item.isPinned ? QStringLiteral("*") : QString());
    return words.join(QStringLiteral(", ")).toStdString();
}

bool areTheSame(const ClipboardItem &a, const ClipboardItem &b) {
    return a.id == b.id && a.content == b.content && a.sourceApp == b.sourceApp &&
           a.sourceAppBundleID == b.sourceAppBundleID && a.timestamp == b.timestamp &&
           a.isPinned == b.isPinned;
}

bool areTheSame(const std::vector<ClipboardItem> &a, const std::vector<ClipboardItem> &b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const ClipboardItem &x, const ClipboardItem &y) { return areTheSame(x, y); });
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write a test's file");
}

}  // namespace pimloft::test
