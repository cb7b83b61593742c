// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "app/hotkey_manager.h"
#include "app/settings_keys.h"
#include "ui/general_settings.h"
#include "ui/page_view.h"
#include "updates/appcast_fetcher.h"
#include "windowsnap/window_snap_settings.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <cstring>

namespace pimloft {
namespace {

class Pages : public testing::Test {
protected:
    ~Pages() override { qApp->setLayoutDirection(Qt::LeftToRight); }

    void show(const Page &page) {
        view = std::make_unique<PageView>(session.views().engine(), page);
        view->resize(560, 420);
        view->show();
        view->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    void showGeneral() { show(general.page()); }
    void showWindowSnap() {
        show({QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/WindowSnap/WindowSnapSettings.qml")),
              {{QStringLiteral("settings"), QVariant::fromValue<QObject *>(&windowSnap)}}});
    }
    std::string spoken() const { return test::spoken(view.get()).join(QLatin1Char('\n')).toStdString(); }
    QQuickItem *named(const char *name) const {
        QQuickItem *item = test::named(view.get(), QString::fromUtf8(name));
        EXPECT_TRUE(item) << name;
        return item;
    }

    test::PageSession session;
    GeneralSettings general{session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace};
    WindowSnapSettings windowSnap{session.settings(), HotkeyManager::shared()};
    std::unique_ptr<PageView> view;
};

TEST_F(Pages, theGeneralPageSaysThis) {
    showGeneral();
    EXPECT_EQ(spoken(),
              "group: Startup\n"
              "heading: Startup\n"
              "switch: Launch at login [off]\n"
              "group: Accessibility\n"
              "heading: Accessibility\n"
              "text: Permission Granted\n"
              "button: Open Settings\n"
              "text: WindowSnap, KeyMapper, and FinderFix require Accessibility permission to function.\n"
              "group: Updates\n"
              "heading: Updates\n"
              "text: Up to date\n"
              "button: Check Now\n"
              "group: About\n"
              "heading: About\n"
              "text: Version: 1.0.0\n"
              "text: Build: 1");
}

TEST_F(Pages, theGeneralPageFollowsThePermission) {
    session.desktop.windows.trusted = false;
    session.accessibility().refresh();
    showGeneral();
    EXPECT_TRUE(test::texts(view->rootObject()).contains(QStringLiteral("Permission Required")));
    session.desktop.windows.trusted = true;
    session.accessibility().refresh();
    EXPECT_TRUE(test::texts(view->rootObject()).contains(QStringLiteral("Permission Granted")));
    EXPECT_FALSE(test::texts(view->rootObject()).contains(QStringLiteral("Permission Required")));
}

TEST_F(Pages, launchAtLoginIsSwitchedByClickAndBySpace) {
    showGeneral();
    session.desktop.log();
    test::click(named("Launch at login"));
    EXPECT_EQ(session.desktop.log(), "set pimloft.general.launchAtLogin = true\nregister login item\n");
    test::type(view.get(), Qt::Key_Space);
    EXPECT_EQ(session.desktop.log(), "set pimloft.general.launchAtLogin = false\nunregister login item\n");
}

TEST_F(Pages, launchAtLoginFollowsTheStore) {
    showGeneral();
    session.settings().setLaunchAtLogin(true);
    EXPECT_NE(spoken().find("switch: Launch at login [on]"), std::string::npos);
}

TEST_F(Pages, openSettingsOpensThePrivacySettings) {
    showGeneral();
    session.desktop.log();
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Return);
    EXPECT_EQ(session.desktop.log(),
              "open x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility\n");
}

TEST_F(Pages, openSettingsDoesNotWatchForThePermission) {
    session.desktop.windows.trusted = false;
    session.accessibility().refresh();
    showGeneral();
    test::click(named("Open Settings"));
    session.desktop.windows.trusted = true;
    QTest::qWait(1100);  // longer than the permission page waits between two looks
    EXPECT_FALSE(session.accessibility().isAccessibilityGranted());
}

/// A network that answers when the test says so.
class FakeFetcher final : public AppcastFetcher {
public:
    void fetch(const QUrl &, Done done) override { waiting = std::move(done); }
    Done waiting;
};

class Updates : public Pages {
protected:
    // What the page shows is there for as long as the page is.
    ~Updates() override { view.reset(); }
    void SetUp() override {
        show(settings.page());
        session.desktop.log();
    }
    void answer(const QByteArray &version) {
        fetcher->waiting("<rss><item><enclosure url='https://a.example/new' sparkle:version='" + version +
                         "'/></item></rss>");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !updates.isCheckingForUpdates(); }));
    }
    /// What the section says.
    std::string section() const {
        const std::string all = spoken();
        const auto begin = all.find("heading: Updates\n") + std::strlen("heading: Updates\n");
        return all.substr(begin, all.find("group: About") - begin);
    }

    FakeFetcher *fetcher = new FakeFetcher;
    UpdateManager updates{QStringLiteral("https://a.example/appcast.xml"), QStringLiteral("1.0.0"),
                          std::unique_ptr<AppcastFetcher>(fetcher), session.desktop.workspace};
    GeneralSettings settings{session.settings(), session.accessibility(), updates, session.desktop.workspace};
};

TEST_F(Updates, theButtonTellsWhileACheckRuns) {
    EXPECT_EQ(section(), "text: Up to date\nbutton: Check Now\n");
    test::click(named("Check Now"));
    EXPECT_EQ(section(), "text: Up to date\nbutton: Checking...\n");
    fetcher->waiting(std::nullopt);
    EXPECT_EQ(section(), "text: Up to date\nbutton: Check Now\n");
}

TEST_F(Updates, aCheckThatFindsNothingNewerLeavesItAtThat) {
    test::click(named("Check Now"));
    answer("1.0.0");
    EXPECT_EQ(section(), "text: Up to date\nbutton: Check Now\n");
}

TEST_F(Updates, aNewerReleaseIsOfferedAndOpenedInTheBrowser) {
    test::click(named("Check Now"));
    answer("1.2");
    EXPECT_EQ(section(), "text: v1.2 available\nbutton: Download Update\nbutton: Check Now\n");
    test::click(named("Download Update"));
    EXPECT_EQ(session.desktop.log(), "open https://a.example/new\n");
}

TEST_F(Updates, anotherCheckCanBeStartedWhileOneRuns) {
    test::click(named("Check Now"));
    fetcher->waiting = nullptr;
    test::click(named("Checking..."));
    EXPECT_TRUE(fetcher->waiting);
}

TEST_F(Pages, theWindowSnapPageSaysThis) {
    showWindowSnap();
    EXPECT_EQ(test::texts(view->rootObject()).join(QLatin1Char('\n')).toStdString(),
              "Snap Zones\n"
              "Edge Sensitivity\n"
              "10px\n"
              "How close to the screen edge you need to drag before the snap preview appears.\n"
              "Keyboard Shortcuts\n"
              "^+^+←\nSnap left 50%\n"
              "^+^+→\nSnap right 50%\n"
              "^+^+↑\nMaximize\n"
              "^+^+↓\nRestore previous size\n"
              "^+^+1-6\nQuick layouts\n"
              "Snap Layouts\n"
              "Half & Half\n^+^+1\n"
              "70/30\n^+^+2\n"
              "30/70\n^+^+3\n"
              "Thirds\n^+^+4\n"
              "Half + Quarters\n^+^+5\n"
              "Quarters\n^+^+6\n"
              "Multi-Monitor\n"
              "Snap zones are disabled on screen edges shared with another display to prevent accidental "
              "snapping.");
}

TEST_F(Pages, aScreenReaderIsToldEachShortcutAsOneLine) {
    showWindowSnap();
    EXPECT_NE(spoken().find("list item: ^+^+↓: Restore previous size"), std::string::npos) << spoken();
    EXPECT_NE(spoken().find("list item: Half + Quarters: ^+^+5"), std::string::npos) << spoken();
    EXPECT_NE(spoken().find("slider: Edge Sensitivity"), std::string::npos) << spoken();
}

TEST_F(Pages, theSliderStoresWhatTheArrowKeysPick) {
    showWindowSnap();
    session.desktop.log();
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Right);
    EXPECT_EQ(session.desktop.log(), "set pimloft.windowsnap.snapSensitivity = 11\n");
    EXPECT_TRUE(test::texts(view->rootObject()).contains(QStringLiteral("11px")));
    for (int press = 0; press < 30; ++press)
        test::type(view.get(), Qt::Key_Right);
    EXPECT_EQ(session.desktop.preferences.number(SettingsKeys::snapSensitivity), 30);
    for (int press = 0; press < 30; ++press)
        test::type(view.get(), Qt::Key_Left);
    EXPECT_EQ(session.desktop.preferences.number(SettingsKeys::snapSensitivity), 5);
}

TEST_F(Pages, theSliderStoresWholePointsWhereItIsDragged) {
    showWindowSnap();
    QQuickItem *slider = named("Edge Sensitivity");
    slider = slider->inherits("QQuickSlider") ? slider : slider->nextItemInFocusChain();
    const QPointF end = slider->mapToScene(QPointF(slider->width() - 2, slider->height() / 2));
    const QPointF middle = slider->mapToScene(QPointF(slider->width() * 0.51, slider->height() / 2));
    QTest::mousePress(view.get(), Qt::LeftButton, {}, end.toPoint());
    QTest::mouseMove(view.get(), middle.toPoint());
    const double stored = session.desktop.preferences.number(SettingsKeys::snapSensitivity);
    QTest::mouseRelease(view.get(), Qt::LeftButton, {}, middle.toPoint());
    EXPECT_EQ(stored, std::floor(stored)) << "between two steps";
    EXPECT_NEAR(stored, 17, 2);
}

TEST_F(Pages, aValueOfZeroShowsAsTheDefault) {
    session.desktop.preferences.set(SettingsKeys::snapSensitivity, 0.0);
    showWindowSnap();
    EXPECT_TRUE(test::texts(view->rootObject()).contains(QStringLiteral("10px")));
}

TEST_F(Pages, aBrokenValueIsCutNotRounded) {
    session.desktop.preferences.set(SettingsKeys::snapSensitivity, 12.9);
    showWindowSnap();
    EXPECT_TRUE(test::texts(view->rootObject()).contains(QStringLiteral("12px")));
}

TEST_F(Pages, nothingIsCutShort) {
    for (const bool isGeneral : {true, false}) {
        isGeneral ? showGeneral() : showWindowSnap();
        for (const QQuickItem *item : view->rootObject()->findChildren<QQuickItem *>()) {
            EXPECT_FALSE(item->property("truncated").toBool())
                << item->property("text").toString().toStdString();
        }
    }
}

TEST_F(Pages, aPageScrollsToWhatGetsTheKeyboard) {
    showGeneral();
    view->resize(560, 120);
    ASSERT_EQ(view->rootObject()->property("contentY").toDouble(), 0);
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Tab);
    const QQuickItem *button = view->activeFocusItem();
    const double bottom = button->mapToScene(QPointF(0, button->height())).y();
    EXPECT_LE(bottom, 120);
    EXPECT_GT(view->rootObject()->property("contentY").toDouble(), 0);
}

}  // namespace
}  // namespace pimloft
