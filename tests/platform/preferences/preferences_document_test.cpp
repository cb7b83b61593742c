// SPDX-License-Identifier: MIT
#include "platform/preferences/preferences_document.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>

namespace pimloft {
namespace {

QVariant read(const QByteArray &json) {
    const auto document = parsePreferences("{\"key\":" + json + "}");
    return document ? document->values.value(QStringLiteral("key")) : QVariant();
}

QByteArray kept(const QByteArray &json) {
    const auto document = parsePreferences("{\"key\": " + json + " }");
    return document ? document->foreign.value(QStringLiteral("key")) : QByteArray();
}

QByteArray written(const QVariant &value) {
    QByteArray text = encodePreferences({{{QStringLiteral("key"), value}}, {}});
    return text.simplified();
}

struct Case {
    const char *json;
    QVariant value;
};

class PreferenceOfEachType : public testing::TestWithParam<Case> {};

TEST_P(PreferenceOfEachType, isReadAndWrittenAsThatType) {
    const QVariant value = read(GetParam().json);
    EXPECT_EQ(value.typeName(), GetParam().value.typeName());
    EXPECT_EQ(value, GetParam().value);
    EXPECT_EQ(written(value), QByteArray("{ \"key\": ") + GetParam().json + " }");
}

INSTANTIATE_TEST_SUITE_P(
    PreferencesDocument, PreferenceOfEachType,
    testing::Values(Case{"true", true}, Case{"false", false}, Case{"0", 0LL}, Case{"50", 50LL},
                    Case{"9223372036854775807", std::numeric_limits<qlonglong>::max()},
                    Case{"-9223372036854775808", std::numeric_limits<qlonglong>::min()}, Case{"12.0", 12.0},
                    Case{"0.1", 0.1}, Case{"1e+300", 1e300}, Case{"5e-324", 5e-324},
                    Case{"\"\"", QString(QLatin1String(""))},
                    Case{"\"\xc3\xbc\\u0000\\\"\"", QStringLiteral("\u00fc") + QChar(u'\0') + u'"'},
                    Case{"[]", QStringList()},
                    Case{"[ \"a\", \"\", \"b\" ]",
                         QStringList({QStringLiteral("a"), QString(), QStringLiteral("b")})}));

class ForeignPreference : public testing::TestWithParam<const char *> {};

TEST_P(ForeignPreference, isNoValueButStaysAsItStands) {
    EXPECT_FALSE(read(GetParam()).isValid());
    EXPECT_EQ(kept(GetParam()), GetParam());
    const auto document = parsePreferences(QByteArray("{\"key\":") + GetParam() + ",\"other\":1}");
    ASSERT_TRUE(document.has_value());
    EXPECT_EQ(parsePreferences(encodePreferences(*document)), document);
}

INSTANTIATE_TEST_SUITE_P(PreferencesDocument, ForeignPreference,
                         testing::Values("null", "{}", "{\"a\":{\"b\":[1, 2]}}", "[1,\"a\"]", "[\"a\",1]",
                                         "[[\"a\"]]", "[\"a\",[]]", "[[],\"a\"]", "[{\"a\":\"b\"}]",
                                         "[{\"a\":\"b\"},\"c\"]", "[null]", "[true]", "18446744073709551616",
                                         "9e308", "1.5e-400"));

class DamagedPreferences : public testing::TestWithParam<const char *> {};

TEST_P(DamagedPreferences, areRefused) {
    EXPECT_EQ(parsePreferences(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(PreferencesDocument, DamagedPreferences,
                         testing::Values("", " ", "{", "}", "{\"a\":1", "{\"a\":1,}", "{\"a\":1}x",
                                         "{\"a\":1}{}", "[]", "[1]", "1", "\"a\"", "null", "{\"a\":01}",
                                         "{\"a\":NaN}", "{\"a\":1e999}", "{\"a\":\"\xff\"}", "{\"\xff\":1}",
                                         "{'a':1}", "{\"a\":\"\\ud800\"}"));

TEST(PreferencesDocument, takesTheLastOfTwoValuesOfOneName) {
    EXPECT_EQ(parsePreferences("{\"a\":null,\"a\":2}")->values.value(QStringLiteral("a")), 2);
    EXPECT_EQ(parsePreferences("{\"a\":2,\"a\":null}")->foreign.value(QStringLiteral("a")), "null");
    EXPECT_FALSE(parsePreferences("{\"a\":2,\"a\":null}")->values.contains(QStringLiteral("a")));
}

TEST(PreferencesDocument, equalsAnotherFieldByField) {
    EXPECT_EQ(parsePreferences("{\"a\":1,\"b\":null}"), parsePreferences("{\"b\":null,\"a\":1}"));
    EXPECT_NE(parsePreferences("{\"a\":1,\"b\":null}"), parsePreferences("{\"a\":2,\"b\":null}"));
    EXPECT_NE(parsePreferences("{\"a\":1,\"b\":null}"), parsePreferences("{\"a\":1,\"b\":{}}"));
}

TEST(PreferencesDocument, readsNestingOfAnyDepth) {
    const QByteArray deep = QByteArray(1'000'000, '[') + QByteArray(1'000'000, ']');
    EXPECT_EQ(kept(deep), deep);
}

TEST(PreferencesDocument, readsAnExponentInEitherCase) {
    EXPECT_EQ(read("1e5"), QVariant(1e5));
    EXPECT_EQ(read("1E5"), QVariant(1e5));
}

TEST(PreferencesDocument, writesAWholeNumberOfEitherSize) {
    EXPECT_EQ(written(5), "{ \"key\": 5 }");
    EXPECT_EQ(written(5LL), "{ \"key\": 5 }");
}

TEST(PreferencesDocument, leavesOutWhatJsonCannotHold) {
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "{}");
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "{}");
    EXPECT_EQ(written(QVariantMap()), "{}");
}

}  // namespace
}  // namespace pimloft
