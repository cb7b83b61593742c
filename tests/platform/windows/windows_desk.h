// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/x11_displays.h"
#include "platform/support/x11_client.h"
#include "platform/windows/x11_windows.h"
#include "platform/x11/x11_session.h"
#include "support/desktop_session.h"

#include <gtest/gtest.h>

namespace pimloft::test {

/// The services under test on the session's display, beside another program's windows.
class WindowsDesk : public testing::Test {
protected:
    static bool isOpenbox() { return qEnvironmentVariable("PIMLOFT_TEST_WM") == QLatin1String("openbox"); }

    /// The keyboard's window, once it is this one.
    WindowReference focus(xcb_window_t window) {
        EXPECT_TRUE(waitUntil([&] { return client.isManaged(window); })) << "not managed";
        if (!client.isActive(window))
            client.activate(window);
        EXPECT_TRUE(waitUntil([&] { return client.isActive(window); })) << "not active";
        const auto focused = windows.focusedWindow();
        EXPECT_TRUE(focused) << "no focused window";
        return focused ? *focused : nullptr;
    }
    WindowReference openFocused(const X11Client::Options &options = {}) {
        window = client.open(options);
        return focus(window);
    }

    /// Waits until the window has kept the frame for `quiet` milliseconds.
    void expectFrame(const QRect &frame, int quiet = 200) {
        waitUntil(
            [&] {
                return client.visibleFrame(window) == frame &&
                       !waitUntil([&] { return client.visibleFrame(window) != frame; }, quiet);
            },
            3000);
        EXPECT_EQ(text(client.visibleFrame(window)), text(frame));
    }

    X11Session session;
    X11Displays displays{session, 1.0};
    X11Windows windows{session, displays, QStringLiteral("x11")};
    X11Client client;
    xcb_window_t window = XCB_NONE;  ///< the one that the test is about
};

}  // namespace pimloft::test
