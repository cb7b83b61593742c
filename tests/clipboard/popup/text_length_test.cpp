// SPDX-License-Identifier: MIT
#include "clipboard/text_length.h"

#include <QString>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Case {
    const char *name;
    QString text;
    qsizetype length;
};

class TextLength : public testing::TestWithParam<Case> {};

TEST_P(TextLength, countsWhatAReaderSees) {
    EXPECT_EQ(characterCount(GetParam().text), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Popup, TextLength,
                         testing::Values(Case{"nothing", {}, 0}, Case{"aWord", QStringLiteral("hello"), 5},
                                         Case{"umlauts", QStringLiteral("Grüße"), 5},
                                         Case{"aLineEndOfTwoCodes", QStringLiteral("a\r\nb"), 3},
                                         Case{"twoLineEnds", QStringLiteral("a\n\rb"), 4},
                                         Case{"aCombinedAccent", QStringLiteral("e\u0301x"), 2},
                                         Case{"anEmoji", QStringLiteral("😀!"), 2},
                                         Case{"aFamily", QStringLiteral("👨‍👩‍👧"), 1},
                                         Case{"flags", QStringLiteral("🇩🇪🇫🇷"), 2},
                                         Case{"hebrew", QStringLiteral("שלום"), 4},
                                         Case{"many", QString(100'000, QLatin1Char('x')), 100'000}),
                         [](const auto &info) { return info.param.name; });

}  // namespace
}  // namespace pimloft
