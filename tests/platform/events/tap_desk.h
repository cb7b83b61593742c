// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/x11_key_tap.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>

namespace pimloft::test {

/// Control and Command in each other's place, save in a terminal; A becomes B where that is asked for.
class SwapFilter final : public KeyFilter {
public:
    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant) noexcept override {
        ++asked;
        if (passes || event.type == KeyEventType::flagsChanged || frontmost == "com.apple.Terminal")
            return event;
        constexpr KeyCode a{0};
        constexpr KeyCode b{11};
        if (turnsAIntoB && event.key == a)
            event.key = b;
        constexpr std::uint64_t both = std::uint64_t(KeyFlags::control) | std::uint64_t(KeyFlags::command);
        const std::uint64_t held = std::uint64_t(event.flags) & both;
        if (swaps && held && held != both)
            event.flags = KeyFlags(std::uint64_t(event.flags) ^ both);
        return event;
    }

    std::atomic<bool> swaps{true};
    std::atomic<bool> turnsAIntoB{false};
    std::atomic<bool> passes{false};
    std::atomic<int> asked{0};
};

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

    static void run(const char *program, const QStringList &arguments) {
        currentSession().run(QLatin1String(program), arguments);
    }
};

}  // namespace pimloft::test
