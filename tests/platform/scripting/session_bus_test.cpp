// SPDX-License-Identifier: MIT
#include "platform/scripting/session_bus.h"

#include "support/desktop_session.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

class SessionBusTest : public testing::Test {
protected:
    bool loses(SessionBus &bus) {
        currentSession().killBus();
        return waitUntil([&] { return !bus.connection().isConnected(); });
    }
    static bool answers(const SessionBus &bus) {
        return bus.connection().interface()->registeredServiceNames().isValid();
    }
};

TEST_F(SessionBusTest, isKeptAsLongAsItIsThere) {
    SessionBus bus(QDBusConnection::sessionBus());
    EXPECT_FALSE(bus.renew());
    EXPECT_EQ(bus.connection().name(), QDBusConnection::sessionBus().name());
    EXPECT_TRUE(answers(bus));
}

TEST_F(SessionBusTest, isReplacedByTheOneThatTakesItsPlaceEachTime) {
    SessionBus bus(QDBusConnection::sessionBus());
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(loses(bus));
        EXPECT_FALSE(bus.renew()) << "there is none";
        currentSession().startBus();
        EXPECT_TRUE(waitUntil([&] { return bus.renew(); }));
        EXPECT_TRUE(answers(bus));
        EXPECT_FALSE(bus.renew());
    }
}

TEST_F(SessionBusTest, isNotLookedForWhereThereNeverWasOne) {
    SessionBus bus(QDBusConnection(QStringLiteral("none")));
    EXPECT_FALSE(bus.renew());
    EXPECT_FALSE(bus.connection().isConnected());
}

}  // namespace
}  // namespace pimloft
