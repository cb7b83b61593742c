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

/// Line ends of two codes.
qsizetype doubleLineEnds(QStringView text) {
    qsizetype count = 0;
    for (qsizetype at = 1; at < text.size(); ++at)
        count += text[at] == u'\n' && text[at - 1] == u'\r';
    return count;
}

}  // namespace

qsizetype characterCount(QStringView text) {
    if (isPlain(text))
        return text.size() - doubleLineEnds(text);
    qsizetype count = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

}  // namespace pimloft
