// SPDX-License-Identifier: MIT
#include "clipboard/history_encoder.h"

#include "clipboard/base64.h"
#include "clipboard/history_output.h"

#include <QLocale>

#include <array>
#include <cmath>

namespace pimloft {

namespace {

/// Multiples of three, so that padding comes only at the end.
constexpr qsizetype base64Part = 30'000;
static_assert(largestBase64(base64Part) <= HistoryOutput::largestRoom);

/// A unit of UTF-16 becomes three bytes of UTF-8 or six of an escape.
constexpr qsizetype textPart = 32 * 1024;
static_assert(textPart * 6 <= HistoryOutput::largestRoom);

constexpr char hexDigits[] = "0123456789abcdef";

/// How a character is written within quotes, by its code: the letter behind a backslash, 'u' for the long
/// form, zero for itself.
constexpr auto escapes = [] {
    std::array<char, 256> table{};
    for (std::size_t code = 0; code < 0x20; ++code)
        table[code] = 'u';
    for (const char c : {'"', '\\', '/'})
        table[std::uint8_t(c)] = c;
    table['\b'] = 'b';
    table['\f'] = 'f';
    table['\n'] = 'n';
    table['\r'] = 'r';
    table['\t'] = 't';
    return table;
}();

char *putEscaped(char c, char *out) {
    const char letter = escapes[std::uint8_t(c)];
    if (letter == 0) {
        *out++ = c;
        return out;
    }
    *out++ = '\\';
    *out++ = letter;
    if (letter != 'u')
        return out;
    out = std::copy_n("00", 2, out);
    *out++ = hexDigits[c >> 4];
    *out++ = hexDigits[c & 15];
    return out;
}

/// A piece that does not end within a pair of units.
QStringView firstPart(QStringView text) {
    if (text.size() <= textPart)
        return text;
    return text.first(text[textPart - 1].isHighSurrogate() ? textPart - 1 : textPart);
}

void putText(QStringView text, HistoryOutput &output) {
    output.append('"');
    while (!text.isEmpty()) {
        const QStringView part = firstPart(text);
        const QByteArray bytes = part.toUtf8();
        char *out = output.room(part.size() * 6);
        for (const char c : bytes)
            out = putEscaped(c, out);
        output.advance(out);
        text = text.sliced(part.size());
    }
    output.append('"');
}

void putBytes(QByteArrayView bytes, HistoryOutput &output) {
    output.append('"');
    while (!bytes.isEmpty()) {
        const QByteArrayView part = bytes.first(std::min(bytes.size(), base64Part));
        output.advance(encodeBase64(part, output.room(largestBase64(part.size()))));
        bytes = bytes.sliced(part.size());
    }
    output.append('"');
}

struct ContentWriter {
    HistoryOutput &output;

    void operator()(const TextContent &content) const { put("text", QStringView(content.string)); }
    void operator()(const RichTextContent &content) const { put("richText", content.bytes); }
    void operator()(const ImageContent &content) const { put("image", content.bytes); }
    void operator()(const FileURLContent &content) const {
        put("fileURL", QStringView(QString::fromLatin1(content.url.toEncoded())));
    }
    void operator()(const HtmlContent &content) const { put("html", QStringView(content.string)); }

private:
    template <typename Payload>
    void put(const char *kind, const Payload &payload) const {
        output.append("{\"");
        output.append(kind);
        output.append("\":{\"_0\":");
        if constexpr (std::is_same_v<Payload, QStringView>)
            putText(payload, output);
        else
            putBytes(payload, output);
        output.append("}}");
    }
};

/// The shortest form that is read back as the same number, without a point where it is whole. Very large and
/// very small ones have an exponent.
QByteArray numberText(double value) {
    constexpr double largestPlain = 18'014'398'509'481'984;  // 2^54
    constexpr double smallestPlain = 1e-4;
    const double size = std::abs(value);
    const bool isPlain = size == 0 || (size >= smallestPlain && size <= largestPlain);
    return QByteArray::number(value, isPlain ? 'f' : 'e', QLocale::FloatingPointShortest);
}

}  // namespace

std::optional<QString> encodeItem(const ClipboardItem &item, HistoryOutput &output) {
    if (!std::isfinite(item.timestamp.seconds))
        return QStringLiteral("A date that is not a number cannot be written.");
    output.append("{\"id\":\"");
    output.append(item.id.toByteArray(QUuid::WithoutBraces).toUpper());
    output.append("\",\"content\":");
    std::visit(ContentWriter{output}, item.content);
    output.append(",\"sourceApp\":");
    putText(item.sourceApp, output);
    if (item.sourceAppBundleID) {
        output.append(",\"sourceAppBundleID\":");
        putText(*item.sourceAppBundleID, output);
    }
    output.append(",\"timestamp\":");
    output.append(numberText(item.timestamp.seconds));
    output.append(item.isPinned ? QByteArrayView(",\"isPinned\":true}")
                                : QByteArrayView(",\"isPinned\":false}"));
    return std::nullopt;
}

}  // namespace pimloft
