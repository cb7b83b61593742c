// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_preview.h"

#include "clipboard/byte_count.h"
#include "clipboard/picture_decoder.h"
#include "clipboard/picture_size.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

namespace pimloft {

namespace {

constexpr qsizetype longestPreview = 200;  ///< in characters as a reader counts them

/// Grows a window over a text until it is sure to hold what is looked for.
constexpr qsizetype firstWindow = 1024;

bool isNewline(QChar unit) {
    const char16_t code = unit.unicode();
    return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

/// Where the first `longestPreview` characters of `text` end. Nothing when `text` is only the start of
/// something longer that decides it.
std::optional<qsizetype> endOfCharacters(const QString &text, bool isWhole) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (qsizetype count = 0; count < longestPreview; ++count) {
        end = finder.toNextBoundary();
        if (end < 0)
            return isWhole ? std::optional(text.size()) : std::nullopt;
    }
    // At the end of a window the last character may go on behind it, by a half of a pair or by a mark.
    if (!isWhole && end + 1 >= text.size())
        return std::nullopt;
    return end;
}

QString firstCharacters(QStringView text) {
    // No character takes less than a unit.
    if (text.size() <= longestPreview)
        return text.toString();
    for (qsizetype window = firstWindow;; window *= 2) {
        const bool isWhole = window >= text.size();
        const QString start = text.left(window).toString();
        if (const auto end = endOfCharacters(start, isWhole))
            return start.left(*end);
    }
}

QString textPreview(QStringView text) {
    const auto first = std::find_if(text.begin(), text.end(), isNewline);
    if (first == text.end())
        return firstCharacters(text);
    const auto second = std::find_if(first + 1, text.end(), isNewline);
    if (*first == QLatin1Char('\n'))
        return firstCharacters({text.begin(), second});
    // Joined by a line feed whatever stood between them.
    QString lines = text.left(second - text.begin()).toString();
    lines[first - text.begin()] = QLatin1Char('\n');
    return firstCharacters(lines);
}

/// Appends to `out` the next piece of `html` that is outside of tags and takes it off `html`.
void takeUntagged(QStringView &html, QString &out) {
    const qsizetype open = html.indexOf(QLatin1Char('<'));
    // A tag has something between its brackets; what looks like a second opening is part of it.
    const qsizetype close = open < 0 ? -1 : html.indexOf(QLatin1Char('>'), open + 1);
    if (close < 0) {
        out += html;
        html = {};
        return;
    }
    const bool isTag = close > open + 1;
    out += html.left(isTag ? open : close + 1);
    html = html.mid(close + 1);
}

QString htmlPreview(QStringView html) {
    QString text;
    for (qsizetype enough = firstWindow; !html.isEmpty(); enough *= 2) {
        while (!html.isEmpty() && text.size() < enough)
            takeUntagged(html, text);
        if (const auto end = endOfCharacters(text, html.isEmpty()))
            return text.left(*end);
    }
    return text;
}

bool canBeDecoded(const QByteArray &bytes) {
    const auto all = [](QSize size) { return PictureView{.part = {}, .size = size}; };
    return pictureSize(bytes).isValid() && !decodePicture(bytes, all).isNull();
}

QString fileName(const QUrl &url) {
    QString path = url.path(QUrl::FullyEncoded);
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    if (path == QLatin1String("/"))
        return path;
    // Decoded last, since a name may hold an encoded slash.
    return QUrl::fromPercentEncoding(path.mid(path.lastIndexOf(QLatin1Char('/')) + 1).toLatin1());
}

struct Preview {
    QString operator()(const TextContent &content) const { return textPreview(content.string); }
    QString operator()(const RichTextContent &) const { return QStringLiteral("[Rich Text]"); }
    QString operator()(const ImageContent &content) const {
        return picturePreview(content.bytes, canBeDecoded(content.bytes));
    }
    QString operator()(const FileURLContent &content) const { return fileName(content.url); }
    QString operator()(const HtmlContent &content) const { return htmlPreview(content.string); }
};

}  // namespace

QString picturePreview(const QByteArray &bytes, bool canBeDecoded) {
    const QSize size = pictureSize(bytes);
    if (!canBeDecoded || !size.isValid())
        return QStringLiteral("Image (%1)").arg(byteCountText(bytes.size()));
    return QStringLiteral("Image %1\u00D7%2").arg(size.width()).arg(size.height());
}

QString preview(const ClipboardContent &content) {
    return std::visit(Preview{}, content);
}

}  // namespace pimloft
