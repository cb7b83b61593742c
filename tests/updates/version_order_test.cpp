// SPDX-License-Identifier: MIT
#include "updates/version_order.h"

#include <QString>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Pair {
    const char *older;
    const char *newer;
};

class VersionOrder : public testing::TestWithParam<Pair> {};

TEST_P(VersionOrder, isTheSameFromBothSides) {
    const QString older = QString::fromUtf8(GetParam().older);
    const QString newer = QString::fromUtf8(GetParam().newer);
    EXPECT_TRUE(compareVersions(older, newer) < 0);
    EXPECT_TRUE(compareVersions(newer, older) > 0);
}

INSTANTIATE_TEST_SUITE_P(Updates, VersionOrder,
                         testing::Values(Pair{"1.9", "1.10"}, Pair{"1.2", "1.2.1"}, Pair{"1.9.3", "2.0"},
                                         Pair{"1.0.0", "1.0.0b"}, Pair{"1.0a", "1.0b"}, Pair{"1.0B", "1.0a"},
                                         Pair{"", "1"}, Pair{"", "0"}, Pair{"1.2", "1.a"},
                                         Pair{"1.0-rc9", "1.0-rc10"}, Pair{"007", "8"}, Pair{"1.", "1.0"},
                                         Pair{"1.99999999999999999999", "1.100000000000000000000"},
                                         Pair{"18446744073709551615", "18446744073709551616"},
                                         Pair{"1.١٠", "1.٩"} /* only 0 to 9 are digits */,
                                         Pair{"1.￿", "1.😀"}));

TEST(VersionOrder, aVersionIsEquivalentToItself) {
    for (const char *version : {"", "1.2.0", "1.0-beta", "0"})
        EXPECT_TRUE(compareVersions(QString::fromUtf8(version), QString::fromUtf8(version)) == 0) << version;
}

TEST(VersionOrder, zerosInFrontOfANumberDoNotCount) {
    EXPECT_TRUE(compareVersions(u"1.01", u"1.1") == 0);
    EXPECT_TRUE(compareVersions(u"1.000", u"1.0") == 0);
    EXPECT_TRUE(compareVersions(u"1.01.2", u"1.1.10") < 0);
}

TEST(VersionOrder, thousandsOfDigitsAreANumberToo) {
    const QString large(5000, QLatin1Char('9'));
    EXPECT_TRUE(compareVersions(large, QLatin1Char('1') + QString(5000, QLatin1Char('0'))) < 0);
}

}  // namespace
}  // namespace pimloft
