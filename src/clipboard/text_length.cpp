// SPDX-License-Identifier: MIT
#include "clipboard/text_length.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace pimloft {

namespace {

/// Below the first combining mark every code is a character, but for a line end of two.
constexpr char16_t firstCombining = 0x300;

bool isPlain(QStringView text) {
    return std::all_of(text.utf16(), text.utf16() + text.size(),
                       [](char16_t code) { return code < firstCombining; });
}

}  // namespace

qsizetype characterCount(QStringView text) {
    if (isPlain(text))
        return text.size() - text.count(QLatin1String("\r\n"));
    qsizetype count = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

}  // namespace pimloft
