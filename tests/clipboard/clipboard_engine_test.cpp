// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>

namespace pimloft {
namespace {

using test::ClipboardEngineTest;

TEST_F(ClipboardEngineTest, recordsACopyWithItsSourceAndTime) {
    copyText("hello");
    ASSERT_EQ(recorded(), "hello");
    EXPECT_FALSE(newest().id.isNull());
    EXPECT_EQ(newest().content, ClipboardContent(TextContent{QStringLiteral("hello")}));
    EXPECT_EQ(newest().sourceApp, QStringLiteral("Editor"));
    EXPECT_EQ(newest().sourceAppBundleID, QStringLiteral("org.example.Editor"));
    EXPECT_EQ(newest().timestamp, ReferenceTime::from(clock.wall));
    EXPECT_FALSE(newest().isPinned);
}

TEST_F(ClipboardEngineTest, looksByItselfTwiceASecond) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    QSignalSpy changed(&store, &ClipboardStore::itemsChanged);
    QElapsedTimer elapsed;
    elapsed.start();
    while (store.items().empty() && elapsed.elapsed() < 20'000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        desktop.pasteboard.answer();
        settle();
    }
    EXPECT_EQ(recorded(), "x");
}

TEST_F(ClipboardEngineTest, asksNothingWhileNothingIsCopied) {
    engine.checkForChanges();
    EXPECT_EQ(desktop.pasteboard.pendingQuestions(), 0);
    copyText("x");
    engine.checkForChanges();
    EXPECT_EQ(desktop.pasteboard.pendingQuestions(), 0);
}

TEST_F(ClipboardEngineTest, recordsNothingOfWhatWasThereAtTheStart) {
    engine.stop();
    desktop.pasteboard.copy({{PasteType::plainText, "before"}});
    engine.start();
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "");
    copyText("after");
    EXPECT_EQ(recorded(), "after");
}

TEST_F(ClipboardEngineTest, recordsNothingThatIsCopiedWhileItIsStopped) {
    engine.stop();
    EXPECT_FALSE(engine.isActive());
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.start();
    EXPECT_TRUE(engine.isActive());
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, startingTwiceForgetsNoCopy) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.start();
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "x");
}

TEST_F(ClipboardEngineTest, givesUpACopyThatIsBeingReadWhenItIsStopped) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    desktop.pasteboard.answer();
    engine.stop();
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, recordsTheSameTextCopiedTwiceOnce) {
    copyText("x");
    copyText("x");
    EXPECT_EQ(recorded(), "x");
    EXPECT_EQ(desktop.pasteboard.changeCount(), 2);
}

TEST_F(ClipboardEngineTest, recordsOnlyTheSecondOfTwoCopiesWithinOneLook) {
    desktop.pasteboard.copy({{PasteType::plainText, "a"}});
    desktop.pasteboard.copy({{PasteType::plainText, "b"}});
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "b");
}

TEST_F(ClipboardEngineTest, givesUpACopyWhenSomethingNewerIsSeen) {
    desktop.pasteboard.copy({{PasteType::plainText, "old"}});
    engine.checkForChanges();
    desktop.pasteboard.answer();
    setFront(QStringLiteral("Newer"));
    copyText("new");
    EXPECT_EQ(recorded(), "new");
    EXPECT_EQ(newest().sourceApp, QStringLiteral("Newer"));
}

TEST_F(ClipboardEngineTest, takesTheOwnerOfAnOlderCopyForNobodyElses) {
    desktop.pasteboard.copy({{PasteType::plainText, "old"}});
    engine.checkForChanges();
    desktop.pasteboard.copy({{PasteType::plainText, "new"}});
    engine.checkForChanges();
    // There is no answer about the owner of the old one any more.
    settle();
    EXPECT_EQ(recorded(), "new");
}

TEST_F(ClipboardEngineTest, givesUpACopyWhenAnExcludedOneIsSeen) {
    desktop.pasteboard.copy({{PasteType::plainText, "old"}});
    engine.checkForChanges();
    setFront(QStringLiteral("Bitwarden"));
    copyText("new");
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, namesTheApplicationThatWasInFrontWhenTheCopyWasSeen) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    setFront(QStringLiteral("Later"));
    clock.wall = clock.wall.addSecs(10);
    settle();
    ASSERT_EQ(recorded(), "x");
    EXPECT_EQ(newest().sourceApp, QStringLiteral("Editor"));
    EXPECT_EQ(newest().timestamp.toDateTime(), clock.wall.addSecs(-10));
}

TEST_F(ClipboardEngineTest, callsASourceUnknownThatIsNotThereOrHasNoName) {
    desktop.workspace.frontmost.reset();
    copyText("a");
    EXPECT_EQ(newest().sourceApp, QStringLiteral("Unknown"));
    EXPECT_EQ(newest().sourceAppBundleID, std::nullopt);
    setFront({}, QStringLiteral("org.example.Nameless"));
    copyText("b");
    EXPECT_EQ(newest().sourceApp, QStringLiteral("Unknown"));
    EXPECT_EQ(newest().sourceAppBundleID, QStringLiteral("org.example.Nameless"));
}

TEST_F(ClipboardEngineTest, recordsTheFirstOfSeveralFiles) {
    copy({{PasteType::fileUrls, "file:///a/one.txt\nfile:///a/two.txt\nfile:///a/three.txt"},
          {PasteType::plainText, "one.txt"}});
    ASSERT_EQ(store.items().size(), 1u);
    EXPECT_EQ(newest().content, ClipboardContent(FileURLContent{QUrl(QStringLiteral("file:///a/one.txt"))}));
}

TEST_F(ClipboardEngineTest, passesOverLinksThatAreNoFiles) {
    copy({{PasteType::fileUrls, "# a list\r\nhttps://example.org/\r\nfile://\r\nfile:///a/b%20c\r\n"}});
    EXPECT_EQ(newest().content, ClipboardContent(FileURLContent{QUrl(QStringLiteral("file:///a/b%20c"))}));
    copy({{PasteType::fileUrls, "https://example.org/\r\n"}, {PasteType::plainText, "link"}});
    EXPECT_EQ(newest().preview(), QStringLiteral("link"));
}

TEST_F(ClipboardEngineTest, takesAPictureBeforeAllText) {
    copy({{PasteType::plainText, "x"}, {PasteType::html, "<b>x</b>"}, {PasteType::png, "picture"}});
    EXPECT_EQ(newest().content, ClipboardContent(ImageContent{"picture"}));
}

TEST_F(ClipboardEngineTest, takesTheTiffBytesAsTheyAreWhereThereIsNoPng) {
    copy({{PasteType::tiff, "tiff"}});
    EXPECT_EQ(newest().content, ClipboardContent(ImageContent{"tiff"}));
    copy({{PasteType::tiff, "tiff"}, {PasteType::png, "png"}});
    EXPECT_EQ(newest().content, ClipboardContent(ImageContent{"png"}));
}

class LargePicture : public ClipboardEngineTest, public testing::WithParamInterface<PasteType> {};

TEST_P(LargePicture, of50MillionBytesIsSkippedWithEverythingBesideIt) {
    copy({{GetParam(), QByteArray(50'000'000, 'x')}, {PasteType::plainText, "x"}});
    EXPECT_EQ(recorded(), "");
}

TEST_P(LargePicture, ofOneByteLessIsRecorded) {
    copy({{GetParam(), QByteArray(49'999'999, 'x')}, {PasteType::plainText, "x"}});
    EXPECT_EQ(recorded(), "Image (50 MB)");
}

INSTANTIATE_TEST_SUITE_P(ClipboardEngine, LargePicture, testing::Values(PasteType::png, PasteType::tiff));

TEST_F(ClipboardEngineTest, takesHtmlBeforePlainText) {
    copy({{PasteType::plainText, "x"}, {PasteType::html, "<b>x</b>"}});
    EXPECT_EQ(newest().content, ClipboardContent(HtmlContent{QStringLiteral("<b>x</b>")}));
}

TEST_F(ClipboardEngineTest, recordsEmptyHtml) {
    copy({{PasteType::plainText, "x"}, {PasteType::html, ""}});
    EXPECT_EQ(newest().content, ClipboardContent(HtmlContent{}));
}

TEST_F(ClipboardEngineTest, goesOnWhereHtmlIsNoUtf8) {
    copy({{PasteType::plainText, "x"}, {PasteType::html, "\xFF\xFE<"}});
    EXPECT_EQ(newest().content, ClipboardContent(TextContent{QStringLiteral("x")}));
}

TEST_F(ClipboardEngineTest, recordsRichTextAsItsPlainFormWhereItHasOne) {
    copy({{PasteType::rtf, "{\\rtf1 x}"}, {PasteType::plainText, "x"}});
    EXPECT_EQ(newest().content, ClipboardContent(TextContent{QStringLiteral("x")}));
}

TEST_F(ClipboardEngineTest, recordsRichTextAsSuchWithoutAPlainForm) {
    copy({{PasteType::rtf, "{\\rtf1 x}"}});
    EXPECT_EQ(newest().content, ClipboardContent(RichTextContent{"{\\rtf1 x}"}));
    copy({{PasteType::rtf, "{\\rtf1 y}"}, {PasteType::plainText, ""}});
    EXPECT_EQ(newest().content, ClipboardContent(RichTextContent{"{\\rtf1 y}"}));
    copy({{PasteType::rtf, "{\\rtf1 z}"}, {PasteType::plainText, "\xFF"}});
    EXPECT_EQ(newest().content, ClipboardContent(RichTextContent{"{\\rtf1 z}"}));
}

TEST_F(ClipboardEngineTest, recordsNeitherEmptyTextNorNothing) {
    copyText("");
    copyText("\xFF");
    copy({});
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, recordsNothingOfAnOwnerThatHangs) {
    desktop.pasteboard.ownerHangs = true;
    copyText("x");
    EXPECT_EQ(recorded(), "");
    desktop.pasteboard.ownerHangs = false;
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "") << "a copy that failed is tried again";
    copyText("y");
    EXPECT_EQ(recorded(), "y");
}

TEST_F(ClipboardEngineTest, recordsNothingWhenTheOwnerHangsInTheMiddle) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    desktop.pasteboard.answer();
    desktop.pasteboard.ownerHangs = true;
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, addsToTheHistoryFromTheEventLoop) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    while (desktop.pasteboard.answer()) {
    }
    EXPECT_EQ(recorded(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(recorded(), "x");
}

TEST_F(ClipboardEngineTest, canBeDestroyedWhileACopyIsRead) {
    {
        ClipboardEngine other(desktop.pasteboard, desktop.workspace, desktop.keys, store, desktop.preferences,
                              clock);
        other.start();
        desktop.pasteboard.copy({{PasteType::plainText, "x"}});
        other.checkForChanges();
    }
    settle();
    EXPECT_EQ(recorded(), "");
}

struct Written {
    ClipboardContent content;
    PasteType type;
    QByteArray bytes;
};
class WriteToPasteboard : public ClipboardEngineTest, public testing::WithParamInterface<Written> {};

TEST_P(WriteToPasteboard, writesOneFormAndIsNotRecorded) {
    copyText("older");
    engine.writeToPasteboard(test::entry(GetParam().content));
    EXPECT_EQ(desktop.log(), "write 1 forms to the pasteboard\n");
    engine.checkForChanges();
    settle();
    EXPECT_EQ(recorded(), "older");
    PasteData got{};
    const std::vector<PasteType> all{PasteType::fileUrls, PasteType::png, PasteType::tiff,
                                     PasteType::html,     PasteType::rtf, PasteType::plainText};
    desktop.pasteboard.read(desktop.pasteboard.changeCount(), all, 1000, &engine,
                            [&got](const PasteData &data) { got = data; });
    settle();
    EXPECT_EQ(got.status, PasteData::present);
    EXPECT_EQ(got.type, GetParam().type);
    EXPECT_EQ(got.bytes, GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    ClipboardEngine, WriteToPasteboard,
    testing::Values(Written{TextContent{QStringLiteral("\u00E9")}, PasteType::plainText, "\xC3\xA9"},
                    Written{RichTextContent{"{\\rtf1}"}, PasteType::rtf, "{\\rtf1}"},
                    Written{ImageContent{"II*"}, PasteType::png, "II*"},
                    Written{FileURLContent{QUrl::fromLocalFile(QStringLiteral("/a/b c"))},
                            PasteType::fileUrls, "file:///a/b%20c"},
                    Written{HtmlContent{QStringLiteral("<b>\u00E9</b>")}, PasteType::html,
                            "<b>\xC3\xA9</b>"}));

TEST_F(ClipboardEngineTest, givesUpTheCopyThatItsOwnWriteReplaces) {
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    engine.writeToPasteboard(test::text(QStringLiteral("own")));
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, pastesWithCommandAndV) {
    engine.simulatePaste();
    EXPECT_EQ(desktop.log(), "post key 9 with flags 0x100000\n");
}

}  // namespace
}  // namespace pimloft
