// SPDX-License-Identifier: MIT
#include "desktop/support/desktop_test.h"

#include "desktop/support/first_run.h"

#include <QDir>

#include <csignal>

namespace pimloft::test {

namespace {

/// The last of the shortcuts that the program asks for.
constexpr int lastShortcut = KEY_6;

}  // namespace

QRect part(const QRect &area, double x, double y, double width, double height) {
    const int left = qRound(area.x() + x * area.width());
    const int top = qRound(area.y() + y * area.height());
    const int right = qRound(area.x() + (x + width) * area.width());
    const int bottom = qRound(area.y() + (y + height) * area.height());
    return {left, top, right - left, bottom - top};
}

DesktopTest::~DesktopTest() {
    for (auto &client : clients_) {
        client->kill();
        client->waitForFinished();
    }
}

void DesktopTest::TearDown() {
    if (HasFailure() && desktop_) {
        const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
        picture(QStringLiteral("failed-%1-%2")
                    .arg(QLatin1String(test->test_suite_name()), QLatin1String(test->name()))
                    .replace(QLatin1Char('/'), QLatin1Char('.')));
    }
    for (const auto &program : programs_) {
        if (program->isRunning()) {
            program->signal(SIGTERM);
            EXPECT_EQ(program->waitForEnd(), 0);
        }
        EXPECT_EQ(program->complaints().toStdString(), "");
    }
}

void DesktopTest::openDesktop(const QString &windowManager, const QStringList &serverArguments) {
    windowManager_ = windowManager;
    session_ = std::make_unique<DesktopSession>(
        DesktopSession::Options{.windowManager = windowManager, .serverArguments = serverArguments});
    desktop_ = std::make_unique<XDesktop>(session_->display());
    skipFirstRun(*session_);
}

PhysicalInput &DesktopTest::hands() {
    if (!hands_)
        hands_ = std::make_unique<PhysicalInput>();
    return *hands_;
}

Program &DesktopTest::startPimloft(const Variables &variables) {
    programs_.push_back(std::make_unique<Program>(session(), QStringList(), variables));
    expectShortcuts();
    return pimloft();
}

void DesktopTest::expectShortcuts() {
    EXPECT_TRUE(waitUntil([this] { return desktop().isKeyTaken(lastShortcut, controlSuper); }))
        << "its shortcuts do not come up";
}

Program &DesktopTest::startPimloftWithoutShortcuts() {
    programs_.push_back(std::make_unique<Program>(session()));
    EXPECT_TRUE(waitUntil([this] { return pimloft().isReachable(); }) && pimloft().answers())
        << "it does not come up";
    return pimloft();
}

void DesktopTest::goThroughFirstRun() {
    const QString title = QStringLiteral("Welcome to Pimloft");
    ASSERT_TRUE(waitUntil([&] { return desktop().window(title) == desktop().activeWindow(); }))
        << "it does not begin";
    // Return goes on from every step but that of the permission, which leaves by itself.
    ASSERT_TRUE(waitUntil(
        [&] {
            hands().tap(KEY_ENTER);
            return waitUntil([&] { return !desktop().window(title); }, 200);
        },
        20000))
        << "it does not end";
}

xcb_window_t DesktopTest::openWindow(Client client, const QString &title, const QRect &frame,
                                     const QStringList &arguments) {
    switch (client) {
    case Client::xterm:
        clients_.push_back(session().start(QStringLiteral("xterm"),
                                           QStringList{QStringLiteral("-T"), title, QStringLiteral("-fa"),
                                                       QStringLiteral("DejaVu Sans Mono")} +
                                               arguments +
                                               QStringList{QStringLiteral("-e"), QStringLiteral("cat")}));
        break;
    case Client::gtk:
        clients_.push_back(
            session().start(QStringLiteral(CLIENTS "/gtk_client"), QStringList{title} + arguments));
        break;
    case Client::qt:
        clients_.push_back(
            session().start(QStringLiteral(CLIENTS "/qt_client"), QStringList{title} + arguments));
        break;
    }
    const bool opened = waitUntil([&] { return desktop().window(title).has_value(); });
    EXPECT_TRUE(opened) << qPrintable(title) << " does not open its window";
    if (!opened)
        return XCB_NONE;
    const xcb_window_t window = *desktop().window(title);
    desktop().activate(window);
    EXPECT_TRUE(waitUntil([&] { return desktop().activeWindow() == window; }));
    desktop().place(window, frame);
    EXPECT_TRUE(waitUntil([&] { return desktop().visibleFrame(window).topLeft() == frame.topLeft(); }));
    return window;
}

void DesktopTest::closeLastWindow() {
    clients_.back()->kill();
    clients_.back()->waitForFinished();
}

void DesktopTest::dragTo(xcb_window_t window, QPoint pointer) {
    hands().moveTo(desktop().titleBar(window));
    hands().leftDown();
    hands().glideTo(pointer, 120);
}

void DesktopTest::drop() {
    hands().leftUp();
    EXPECT_TRUE(waitUntil([this] { return desktop().isPointerFree(); })) << "the move does not end";
}

bool DesktopTest::overlayIs(const QRect &frame) {
    return desktop().unmanagedWindows(QStringLiteral("pimloft")) == std::vector{frame};
}

std::optional<QRect> DesktopTest::panelFrame() {
    const auto windows = desktop().unmanagedWindows(QStringLiteral("pimloft"));
    return windows.empty() ? std::nullopt : std::optional(windows.front());
}

void DesktopTest::flipTopmostSwitch() {
    EXPECT_EQ(launch(session(), {}).exitCode, 0);
    std::optional<QPoint> found;
    // Of a panel in grey and white the switches that are on are what is blue at the right.
    const auto look = [&] {
        const std::optional<QRect> panel = panelFrame();
        if (!panel)
            return false;
        const QImage all = desktop().screenshot();
        const int x = panel->right() - panel->width() / 6;
        for (int y = panel->top(); y < panel->bottom() && !found; ++y)
            if (const QRgb pixel = all.pixel(x, y); qBlue(pixel) > qRed(pixel) + 80)
                found = QPoint(x, y + 6);
        return found.has_value();
    };
    ASSERT_TRUE(waitUntil(look)) << "the panel shows no switch";
    hands().click(*found);
    letPimloftCatchUp();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !panelFrame(); }));
}

void DesktopTest::expectFrame(xcb_window_t window, const QRect &frame) {
    const QSize step = desktop().sizeIncrement(window);
    const auto matches = [&] {
        const QRect now = desktop().visibleFrame(window);
        const int narrower = frame.width() - now.width();
        const int lower = frame.height() - now.height();
        return now.topLeft() == frame.topLeft() && narrower >= 0 && narrower < step.width() && lower >= 0 &&
               lower < step.height();
    };
    EXPECT_TRUE(waitUntil(matches)) << "it is at " << testing::PrintToString(desktop().visibleFrame(window))
                                    << " and not at " << testing::PrintToString(frame);
    // A window can also be there for a moment, and then move away.
    letPimloftCatchUp();
    EXPECT_TRUE(waitUntil(matches)) << "it has moved on to "
                                    << testing::PrintToString(desktop().visibleFrame(window));
}

void DesktopTest::letPimloftCatchUp() {
    EXPECT_TRUE(pimloft().answers());
}

void DesktopTest::picture(const QString &name) {
    const QString folder = QStringLiteral(PICTURES);
    QDir().mkpath(folder);
    desktop().screenshot().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

}  // namespace pimloft::test
