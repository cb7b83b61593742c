// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/swap_filter.h"
#include "platform/events/x11_key_tap.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace pimloft::test {

inline constexpr KeyCode codeOfB{11};

/// A tap in this process, a window in front, and the user's hands.
struct TapDesk : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Keyboard keyboard{session, input};
    X11KeyTap tap{keyboard, QStringLiteral(KEY_GUARD)};
    std::shared_ptr<SwapFilter> filter = std::make_shared<SwapFilter>();
    KeySink sink;
    PhysicalInput hands;

    bool install() { return tap.install(filter); }

    /// The keys that the window gets, up to a key that the user types last and no filter here changes.
    std::string typed() {
        hands.tap(KEY_F12);
        QString all;
        EXPECT_TRUE(waitUntil([&] {
            const QString more = sink.typed();
            all += all.isEmpty() || more.isEmpty() ? more : QStringLiteral(", ") + more;
            return all.endsWith(QStringLiteral("FK12"));
        }));
        all.chop(4);
        if (all.endsWith(QStringLiteral(", ")))
            all.chop(2);
        return all.toStdString();
    }

    /// Every key event that the window got, likewise.
    std::string keys() {
        hands.tap(KEY_F12);
        QString all;
        EXPECT_TRUE(waitUntil([&] {
            const QString more = sink.keys();
            all += all.isEmpty() || more.isEmpty() ? more : QLatin1Char(' ') + more;
            return all.endsWith(QStringLiteral("+FK12 -FK12"));
        }));
        all.chop(11);
        return all.trimmed().toStdString();
    }

    bool nothingIsDown() {
        return waitUntil([&] { return hands.keysDown().isEmpty() && hands.keysDownOnXTest().isEmpty(); });
    }

    /// Fewer rounds beside a window manager: it reads the map and grabs its keys anew whenever another
    /// keyboard types than before, which takes it far longer than the change.
    static int rounds(int many) { return qEnvironmentVariableIsEmpty("PIMLOFT_TEST_WM") ? many : many / 10; }

    static void run(const char *program, const QStringList &arguments) {
        currentSession().run(QLatin1String(program), arguments);
    }
};

}  // namespace pimloft::test
