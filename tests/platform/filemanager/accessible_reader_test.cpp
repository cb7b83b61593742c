// SPDX-License-Identifier: MIT
#include "platform/filemanager/accessible_reader.h"

#include "support/desktop_session.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QPoint>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::waitUntil;

/// The bus for blind people's programs, and every program on it, as one that answers what a test says.
class StrangePrograms final : public QDBusVirtualObject {
public:
    StrangePrograms() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)) {
        for (const char *service : {"org.a11y.Bus", "org.a11y.atspi.Registry"})
            bus_.registerService(QLatin1String(service));
        bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    }
    ~StrangePrograms() override { QDBusConnection::disconnectFromBus(name); }

    /// What each method answers; a method without an answer is refused.
    std::map<QString, QVariant> answers;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (message.member() == QLatin1String("GetAddress")) {
            connection.send(message.createReply(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")));
            return true;
        }
        const auto answer = answers.find(message.member());
        if (answer == answers.end())
            return false;
        connection.send(message.createReply(answer->second));
        return true;
    }

private:
    static inline const QString name = QStringLiteral("strange programs");
    QDBusConnection bus_;
};

class AccessibleReaderTest : public testing::Test {
protected:
    /// Whether the reader comes to an end, and what it says then.
    std::optional<AccessibleTree> read() {
        AccessibleReader reader(QDBusConnection::sessionBus());
        bool isDone = false;
        std::optional<AccessibleTree> tree;
        reader.read(ProcessId(QCoreApplication::applicationPid()), QStringLiteral("Title"), [&](auto read) {
            tree = std::move(read);
            isDone = true;
        });
        EXPECT_TRUE(waitUntil([&] { return isDone; }, 5000));
        return tree;
    }

    test::DesktopSession session{{}};
    StrangePrograms programs;
};

TEST_F(AccessibleReaderTest, programsThatAnswerAnotherTypeThanAskedForTellNothing) {
    // Pairs, as the right answer has them, but of numbers.
    qDBusRegisterMetaType<QList<QPoint>>();
    for (const QVariant &answer :
         {QVariant(QStringList{QStringLiteral("one"), QStringLiteral("two")}),
          QVariant(QStringLiteral("text")), QVariant(5), QVariant(QByteArray("bytes")),
          QVariant(QVariantMap{{QStringLiteral("key"), 1}}),
          QVariant::fromValue(QList<QPoint>{{1, 2}, {3, 4}})}) {
        programs.answers = {{QStringLiteral("GetChildren"), answer},
                            {QStringLiteral("GetState"), answer},
                            {QStringLiteral("GetRole"), answer}};
        EXPECT_EQ(read(), std::nullopt) << answer.typeName();
    }
}

TEST_F(AccessibleReaderTest, programsThatRefuseEveryQuestionTellNothing) {
    EXPECT_EQ(read(), std::nullopt);
}

}  // namespace
}  // namespace pimloft
