// SPDX-License-Identifier: MIT
#include "platform/pasteboard/copied_text.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>

namespace pimloft {

namespace {

constexpr char byteOrderMark[] = "\xef\xbb\xbf";

/// Programs written in C sometimes count the end of the text in.
QByteArray withoutEnd(QByteArray bytes) {
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes;
}

/// Which UTF-16 it is. Without a mark it shows in the Latin letters: every other byte is zero.
std::optional<QStringConverter::Encoding> utf16(const QByteArray &bytes) {
    if (bytes.size() < 2 || bytes.size() % 2 != 0)
        return std::nullopt;
    if (bytes.startsWith("\xff\xfe"))
        return QStringConverter::Utf16LE;
    if (bytes.startsWith("\xfe\xff"))
        return QStringConverter::Utf16BE;
    const auto isLatin = [&bytes](qsizetype letter) {
        for (qsizetype i = 0; i < std::min(bytes.size(), qsizetype(16)); i += 2)
            if (bytes[i + letter] == '\0' || bytes[i + 1 - letter] != '\0')
                return false;
        return true;
    };
    if (isLatin(0))
        return QStringConverter::Utf16LE;
    if (isLatin(1))
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

/// Takes UTF-16 for what it is; anything else stays.
QByteArray fromUtf16(QByteArray bytes) {
    if (const auto encoding = utf16(bytes)) {
        QStringDecoder decode(*encoding);
        bytes = QString(decode(bytes)).toUtf8();
    }
    if (bytes.startsWith(byteOrderMark))
        bytes.remove(0, qsizetype(sizeof byteOrderMark) - 1);
    return withoutEnd(bytes);
}

}  // namespace

std::optional<QByteArray> plainText(const QByteArray &type, QByteArray bytes) {
    if (type == "COMPOUND_TEXT")
        return std::nullopt;
    if (type == "STRING")
        return QString::fromLatin1(withoutEnd(bytes)).toUtf8();
    if (type == "UTF8_STRING") {
        bytes = withoutEnd(bytes);
        return bytes.isValidUtf8() ? bytes : QString::fromUtf8(bytes).toUtf8();
    }
    bytes = fromUtf16(bytes);
    return bytes.isValidUtf8() ? bytes : QString::fromLatin1(bytes).toUtf8();
}

std::optional<QByteArray> htmlText(const QByteArray &, QByteArray bytes) {
    return fromUtf16(std::move(bytes));
}

std::optional<QByteArray> richText(const QByteArray &, QByteArray bytes) {
    return bytes.startsWith("{\\rtf") ? std::optional(withoutEnd(bytes)) : std::nullopt;
}

QByteArray latin1Text(const QByteArray &utf8) {
    return QString::fromUtf8(utf8).toLatin1();
}

}  // namespace pimloft
