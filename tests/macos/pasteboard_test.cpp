// SPDX-License-Identifier: MIT
#include "platform/pasteboard/mac_pasteboard.h"

#include "fake_appkit.h"
#include "mac_test.h"

#include <QObject>

namespace pimloft::test {

namespace {

using mac::board;
using testing::ElementsAre;

constexpr qsizetype noCap = 1 << 20;
const std::vector<PasteType> everything{PasteType::fileUrls, PasteType::png, PasteType::tiff,
                                        PasteType::html,     PasteType::rtf, PasteType::plainText};

class MacPasteboardTest : public MacTest {
protected:
    PasteData read(std::vector<PasteType> wanted, qsizetype cap = noCap) {
        return readChange(pasteboard_.changeCount(), std::move(wanted), cap);
    }

    PasteData readChange(qint64 change, std::vector<PasteType> wanted, qsizetype cap = noCap) {
        std::optional<PasteData> data;
        pasteboard_.read(change, std::move(wanted), cap, &context_, [&](PasteData answer) { data = answer; });
        EXPECT_FALSE(data) << "answered before the call returned";
        runQueue();
        EXPECT_TRUE(data);
        return data.value_or(PasteData{});
    }

    std::optional<PasteOrigin> origin() {
        std::optional<PasteOrigin> origin;
        pasteboard_.origin(pasteboard_.changeCount(), &context_, [&](auto answer) { origin = answer; });
        runQueue();
        return origin;
    }

    QObject context_;
    MacPasteboard pasteboard_;
};

TEST_F(MacPasteboardTest, hasTheSystemsChangeCount) {
    board().changes = 17;
    EXPECT_EQ(pasteboard_.changeCount(), 17);
}

TEST_F(MacPasteboardTest, looksForTheWantedTypesInTheirOrder) {
    EXPECT_EQ(read(everything).status, PasteData::absent);
    EXPECT_EQ(log(), "read links, files only\n"
                     "read data public.png\n"
                     "read data public.tiff\n"
                     "read data public.html\n"
                     "read data public.rtf\n"
                     "read text public.utf8-plain-text\n");
}

TEST_F(MacPasteboardTest, stopsAtTheFirstThatIsThere) {
    board().types = {{"public.utf8-plain-text", "text"}, {"public.tiff", "II*"}};
    const PasteData data = read(everything);
    EXPECT_EQ(data.status, PasteData::present);
    EXPECT_EQ(data.type, PasteType::tiff);
    EXPECT_EQ(data.bytes, QByteArray("II*"));
    EXPECT_EQ(log(), "read links, files only\nread data public.png\nread data public.tiff\n");
}

TEST_F(MacPasteboardTest, readsBytesWithZerosInThem) {
    board().types = {{"public.png", std::string("\x89PNG\0\0\1", 7)}};
    EXPECT_EQ(read({PasteType::png}).bytes, QByteArray("\x89PNG\0\0\1", 7));
}

TEST_F(MacPasteboardTest, readsTextInUtf8) {
    board().types = {{"public.utf8-plain-text", "grün \xF0\x9F\x98\x80"}};
    EXPECT_EQ(read({PasteType::plainText}).bytes, QByteArray("grün \xF0\x9F\x98\x80"));
}

TEST_F(MacPasteboardTest, readsTheLinksOfFilesOnlyOneALine) {
    board().links = {"file:///tmp/one.txt", "https://example.org/", "file:///tmp/two%20words"};
    const PasteData data = read({PasteType::fileUrls});
    EXPECT_EQ(data.bytes, QByteArray("file:///tmp/one.txt\nfile:///tmp/two%20words"));
}

TEST_F(MacPasteboardTest, givesTheFilesPathWhereALinkHasItsNumber) {
    board().links = {"file:///tmp/one.txt"};
    board().numberedLinks = {"file:///.file/id=6571367.8"};
    EXPECT_EQ(read({PasteType::fileUrls}).bytes, QByteArray("file:///tmp/one.txt"));
}

TEST_F(MacPasteboardTest, readsNothingAboveTheCap) {
    board().types = {{"public.png", std::string(11, 'x')}, {"public.utf8-plain-text", "text"}};
    const PasteData data = read({PasteType::png, PasteType::plainText}, 10);
    EXPECT_EQ(data.status, PasteData::tooLarge);
    EXPECT_EQ(data.type, PasteType::png);
    EXPECT_TRUE(data.bytes.isEmpty());
    EXPECT_EQ(read({PasteType::png}, 11).status, PasteData::present);
    EXPECT_EQ(read({PasteType::plainText}, 3).status, PasteData::tooLarge);
}

TEST_F(MacPasteboardTest, answersNothingOfANewerChange) {
    board().types = {{"public.utf8-plain-text", "new"}};
    EXPECT_EQ(readChange(pasteboard_.changeCount() - 1, {PasteType::plainText}).status,
              PasteData::superseded);
    EXPECT_EQ(log(), "");
}

TEST_F(MacPasteboardTest, answersNothingThatMayBeHalfOfANewerChange) {
    board().types = {{"public.utf8-plain-text", "old"}};
    board().changesWhileRead = true;
    const PasteData data = read({PasteType::plainText});
    EXPECT_EQ(data.status, PasteData::superseded);
    EXPECT_TRUE(data.bytes.isEmpty());
}

TEST_F(MacPasteboardTest, answersNobodyWhoIsGone) {
    auto context = std::make_unique<QObject>();
    bool answered = false;
    pasteboard_.read(1, {PasteType::plainText}, noCap, context.get(), [&](PasteData) { answered = true; });
    pasteboard_.origin(1, context.get(), [&](auto) { answered = true; });
    context.reset();
    runQueue();
    EXPECT_FALSE(answered);
}

TEST_F(MacPasteboardTest, clearsAndWritesEachTypeUnderItsName) {
    const auto before = pasteboard_.changeCount();
    const auto after = pasteboard_.write({{PasteType::png, "PNG"},
                                          {PasteType::html, "<b>"},
                                          {PasteType::rtf, "{\\rtf1}"},
                                          {PasteType::plainText, "plain"}});
    EXPECT_EQ(log(), "clear\n"
                     "set data public.png 3 bytes\n"
                     "set data public.html 3 bytes\n"
                     "set data public.rtf 7 bytes\n"
                     "set text public.utf8-plain-text 5 bytes\n");
    EXPECT_GT(after, before);
    EXPECT_EQ(after, pasteboard_.changeCount());
}

TEST_F(MacPasteboardTest, marksASecretForOtherPrograms) {
    pasteboard_.write({{PasteType::plainText, "password"}, {PasteType::secretMark, {}}});
    EXPECT_EQ(log(), "clear\n"
                     "set text public.utf8-plain-text 8 bytes\n"
                     "set data org.nspasteboard.ConcealedType 0 bytes\n");
}

TEST_F(MacPasteboardTest, writesFilesAsLinks) {
    pasteboard_.write({{PasteType::fileUrls, "file:///tmp/a%20b\nfile:///tmp/c"}});
    EXPECT_EQ(log(), "clear\nwrite file:///tmp/a%20b\nwrite file:///tmp/c\n");
}

TEST_F(MacPasteboardTest, readsBackWhatItWrote) {
    pasteboard_.write({{PasteType::plainText, QByteArray("grün")}});
    EXPECT_EQ(read(everything).bytes, QByteArray("grün"));
}

TEST_F(MacPasteboardTest, knowsContentThatIsToBeKeptOutOfHistories) {
    EXPECT_EQ(origin(), PasteOrigin{});
    for (const char *mark : {"org.nspasteboard.ConcealedType", "org.nspasteboard.TransientType",
                             "org.nspasteboard.AutoGeneratedType"}) {
        board().types = {{"public.utf8-plain-text", "secret"}, {mark, ""}};
        log();
        EXPECT_TRUE(origin()->isSecret) << mark;
        EXPECT_EQ(log(), "") << "the content was read";
    }
}

TEST_F(MacPasteboardTest, knowsTheOwnerWhereItIsNamed) {
    board().types = {{"org.nspasteboard.source", "com.example.vault"}};
    EXPECT_EQ(origin(), (PasteOrigin{false, QStringLiteral("com.example.vault")}));
}

TEST_F(MacPasteboardTest, knowsNoOriginOfAnOlderChange) {
    std::optional<PasteOrigin> answer = PasteOrigin{};
    pasteboard_.origin(pasteboard_.changeCount() - 1, &context_, [&](auto origin) { answer = origin; });
    runQueue();
    EXPECT_EQ(answer, std::nullopt);
}

}  // namespace

}  // namespace pimloft::test
