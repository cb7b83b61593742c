// SPDX-License-Identifier: MIT
// Own writes and other programs' copies at the same moment.
#include "pasteboard_desk.h"

namespace pimloft {
namespace {

using X11PasteboardRace = PasteboardDesk;

TEST_F(X11PasteboardRace, neverTakesAnOwnWriteForAForeignOneNorTheOtherWayRound) {
    const auto owner = oddOwner("ownsAgainAndAgain");
    int foreign = 0;
    int own = 0;
    for (int i = 0; i < 800; ++i) {
        const QByteArray text = "own " + QByteArray::number(i);
        const qint64 written = pasteboard_.write(plain(text));
        ASSERT_GE(pasteboard_.changeCount(), written);
        const std::string ofOwn = pimloft::text(read(written, {PasteType::plainText}));
        ASSERT_TRUE(ofOwn == text.toStdString() || ofOwn == "(superseded)") << ofOwn;
        own += ofOwn == text.toStdString();
        const qint64 seen = pasteboard_.changeCount();
        if (seen == written)
            continue;
        const std::string ofNews = pimloft::text(read(seen, {PasteType::plainText}));
        ASSERT_TRUE(ofNews == "foreign" || ofNews == "(superseded)") << ofNews;
        foreign += ofNews == "foreign";
    }
    EXPECT_GT(foreign, 0) << "no race took place";
    EXPECT_GT(own, 0) << "no race took place";
}

TEST_F(X11PasteboardRace, endsWithQuestionsUnderWay) {
    const auto owner = oddOwner("ownsAgainAndAgain");
    for (int i = 0; i < 50; ++i) {
        X11Pasteboard pasteboard([](ProcessId) { return std::nullopt; });
        for (int each = 0; each < 5; ++each)
            pasteboard.read(pasteboard.changeCount(), {PasteType::plainText}, large, &context_,
                            [](PasteData) {});
        pasteboard.write(plain("own"));
        pasteboard.offerAsPrimary();
    }
    SUCCEED();
}

}  // namespace
}  // namespace pimloft
