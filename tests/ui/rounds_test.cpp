// SPDX-License-Identifier: MIT
// Every window opened and closed over and over on a real screen.
#include "page_session.h"
#include "plain_panels.h"

#include "app/onboarding.h"
#include "app/whats_new.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <malloc.h>

namespace pimloft {
namespace {

class Rounds : public testing::Test {
protected:
    /// Shows everything that a user can open, each until it is drawn, and takes it off the screen.
    void openAndCloseEverything() {
        popover.open(QRectF(700, 900, 22, 22));
        waitForFrame();
        popover.close();
        settings.select((settings.selectedTab() + 1) % int(settings.tabs().size()));
        settings.open();
        waitForFrame();
        settings.close();
        showAndDestroy("OnboardingView.qml", "flow", QVariant::fromValue(&flow));
        showAndDestroy("WhatsNewView.qml", "news", QVariant::fromValue(&news));
    }

    /// Bytes in use, when everything has gone that is to go.
    qint64 memory() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        session.views().engine().engine().collectGarbage();
        return qint64(mallinfo2().uordblks);
    }

private:
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
};

TEST_F(Rounds, twoHundredOfThemTakeNoMemory) {
    constexpr int untilCachesAreFull = 25;
    constexpr int rounds = 200;
    for (int round = 0; round < untilCachesAreFull; ++round)
        openAndCloseEverything();
    const qint64 before = memory();
    for (int round = 0; round < rounds; ++round)
        openAndCloseEverything();
    const qint64 growth = memory() - before;
    RecordProperty("bytesPerRound", int(growth / rounds));
    EXPECT_LT(growth, 256 * 1024) << growth / rounds << " bytes each time";
}

}  // namespace
}  // namespace pimloft
