// SPDX-License-Identifier: MIT
// The program is asked to end, and keyboards and displays go, in the middle of everything.
#include "desktop/faults/fault_desk.h"
#include "desktop/support/first_run.h"

#include <csignal>

namespace pimloft::test {
namespace {

using testing::ElementsAre;

class Terminated : public FaultDesk {
protected:
    void end(int signal = SIGTERM) {
        const pid_t guardBefore = guard();
        pimloft().signal(signal);
        EXPECT_EQ(pimloft().waitForEnd(), 0);
        for (const int key : {KEY_LEFTCTRL, KEY_C, KEY_A})
            hands().release(key);
        expectThatNothingIsLeftOf(guardBefore);
        expectLiveKeyboard();
        EXPECT_TRUE(noOverlay()) << "a panel is left on the screen";
        EXPECT_EQ(pimloft().output().toStdString(), "");
    }
};

TEST_F(Terminated, withKeysHeldItLetsGoOfThem) {
    startEverything();
    hands().press(KEY_LEFTCTRL);
    hands().press(KEY_C);
    ASSERT_TRUE(waitUntil([this] { return hands().keysDown().contains(KEY_LEFTMETA); }));
    end();
}

TEST_F(Terminated, withTheHistoryOpenItGivesTheKeyboardBackAndSavesWhatWasJustCopied) {
    startEverything();
    copyText("alpha");
    openPopup();
    hands().type("al");
    end();
    EXPECT_THAT(history(), ElementsAre("text: alpha"));
}

TEST_F(Terminated, withASwitchJustFlippedItRemembersThat) {
    startEverything();
    const auto stored = [this] {
        return storedPreferences(session()).value(QStringLiteral("pimloft.windowsnap.enabled"));
    };
    openPanel();
    hands().tap(KEY_TAB);
    hands().tap(KEY_TAB);
    hands().tap(KEY_SPACE);
    ASSERT_TRUE(waitUntil([&] { return stored() == QJsonValue(false); }));
    hands().tap(KEY_SPACE);
    letPimloftCatchUp();
    end();
    EXPECT_EQ(stored(), QJsonValue(true));
}

TEST_F(Terminated, withADragUnderWayAndItsWindowsOpenNothingIsLeft) {
    startEverything();
    EXPECT_EQ(launch(session(), {QStringLiteral("--settings")}).exitCode, 0);
    ASSERT_TRUE(waitUntil([this] { return !desktop().windowsOf(QStringLiteral("pimloft")).empty(); }));
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {2, 500});
    ASSERT_TRUE(waitUntil([this] { return !noOverlay(); }));
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    drop();
    EXPECT_TRUE(noOverlay());
    EXPECT_TRUE(desktop().windowsOf(QStringLiteral("pimloft")).empty());
}

TEST_F(Terminated, byTheEndOfItsTerminalOrByTheKeyboardItEndsAsWell) {
    for (const int signal : {SIGHUP, SIGINT}) {
        startEverything();
        end(signal);
    }
}

class UnpluggedKeyboard : public FaultDesk {
protected:
    void plug(bool in) {
        session().run(QStringLiteral("xinput"), {in ? QStringLiteral("enable") : QStringLiteral("disable"),
                                                 QStringLiteral("Xvfb keyboard")});
    }
};

TEST_F(UnpluggedKeyboard, withKeysDownLeavesNoneStuckAndIsRemappedWhenItComesBack) {
    startEverything();
    for (int round = 0; round < 3; ++round) {
        hands().press(KEY_LEFTCTRL);
        hands().press(KEY_C);
        ASSERT_TRUE(waitUntil([this] { return hands().keysDown().contains(KEY_LEFTMETA); }));
        plug(false);
        EXPECT_TRUE(waitUntil([this] {
            return hands().keysDown().isEmpty() && hands().keysDownOnXTest().isEmpty();
        })) << "a key is stuck";
        plug(true);
        hands().release(KEY_C);
        hands().release(KEY_LEFTCTRL);
        expectRemapping();
    }
}

TEST_F(UnpluggedKeyboard, whileTheHistoryIsOpenComesBackToItsSearch) {
    startEverything();
    copyText("alpha");
    copyText("beta");
    openEditor(Editor::qt);
    openPopup();
    hands().type("al");
    plug(false);
    letPimloftCatchUp();
    EXPECT_TRUE(isPopupOpen());
    plug(true);
    letPimloftCatchUp();
    hands().type("p");
    letPimloftCatchUp();
    pasteRow(0);
    expectContent("alpha");
}

class LostDisplay : public FaultDesk {
protected:
    void divide() {
        setMonitor(QStringLiteral("*LEFT"), QStringLiteral("800/200x1000/250+0+0"), QStringLiteral("screen"));
        plug();
    }
    void plug() {
        setMonitor(QStringLiteral("RIGHT"), QStringLiteral("800/200x1000/250+800+0"), QStringLiteral("none"));
    }
    void unplug() {
        session().run(QStringLiteral("xrandr"), {QStringLiteral("--delmonitor"), QStringLiteral("RIGHT")});
    }
    void setMonitor(const QString &name, const QString &geometry, const QString &output) {
        session().run(QStringLiteral("xrandr"), {QStringLiteral("--setmonitor"), name, geometry, output});
    }
};

TEST_F(LostDisplay, takesNoKeyboardWithThePopupThatWasOnIt) {
    divide();
    startEverything();
    copyText("alpha");
    openEditor(Editor::qt);
    for (int round = 0; round < 3; ++round) {
        hands().moveTo({1200, 500});
        hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
        ASSERT_TRUE(waitUntil([this] { return isPopupOpen(); }));
        unplug();
        letPimloftCatchUp();
        hands().tap(KEY_ESC);
        EXPECT_TRUE(waitUntil([this] { return !isPopupOpen(); })) << "the popup stays";
        plug();
        letPimloftCatchUp();
    }
    hands().type("x");
    expectContent("x");
}

}  // namespace
}  // namespace pimloft::test
