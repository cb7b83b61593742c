// SPDX-License-Identifier: MIT
// The computer's clock is set, forward and back, while the program runs.
#include "desktop/faults/fault_desk.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSaveFile>

#include <csignal>

namespace pimloft::test {
namespace {

using testing::ElementsAre;

class SetClock : public FaultDesk {
protected:
    /// Starts it with a clock of its own, which `set` sets as an administrator does. The time that only runs
    /// stays the kernel's.
    void startWithAClock() {
        ASSERT_FALSE(library().isEmpty()) << "libfaketime is not installed";
        set("+0");
        startEverything({{QStringLiteral("LD_PRELOAD"), library()},
                         {QStringLiteral("FAKETIME_TIMESTAMP_FILE"), file()},
                         {QStringLiteral("FAKETIME_NO_CACHE"), QStringLiteral("1")},
                         {QStringLiteral("FAKETIME_DONT_FAKE_MONOTONIC"), QStringLiteral("1")}});
    }
    void set(const char *difference) {
        QSaveFile clock(file());
        ASSERT_TRUE(clock.open(QIODevice::WriteOnly) && clock.write(difference) > 0 && clock.commit());
    }
    void expectEverythingToWork(const QByteArray &text) {
        copyText(text);
        openPopup();
        hands().tap(KEY_ESC);
        EXPECT_TRUE(waitUntil([this] { return !isPopupOpen(); })) << "the popup does not close";
        expectRemapping();
        const xcb_window_t window = openWindow(Client::qt, QString::fromLatin1(text));
        hands().chord({KEY_LEFTMETA, KEY_LEFTCTRL, KEY_LEFT});
        expectFrame(window, {0, 0, 800, 1000});
        closeLastWindow();
    }

private:
    QString file() { return session().home() + QStringLiteral("/clock"); }
    static QString library() {
        for (const char *path : {"/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1",
                                 "/usr/lib/aarch64-linux-gnu/faketime/libfaketimeMT.so.1"})
            if (QFile::exists(QLatin1String(path)))
                return QLatin1String(path);
        return {};
    }
};

TEST_F(SetClock, backOrForwardStopsNothingAndKeepsTheOrderOfCopies) {
    startWithAClock();
    expectEverythingToWork("now");
    set("-3y");
    expectEverythingToWork("three years ago");
    set("+20y");
    expectEverythingToWork("in twenty years");
    set("+0");
    expectEverythingToWork("now again");
    const auto all =
        ElementsAre("text: now again", "text: in twenty years", "text: three years ago", "text: now");
    EXPECT_THAT(history(), all);
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    set("-3y");
    startWithAClock();
    EXPECT_THAT(history(), all);
}

TEST_F(SetClock, forwardByAMinuteClosesNoPopupThatIsUsed) {
    startWithAClock();
    copyText("alpha");
    openPopup();
    set("+5m");
    hands().type("al");
    letPimloftCatchUp();
    EXPECT_TRUE(isPopupOpen());
    set("-1d");
    hands().type("p");
    letPimloftCatchUp();
    EXPECT_TRUE(isPopupOpen());
}

}  // namespace
}  // namespace pimloft::test
