// SPDX-License-Identifier: MIT
#include "clipboard/text_length.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace pimloft {

namespace {

/// Below the first combining mark every code is a character, but for a line end of two.
constexpr char16_t firstCombining = 0x300;

/// By the largest code of each piece: that takes the processor many codes at a time.
bool isPlain(QStringView text) {
    constexpr qsizetype piece = 4096;
    for (; !text.isEmpty(); text = text.sliced(std::min(piece, text.size()))) {
        const char16_t *const begin = text.utf16();
        char16_t largest = 0;
        for (const char16_t *code = begin; code != begin + std::min(piece, text.size()); ++code)
            largest = std::max(largest, *code);
        if (largest >= firstCombining)
            return false;
    }
    return true;
}

/// Line ends of two codes.
qsizetype doubleLineEnds(QStringView text) {
    const char16_t *const codes = text.utf16();
    qsizetype count = 0;
    for (qsizetype at = 1; at < text.size(); ++at)
        count += (codes[at] == u'\n') & (codes[at - 1] == u'\r');
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
