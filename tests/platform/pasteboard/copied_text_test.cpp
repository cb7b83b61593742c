// SPDX-License-Identifier: MIT
#include "platform/pasteboard/copied_text.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QByteArray bytes(std::u16string_view text, bool bigEndian = false) {
    QByteArray result;
    for (const char16_t unit : text) {
        const char low = char(unit & 0xff);
        const char high = char(unit >> 8);
        result += bigEndian ? high : low;
        result += bigEndian ? low : high;
    }
    return result;
}

TEST(CopiedHtml, isTakenAsItIsInUtf8) {
    EXPECT_EQ(htmlText("", "<b>\xc3\xa4</b>"), QByteArray("<b>\xc3\xa4</b>"));
    EXPECT_EQ(htmlText("", ""), QByteArray());
}

TEST(CopiedHtml, isDecodedFromTheUtf16OfBrowsers) {
    const QByteArray html = "<b>\xc3\xa4</b>";
    EXPECT_EQ(htmlText("", bytes(u"\ufeff<b>ä</b>")), html);
    EXPECT_EQ(htmlText("", bytes(u"\ufeff<b>ä</b>", true)), html);
}

TEST(CopiedHtml, isDecodedFromUtf16WithoutAMark) {
    EXPECT_EQ(htmlText("", bytes(u"<b>ä</b>")), QByteArray("<b>\xc3\xa4</b>"));
    EXPECT_EQ(htmlText("", bytes(u"<b>ä</b>", true)), QByteArray("<b>\xc3\xa4</b>"));
}

TEST(CopiedHtml, losesItsMarkAndTheNulAtItsEnd) {
    EXPECT_EQ(htmlText("", QByteArray("\xef\xbb\xbf<b>x</b>\0", 12)), QByteArray("<b>x</b>"));
    EXPECT_EQ(htmlText("", bytes(u"\ufeff<b>" + std::u16string(1, u'\0'))), QByteArray("<b>"));
}

TEST(CopiedHtml, thatIsNoTextAtAllStaysAsItIs) {
    EXPECT_EQ(htmlText("", "<b>\xe9</b>"), QByteArray("<b>\xe9</b>"));
}

TEST(CopiedText, isReadByTheTypeOfTheAnswer) {
    EXPECT_EQ(plainText("UTF8_STRING", "\xc3\xa4"), QByteArray("\xc3\xa4"));
    EXPECT_EQ(plainText("STRING", "\xe4"), QByteArray("\xc3\xa4"));
    EXPECT_EQ(plainText("STRING", "\xc3\xa4"), QByteArray("\xc3\x83\xc2\xa4"));
    EXPECT_EQ(plainText("COMPOUND_TEXT", "\x1b%G\xc3\xa4"), std::nullopt);
}

TEST(CopiedText, ofNoKnownTypeIsUtf8OrElseLatin1) {
    EXPECT_EQ(plainText("", "\xc3\xa4"), QByteArray("\xc3\xa4"));
    EXPECT_EQ(plainText("", "\xe4"), QByteArray("\xc3\xa4"));
    EXPECT_EQ(plainText("", bytes(u"\ufeffä")), QByteArray("\xc3\xa4"));
}

TEST(CopiedText, isAlwaysUtf8) {
    EXPECT_EQ(plainText("UTF8_STRING", "a\xff"), QByteArray("a\xef\xbf\xbd"));
}

TEST(CopiedText, losesTheNulsAtItsEndOnly) {
    EXPECT_EQ(plainText("UTF8_STRING", QByteArray("a\0b\0\0", 5)), QByteArray("a\0b", 3));
}

TEST(CopiedRichText, isToldFromTheOlderFormatOfTheSameName) {
    EXPECT_EQ(richText("", "{\\rtf1 x}"), QByteArray("{\\rtf1 x}"));
    EXPECT_EQ(richText("", "<bold>x</bold>"), std::nullopt);
}

TEST(CopiedText, hasAQuestionMarkForWhatTheOldestProgramsCannotShow) {
    EXPECT_EQ(latin1Text("\xc3\xa4\xe2\x82\xac"), QByteArray("\xe4?"));
}

}  // namespace
}  // namespace pimloft
