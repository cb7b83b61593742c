// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_item.h"

#include "entries.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(ClipboardItem, equalsAnotherWithTheSameIdWhateverItHolds) {
    ClipboardItem a = test::text(QStringLiteral("a"));
    ClipboardItem b = test::pinned(test::text(QStringLiteral("b")));
    b.id = a.id;
    EXPECT_EQ(a, b);
}

TEST(ClipboardItem, differsFromAnotherIdAlsoWithTheSameContent) {
    const ClipboardItem a = test::text(QStringLiteral("same"));
    const ClipboardItem b = test::text(QStringLiteral("same"));
    EXPECT_FALSE(a == b);
    EXPECT_EQ(a.content, b.content);
}

TEST(ClipboardContent, differsByItsKindAlone) {
    EXPECT_FALSE(ClipboardContent(TextContent{QStringLiteral("x")}) ==
                 ClipboardContent(HtmlContent{QStringLiteral("x")}));
    EXPECT_FALSE(ClipboardContent(ImageContent{"x"}) == ClipboardContent(RichTextContent{"x"}));
}

TEST(ClipboardContent, hasItsKindsInTheOrderOfTheFile) {
    EXPECT_EQ(ClipboardContent(TextContent{}).index(), 0u);
    EXPECT_EQ(ClipboardContent(RichTextContent{}).index(), 1u);
    EXPECT_EQ(ClipboardContent(ImageContent{}).index(), 2u);
    EXPECT_EQ(ClipboardContent(FileURLContent{}).index(), 3u);
    EXPECT_EQ(ClipboardContent(HtmlContent{}).index(), 4u);
}

TEST(ReferenceTime, countsFromTheFirstDayOf2001) {
    const QDateTime start(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(ReferenceTime::from(start).seconds, 0);
    EXPECT_EQ(ReferenceTime::from(start.addMSecs(1250)).seconds, 1.25);
    EXPECT_EQ(ReferenceTime{-86400}.toDateTime(), start.addDays(-1));
}

TEST(ReferenceTime, thatNoCalendarGoesToIsAsFarAwayAsAny) {
    EXPECT_EQ(ReferenceTime{1e300}.toDateTime(), ReferenceTime{1e12}.toDateTime());
    EXPECT_EQ(ReferenceTime{-1e300}.toDateTime(), ReferenceTime{-1e12}.toDateTime());
    EXPECT_EQ(ReferenceTime{1e12}.toDateTime().date().year(), 33689);
}

}  // namespace
}  // namespace pimloft
