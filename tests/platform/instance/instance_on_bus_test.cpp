// SPDX-License-Identifier: MIT
#include "platform/instance/instance_on_bus.h"

#include "platform/instance/local_instance.h"
#include "support/desktop_session.h"

#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusReply>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

const QString name = QStringLiteral("app.pimloft.Pimloft");

class InstanceOnBusTest : public testing::Test {
protected:
    InstanceOnBusTest() {
        instance_->onCommand = [this](InstanceCommand command) {
            commands_.append(QString::number(int(command)));
            return QStringLiteral("Tray: none");
        };
    }

    static bool isOnBus() { return QDBusConnection::sessionBus().interface()->isServiceRegistered(name); }
    /// Calls as a user's script would.
    static QString call(const QString &method) {
        const auto script =
            currentSession().start(QStringLiteral("dbus-send"),
                                   {QStringLiteral("--session"), QStringLiteral("--print-reply=literal"),
                                    QStringLiteral("--dest=") + name, QStringLiteral("/app/pimloft/Pimloft"),
                                    QStringLiteral("app.pimloft.Pimloft.") + method});
        EXPECT_TRUE(waitUntil([&] { return script->state() == QProcess::NotRunning; }));
        EXPECT_EQ(script->exitCode(), 0);
        return QString::fromUtf8(script->readAllStandardOutput()).trimmed();
    }

    QString folder_ = currentSession().home() + QStringLiteral("/runtime");
    std::unique_ptr<Instance> instance_ = claimInstance(folder_, QStringLiteral(":7"));
    QStringList commands_;
};

TEST_F(InstanceOnBusTest, takesCommandsUnderItsName) {
    EXPECT_FALSE(isOnBus()) << "not while the program starts";
    ASSERT_TRUE(waitUntil(isOnBus));
    call(QStringLiteral("OpenPopover"));
    call(QStringLiteral("OpenSettings"));
    call(QStringLiteral("Quit"));
    EXPECT_EQ(call(QStringLiteral("Doctor")), QStringLiteral("Tray: none"));
    EXPECT_EQ(commands_.join(u' '), QStringLiteral("0 1 2 3"));
}

TEST_F(InstanceOnBusTest, runsWithoutTheNameWhereAnotherLoginHasIt) {
    ASSERT_TRUE(waitUntil(isOnBus));
    const auto second = LocalInstance::claim(folder_, QStringLiteral(":8"));
    ASSERT_NE(second, nullptr);
    const QString other = QStringLiteral("second login");
    publish(*second, QDBusConnection::connectToBus(QDBusConnection::SessionBus, other));
    EXPECT_EQ(call(QStringLiteral("Doctor")), QStringLiteral("Tray: none")) << "the first one answers";
    QDBusConnection::disconnectFromBus(other);
}

TEST_F(InstanceOnBusTest, givesTheNameBack) {
    ASSERT_TRUE(waitUntil(isOnBus));
    instance_.reset();
    EXPECT_TRUE(waitUntil([] { return !isOnBus(); }));
}

TEST_F(InstanceOnBusTest, leavesABusAloneThatIsNotConnected) {
    testing::internal::CaptureStderr();
    { const InstanceOnBus onBus(*instance_, QDBusConnection(QStringLiteral("no bus"))); }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace pimloft
