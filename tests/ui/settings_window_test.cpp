// SPDX-License-Identifier: MIT
#include "ui/settings_window.h"

#include "page_session.h"

#include "app/pimloft_module.h"
#include "keymapper/key_mapper_module.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "windowsnap/window_snap_module.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// A module with the page that the test gives it.
class Module final : public PimloftModule {
    Q_OBJECT

public:
    Module(const QString &name, std::optional<Page> page, SettingsManager &settings)
        : PimloftModule({name, name, QStringLiteral("gear"), {}, false}, settings), page_(std::move(page)) {}
    void activate() override {}
    void deactivate() override {}
    std::optional<Page> settingsView() override { return page_; }

private:
    std::optional<Page> page_;
};

Page pageOf(const char *name) {
    return {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/%1.qml").arg(QLatin1String(name))), {}};
}

class SettingsWindowTest : public testing::Test {
protected:
    std::unique_ptr<SettingsWindow> settingsWith(const QList<PimloftModule *> &modules) {
        return std::make_unique<SettingsWindow>(session.views(), general.page(), modules);
    }
    std::unique_ptr<SettingsWindow> openSettings() {
        auto settings = settingsWith({session.appState().windowSnap()});
        settings->open();
        window = test::shownWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return settings;
    }
    QStringList spoken() const {
        test::waitForPage(*window);
        return test::spoken(window);
    }

    static std::string titles(const SettingsWindow &settings) {
        QStringList list;
        for (const QVariant &tab : settings.tabs())
            list << tab.value<SettingsTab>().title;
        return list.join(QStringLiteral(", ")).toStdString();
    }

    test::PageSession session;
    GeneralSettings general{session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace};
    QQuickWindow *window = nullptr;
};

TEST_F(SettingsWindowTest, hasATabForEachModuleWhosePageExists) {
    Module first(QStringLiteral("First"), pageOf("SettingsView"), session.settings());
    Module without(QStringLiteral("Without"), std::nullopt, session.settings());
    Module missing(QStringLiteral("Missing"), pageOf("NoSuchView"), session.settings());
    Module last(QStringLiteral("Last"), pageOf("SettingsView"), session.settings());
    EXPECT_EQ(titles(*settingsWith({&first, &without, &missing, &last})), "General, First, Last");
}

TEST_F(SettingsWindowTest, startsWithTheGeneralPage) {
    EXPECT_EQ(settingsWith({})->selectedTab(), 0);
    EXPECT_EQ(titles(*settingsWith({})), "General");
}

TEST_F(SettingsWindowTest, goesThroughTheTabsRoundTheEnds) {
    Module one(QStringLiteral("One"), pageOf("SettingsView"), session.settings());
    Module two(QStringLiteral("Two"), pageOf("SettingsView"), session.settings());
    const auto settings = settingsWith({&one, &two});
    settings->selectPrevious();
    EXPECT_EQ(settings->selectedTab(), 2);
    settings->selectNext();
    EXPECT_EQ(settings->selectedTab(), 0);
    settings->select(7);
    settings->select(-1);
    EXPECT_EQ(settings->selectedTab(), 0);
}

TEST_F(SettingsWindowTest, tellsAChangeOfTheTabOnce) {
    Module one(QStringLiteral("One"), pageOf("SettingsView"), session.settings());
    const auto settings = settingsWith({&one});
    QSignalSpy changed(settings.get(), &SettingsWindow::selectedTabChanged);
    settings->select(1);
    settings->select(1);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(SettingsWindowTest, showsTheTabsThenThePage) {
    const auto settings = openSettings();
    EXPECT_EQ(spoken().mid(0, 4).join(QStringLiteral("; ")).toStdString(),
              "window: Pimloft Settings; tabs: Pages; tab: General [selected]; tab: WindowSnap");
    EXPECT_TRUE(spoken().contains(QStringLiteral("heading: Startup")));
}

TEST_F(SettingsWindowTest, aClickOnATabShowsItsPage) {
    const auto settings = openSettings();
    test::click(test::named(window, QStringLiteral("WindowSnap")));
    EXPECT_EQ(settings->selectedTab(), 1);
    EXPECT_TRUE(spoken().contains(QStringLiteral("heading: Snap Zones")));
    EXPECT_FALSE(spoken().contains(QStringLiteral("heading: Startup")));
}

TEST_F(SettingsWindowTest, thePageBeforeStaysUntilTheNextOneIsThere) {
    const auto settings = openSettings();
    settings->select(1);
    EXPECT_TRUE(test::spoken(window).contains(QStringLiteral("heading: Startup")));
    EXPECT_FALSE(test::spoken(window).contains(QStringLiteral("heading: Snap Zones")));
    EXPECT_TRUE(spoken().contains(QStringLiteral("heading: Snap Zones")));
}

TEST_F(SettingsWindowTest, theLastOfSeveralPagesIsShown) {
    const auto settings = openSettings();
    for (const int tab : {1, 0, 1, 0})
        settings->select(tab);
    EXPECT_TRUE(spoken().contains(QStringLiteral("heading: Startup")));
    EXPECT_FALSE(spoken().contains(QStringLiteral("heading: Snap Zones")));
}

TEST_F(SettingsWindowTest, whatIsTypedAtOnceIsForTheNewPage) {
    const auto settings = openSettings();
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Tab, Qt::ControlModifier);
    test::type(window, Qt::Key_Tab);
    const auto *page = window->contentItem()->findChild<QQuickItem *>(QStringLiteral("page"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return page->isAncestorOf(window->activeFocusItem()); }));
    EXPECT_TRUE(spoken().contains(QStringLiteral("heading: Snap Zones")));
}

TEST_F(SettingsWindowTest, whatIsTypedAfterItIsClosedIsForNobody) {
    const auto settings = openSettings();
    settings->select(1);
    // Both before the page is there, however quick the machine.
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QKeyEvent next(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
    QCoreApplication::sendEvent(window, &escape);
    QCoreApplication::sendEvent(window, &next);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(settings->selectedTab(), 1);
}

TEST_F(SettingsWindowTest, theKeyboardStaysWithThePageWhenAnotherOneComes) {
    const auto settings = openSettings();
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Tab);
    const auto *page = window->contentItem()->findChild<QQuickItem *>(QStringLiteral("page"));
    for (const int tab : {1, 0, 1}) {
        ASSERT_TRUE(page->isAncestorOf(window->activeFocusItem()));
        settings->select(tab);
        test::waitForPage(*window);
    }
    EXPECT_TRUE(page->isAncestorOf(window->activeFocusItem()));
}

TEST_F(SettingsWindowTest, controlTabGoesThroughThePagesFromAnywhere) {
    const auto settings = openSettings();
    test::type(window, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(settings->selectedTab(), 1);
    test::type(window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(settings->selectedTab(), 0);
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(settings->selectedTab(), 1);
}

TEST_F(SettingsWindowTest, theArrowKeysGoThroughTheListOfPages) {
    const auto settings = openSettings();
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Down);
    EXPECT_EQ(settings->selectedTab(), 1);
    test::type(window, Qt::Key_End);
    const int last = int(settings->tabs().size()) - 1;
    EXPECT_EQ(settings->selectedTab(), last);
    test::type(window, Qt::Key_Down);
    EXPECT_EQ(settings->selectedTab(), last) << "the list has an end";
    test::type(window, Qt::Key_Home);
    EXPECT_EQ(settings->selectedTab(), 0);
}

TEST_F(SettingsWindowTest, theSelectedTabOutlivesTheView) {
    const auto settings = openSettings();
    settings->select(1);
    test::type(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }));
    settings->open();
    EXPECT_TRUE(test::spoken(test::shownWindow()).contains(QStringLiteral("tab: WindowSnap [selected]")));
}

}  // namespace
}  // namespace pimloft

#include "settings_window_test.moc"
