// SPDX-License-Identifier: MIT
#include "clipboard/history_reader.h"

#include "entries.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace pimloft {
namespace {

using test::areTheSame;
using test::text;

/// Reads from memory, so many bytes at a time.
HistoryResult read(const QByteArray &bytes, qint64 piece = 1'000'000) {
    qint64 next = 0;
    return readHistory([&](char *to, qint64 size) {
        const qint64 part = std::min({size, piece, qint64(bytes.size()) - next});
        std::copy_n(bytes.constData() + next, part, to);
        next += part;
        return part;
    });
}

std::vector<ClipboardItem> itemsOf(const QByteArray &bytes, qint64 piece = 1'000'000) {
    const HistoryResult result = read(bytes, piece);
    if (const QString *failure = std::get_if<QString>(&result)) {
        ADD_FAILURE() << failure->toStdString();
        return {};
    }
    return std::get<std::vector<ClipboardItem>>(result);
}

/// Empty where it can be read.
QString failureOf(const QByteArray &bytes) {
    const HistoryResult result = read(bytes);
    const QString *failure = std::get_if<QString>(&result);
    return failure ? *failure : QString();
}

/// A history of one entry, one of whose members is replaced; left out when the new one is empty.
QByteArray withMember(const QByteArray &key, const QByteArray &member) {
    const std::pair<QByteArray, QByteArray> members[] = {
        {"id", "\"id\":\"11111111-2222-3333-4444-AABBCCDDEEFF\""},
        {"content", "\"content\":{\"text\":{\"_0\":\"x\"}}"},
        {"sourceApp", "\"sourceApp\":\"Editor\""},
        {"timestamp", "\"timestamp\":1"},
        {"isPinned", "\"isPinned\":true"},
    };
    QByteArrayList all;
    for (const auto &[name, usual] : members)
        if (name != key)
            all << usual;
    if (!member.isEmpty())
        all << member;
    return "[{" + all.join(',') + "}]";
}
QByteArray withContent(const QByteArray &content) {
    return withMember("content", "\"content\":" + content);
}

TEST(HistoryReader, readsAnEmptyHistory) {
    EXPECT_TRUE(itemsOf("[]").empty());
    EXPECT_TRUE(itemsOf(" [ \n\t] \r\n").empty());
}

TEST(HistoryReader, readsMembersInAnyOrderAndLeavesTheBundleIdentifierAbsent) {
    const auto items = itemsOf(withMember("id", "\"id\":\"11111111-2222-3333-4444-aabbccddeeff\""));
    ASSERT_EQ(items.size(), 1u);
    const ClipboardItem expected{QUuid(QStringLiteral("11111111-2222-3333-4444-AABBCCDDEEFF")),
                                 TextContent{QStringLiteral("x")},
                                 QStringLiteral("Editor"),
                                 {},
                                 {1},
                                 true};
    EXPECT_TRUE(areTheSame(items.front(), expected));
}

TEST(HistoryReader, takesOnlyHexadecimalDigitsWithDashesBetweenThemForAnIdentifier) {
    const auto withId = [](char digit, char dash) {
        return withMember("id",
                          QByteArray("\"id\":\"1111111") + digit + dash + "2222-3333-4444-AABBCCDDEEFF\"");
    };
    for (const char digit : {'0', '9', 'a', 'f', 'A', 'F'})
        EXPECT_EQ(failureOf(withId(digit, '-')), QString()) << digit;
    for (const char digit : {'.', ':', '`', 'g', '@', 'G', '-', ' '})
        EXPECT_NE(failureOf(withId(digit, '-')), QString()) << digit;
    EXPECT_NE(failureOf(withId('1', '1')), QString());
}

TEST(HistoryReader, takesANullBundleIdentifierForAbsent) {
    const auto items = itemsOf(withMember("", "\"sourceAppBundleID\" : null"));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.front().sourceAppBundleID, std::nullopt);
}

TEST(HistoryReader, ignoresMembersThatItDoesNotKnow) {
    const QByteArray strange =
        R"("more":[1,{"_0":[]},"text",null,{"id":5,"content":{"a":{}}}],"x":5,"y":{"_0":1},"z":true)";
    EXPECT_EQ(itemsOf(withMember("", strange)).size(), 1u);
    const auto items = itemsOf(withContent(R"({"text":{"other":{"_0":7},"_0":"kept","last":"x"}})"));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.front().content, ClipboardContent(TextContent{QStringLiteral("kept")}));
}

TEST(HistoryReader, readsEveryEscape) {
    const auto items =
        itemsOf(withContent(R"({"text":{"_0":"\"\\\/\b\f\n\r\tA\u00e9\uD83D\uDE00\u0000é"}})"));
    ASSERT_EQ(items.size(), 1u);
    QString expected = QStringLiteral("\"\\/\b\f\n\r\tA\u00E9\U0001F600");
    expected += QChar(u'\0');
    expected += QStringLiteral("\u00E9");
    EXPECT_EQ(items.front().content, ClipboardContent(TextContent{expected}));
}

TEST(HistoryReader, readsSlashesEscapedOrNot) {
    for (const char *content : {R"({"image":{"_0":"//8="}})", R"({"image":{"_0":"\/\/8="}})"}) {
        const auto items = itemsOf(withContent(content));
        ASSERT_EQ(items.size(), 1u);
        EXPECT_EQ(items.front().content, ClipboardContent(ImageContent{"\xFF\xFF"}));
    }
    for (const char *content :
         {R"({"fileURL":{"_0":"file:///a/b"}})", R"({"fileURL":{"_0":"file:\/\/\/a\/b"}})"}) {
        const auto items = itemsOf(withContent(content));
        ASSERT_EQ(items.size(), 1u);
        EXPECT_EQ(items.front().content,
                  ClipboardContent(FileURLContent{QUrl(QStringLiteral("file:///a/b"))}));
    }
}

TEST(HistoryReader, keepsAByteOrderMarkThatIsPartOfAText) {
    const auto items = itemsOf(withContent("{\"text\":{\"_0\":\"\xEF\xBB\xBFx\"}}"));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.front().content, ClipboardContent(TextContent{QStringLiteral("\uFEFFx")}));
}

TEST(HistoryReader, isTheSameHoweverTheFileComes) {
    const QByteArray bytes = test::contentOf(QStringLiteral(GOLDEN_FILES "/every_kind.json"));
    const auto whole = itemsOf(bytes);
    ASSERT_EQ(whole.size(), 5u);
    for (qint64 piece = 1; piece < 40; ++piece)
        EXPECT_TRUE(areTheSame(itemsOf(bytes, piece), whole)) << "in pieces of " << piece;
}

struct Number {
    const char *text;
    double value;
};
class HistoryNumber : public testing::TestWithParam<Number> {};

TEST_P(HistoryNumber, isReadInAnyForm) {
    const auto items = itemsOf(withMember("timestamp", QByteArray("\"timestamp\":") + GetParam().text));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.front().timestamp.seconds, GetParam().value);
    // Also where it does not come in one piece.
    const auto torn = itemsOf(withMember("timestamp", QByteArray("\"timestamp\":") + GetParam().text), 3);
    ASSERT_EQ(torn.size(), 1u);
    EXPECT_EQ(torn.front().timestamp.seconds, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(HistoryReader, HistoryNumber,
                         testing::Values(Number{"1e5", 100000}, Number{"1E+5", 100000},
                                         Number{"-1.5e-2", -0.015}, Number{"700000000.0", 7e8},
                                         Number{"0", 0}, Number{"-3", -3}, Number{"4294967296", 4294967296.0},
                                         Number{"-4294967296", -4294967296.0},
                                         Number{"18446744073709551616", 18446744073709551616.0},
                                         Number{"763934400.12345600000", 763934400.123456},
                                         Number{"0.1000000000000000055511151231257827", 0.1},
                                         Number{"9007199254740993", 9007199254740992.0}));

TEST(HistoryReader, readsNumbersWithAnyNumberOfZeros) {
    const QByteArray zeros(400, '0');
    const auto secondsOf = [](const QByteArray &number) {
        return itemsOf(withMember("timestamp", "\"timestamp\":" + number)).at(0).timestamp.seconds;
    };
    EXPECT_EQ(secondsOf("0." + zeros + "e9"), 0);
    EXPECT_EQ(secondsOf("0." + zeros + "25e401"), 2.5);
    EXPECT_EQ(secondsOf("1." + zeros + "1"), 1);
}

TEST(HistoryReader, refusesNumbersOutOfRange) {
    const QByteArray tiny = "0." + QByteArray(400, '0') + "777040008";
    for (const char *number :
         {"9e308", "-9e308", "1e400", "1e2147483648", "1.5e-2147483647", tiny.constData()})
        EXPECT_FALSE(failureOf(withMember("timestamp", QByteArray("\"timestamp\":") + number)).isEmpty())
            << number;
}

TEST(HistoryReader, readsRandomNumbersExactly) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    for (int run = 0; run < 2000; ++run) {
        const double value = std::ldexp(double(random()), int(random() % 60) - 60);
        const QByteArray number = QByteArray::number(value, 'g', 17);
        const auto items = itemsOf(withMember("timestamp", "\"timestamp\":" + number));
        ASSERT_EQ(items.size(), 1u);
        ASSERT_EQ(items.front().timestamp.seconds, value) << number.constData();
    }
}

class NumberOfKeys : public testing::TestWithParam<const char *> {};

TEST_P(NumberOfKeys, mustBeOne) {
    EXPECT_EQ(failureOf(withContent(GetParam())),
              QStringLiteral("Invalid number of keys found, expected one."));
}

INSTANTIATE_TEST_SUITE_P(HistoryReader, NumberOfKeys,
                         testing::Values(R"({"text":{"_0":"a"},"html":{"_0":"b"}})", "{}",
                                         R"({"text":{"_0":"a"},"text":{"_0":"b"}})",
                                         R"({"text":{"_0":"a"},"other":1})", R"({"sound":{"_0":"a"}})"));

class BrokenHistory : public testing::TestWithParam<QByteArray> {};

TEST_P(BrokenHistory, failsAsAWhole) {
    const QByteArray good = withMember("", "");
    EXPECT_NE(failureOf(GetParam()), QString()) << GetParam().constData();
    const QByteArray item = GetParam().mid(1, GetParam().size() - 2);
    EXPECT_NE(failureOf(good.chopped(1) + ',' + item + ']'), QString());
}

QByteArray surrogate(const char *escape) {
    return withContent(QByteArray("{\"text\":{\"_0\":\"") + escape + "\"}}");
}

INSTANTIATE_TEST_SUITE_P(
    HistoryReader, BrokenHistory,
    testing::Values(
        withMember("id", ""), withMember("content", ""), withMember("sourceApp", ""),
        withMember("timestamp", ""), withMember("isPinned", ""), withMember("id", "\"id\":5"),
        withMember("id", "\"id\":\"11111111-2222-3333-4444-AABBCCDDEEF\""),
        withMember("id", "\"id\":\"{11111111-2222-3333-4444-AABBCCDDEEFF}\""),
        withMember("id", "\"id\":\"11111111-2222-3333-4444-AABBCCDDEEFG\""),
        withMember("sourceApp", "\"sourceApp\":null"), withMember("", "\"sourceAppBundleID\":true"),
        withMember("", "\"sourceAppBundleID\":{\"text\":{\"_0\":\"x\"}}"),
        withMember("", "\"sourceAppBundleID\":1"), withMember("timestamp", "\"timestamp\":\"1\""),
        withMember("timestamp", "\"timestamp\":1e400"), withMember("timestamp", "\"timestamp\":NaN"),
        withMember("timestamp", "\"timestamp\":01"), withMember("isPinned", "\"isPinned\":null"),
        withMember("isPinned", "\"isPinned\":1"), withContent("null"), withContent("\"x\""),
        withContent("[]"), withContent(R"({"text":"x"})"), withContent(R"({"text":{}})"),
        withContent(R"({"text":{"0":"x"}})"), withContent(R"({"text":{"_0":null}})"),
        withContent(R"({"text":{"_0":1}})"), withContent(R"({"text":{"_0":["x"]}})"),
        withContent(R"({"text":{"_0":{"_0":"x"}}})"), withContent(R"({"image":{"_0":"AAA"}})"),
        withContent(R"({"image":{"_0":"AA A"}})"), withContent(R"({"image":{"_0":"AA\nAA"}})"),
        withContent(R"({"image":{"_0":true}})"), withContent(R"({"richText":{"_0":"-_=="}})"),
        withContent(R"({"fileURL":{"_0":""}})"), withContent(R"({"fileURL":{"_0":"file:///a b"}})"),
        surrogate("\\uD83D"), surrogate("\\uDE00"), surrogate("\\uD83Dx"), surrogate("\\uD83D\\u0041"),
        surrogate("\\u12"), surrogate("\\x"), surrogate("\xFF"), surrogate("\xC3"), surrogate("\xED\xA0\x80"),
        surrogate("a\nb"), surrogate("a\x01"), withMember("", "\"\xFF\":1"),
        withMember("", "\"more\":\"\xFF\""),
        withMember("", "\"more\":" + QByteArray(600, '[') + QByteArray(600, ']'))));

class BrokenDocument : public testing::TestWithParam<QByteArray> {};

TEST_P(BrokenDocument, cannotBeRead) {
    EXPECT_NE(failureOf(GetParam()), QString());
}

INSTANTIATE_TEST_SUITE_P(HistoryReader, BrokenDocument,
                         testing::Values("", " ", "{}", "null", "\"x\"", "1", "[1]", "[[]]", "[null]",
                                         "[\"x\"]", "[", "]", "[{", "[,]", "[]]", "[] x", "[][]", "[{},]",
                                         "[{}]", QByteArray("[]\0", 3), QByteArray("\0[]", 3),
                                         "\xEF\xBB\xBF[]", QByteArray(100'000, '['),
                                         QByteArray("[{\"a\":") + QByteArray(100'000, '{'),
                                         QByteArray(1'000'000, '\0')));

TEST(HistoryReader, cannotReadAHistoryThatIsCutOffAnywhere) {
    const QByteArray bytes = test::contentOf(QStringLiteral(GOLDEN_FILES "/every_kind.json"));
    for (qsizetype size = 0; size < bytes.size(); ++size)
        EXPECT_NE(failureOf(bytes.first(size)), QString()) << size;
}

TEST(HistoryReader, saysNothingOfTheContentWhenItFails) {
    const QString failure = failureOf(withContent(R"({"text":{"_0":"secret"},"html":{"_0":"secret"}})")) +
                            failureOf(withContent(R"({"secret":{"_0":1}})")) +
                            failureOf(withMember("id", "\"id\":\"secret\""));
    EXPECT_FALSE(failure.contains(QStringLiteral("secret"))) << failure.toStdString();
}

TEST(HistoryReader, tellsThatReadingFailed) {
    const HistoryResult result = readHistory([](char *, qint64) -> qint64 { return -1; });
    EXPECT_EQ(std::get<QString>(result), QStringLiteral("The file could not be read to its end."));
}

}  // namespace
}  // namespace pimloft
