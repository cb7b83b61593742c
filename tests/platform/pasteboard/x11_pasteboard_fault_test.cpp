// SPDX-License-Identifier: MIT
// Owners that hang, die, lie or are replaced.
#include "pasteboard_desk.h"
#include "requestor.h"

#include <QCoreApplication>

#include <csignal>

namespace pimloft {
namespace {

struct Oddity {
    const char *behaviour;
    const char *read;  ///< what a read of the picture, or else the text, comes to
};

void PrintTo(const Oddity &oddity, std::ostream *out) {
    *out << oddity.behaviour;
}

class X11PasteboardOddities : public PasteboardDesk, public testing::WithParamInterface<Oddity> {};

TEST_P(X11PasteboardOddities, areAnswered) {
    const auto owner = oddOwner(GetParam().behaviour);
    const qint64 change = pasteboard_.changeCount();
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(text(read(change, {PasteType::png, PasteType::plainText}, 1 << 20)), GetParam().read);
    EXPECT_LT(elapsed.elapsed(), 3000);
}

INSTANTIATE_TEST_SUITE_P(
    All, X11PasteboardOddities,
    testing::Values(Oddity{"silent", "(failed)"}, Oddity{"silentAboutContent", "(failed)"},
                    Oddity{"refusesThePicture", "text"}, Oddity{"sendsThePictureAsNumbers", "text"},
                    Oddity{"sendsNoProperty", "text"}, Oddity{"sendsEightMegabytesAtOnce", "(too large)"},
                    Oddity{"announcesTwoGigabytes", "(too large)"}, Oddity{"diesInThePieces", "(failed)"},
                    Oddity{"stopsInThePieces", "(failed)"}, Oddity{"changesFormatInThePieces", "text"},
                    Oddity{"sendsForEver", "(too large)"}, Oddity{"sendsTooSlowly", "(failed)"},
                    Oddity{"ownsAgainBeforeItsContent", "(superseded)"},
                    Oddity{"ownsAgainInThePieces", "(superseded)"}, Oddity{"knowsNoTargets", "caf\xc3\xa9"},
                    Oddity{"listsGarbage", "text"}, Oddity{"listsAMillion", "text"},
                    Oddity{"offersOnlyAJpeg", "(absent)"}),
    [](const auto &each) { return each.param.behaviour; });

class X11PasteboardFault : public PasteboardDesk {
protected:
    /// The longest time between two turns of the event loop while `body` runs, in milliseconds.
    static qint64 longestStall(const std::function<void()> &body) {
        QElapsedTimer since;
        qint64 longest = 0;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, [&] { longest = std::max(longest, since.restart()); });
        since.start();
        tick.start(0);
        body();
        return longest;
    }
};

TEST_F(X11PasteboardFault, waitsForAProgramThatSendsSlowly) {
    const auto owner = oddOwner("sendsSlowly");
    EXPECT_EQ(read({PasteType::png}).bytes.size(), 10'000);
}

TEST_F(X11PasteboardFault, goesOnWithTheNextCopyAfterAHungOne) {
    const auto hung = oddOwner("silent");
    std::string first;
    pasteboard_.read(1, {PasteType::plainText}, large, &context_,
                     [&](PasteData data) { first = text(data); });
    const auto owner = xclip("next");
    EXPECT_EQ(readText(), "next");
    EXPECT_EQ(first, "(superseded)");
}

TEST_F(X11PasteboardFault, neverBlocksTheMainThreadForAStoppedOwner) {
    const auto owner = xclip("text");
    kill(pid_t(owner->processId()), SIGSTOP);
    std::string result;
    const qint64 stall = longestStall([&] { result = readText(); });
    EXPECT_EQ(result, "(failed)");
    EXPECT_LT(stall, 500);
    kill(pid_t(owner->processId()), SIGCONT);
    EXPECT_EQ(readText(), "text");  // what it answered late is not mistaken for this
}

TEST_F(X11PasteboardFault, keepsAnOwnerAliveThatAnswersTooLate) {
    const auto owner = xclip(QByteArray(8 << 20, 'x'), "image/png");
    kill(pid_t(owner->processId()), SIGSTOP);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(text(read({PasteType::png})), "(failed)");
    kill(pid_t(owner->processId()), SIGCONT);
    EXPECT_TRUE(test::waitUntil([&] { return read({PasteType::png}).bytes.size() == 8 << 20; }));
    EXPECT_EQ(owner->state(), QProcess::Running);
}

TEST_F(X11PasteboardFault, abandonsWhatIsBeingReadWhenItWrites) {
    const auto hung = oddOwner("silent");
    std::string result;
    pasteboard_.read(1, {PasteType::plainText}, large, &context_,
                     [&](PasteData data) { result = text(data); });
    pasteboard_.write(plain("own"));
    EXPECT_EQ(result, "");
    QCoreApplication::processEvents();
    EXPECT_EQ(result, "(superseded)");
}

TEST_F(X11PasteboardFault, doesNotTellOfAnOwnerThatDoesNotAnswer) {
    const auto hung = oddOwner("silent");
    EXPECT_EQ(origin(1), std::nullopt);
}

TEST_F(X11PasteboardFault, takesNoMoreMemoryThanTheCapWhateverIsSent) {
    constexpr qsizetype cap = 50 << 20;
    for (const char *behaviour : {"announcesTwoGigabytes", "sendsForEver"}) {
        const auto owner = oddOwner(behaviour);
        forgetPeak();
        const qint64 before = peakMemory();
        // A busy machine may not come to the cap within the time for an answer.
        EXPECT_NE(read(pasteboard_.changeCount(), {PasteType::png}, cap).status, PasteData::present);
        EXPECT_LT(peakMemory() - before, 2 * cap) << behaviour;
    }
}

TEST_F(X11PasteboardFault, takesNoMoreMemoryForWhatItHoldsThanOnce) {
    const QByteArray picture(49 << 20, 'x');
    forgetPeak();
    const qint64 before = peakMemory();
    pasteboard_.write({{PasteType::png, picture}});
    EXPECT_EQ(read({PasteType::png}).bytes.size(), picture.size());
    EXPECT_LT(peakMemory() - before, 2 * picture.size());
}

}  // namespace
}  // namespace pimloft
