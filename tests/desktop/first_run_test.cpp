// SPDX-License-Identifier: MIT
// The first run and the news, gone through as a new user does.
#include "desktop/support/desktop_test.h"
#include "desktop/support/first_run.h"
#include "desktop/support/tray_host.h"

#include <csignal>
#include <functional>

namespace pimloft::test {
namespace {

const QString welcome = QStringLiteral("Welcome to Pimloft");
const QString news = QStringLiteral("What's New");
const QString completed = QStringLiteral("pimloft.general.hasCompletedOnboarding");
const QString lastSeen = QStringLiteral("pimloft.general.lastSeenVersion");
const QString snapping = QStringLiteral("pimloft.windowsnap.enabled");

class FirstRun : public DesktopTest {
protected:
    void SetUp() override {
        openDesktop(QStringLiteral("openbox"));
        forgetPreferences(session());
        // A mouse that is only plugged in for the first click may lose it.
        hands();
    }

    void waitFor(const QString &title) {
        ASSERT_TRUE(waitUntil(
            [&] {
                const auto window = desktop().window(title);
                return window && desktop().activeWindow() == *window;
            },
            10000))
            << title.toStdString() << " does not open";
        letPimloftCatchUp();
    }
    void begin() {
        startPimloftWithoutShortcuts();
        waitFor(welcome);
    }
    void end() {
        pimloft().signal(SIGTERM);
        EXPECT_EQ(pimloft().waitForEnd(), 0);
    }
    bool isOpen(const QString &title) { return desktop().window(title).has_value(); }

    /// Where the content of a window is, without the window manager's frame.
    QRect content(const QString &title) {
        const QRect frame = desktop().visibleFrame(*desktop().window(title));
        const QSize size = title == welcome ? QSize(560, 480) : QSize(420, 400);
        const int border = (frame.width() - size.width()) / 2;
        return {frame.left() + border, frame.bottom() + 1 - border - size.height(), size.width(),
                size.height()};
    }
    /// The button at the end of the first run's bar.
    QPoint forwardButton() { return content(welcome).bottomRight() - QPoint(32 + 6, 32 + 12); }
    /// Whether that is on screen, which it is when its step is.
    bool showsForwardButton() {
        const QRgb pixel = desktop().pixel(forwardButton());
        return qBlue(pixel) > qRed(pixel) + 80;
    }

    /// Does what leads to the next step, and returns when that is on screen.
    void leaveWelcome(const std::function<void()> &action) {
        ASSERT_TRUE(waitUntil([&] { return showsForwardButton(); }))
            << "the first step does not come on screen";
        const QRect mark(content(welcome).topLeft() + QPoint(200, 100), QSize(160, 160));
        const QImage before = desktop().screenshot().copy(mark);
        action();
        ASSERT_TRUE(waitUntil([&] { return desktop().screenshot().copy(mark) != before; }))
            << "the first step is not left";
    }

    QJsonObject stored() { return storedPreferences(session()); }
    void expectStored(const QString &key, const QJsonValue &value) {
        EXPECT_TRUE(waitUntil([&] { return stored().value(key) == value; })) << key.toStdString();
    }
};

TEST_F(FirstRun, isOneWindowAboveAllOthersBesideTheTray) {
    TrayHost tray(session().display());
    begin();
    EXPECT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    EXPECT_TRUE(desktop().states(*desktop().window(welcome)).contains(QStringLiteral("ABOVE")));
    const QRect frame = desktop().visibleFrame(*desktop().window(welcome));
    EXPECT_NEAR(frame.width(), 560, 4);
    EXPECT_NEAR(frame.height(), 480 + 24, 12);
    EXPECT_NEAR(frame.center().x(), desktop().screen().center().x(), 2);
    EXPECT_FALSE(snaps());
    EXPECT_FALSE(records());
    EXPECT_TRUE(stored().isEmpty());

    EXPECT_EQ(launch(session(), {}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return panelFrame().has_value(); })) << "the panel does not open beside it";
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([&] { return !panelFrame(); }));
    EXPECT_TRUE(isOpen(welcome));
}

TEST_F(FirstRun, isGoneThroughByMouse) {
    begin();
    picture(QStringLiteral("first-run-welcome"));
    leaveWelcome([&] { hands().click(forwardButton()); });
    hands().click(content(welcome).topRight() + QPoint(-(32 + 34), 32 + 110));
    ASSERT_TRUE(waitUntil([&] { return stored().value(snapping) == QJsonValue(false); }))
        << "the module is not switched off";
    picture(QStringLiteral("first-run-modules"));
    hands().click(forwardButton());
    // The step of the permission has nothing in that place, and leaves by itself.
    ASSERT_TRUE(waitUntil([&] { return !showsForwardButton(); })) << "the modules are not left";
    ASSERT_TRUE(waitUntil([&] { return showsForwardButton(); })) << "the permission is not left";
    hands().click(forwardButton());
    EXPECT_TRUE(waitUntil([&] { return !isOpen(welcome); }));
    expectStored(completed, true);
    EXPECT_TRUE(waitUntil([&] { return records(); })) << "the modules do not start";
    letPimloftCatchUp();
    EXPECT_FALSE(snaps()) << "what was switched off starts";
    EXPECT_FALSE(isOpen(news)) << "a new user is told news";
}

TEST_F(FirstRun, isGoneThroughByKeyboard) {
    begin();
    hands().tap(KEY_ESC);
    leaveWelcome([&] {
        hands().tap(KEY_TAB);
        hands().tap(KEY_SPACE);
    });
    // The first stop of the modules is the switch of the first one.
    hands().tap(KEY_TAB);
    hands().tap(KEY_SPACE);
    expectStored(snapping, false);
    goThroughFirstRun();
    expectStored(completed, true);
    EXPECT_TRUE(waitUntil([&] { return records(); }));
    EXPECT_FALSE(snaps()) << "what was switched off starts";
}

TEST_F(FirstRun, beginsAnewWhenItsWindowWasClosed) {
    begin();
    hands().tap(KEY_ENTER);
    desktop().close(*desktop().window(welcome));
    EXPECT_TRUE(waitUntil([&] { return !isOpen(welcome); }));
    letPimloftCatchUp();
    EXPECT_FALSE(records()) << "modules start without it";
    EXPECT_TRUE(stored().isEmpty());
    end();
    begin();
    goThroughFirstRun();
    expectShortcuts();
}

TEST_F(FirstRun, isFollowedByTheNewsOnlyAtTheNextStart) {
    begin();
    goThroughFirstRun();
    expectShortcuts();
    EXPECT_FALSE(isOpen(news));
    end();

    startPimloft();
    waitFor(news);
    EXPECT_FALSE(desktop().states(*desktop().window(news)).contains(QStringLiteral("ABOVE")));
    EXPECT_NEAR(desktop().visibleFrame(*desktop().window(news)).width(), 420, 4);
    picture(QStringLiteral("news"));
    desktop().close(*desktop().window(news));
    EXPECT_TRUE(waitUntil([&] { return !isOpen(news); }));
    EXPECT_FALSE(stored().contains(lastSeen)) << "the close box counts as having read them";
    end();

    startPimloft();
    waitFor(news);
    hands().tap(KEY_ENTER);
    EXPECT_TRUE(waitUntil([&] { return !isOpen(news); }));
    expectStored(lastSeen, QStringLiteral("1.0.0"));
    end();

    startPimloft();
    letPimloftCatchUp();
    EXPECT_FALSE(isOpen(news)) << "it tells the same news again";
}

}  // namespace
}  // namespace pimloft::test
