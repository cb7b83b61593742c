// SPDX-License-Identifier: MIT
// The first run, the news and the updates on a real screen in every look, with a picture of each in the build
// folder.
#include "pictures.h"

#include "app/onboarding.h"
#include "app/whats_new.h"
#include "finderfix/finder_fix_module.h"
#include "ui/general_settings.h"
#include "ui/settings_window.h"
#include "updates/appcast_fetcher.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using FirstRunPictures = test::Pictures;
using test::colours;

TEST_P(FirstRunPictures, steps) {
    Onboarding flow(session.appState(), session.settings(), session.accessibility(),
                    session.desktop.workspace, [] {});
    const auto window = session.views().makeWindow(
        {.title = QStringLiteral("Welcome to Pimloft"),
         .contentSize = {560, 480},
         .isFloating = true,
         .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/OnboardingView.qml")),
                  {{QStringLiteral("flow"), QVariant::fromValue(&flow)}}}});
    window->present();
    QQuickWindow *view = test::shownWindow();
    EXPECT_GE(colours(picture(view, QStringLiteral("first-run-welcome"))), 50);
    session.appState().finderFix()->setEnabled(false);
    flow.next();
    test::type(view, Qt::Key_Tab);
    EXPECT_GE(colours(picture(view, QStringLiteral("first-run-modules"))), 50);
    flow.next();
    EXPECT_GE(colours(picture(view, QStringLiteral("first-run-permission"))), 50);
    flow.permission()->skip();
    EXPECT_GE(colours(picture(view, QStringLiteral("first-run-ready"))), 50);
}

TEST_P(FirstRunPictures, news) {
    WhatsNew news(QStringLiteral("1.0.0"), WhatsNew::currentFeatures(), session.desktop.preferences, [] {});
    const auto window =
        session.views().makeWindow({.title = QStringLiteral("What's New"),
                                    .contentSize = {420, 400},
                                    .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/WhatsNewView.qml")),
                                             {{QStringLiteral("news"), QVariant::fromValue(&news)}}}});
    window->present();
    EXPECT_GE(colours(picture(test::shownWindow(), QStringLiteral("news"))), 50);
}

/// A network that has a new release at once.
class GoodNews final : public AppcastFetcher {
public:
    void fetch(const QUrl &, Done done) override {
        done("<rss><item><enclosure url='https://a.example/new' sparkle:version='1.2'/></item></rss>");
    }
};

TEST_P(FirstRunPictures, update) {
    UpdateManager updates(QStringLiteral("https://a.example/appcast.xml"), QStringLiteral("1.0.0"),
                          std::make_unique<GoodNews>(), session.desktop.workspace);
    updates.checkForUpdatesNow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return updates.updateAvailable(); }));
    GeneralSettings general(session.settings(), session.accessibility(), updates, session.desktop.workspace);
    SettingsWindow settings(session.views(), general.page(), session.appState().allModules());
    settings.open();
    EXPECT_GE(colours(picture(test::shownWindow(), QStringLiteral("general-update"))), 50);
}

INSTANTIATE_TEST_SUITE_P(Ui, FirstRunPictures, testing::ValuesIn(test::looks()), test::lookName);

}  // namespace
}  // namespace pimloft
