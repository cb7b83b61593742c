// SPDX-License-Identifier: MIT
// The program's entrances on a desktop with a real tray, clicked as a user does.
#include "desktop/support/tray_host.h"
#include "page_session.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"

#include "ui/kit/theme.h"
#include "ui/pimloft_app.h"
#include "ui/tray_icon.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(TrayIcon, saysWhyTheDesktopDoesNotTrustTheProgram) {
    test::PageSession session;
    session.desktop.windows.trusted = false;
    session.desktop.diagnosis.list = {{QStringLiteral("Session"), true, QStringLiteral("X11")},
                                      {QStringLiteral("Key events"), false, QStringLiteral("No XTEST.")},
                                      {QStringLiteral("Compositor"), false, QStringLiteral("None.")}};
    session.accessibility().refresh();
    const TrayIcon icon(session.appState(), session.accessibility(), session.desktop.diagnosis,
                        session.desktop.appearance, session.theme());
    EXPECT_EQ(icon.toolTip().toStdString(), "Pimloft\nNo XTEST.");

    session.desktop.windows.trusted = true;
    session.accessibility().refresh();
    EXPECT_EQ(icon.toolTip().toStdString(), "Pimloft");
}

/// The running program with its icon in a tray at the top of the screen.
class Entrances : public testing::Test {
protected:
    Entrances() {
        EXPECT_TRUE(test::waitUntil(
            [this] { return tray_.hasIcon() && app.tray().geometry() == test::TrayHost::frame; }));
        session.desktop.log();
    }

    void clickIcon() { hands.click(test::TrayHost::frame.center()); }
    bool isOpen() const {
        const auto &panels = session.desktop.panels.existing();
        return !panels.empty() && panels.front()->isShown();
    }

    test::PageSession session;
    PimloftApp app{session.process, session.appState(), session.views()};
    test::PhysicalInput hands;

private:
    test::TrayHost tray_{test::currentSession().display()};
};

TEST_F(Entrances, aClickOnTheIconOpensThePopoverAndAnotherClosesIt) {
    clickIcon();
    ASSERT_TRUE(test::waitUntil([this] { return isOpen(); }));
    clickIcon();
    EXPECT_TRUE(test::waitUntil([this] { return !isOpen(); }));
}

TEST_F(Entrances, thePopoverHangsAtTheIcon) {
    clickIcon();
    ASSERT_TRUE(test::waitUntil([this] { return isOpen(); }));
    const QRectF popover = session.desktop.panels.existing().front()->frame();
    const double height = QGuiApplication::primaryScreen()->size().height();
    const double top = height - popover.y() - popover.height();
    const double shadow = 20;
    EXPECT_NEAR(top + shadow, test::TrayHost::frame.bottom() + 1 + 6, 1);
}

TEST_F(Entrances, aClickWhosePressClosedThePopoverDoesNotOpenItAgain) {
    clickIcon();
    ASSERT_TRUE(test::waitUntil([this] { return isOpen(); }));
    session.desktop.panels.existing().front()->dismiss(Dismissal::outsideClick);
    ASSERT_FALSE(isOpen());
    QSignalSpy clicked(&app.tray(), &TrayIcon::clicked);
    clickIcon();
    ASSERT_TRUE(test::waitUntil([&] { return clicked.size() == 1; }));
    EXPECT_FALSE(isOpen());

    clickIcon();
    EXPECT_TRUE(test::waitUntil([this] { return isOpen(); })) << "the next click is a new one";
}

TEST_F(Entrances, aPressElsewhereDoesNotSpoilTheNextClick) {
    clickIcon();
    ASSERT_TRUE(test::waitUntil([this] { return isOpen(); }));
    hands.moveTo(QPoint(300, 300));
    ASSERT_TRUE(test::waitUntil([] { return QCursor::pos() == QPoint(300, 300); }));
    session.desktop.panels.existing().front()->dismiss(Dismissal::outsideClick);
    clickIcon();
    EXPECT_TRUE(test::waitUntil([this] { return isOpen(); }));
}

TEST_F(Entrances, openingTheSettingsClosesThePopover) {
    app.openPopover();
    ASSERT_TRUE(isOpen());
    app.openSettings();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(test::shownWindow()->title(), QStringLiteral("Pimloft Settings"));
}

}  // namespace
}  // namespace pimloft
