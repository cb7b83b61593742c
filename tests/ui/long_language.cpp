// SPDX-License-Identifier: MIT
#include "long_language.h"

#include <QStringList>

#include <algorithm>

namespace pimloft::test {

QString LongLanguage::translate(const char *, const char *source, const char *, int) const {
    const QString text = QString::fromUtf8(source);
    // Layout directions, names of keys and bare numbers have no words that could be longer.
    const bool hasWords = std::any_of(text.begin(), text.end(), [](QChar each) { return each.isLower(); });
    if (text.startsWith(QLatin1String("QT_")) || !hasWords || text == QLatin1String("%1px"))
        return {};
    QString more;
    const qsizetype length = std::max<qsizetype>(2, qsizetype(double(text.size()) * 0.6) - 2);
    for (qsizetype at = 0; at < length; ++at)
        more += text[at % text.size()].isSpace() ? QLatin1Char(' ') : QLatin1Char('o');
    return QStringLiteral("⟦") + text + more + QStringLiteral("⟧");
}

}  // namespace pimloft::test
