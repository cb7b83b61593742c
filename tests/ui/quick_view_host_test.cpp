// SPDX-License-Identifier: MIT
#include "ui/quick_view_host.h"

#include "page_session.h"

#include "ui/page_view.h"
#include "ui/quick_view_window.h"

#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using namespace std::chrono_literals;

const QString pageAddress = QStringLiteral("qrc:/tests/HostedPage.qml");

/// What a page is given and outlives it.
class Model : public QObject {
    Q_OBJECT
    Q_PROPERTY(int shown MEMBER shown)

public:
    int shown = 0;
};

class QuickViewHostTest : public testing::Test {
protected:
    WindowDescription description(bool resizable = false) {
        return {
            .title = QStringLiteral("Title"),
            .contentSize = QSize(320, 240),
            .isResizable = resizable,
            .isFloating = true,
            .page = {QUrl(pageAddress), {{QStringLiteral("model"), QVariant::fromValue<QObject *>(&model)}}}};
    }
    std::unique_ptr<QuickViewHost> host(const QuickEngine::Patience &patience = {}) {
        return std::make_unique<QuickViewHost>(session.desktop.displays, session.theme(), patience);
    }
    static PageView *viewOf(ViewWindow &window) { return static_cast<QuickViewWindow &>(window).view(); }

    test::PageSession session;
    Model model;
};

TEST_F(QuickViewHostTest, offersThePagesOfThisBuildOnly) {
    const auto views = host();
    EXPECT_TRUE(views->offers({QUrl(pageAddress), {}}));
    EXPECT_TRUE(views->offers({QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/SettingsView.qml")), {}}));
    EXPECT_FALSE(views->offers({QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/NoSuchView.qml")), {}}));
    EXPECT_FALSE(views->offers({QUrl(QStringLiteral("https://example.org/page.qml")), {}}));
    EXPECT_FALSE(views->offers({}));
}

TEST_F(QuickViewHostTest, nothingOfQmlExistsBeforeTheFirstPresentation) {
    const auto views = host();
    const auto window = views->makeWindow(description());
    EXPECT_FALSE(views->engine().exists());
    window->present();
    EXPECT_TRUE(views->engine().exists());
}

TEST_F(QuickViewHostTest, aWindowHasTheTitleSizeAndStyleOfItsDescription) {
    const auto views = host();
    const auto window = views->makeWindow(description());
    window->present();
    const PageView *view = viewOf(*window);
    EXPECT_EQ(view->title(), QStringLiteral("Title"));
    EXPECT_EQ(view->size(), QSize(320, 240));
    EXPECT_EQ(view->minimumSize(), view->maximumSize()) << "it can be resized";
    EXPECT_TRUE(view->flags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(view->flags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(view->flags() & Qt::WindowMaximizeButtonHint);
    const QPoint middle = QRect(view->position(), view->size()).center();
    EXPECT_LE((middle - view->screen()->geometry().center()).manhattanLength(), 40) << "it is not centred";
}

TEST_F(QuickViewHostTest, aResizableWindowGoesDownToTheSizeThatItsPageNeeds) {
    const auto views = host();
    const auto window = views->makeWindow(description(true));
    window->present();
    EXPECT_EQ(viewOf(*window)->minimumSize(), QSize(120, 90));
    EXPECT_GT(viewOf(*window)->maximumSize().width(), 10000);
}

TEST_F(QuickViewHostTest, aWindowThatTheUserClosedCanBePresentedAgain) {
    const auto views = host();
    const auto window = views->makeWindow(description());
    window->present();
    viewOf(*window)->close();
    EXPECT_FALSE(viewOf(*window)->isVisible());
    window->present();
    EXPECT_TRUE(viewOf(*window)->isVisible());
    window->close();
    EXPECT_FALSE(viewOf(*window)->isVisible());
}

TEST_F(QuickViewHostTest, escapeAndControlWClose) {
    const auto views = host();
    const auto window = views->makeWindow(description());
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_Escape, Qt::NoModifier), std::pair(Qt::Key_W, Qt::ControlModifier)}) {
        window->present();
        test::type(viewOf(*window), Qt::Key_A);
        EXPECT_TRUE(viewOf(*window)->isVisible());
        test::type(viewOf(*window), key, modifiers);
        EXPECT_FALSE(viewOf(*window)->isVisible());
    }
}

TEST_F(QuickViewHostTest, theEngineGoesSomeTimeAfterTheLastWindowClosed) {
    const auto views = host({10ms, 20ms});
    const auto first = views->makeWindow(description());
    const auto second = views->makeWindow(description());
    QSignalSpy dropped(&views->engine(), &QuickEngine::viewsHaveToGo);
    first->present();
    second->present();
    first->close();
    EXPECT_FALSE(dropped.wait(50)) << "although a window is open";

    second->close();
    ASSERT_TRUE(dropped.count() || dropped.wait());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !views->engine().exists(); }));
    EXPECT_FALSE(viewOf(*first)) << "a view outlives its engine";
}

TEST_F(QuickViewHostTest, theEngineRestsWithoutViewsLongBeforeItGoes) {
    const auto views = host({1ms, 60s});
    const auto window = views->makeWindow(description());
    for (int round = 1; round <= 3; ++round) {
        window->present();
        EXPECT_EQ(model.shown, round) << "the page was not made afresh";
        const QQmlEngine *engine = &views->engine().engine();
        window->close();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !viewOf(*window); }));
        ASSERT_TRUE(views->engine().exists());
        EXPECT_EQ(&views->engine().engine(), engine);
    }
}

TEST_F(QuickViewHostTest, aWindowThatIsDestroyedOnScreenGivesUpNothingButItsOwnUse) {
    const auto views = host({1ms, 2ms});
    auto window = views->makeWindow(description());
    window->present();
    const auto another = views->engine().use();
    QSignalSpy dropped(&views->engine(), &QuickEngine::viewsHaveToGo);
    window.reset();
    EXPECT_FALSE(dropped.wait(50)) << "although it is in use";
}

TEST_F(QuickViewHostTest, aWindowComesBackAfterTheEngineWent) {
    const auto views = host({1ms, 2ms});
    const auto window = views->makeWindow(description());
    for (int round = 1; round <= 3; ++round) {
        window->present();
        EXPECT_EQ(model.shown, round) << "the page was not made afresh";
        window->close();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !views->engine().exists(); }));
    }
}

TEST_F(QuickViewHostTest, theEngineNeverOwnsWhatAPageIsGiven) {
    auto views = host({1ms, 2ms});
    auto window = views->makeWindow(description());
    window->present();
    EXPECT_EQ(QJSEngine::objectOwnership(&model), QJSEngine::CppOwnership);
    views->engine().engine().collectGarbage();
    window.reset();
    views.reset();
    EXPECT_EQ(model.shown, 1) << "the model was touched";
}

TEST_F(QuickViewHostTest, aWindowFollowsTheLookOfTheDesktop) {
    const auto views = host();
    const auto window = views->makeWindow(description());
    window->present();
    session.desktop.appearance.setDark(true);
    EXPECT_EQ(viewOf(*window)->color(), ThemeColors::dark().window);
}

}  // namespace
}  // namespace pimloft

#include "quick_view_host_test.moc"
