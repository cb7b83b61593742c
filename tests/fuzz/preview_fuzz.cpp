// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_preview.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

#include <cstdlib>

namespace {

/// The first 200 characters, found in the whole text at once.
QString firstCharacters(const QString &text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int count = 0; count < 200; ++count)
        if (finder.toNextBoundary() < 0)
            return text;
    return text.left(finder.position());
}

}  // namespace

/// Whatever is copied: its preview is what the rules say when they are followed word by word.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString text = QString::fromUtf8(bytes);
    static const QRegularExpression newline(QStringLiteral("[\\x{A}-\\x{D}\\x{85}\\x{2028}\\x{2029}]"));
    static const QRegularExpression tag(QStringLiteral("<[^>]+>"));
    const QString lines = text.split(newline).mid(0, 2).join(u'\n');
    if (preview(TextContent{text}) != firstCharacters(lines))
        std::abort();
    if (preview(HtmlContent{text}) != firstCharacters(QString(text).remove(tag)))
        std::abort();
    preview(ImageContent{bytes});
    preview(FileURLContent{QUrl::fromEncoded(bytes)});
    return 0;
}
