// SPDX-License-Identifier: MIT
#include "platform/appearance/xsettings.h"

#include <QDataStream>
#include <QIODevice>
#include <QStringList>

#include <algorithm>

namespace pimloft {

namespace {

enum class XSetting : quint8 { integer = 0, text = 1, colour = 2 };

/// Texts are filled up to a multiple of four bytes.
QByteArray readPadded(QDataStream &stream, quint32 length) {
    const qint64 left = stream.device()->bytesAvailable();
    if (length > left) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return {};
    }
    QByteArray bytes(qsizetype(length), Qt::Uninitialized);
    stream.readRawData(bytes.data(), int(length));
    stream.skipRawData(int((4 - length % 4) % 4));
    return bytes;
}

QVariant readValue(QDataStream &stream, XSetting type) {
    if (type == XSetting::integer) {
        qint32 value = 0;
        stream >> value;
        return value;
    }
    if (type == XSetting::text) {
        quint32 length = 0;
        stream >> length;
        return QString::fromUtf8(readPadded(stream, length));
    }
    if (type != XSetting::colour || stream.skipRawData(8) != 8)
        stream.setStatus(QDataStream::ReadCorruptData);
    return {};
}

}  // namespace

QVariantMap parseXSettings(const QByteArray &bytes) {
    QDataStream stream(bytes);
    quint8 byteOrder = 0;
    stream >> byteOrder;
    stream.setByteOrder(byteOrder == 0 ? QDataStream::LittleEndian : QDataStream::BigEndian);
    stream.skipRawData(3);
    quint32 serial = 0;
    quint32 count = 0;
    stream >> serial >> count;
    QVariantMap settings;
    for (; count > 0; --count) {
        quint8 type = 0;
        quint8 unused = 0;
        quint16 length = 0;
        stream >> type >> unused >> length;
        const QString name = QString::fromUtf8(readPadded(stream, length));
        stream >> serial;
        const QVariant value = readValue(stream, XSetting(type));
        if (stream.status() != QDataStream::Ok)
            break;
        if (value.isValid())
            settings[name] = value;
    }
    return settings;
}

namespace {

QString themeName(const QVariantMap &settings) {
    return settings.value(QStringLiteral("Net/ThemeName")).toString();
}

/// Regular expressions would cost every user half a megabyte for as long as the program runs.
QStringList wordsOf(QString name) {
    for (QChar &letter : name)
        if (QStringLiteral("_: ").contains(letter))
            letter = QLatin1Char('-');
    return name.split(QLatin1Char('-'), Qt::SkipEmptyParts);
}

bool is(const QString &word, const char *other) {
    return word.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
}

}  // namespace

bool prefersDark(const QVariantMap &settings) {
    if (settings.value(QStringLiteral("Gtk/ApplicationPreferDarkTheme")).toInt() == 1)
        return true;
    // "Adwaita-dark", "Mint-Y-Dark-Aqua", "Adwaita:dark", "BreezeDark", "HighContrastInverse"; but not
    // "Arc-Darker", which is light within its windows.
    const QStringList words = wordsOf(themeName(settings));
    return std::any_of(words.begin(), words.end(), [](const QString &word) {
        return is(word, "dark") || is(word, "inverse") || word.endsWith(QLatin1String("Dark")) ||
               word.endsWith(QLatin1String("Inverse"));
    });
}

bool prefersHighContrast(const QVariantMap &settings) {
    // "HighContrast", "HighContrastInverse", "ContrastHigh", "High-Contrast", "Yaru-hc".
    const QStringList words = wordsOf(themeName(settings));
    const QString name = words.join(QString()).toLower();
    return name.contains(QLatin1String("highcontrast")) || name.contains(QLatin1String("contrasthigh")) ||
           std::any_of(words.begin(), words.end(), [](const QString &word) { return is(word, "hc"); });
}

bool prefersReducedMotion(const QVariantMap &settings) {
    return settings.value(QStringLiteral("Gtk/EnableAnimations"), 1).toInt() == 0;
}

}  // namespace pimloft
