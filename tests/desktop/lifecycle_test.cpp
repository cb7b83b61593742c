// SPDX-License-Identifier: MIT
// Starting, asking and ending the program, and what it makes of a desktop or a disk that fails it.
#include "desktop/support/desktop_test.h"
#include "desktop/support/tray_host.h"

#include <QFile>

#include <csignal>

namespace pimloft::test {
namespace {

using testing::HasSubstr;

class Lifecycle : public DesktopTest {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }
    Launch ask(const QString &option) { return launch(session(), {option}); }
    bool hasPopover() { return panelFrame().has_value(); }
    bool hasSettingsWindow() { return !desktop().windowsOf(QStringLiteral("pimloft")).empty(); }
};

TEST_F(Lifecycle, tellsItsVersionWithoutADesktop) {
    const Launch answer = launch(session(), {QStringLiteral("--version")},
                                 {{QStringLiteral("DISPLAY"), QStringLiteral(":nowhere")}});
    EXPECT_EQ(answer.exitCode, 0);
    EXPECT_THAT(answer.output.toStdString(), HasSubstr("1.0.0"));
    EXPECT_EQ(answer.complaints.toStdString(), "");
}

TEST_F(Lifecycle, tellsItsOptionsWithoutADesktop) {
    const Launch answer = launch(session(), {QStringLiteral("--help")},
                                 {{QStringLiteral("DISPLAY"), QStringLiteral(":nowhere")}});
    EXPECT_EQ(answer.exitCode, 0);
    for (const char *option : {"--settings", "--quit", "--doctor", "--version", "--help"})
        EXPECT_THAT(answer.output.toStdString(), HasSubstr(option));
    EXPECT_EQ(answer.complaints.toStdString(), "");
}

TEST_F(Lifecycle, refusesAnOptionThatMeansNothing) {
    const Launch answer = ask(QStringLiteral("--nonsense"));
    EXPECT_GT(answer.exitCode, 0);
    EXPECT_THAT((answer.output + answer.complaints).toStdString(), HasSubstr("--nonsense"));
}

TEST_F(Lifecycle, opensItsPanelWhenItIsStartedAgain) {
    startPimloft();
    EXPECT_FALSE(hasPopover());
    const Launch second = launch(session(), {});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.complaints.toStdString(), "");
    EXPECT_TRUE(waitUntil([&] { return hasPopover(); }));
    picture(QStringLiteral("popover"));
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([&] { return !hasPopover(); }));
}

TEST_F(Lifecycle, opensItsPanelFromTheTray) {
    TrayHost tray(session().display());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    letPimloftCatchUp();
    hands().click(TrayHost::frame.center());
    EXPECT_TRUE(waitUntil([&] { return hasPopover(); }));
    picture(QStringLiteral("popover-at-the-tray"));
    hands().click({300, 700});
    EXPECT_TRUE(waitUntil([&] { return !hasPopover(); })) << "a click elsewhere does not close it";
}

TEST_F(Lifecycle, comesBackToATrayThatRestarts) {
    auto tray = std::make_unique<TrayHost>(session().display());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray->hasIcon(); }));
    tray.reset();
    tray = std::make_unique<TrayHost>(session().display());
    EXPECT_TRUE(waitUntil([&] { return tray->hasIcon(); }));
}

TEST_F(Lifecycle, opensItsSettingsWhenAsked) {
    startPimloft();
    EXPECT_EQ(ask(QStringLiteral("--settings")).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return hasSettingsWindow(); }));
    EXPECT_TRUE(desktop().window(QStringLiteral("Pimloft Settings"))) << "its title is another";
    picture(QStringLiteral("settings"));
}

TEST_F(Lifecycle, startsWithItsSettingsOpenWhenItDoesNotRunYet) {
    Program program(session(), {QStringLiteral("--settings")});
    EXPECT_TRUE(waitUntil([&] { return hasSettingsWindow(); }));
    program.signal(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(program.complaints().toStdString(), "");
}

TEST_F(Lifecycle, endsWhenAskedByAnotherLaunch) {
    startPimloft();
    EXPECT_EQ(ask(QStringLiteral("--quit")).exitCode, 0);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    EXPECT_FALSE(snaps());
}

TEST_F(Lifecycle, isStartedAgainWhileTheOneBeforeIsEnding) {
    startPimloft();
    pimloft().signal(SIGTERM);
    Program next(session());
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    EXPECT_TRUE(waitUntil([&] { return next.answers(); })) << next.complaints().toStdString();
    EXPECT_EQ(next.complaints().toStdString(), "");
}

TEST_F(Lifecycle, workWithoutASessionBus) {
    Variables noBus = {{QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere")}};
    startPimloft(noBus);
    EXPECT_EQ(launch(session(), {QStringLiteral("--quit")}, noBus).exitCode, 0);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
}

TEST_F(Lifecycle, endsCleanlyAtASignalInMidDrag) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {2, 500});
    ASSERT_TRUE(waitUntil([&] { return !noOverlay(); }));
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    EXPECT_TRUE(noOverlay());
    drop();
}

TEST_F(Lifecycle, endsCleanlyAtASignalWithAWindowAndThePopupOpen) {
    startPimloft();
    ASSERT_EQ(ask(QStringLiteral("--settings")).exitCode, 0);
    ASSERT_TRUE(waitUntil([&] { return hasSettingsWindow(); }));
    hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    ASSERT_TRUE(waitUntil([&] { return !desktop().unmanagedWindows(QStringLiteral("pimloft")).empty(); }));
    letPimloftCatchUp();
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
}

TEST_F(Lifecycle, startsAgainAfterItWasKilled) {
    startPimloft();
    pimloft().signal(SIGKILL);
    EXPECT_EQ(pimloft().waitForEnd(), -1);
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    press(KEY_LEFT);
    expectFrame(window, {0, 0, 800, 1000});
}

TEST_F(Lifecycle, leavesNoPictureOfItsMemoryWhenItCrashes) {
    startPimloft();
    QFile limits(QStringLiteral("/proc/%1/limits").arg(pimloft().pid()));
    ASSERT_TRUE(limits.open(QFile::ReadOnly));
    EXPECT_THAT(limits.readAll().toStdString(), testing::ContainsRegex("Max core file size +0 "));
}

TEST_F(Lifecycle, leavesAShortcutToTheProgramThatHasItAndSaysSo) {
    desktop().takeKey(KEY_LEFT, controlSuper);
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    press(KEY_LEFT);
    press(KEY_RIGHT);
    expectFrame(window, {800, 0, 800, 1000});
    EXPECT_THAT(ask(QStringLiteral("--doctor")).output.toStdString(),
                HasSubstr("belongs to another program"));
}

TEST_F(Lifecycle, tellsWhatItWouldFindBeforeItRuns) {
    const Launch answer = ask(QStringLiteral("--doctor"));
    EXPECT_EQ(answer.exitCode, 0);
    EXPECT_THAT(answer.output.toStdString(), HasSubstr("14 of 14 granted"));
    EXPECT_EQ(answer.complaints.toStdString(), "");
    EXPECT_FALSE(snaps());
}

TEST_F(Lifecycle, findsNothingMissingOnAnOrdinaryDesktop) {
    startPimloft();
    EXPECT_THAT(ask(QStringLiteral("--doctor")).output.toStdString(), HasSubstr("14 of 14 granted"));
}

class WithoutXTest : public DesktopTest {};

TEST_F(WithoutXTest, itRunsAndSaysWhatItCannotDo) {
    openDesktop(QStringLiteral("openbox"), {QStringLiteral("-extension"), QStringLiteral("XTEST")});
    startPimloftWithoutShortcuts();
    EXPECT_FALSE(snaps());
    EXPECT_THAT(launch(session(), {QStringLiteral("--doctor")}).output.toStdString(), HasSubstr("  no  "));
    EXPECT_EQ(launch(session(), {}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return panelFrame().has_value(); }));
    picture(QStringLiteral("popover-untrusted"));
}

}  // namespace
}  // namespace pimloft::test
