// SPDX-License-Identifier: MIT
#include "updates/version_order.h"

#include <QList>

#include <algorithm>
#include <span>

namespace pimloft {

namespace {

using Characters = std::span<const uint>;

bool isDigit(uint character) {
    return character >= '0' && character <= '9';
}

/// Takes the digits off the front of `text`; answers them without the zeros that do not count.
Characters takeNumber(Characters &text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const Characters digits(text.begin(), end);
    text = Characters(end, text.end());
    return {std::find_if(digits.begin(), digits.end(), [](uint digit) { return digit != '0'; }),
            digits.end()};
}

std::weak_ordering compareText(Characters a, Characters b) {
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end());
}

std::weak_ordering compareNumbers(Characters a, Characters b) {
    const std::weak_ordering length = a.size() <=> b.size();
    return length != 0 ? length : compareText(a, b);
}

}  // namespace

std::weak_ordering compareVersions(QStringView a, QStringView b) {
    const QList<uint> left = a.toUcs4();
    const QList<uint> right = b.toUcs4();
    Characters restOfLeft(left);
    Characters restOfRight(right);
    while (!restOfLeft.empty() && !restOfRight.empty()) {
        std::weak_ordering order = std::weak_ordering::equivalent;
        if (isDigit(restOfLeft.front()) && isDigit(restOfRight.front())) {
            order = compareNumbers(takeNumber(restOfLeft), takeNumber(restOfRight));
        } else {
            order = restOfLeft.front() <=> restOfRight.front();
            restOfLeft = restOfLeft.subspan(1);
            restOfRight = restOfRight.subspan(1);
        }
        if (order != 0)
            return order;
    }
    return restOfLeft.size() <=> restOfRight.size();
}

}  // namespace pimloft
