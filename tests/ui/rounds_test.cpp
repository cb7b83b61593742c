// SPDX-License-Identifier: MIT
// Every window opened and closed over and over on a real screen.
#include "history_session.h"
#include "page_session.h"
#include "plain_panels.h"

#include "app/onboarding.h"
#include "app/whats_new.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <malloc.h>

namespace pimloft {
namespace {

class Rounds : public testing::Test {
protected:
    Rounds() {
        panels.fading = false;
        session.desktop.audio.add({.name = QStringLiteral("Speakers")});
        session.desktop.workspace.running.push_back({.name = QStringLiteral("Spotify"),
                                                     .bundleId = QStringLiteral("com.spotify.client"),
                                                     .processId = ProcessId(7)});
        session.appState().quickVolume()->activate();
        for (int number = 0; number < 20; ++number)
            history.addText(qPrintable(QStringLiteral("Line %1").arg(number)));
        history.add(ImageContent{test::HistorySession::landscape({640, 400})});
    }

    void openAndClosePopover() {
        popover.open(QRectF(700, 900, 22, 22));
        waitForFrame();
        popover.close();
    }
    void openPopoverAndUnfoldTheMixer() {
        popover.open(QRectF(700, 900, 22, 22));
        waitForFrame();
        test::click(test::named(test::shownWindow(), QStringLiteral("Show QuickVolume")));
        ASSERT_TRUE(QTest::qWaitFor(
            [] { return test::named(test::shownWindow(), QStringLiteral("Mute Spotify")) != nullptr; }));
        // Nobody closes what has not been drawn yet. Qt would keep a part of its bindings until the engine
        // goes.
        QSignalSpy frames(test::shownWindow(), &QQuickWindow::frameSwapped);
        ASSERT_TRUE(frames.wait());
        popover.close();
    }
    void openAndCloseHistory() {
        history.controller.show();
        waitForFrame();
        history.controller.hide();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
    }
    /// Each time with another page.
    void openAndCloseSettings() {
        settings.selectNext();
        settings.open();
        waitForFrame();
        settings.close();
    }
    void openAndCloseFirstRun() { showAndDestroy("OnboardingView.qml", "flow", QVariant::fromValue(&flow)); }
    void openAndCloseNews() { showAndDestroy("WhatsNewView.qml", "news", QVariant::fromValue(&news)); }

    /// Does so again and again, and answers by how many bytes two hundred times more take.
    qint64 growth(const std::function<void()> &openAndClose) {
        constexpr int untilCachesAreFull = 20;
        constexpr int rounds = 200;
        for (int round = 0; round < untilCachesAreFull; ++round)
            openAndClose();
        const qint64 before = memory();
        for (int round = 0; round < rounds; ++round)
            openAndClose();
        return memory() - before;
    }

private:
    /// Bytes in use, when everything has gone that is to go.
    qint64 memory() {
        // What goes may leave more behind that is to go.
        constexpr int generations = 5;
        for (int generation = 0; generation < generations; ++generation) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            session.views().engine().engine().collectGarbage();
        }
        const std::string whatTheFakesWroteDown = session.desktop.log();
        return qint64(mallinfo2().uordblks);
    }
    void showAndDestroy(const char *page, const char *property, const QVariant &model) {
        const auto window = session.views().makeWindow(
            {.title = QStringLiteral("Window"),
             .contentSize = {420, 400},
             .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/") + QLatin1String(page)),
                      {{QString::fromLatin1(property), model}}}});
        window->present();
        waitForFrame();
        window->close();
    }
    void waitForFrame() {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(test::shownWindow()));
        QCoreApplication::processEvents();
    }

    test::PageSession session;
    test::PlainPanels panels{double(QGuiApplication::primaryScreen()->size().height())};
    GeneralSettings general{session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace};
    SettingsWindow settings{session.views(), general.page(), session.appState().allModules()};
    PopoverController popover{session.appState(), session.accessibility(), session.views().engine(), panels,
                              session.desktop.displays};
    Onboarding flow{session.appState(), session.settings(), session.accessibility(),
                    session.desktop.workspace, [] {}};
    WhatsNew news{QStringLiteral("1.0.0"), WhatsNew::currentFeatures(), session.desktop.preferences, [] {}};
    test::HistorySession history{session, panels};
};

/// Less than a view would take that is left behind once in ten times.
constexpr qint64 nothing = 256 * 1024;

TEST_F(Rounds, thePopoverTakesNoMemory) {
    EXPECT_LT(growth([this] { openAndClosePopover(); }), nothing);
}

TEST_F(Rounds, theMixerTakesNoMemory) {
    EXPECT_LT(growth([this] { openPopoverAndUnfoldTheMixer(); }), nothing);
}

TEST_F(Rounds, theHistoryTakesNoMemory) {
    EXPECT_LT(growth([this] { openAndCloseHistory(); }), nothing);
}

TEST_F(Rounds, theSettingsTakeNoMemory) {
    EXPECT_LT(growth([this] { openAndCloseSettings(); }), nothing);
}

TEST_F(Rounds, theFirstRunTakesNoMemory) {
    EXPECT_LT(growth([this] { openAndCloseFirstRun(); }), nothing);
}

TEST_F(Rounds, theNewsTakeNoMemory) {
    EXPECT_LT(growth([this] { openAndCloseNews(); }), nothing);
}

}  // namespace
}  // namespace pimloft
