// SPDX-License-Identifier: MIT
#include "updates/appcast_parser.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// What the parser makes of a document: "version | notes | address", with a dash for what there is none of.
std::string read(const QByteArray &document) {
    const auto item = AppcastParser(document).parse();
    if (!item)
        return "nothing";
    return (item->version + QStringLiteral(" | ") + item->releaseNotes.value_or(QStringLiteral("-")) +
            QStringLiteral(" | ") + (item->downloadURL ? item->downloadURL->toString() : QStringLiteral("-")))
        .toStdString();
}

/// A feed around the content of its only release.
QByteArray feed(const QByteArray &content) {
    return "<rss version=\"2.0\"><channel><item>" + content + "</item></channel></rss>";
}

TEST(AppcastParser, readsVersionNotesAndAddress) {
    EXPECT_EQ(read(R"(<?xml version="1.0" encoding="utf-8"?>
        <rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
          <channel>
            <title>Pimloft</title>
            <item>
              <title>Version 2.0</title>
              <description>
                Faster, and it purrs.
              </description>
              <enclosure url="https://pimloft.example/2.0.dmg" sparkle:shortVersionString="2.0"/>
            </item>
          </channel>
        </rss>)"),
              "2.0 | Faster, and it purrs. | https://pimloft.example/2.0.dmg");
}

TEST(AppcastParser, takesTheFirstReleaseAndNotTheNewest) {
    EXPECT_EQ(read(R"(<rss><item><enclosure url="https://a.example/1" sparkle:version="1.0"/></item>
                           <item><enclosure url="https://a.example/2" sparkle:version="2.0"/></item></rss>)"),
              "1.0 |  | https://a.example/1");
}

TEST(AppcastParser, aShortVersionWinsOverAVersion) {
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="200"/>)")),
              "200 |  | https://a.example/a");
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="200"
                           sparkle:shortVersionString="2.0"/>)")),
              "2.0 |  | https://a.example/a");
}

TEST(AppcastParser, anEmptyShortVersionWinsToo) {
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="200"
                           sparkle:shortVersionString=""/>)")),
              " |  | https://a.example/a");
}

TEST(AppcastParser, aVersionElementAfterTheEnclosureIsAppendedToItsVersion) {
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="1.2"/>
                           <sparkle:version> .3 </sparkle:version>)")),
              "1.2.3 |  | https://a.example/a");
}

TEST(AppcastParser, anEnclosureAfterAVersionElementReplacesIt) {
    EXPECT_EQ(read(feed(R"(<sparkle:shortVersionString>1.0</sparkle:shortVersionString>
                           <enclosure url="https://a.example/a" sparkle:version="1.2"/>)")),
              "1.2 |  | https://a.example/a");
}

TEST(AppcastParser, anEnclosureWithoutAVersionLeavesTheElementsVersion) {
    EXPECT_EQ(read(feed(R"(<sparkle:version>1.0</sparkle:version><enclosure url="https://a.example/a"/>)")),
              "1.0 |  | https://a.example/a");
}

TEST(AppcastParser, bothVersionElementsAreAppendedToEachOther) {
    EXPECT_EQ(read(feed("<sparkle:shortVersionString> 1.0 </sparkle:shortVersionString>"
                        "<sparkle:version>\n7\n</sparkle:version>")),
              "1.07 |  | -");
}

TEST(AppcastParser, anEnclosureWithoutAnAddressIsIgnoredWhole) {
    EXPECT_EQ(read(feed(R"(<enclosure sparkle:version="9" sparkle:shortVersionString="9"/>)")), " |  | -");
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="1"/>
                           <enclosure sparkle:version="9"/>)")),
              "1 |  | https://a.example/a");
}

TEST(AppcastParser, anAddressThatIsNoneTakesTheAddressAwayAndLeavesTheVersion) {
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="1"/>
                           <enclosure url="https://a b/ c" sparkle:version="2"/>)")),
              "2 |  | -");
    EXPECT_EQ(read(feed(R"(<enclosure url="" sparkle:version="2"/>)")), "2 |  | -");
}

TEST(AppcastParser, theLastOfTwoEnclosuresCounts) {
    EXPECT_EQ(read(feed(R"(<enclosure url="https://a.example/a" sparkle:version="1"/>
                           <enclosure url="https://a.example/b" sparkle:version="2"/>)")),
              "2 |  | https://a.example/b");
}

TEST(AppcastParser, anItemWithoutAVersionHasAnEmptyOne) {
    EXPECT_EQ(read(feed("")), " |  | -");
    EXPECT_EQ(read("<rss><item/></rss>"), " |  | -");
}

TEST(AppcastParser, textAfterAClosingTagCountsToTheElementOpenedLast) {
    EXPECT_EQ(read(feed("<description>One</description> and two <title>Three</title> four")),
              " | One and two | -");
    EXPECT_EQ(read(feed("<sparkle:version>1</sparkle:version> .5 ")), "1.5 |  | -");
}

TEST(AppcastParser, markupInTheNotesIsDroppedWithItsText) {
    EXPECT_EQ(read(feed("<description>One <b>two</b> three</description>")), " | One | -");
}

TEST(AppcastParser, sectionsOfTextAndReferencesAreText) {
    EXPECT_EQ(read(feed("<description><![CDATA[<p>One & two</p>]]> &amp; &#x2013; three</description>")),
              " | <p>One & two</p> & – three | -");
}

TEST(AppcastParser, twoDescriptionsAreAppended) {
    EXPECT_EQ(read(feed("<description>One</description><description>Two</description>")), " | OneTwo | -");
}

TEST(AppcastParser, onlyTextInsideAnItemCounts) {
    EXPECT_EQ(read("<rss><description>Channel</description><sparkle:version>9</sparkle:version>"
                   "<item><sparkle:version>1</sparkle:version></item></rss>"),
              "1 |  | -");
}

TEST(AppcastParser, anEnclosureBeforeTheItemIsForgotten) {
    EXPECT_EQ(read(R"(<rss><enclosure url="https://a.example/a" sparkle:version="9"/><item/></rss>)"),
              " |  | -");
}

TEST(AppcastParser, anItemWithinAnItemStartsAnewAndEndsIt) {
    EXPECT_EQ(read(feed("<sparkle:version>1</sparkle:version><item><sparkle:version>2</sparkle:version>"
                        "</item><sparkle:version>3</sparkle:version>")),
              "2 |  | -");
}

TEST(AppcastParser, namesAreTakenAsTheyAreWritten) {
    EXPECT_EQ(read("<RSS><Item><sparkle:version>1</sparkle:version></Item></RSS>"), "nothing");
    EXPECT_EQ(read(feed("<s:version xmlns:s=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">1"
                        "</s:version>")),
              " |  | -");
    EXPECT_EQ(read("<a:rss><a:item/></a:rss>"), "nothing");
}

TEST(AppcastParser, whatWasReadBeforeAnErrorCounts) {
    EXPECT_EQ(read("<rss><item><sparkle:version>1</sparkle:version></item><broken"), "1 |  | -");
    EXPECT_EQ(read("<rss><item><sparkle:version>1</sparkle:version></item></wrong>"), "1 |  | -");
    EXPECT_EQ(read("<rss><item><sparkle:version>1</sparkle:version></item>&nbsp;\xff"), "1 |  | -");
    EXPECT_EQ(read("<rss><item><sparkle:version>1</sparkle:version></broken>"), "nothing");
}

TEST(AppcastParser, whatIsNoFeedHoldsNothing) {
    for (const char *document : {"", " ", "not XML", "{\"item\": 1}", "<rss/>", "<rss><channel/></rss>",
                                 "<html><body><p>404</p></body></html>", "<", "\xff\xfe", "<item"})
        EXPECT_EQ(read(document), "nothing") << document;
}

TEST(AppcastParser, readsWhatIsEncodedOtherwise) {
    const QString document = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                                            "<rss><item><description>Grüße</description></item></rss>");
    QStringEncoder utf16(QStringEncoder::Utf16, QStringEncoder::Flag::WriteBom);
    EXPECT_EQ(read(utf16.encode(document)), " | Grüße | -");
    EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>"
                   "<rss><item><description>Gr\xfc\xdf"
                   "e</description></item></rss>"),
              " | Grüße | -");
    EXPECT_EQ(read("\xef\xbb\xbf<rss><item><description>Grüße</description></item></rss>"), " | Grüße | -");
}

TEST(AppcastParser, anEncodingThatIsNoneHoldsNothing) {
    EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"x-nonsense\"?><rss><item/></rss>"), "nothing");
    EXPECT_EQ(read("<rss><item><description>\xc3\x28</description></item></rss>"), "nothing");
}

TEST(AppcastParser, aBombOfEntitiesGoesOffWithoutHarm) {
    QByteArray bomb = "<!DOCTYPE rss [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int level = 1; level < 12; ++level) {
        const QByteArray lower = "&a" + QByteArray::number(level - 1) + ';';
        bomb += "<!ENTITY a" + QByteArray::number(level) + " \"" + lower.repeated(10) + "\">";
    }
    bomb += "]><rss><item><description>&a11;</description></item></rss>";
    EXPECT_EQ(read(bomb), "nothing");
}

TEST(AppcastParser, neitherDoManySmallEntitiesTakeTheMemory) {
    const QByteArray entity = QByteArray("<!DOCTYPE rss [<!ENTITY a \"") + QByteArray(4000, 'a') + "\">]>";
    const QByteArray bomb =
        "<rss><item><description>" + QByteArray("&a;").repeated(1 << 20) + "</description></item></rss>";
    EXPECT_EQ(read(entity + bomb), "nothing");
}

TEST(AppcastParser, anEntityOfTheDocumentIsItsText) {
    EXPECT_EQ(read("<!DOCTYPE rss [<!ENTITY app \"Pimloft\">]>"
                   "<rss><item><description>&app; is here</description></item></rss>"),
              " | Pimloft is here | -");
}

TEST(AppcastParser, endlessDepthAndEndlessTagsEndEarly) {
    EXPECT_EQ(read(QByteArray("<a>").repeated(1 << 20)), "nothing");
    QByteArray tag = "<rss ";
    for (int index = 0; index < 100000; ++index)
        tag += "a" + QByteArray::number(index) + "='' ";
    EXPECT_EQ(read(tag + "><item/></rss>"), "nothing");
}

TEST(AppcastParser, nothingBehindTheFirstReleaseIsRead) {
    EXPECT_EQ(read("<rss><item/>" + QByteArray("<item/>").repeated(1 << 20)), " |  | -");
}

}  // namespace
}  // namespace pimloft
