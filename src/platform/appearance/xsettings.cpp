// SPDX-License-Identifier: MIT
#include "platform/appearance/xsettings.h"

#include <QDataStream>
#include <QIODevice>
#include <QRegularExpression>

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

}  // namespace

bool prefersDark(const QVariantMap &settings) {
    if (settings.value(QStringLiteral("Gtk/ApplicationPreferDarkTheme")).toInt() == 1)
        return true;
    // "Adwaita-dark", "Mint-Y-Dark-Aqua", "Adwaita:dark", "BreezeDark", "HighContrastInverse"; but not
    // "Arc-Darker", which is light within its windows.
    static const QRegularExpression part(QStringLiteral("(^|[-_: ])(dark|inverse)($|[-_: ])"),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression ending(QStringLiteral("[a-z](Dark|Inverse)$"));
    const QString theme = themeName(settings);
    return part.match(theme).hasMatch() || ending.match(theme).hasMatch();
}

bool prefersHighContrast(const QVariantMap &settings) {
    // "HighContrast", "HighContrastInverse", "ContrastHigh", "High-Contrast", "Yaru-hc".
    static const QRegularExpression name(
        QStringLiteral("high[-_ ]?contrast|contrast[-_ ]?high|(^|[-_: ])hc($|[-_: ])"),
        QRegularExpression::CaseInsensitiveOption);
    return name.match(themeName(settings)).hasMatch();
}

bool prefersReducedMotion(const QVariantMap &settings) {
    return settings.value(QStringLiteral("Gtk/EnableAnimations"), 1).toInt() == 0;
}

}  // namespace pimloft
