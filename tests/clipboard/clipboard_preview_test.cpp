// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_preview.h"

#include "entries.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QString ofText(const QString &string) {
    return preview(TextContent{string});
}
QString ofHtml(const QString &string) {
    return preview(HtmlContent{string});
}
QString ofFile(const char *url) {
    return preview(FileURLContent{QUrl::fromEncoded(url, QUrl::StrictMode)});
}

QByteArray picture(QSize size, const char *format) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setDotsPerMeterX(5669);
    image.setDotsPerMeterY(5669);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

TEST(TextPreview, isTheFirstTwoLines) {
    EXPECT_EQ(ofText(QStringLiteral("a\nb\nc")), QStringLiteral("a\nb"));
    EXPECT_EQ(ofText(QStringLiteral("a\nb")), QStringLiteral("a\nb"));
    EXPECT_EQ(ofText(QStringLiteral("a\n")), QStringLiteral("a\n"));
    EXPECT_EQ(ofText(QStringLiteral("\n\n\n")), QStringLiteral("\n"));
}

TEST(TextPreview, isTheFirst200Characters) {
    EXPECT_EQ(ofText(QString(500, u'x')), QString(200, u'x'));
    EXPECT_EQ(ofText(QString(200, u'x')), QString(200, u'x'));
    EXPECT_EQ(ofText(QString(150, u'x') + u'\n' + QString(150, u'y')),
              QString(150, u'x') + u'\n' + QString(49, u'y'));
}

TEST(TextPreview, ofAnEmptyTextIsEmpty) {
    EXPECT_EQ(ofText({}), QString());
}

TEST(TextPreview, takesACarriageReturnAndALineFeedForTwoSeparators) {
    EXPECT_EQ(ofText(QStringLiteral("x\r\ny")), QStringLiteral("x\n"));
}

class Newline : public testing::TestWithParam<char16_t> {};

TEST_P(Newline, separatesLines) {
    const QChar newline(GetParam());
    EXPECT_EQ(ofText(QStringLiteral("a") + newline + QStringLiteral("b") + newline + u'c'),
              QStringLiteral("a\nb"));
}

INSTANTIATE_TEST_SUITE_P(TextPreview, Newline,
                         testing::Values(u'\n', u'\v', u'\f', u'\r', u'\u0085', u'\u2028', u'\u2029'));

TEST(TextPreview, takesNothingElseForANewline) {
    const QString line = QStringLiteral("a\tb\u0008c\u000Ed\u001Ce\u0084f\u0086g\u2027h\u202Ai");
    EXPECT_EQ(ofText(line + QStringLiteral("\nsecond\nthird")), line + QStringLiteral("\nsecond"));
}

TEST(TextPreview, countsWhatAReaderTakesForOneCharacterAsOne) {
    const QString family =
        QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");  // one picture of five code points
    const QString accent = QStringLiteral("e\u0301\u0323");
    const QString flag = QStringLiteral("\U0001F1E9\U0001F1EA");
    for (const QString &character : {family, accent, flag, QStringLiteral("\U0001D11E")})
        EXPECT_EQ(ofText(character.repeated(300)), character.repeated(200));
}

TEST(TextPreview, doesNotCutACharacterThatGoesOnForLong) {
    // One letter under so many marks that it is longer than any window that is looked at first.
    const QString letter = QStringLiteral("e") + QString(5000, u'\u0301');
    EXPECT_EQ(ofText(letter + QString(300, u'x')), letter + QString(199, u'x'));
    EXPECT_EQ(ofText(QString(199, u'x') + letter + u'y'), QString(199, u'x') + letter);
}

TEST(TextPreview, isTheSameWhereverTheLookedAtWindowEnds) {
    const QString pair = QStringLiteral("\U0001F600");
    for (int length = 1000; length < 1050; ++length) {
        const QString marks(length, u'\u0301');
        EXPECT_EQ(ofText(QString(199, u'x') + u'e' + marks + pair + pair), QString(199, u'x') + u'e' + marks);
    }
}

TEST(RichTextPreview, isAFixedText) {
    EXPECT_EQ(preview(RichTextContent{"{\\rtf1 x}"}), QStringLiteral("[Rich Text]"));
}

TEST(HtmlPreview, leavesTheTagsOut) {
    EXPECT_EQ(ofHtml(QStringLiteral("<p>Hi <b>there</b></p>")), QStringLiteral("Hi there"));
    EXPECT_EQ(ofHtml(QStringLiteral("<a\nhref='x'>link</a>")), QStringLiteral("link"));
    EXPECT_EQ(ofHtml(QString()), QString());
    EXPECT_EQ(ofHtml(QStringLiteral("<br>")), QString());
}

TEST(HtmlPreview, leavesALoneLessThanSignAlone) {
    EXPECT_EQ(ofHtml(QStringLiteral("1 < 2")), QStringLiteral("1 < 2"));
    EXPECT_EQ(ofHtml(QStringLiteral("<b>x</b> < y")), QStringLiteral("x < y"));
}

TEST(HtmlPreview, takesForATagOnlyWhatHasSomethingBetweenItsBrackets) {
    EXPECT_EQ(ofHtml(QStringLiteral("a<>b")), QStringLiteral("a<>b"));
    EXPECT_EQ(ofHtml(QStringLiteral("a<<b>c")), QStringLiteral("ac"));
    EXPECT_EQ(ofHtml(QStringLiteral("a<>>b")), QStringLiteral("a<>>b"));
    EXPECT_EQ(ofHtml(QStringLiteral("<><i>b")), QStringLiteral("<>b"));
    EXPECT_EQ(ofHtml(QStringLiteral("a > b")), QStringLiteral("a > b"));
}

TEST(HtmlPreview, decodesAndCollapsesNothing) {
    EXPECT_EQ(ofHtml(QStringLiteral("&amp;  x\n\n\ny")), QStringLiteral("&amp;  x\n\n\ny"));
}

TEST(HtmlPreview, isTheFirst200CharactersBehindAnyNumberOfTags) {
    EXPECT_EQ(ofHtml(QStringLiteral("<i>x</i>").repeated(3000)), QString(200, u'x'));
    EXPECT_EQ(ofHtml(QStringLiteral("<p>") + QString(5000, u'x')), QString(200, u'x'));
    EXPECT_EQ(ofHtml(QStringLiteral("e<b>\u0301</b>").repeated(300)),
              QStringLiteral("e\u0301").repeated(200));
    EXPECT_EQ(ofHtml(QStringLiteral("\r\n").repeated(300)), QStringLiteral("\r\n").repeated(200));
}

TEST(HtmlPreview, doesNotCutACharacterThatGoesOnForLong) {
    const QString letter = QStringLiteral("e") + QString(5000, u'\u0301');
    EXPECT_EQ(ofHtml(QStringLiteral("<b>") + letter + QStringLiteral("</b>") + QString(300, u'x')),
              letter + QString(199, u'x'));
}

TEST(ImagePreview, isTheSizeInPixelsWhateverTheResolution) {
    EXPECT_EQ(preview(ImageContent{picture({1440, 900}, "png")}), QStringLiteral("Image 1440\u00D7900"));
}

TEST(ImagePreview, ofWhatIsNoPictureIsTheNumberOfBytes) {
    EXPECT_EQ(preview(ImageContent{QByteArray(1'234'567, 'x')}), QStringLiteral("Image (1.2 MB)"));
    EXPECT_EQ(preview(ImageContent{}), QStringLiteral("Image (Zero KB)"));
    EXPECT_EQ(preview(ImageContent{picture({10, 10}, "png").left(20)}), QStringLiteral("Image (20 bytes)"));
}

TEST(ImagePreview, ofAPictureWithAGoodHeaderAndNothingBehindItIsTheNumberOfBytes) {
    EXPECT_EQ(preview(ImageContent{picture({500, 500}, "png").left(60)}), QStringLiteral("Image (60 bytes)"));
    EXPECT_EQ(preview(ImageContent{picture({500, 500}, "tiff").left(900)}),
              QStringLiteral("Image (900 bytes)"));
}

TEST(FilePreview, isTheNameOfTheFile) {
    EXPECT_EQ(ofFile("file:///home/me/a%20b%C3%A9.txt"), QStringLiteral("a b\u00E9.txt"));
    EXPECT_EQ(ofFile("file:///home/me/folder/"), QStringLiteral("folder"));
    EXPECT_EQ(ofFile("file:///"), QStringLiteral("/"));
    EXPECT_EQ(ofFile("file:///a/100%25"), QStringLiteral("100%"));
    EXPECT_EQ(ofFile("file:///a/%23x%3F"), QStringLiteral("#x?"));
}

}  // namespace
}  // namespace pimloft
