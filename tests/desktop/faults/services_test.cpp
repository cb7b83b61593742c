// SPDX-License-Identifier: MIT
// What the program talks to goes away under it. The window manager, the tray and the sound server have their
// tests beside those of what they serve: snapping_test, tray_test, volume_test.
#include "desktop/faults/fault_desk.h"
#include "desktop/support/first_run.h"
#include "platform/x11/xcb_reply.h"

#include <atomic>
#include <csignal>
#include <thread>

namespace pimloft::test {
namespace {

using testing::ElementsAre;

class LostServer : public FaultDesk {
protected:
    void expectThatItEndsWithTheServer() {
        const pid_t guardBefore = guard();
        session().killServer();
        EXPECT_EQ(pimloft().waitForEnd(), 0)
            << (pimloft().isRunning() ? "it goes on" : "a signal has ended it");
        EXPECT_TRUE(waitUntil([&] { return kill(guardBefore, 0) != 0; })) << "its guard is still there";
        EXPECT_THAT(history(), ElementsAre("text: kept"));
        EXPECT_THAT(dataFiles(), ElementsAre(QStringLiteral("clipboard_history.json"),
                                             QStringLiteral("key_mappings.json")));
    }
};

TEST_F(LostServer, endsItInOrder) {
    startEverything();
    copyText("kept");
    expectThatItEndsWithTheServer();
}

TEST_F(LostServer, endsItInOrderWithKeysHeldAndTheHistoryOpen) {
    startEverything();
    copyText("kept");
    openPopup();
    hands().press(KEY_LEFTCTRL);
    hands().press(KEY_A);
    expectThatItEndsWithTheServer();
}

TEST_F(LostServer, isNoReasonToForgetWhatWasSetAMomentAgo) {
    startEverything();
    copyText("kept");
    const QString snapping = QStringLiteral("pimloft.windowsnap.enabled");
    const auto isStored = [&](bool on) {
        return storedPreferences(session()).value(snapping) == QJsonValue(on);
    };
    openPanel();
    hands().tap(KEY_TAB);
    hands().tap(KEY_TAB);
    hands().tap(KEY_SPACE);
    ASSERT_TRUE(waitUntil([&] { return isStored(false); }));
    // The next change waits a moment for others.
    hands().tap(KEY_SPACE);
    letPimloftCatchUp();
    expectThatItEndsWithTheServer();
    EXPECT_TRUE(isStored(true));
}

/// A program that changes a property of the root window without a pause, of which everybody is told.
class Flood {
public:
    Flood() : thread_([this] { run(); }) {}
    ~Flood() {
        ends_ = true;
        thread_.join();
    }

private:
    void run() {
        xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        while (!ends_ && !xcb_connection_has_error(connection)) {
            for (int change = 0; change < 600; ++change)
                xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, XCB_ATOM_CUT_BUFFER7,
                                    XCB_ATOM_STRING, 8, 1, "x");
            // The server has dealt with them all.
            const XcbReply<xcb_get_input_focus_reply_t> reply(
                xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        }
        xcb_disconnect(connection);
    }

    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

using BusyServer = FaultDesk;

// Hundreds of events before the answer to a request, which with some requests is the end of the connection.
TEST_F(BusyServer, costsNoConnectionWhenPanelsComeUp) {
    startEverything();
    copyText("kept");
    const Flood flood;
    for (int round = 0; round < 5; ++round) {
        expectThatPanelsOpenAndClose();
        ASSERT_TRUE(pimloft().isRunning());
    }
}

class LostBus : public FaultDesk {};

TEST_F(LostBus, costsNothingThatNeedsNone) {
    startEverything();
    copyText("before");
    session().killBus();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    hands().chord({KEY_LEFTMETA, KEY_LEFTCTRL, KEY_LEFT});
    expectFrame(window, {0, 0, 800, 1000});
    copyText("without a bus");
    session().startBus();
    copyText("with another bus");
    expectThatPanelsOpenAndClose();
    expectRemapping();
}

class LostCompositor : public FaultDesk {
protected:
    ~LostCompositor() override { stop(); }
    void start() {
        compositor_ = session().start(QStringLiteral("picom"),
                                      {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                       QStringLiteral("--config"), QStringLiteral("/dev/null")});
        ASSERT_TRUE(waitUntil([this] { return desktop().hasCompositor(); }));
    }
    void stop() {
        if (!compositor_)
            return;
        compositor_->kill();
        compositor_->waitForFinished();
        compositor_.reset();
    }
    void crash() {
        stop();
        ASSERT_TRUE(waitUntil([this] { return !desktop().hasCompositor(); }));
    }

private:
    std::unique_ptr<QProcess> compositor_;
};

TEST_F(LostCompositor, takesNoPanelWithItAndIsUsedAgainWhenItComesBack) {
    start();
    startEverything();
    copyText("alpha");
    expectThatPanelsOpenAndClose();
    openPopup();
    crash();
    letPimloftCatchUp();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !isPopupOpen(); })) << "the popup stays for ever";
    expectThatPanelsOpenAndClose();
    start();
    expectThatPanelsOpenAndClose();
    expectRemapping();
}

TEST_F(LostCompositor, inMidDragLeavesTheDragItsEnd) {
    start();
    startEverything();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {2, 500});
    ASSERT_TRUE(waitUntil([this] { return !noOverlay(); }));
    crash();
    letPimloftCatchUp();
    drop();
    expectFrame(window, {0, 0, 800, 1000});
    EXPECT_TRUE(waitUntil([this] { return noOverlay(); }));
}

}  // namespace
}  // namespace pimloft::test
