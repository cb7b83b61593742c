// SPDX-License-Identifier: MIT
// The main of tests that need a real X server. PIMLOFT_TEST_WM names the window manager to run in it.
#include "support/desktop_session.h"

#include <QApplication>

#include <gmock/gmock.h>

#include <optional>

namespace pimloft::test {

namespace {
DesktopSession *session = nullptr;
}  // namespace

DesktopSession &currentSession() {
    return *session;
}

}  // namespace pimloft::test

int main(int argc, char **argv) {
    using pimloft::test::DesktopSession;
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    DesktopSession session({.windowManager = qEnvironmentVariable("PIMLOFT_TEST_WM"),
                            .screen = qEnvironmentVariable("PIMLOFT_TEST_SCREEN", "1600x1000x24"),
                            .serverArguments = {}});
    pimloft::test::session = &session;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
