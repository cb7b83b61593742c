// SPDX-License-Identifier: MIT
#include "platform/workspace/x11_workspace.h"

#include "platform/workspace/x11_clients.h"
#include "support/desktop_session.h"

#include <QDir>
#include <QFile>
#include <QLabel>

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

class X11WorkspaceTest : public testing::Test {
protected:
    X11WorkspaceTest() {
        workspace_.onFrontmostChanged = [this] { told_.push_back(frontmost()); };
    }

    std::string frontmost() {
        const auto application = workspace_.frontmostApplication();
        return application ? application->bundleId.value_or(QStringLiteral("(unknown)")).toStdString()
                           : "(none)";
    }
    bool frontmostBecomes(const char *bundleId) {
        return waitUntil([&] { return frontmost() == bundleId; });
    }
    std::optional<Application> running(ProcessId process) {
        for (const Application &application : workspace_.runningApplications())
            if (application.processId == process)
                return application;
        return std::nullopt;
    }

    X11Session session_;
    X11ActiveWindow active_{session_};
    X11Workspace workspace_{session_, active_, currentSession().home() + QStringLiteral("/help"),
                            QDBusConnection::sessionBus()};
    std::vector<std::string> told_;  ///< what was in front at each notice
};

ProcessId id(const QProcess &process) {
    return ProcessId(process.processId());
}

TEST_F(X11WorkspaceTest, followsTheProgramInFront) {
    EXPECT_EQ(frontmost(), "(none)");
    auto xterm = currentSession().start(QStringLiteral("xterm"));
    EXPECT_TRUE(frontmostBecomes("com.apple.Terminal"));
    const auto terminal = workspace_.frontmostApplication();
    ASSERT_TRUE(terminal.has_value());
    EXPECT_EQ(terminal->processId, id(*xterm));
    EXPECT_EQ(terminal->name, QStringLiteral("XTerm"));
    EXPECT_EQ(workspace_.frontmostChord(), ShortcutChord::shiftInsert);

    const auto mousepad = currentSession().start(QStringLiteral("mousepad"));
    EXPECT_TRUE(frontmostBecomes("org.xfce.mousepad"));
    EXPECT_EQ(workspace_.frontmostChord(), ShortcutChord::control);
    EXPECT_EQ(workspace_.frontmostApplication()->name, QStringLiteral("Mousepad"));
    EXPECT_GE(told_.size(), 2u);
}

TEST_F(X11WorkspaceTest, takesAFileManagerForTheFinder) {
    const auto thunar = currentSession().start(QStringLiteral("thunar"));
    EXPECT_TRUE(frontmostBecomes("com.apple.finder"));
    const auto name = [this] { return workspace_.frontmostApplication().value_or(Application{}).name; };
    EXPECT_TRUE(waitUntil([&] { return name() == QStringLiteral("Thunar File Manager"); }))
        << "once the desktop entries have been read";
}

TEST_F(X11WorkspaceTest, tellsNoChangeWhileOneProgramStaysInFront) {
    QLabel first(QStringLiteral("first"));
    QLabel second(QStringLiteral("second"));
    first.show();
    ASSERT_TRUE(waitUntil([&] { return active_.current() == first.winId(); }));
    told_ = {frontmost()};
    second.show();
    ASSERT_TRUE(waitUntil([&] { return active_.current() == second.winId(); }));
    // A window manager may leave nothing in front for a moment, and that is told.
    ASSERT_TRUE(waitUntil([&] { return frontmost() == told_.front(); }));
    EXPECT_EQ(std::adjacent_find(told_.begin(), told_.end()), told_.end());
    EXPECT_EQ(workspace_.frontmostApplication()->processId, ProcessId(getpid()));
}

TEST_F(X11WorkspaceTest, takesTheDesktopItselfForTheFinder) {
    xcb_connection_t *connection = session_.connection();
    const xcb_window_t desktop = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, desktop, session_.root(), 0, 0, 1600, 1000, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t type = session_.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, desktop, session_.atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &type);
    xcb_map_window(connection, desktop);
    session_.roundTrip();
    ASSERT_TRUE(waitUntil([&] {
        const auto managed = session_.property32(session_.root(), session_.atom("_NET_CLIENT_LIST"));
        return std::find(managed.begin(), managed.end(), desktop) != managed.end();
    }));
    ASSERT_TRUE(running(ProcessId(getpid())).has_value());
    EXPECT_NE(running(ProcessId(getpid()))->policy, ActivationPolicy::regular) << "it is in no task list";
    // As a click on the desktop does.
    session_.sendToRoot(desktop, session_.atom("_NET_ACTIVE_WINDOW"), {2, 0, 0, 0, 0});
    EXPECT_TRUE(frontmostBecomes("com.apple.finder"));
    xcb_destroy_window(connection, desktop);
    session_.roundTrip();
}

TEST_F(X11WorkspaceTest, listsProgramsInTheOrderOfTheirStart) {
    const auto first = currentSession().start(QStringLiteral("mousepad"));
    ASSERT_TRUE(waitUntil([&] { return running(id(*first)).has_value(); }));
    const auto second = currentSession().start(QStringLiteral("xterm"));
    ASSERT_TRUE(waitUntil([&] {
        const auto terminal = running(id(*second));
        return terminal && terminal->policy == ActivationPolicy::regular;
    }));
    const auto list = workspace_.runningApplications();
    const auto position = [&list](ProcessId process) {
        return std::find_if(list.begin(), list.end(),
                            [process](const Application &each) { return each.processId == process; });
    };
    EXPECT_LT(position(id(*first)), position(id(*second)));
    EXPECT_EQ(running(id(*second))->bundleId, QStringLiteral("com.apple.Terminal"));
}

TEST_F(X11WorkspaceTest, listsAProgramWithoutWindowsApart) {
    const auto list = workspace_.runningApplications();
    const QString manager = qEnvironmentVariable("PIMLOFT_TEST_WM");
    const auto found = std::find_if(list.begin(), list.end(), [&](const Application &each) {
        return each.name.compare(manager, Qt::CaseInsensitive) == 0;
    });
    ASSERT_NE(found, list.end());
    EXPECT_NE(found->policy, ActivationPolicy::regular);
}

TEST_F(X11WorkspaceTest, forgetsAProgramThatEnds) {
    auto xterm = currentSession().start(QStringLiteral("xterm"));
    const ProcessId process = id(*xterm);
    ASSERT_TRUE(waitUntil([&] { return running(process).has_value(); }));
    xterm->kill();
    xterm->waitForFinished();
    EXPECT_TRUE(waitUntil([&] { return !running(process).has_value(); }));
}

TEST_F(X11WorkspaceTest, survivesWindowsThatVanishWhileTheyAreLookedAt) {
    for (int round = 0; round < 5; ++round) {
        auto xterm = currentSession().start(QStringLiteral("xterm"));
        const ProcessId process = id(*xterm);
        ASSERT_TRUE(waitUntil([&] { return running(process).has_value(); }));
        xterm->kill();
        workspace_.runningApplications();
        workspace_.frontmostApplication();
        xterm->waitForFinished();
    }
    EXPECT_TRUE(session_.isConnected());
}

TEST_F(X11WorkspaceTest, findsIconsInTheThemeOrOnTheWindow) {
    QIcon::setThemeName(QStringLiteral("hicolor"));
    const auto mousepad = currentSession().start(QStringLiteral("mousepad"));
    ASSERT_TRUE(frontmostBecomes("org.xfce.mousepad"));
    EXPECT_FALSE(workspace_.icon(*workspace_.frontmostApplication()).isNull());

    QLabel own(QStringLiteral("own"));
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    own.setWindowIcon(QIcon(pixmap));
    own.show();
    ASSERT_TRUE(waitUntil([&] {
        const auto application = workspace_.frontmostApplication();
        return application && application->processId == ProcessId(getpid());
    }));
    const QIcon icon = workspace_.icon(*workspace_.frontmostApplication());
    EXPECT_EQ(icon.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

TEST_F(X11WorkspaceTest, answersANullIconForAProgramThatIsGone) {
    QIcon::setThemeName(QStringLiteral("none"));
    EXPECT_TRUE(workspace_.icon({.name = {}, .bundleId = {}, .processId = ProcessId(0x7fffffff)}).isNull());
}

TEST_F(X11WorkspaceTest, hasAnIconForEveryFile) {
    EXPECT_FALSE(workspace_.fileIcon(QStringLiteral("/")).isNull());
    EXPECT_FALSE(workspace_.fileIcon(QStringLiteral("/nowhere/file.txt")).isNull());
}

TEST_F(X11WorkspaceTest, seesEveryWindowAndEveryConnectedProcess) {
    std::vector<std::unique_ptr<QProcess>> terminals;
    for (int count = 0; count < 4; ++count)
        terminals.push_back(currentSession().start(QStringLiteral("xterm")));
    const auto windows = [this] {
        std::size_t count = 0;
        for (const X11Client &client : x11Clients(session_))
            count += client.windows.size();
        return count;
    };
    EXPECT_TRUE(waitUntil([&] { return windows() == 4; }));
    const std::vector<X11Client> clients = x11Clients(session_);
    const bool seesItself = std::any_of(clients.begin(), clients.end(), [](const X11Client &client) {
        return client.process == ProcessId(getpid()) && client.windows.empty();
    });
    EXPECT_TRUE(seesItself);
}

}  // namespace
}  // namespace pimloft
