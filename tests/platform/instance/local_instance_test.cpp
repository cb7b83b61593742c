// SPDX-License-Identifier: MIT
#include "platform/instance/local_instance.h"

#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <future>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pimloft {
namespace {

const QString login = QStringLiteral(":7");

class LocalInstanceTest : public testing::Test {
protected:
    QString runtime() const { return root_.filePath(QStringLiteral("runtime")); }

    std::unique_ptr<LocalInstance> claim() const {
        auto instance = LocalInstance::claim(runtime(), login);
        if (instance)
            instance->onCommand = [this](InstanceCommand command) {
                commands_.append(QString::number(int(command)));
                return answer_;
            };
        return instance;
    }

    /// Asks as another process would.
    std::future<std::optional<QString>> asking(InstanceCommand command) const {
        return std::async(std::launch::async, [=, this] { return askInstance(runtime(), login, command); });
    }
    /// While the event loop turns.
    static std::optional<QString> whenReady(std::future<std::optional<QString>> &answer) {
        const auto isReady = [&] {
            return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        };
        EXPECT_TRUE(QTest::qWaitFor(isReady, 10000));
        return answer.get();
    }
    std::optional<QString> ask(InstanceCommand command) const {
        auto answer = asking(command);
        return whenReady(answer);
    }

    /// A stranger at the socket.
    std::unique_ptr<QLocalSocket> stranger() const {
        auto socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(InstancePaths(runtime(), login).socket);
        EXPECT_TRUE(socket->waitForConnected());
        return socket;
    }
    static bool isCutOff(const QLocalSocket &socket, int milliseconds = 5000) {
        return QTest::qWaitFor([&] { return socket.state() == QLocalSocket::UnconnectedState; },
                               milliseconds);
    }

    QTemporaryDir root_;
    QString answer_ = QStringLiteral("done");
    mutable QStringList commands_;
};

int mode(const QString &path) {
    struct stat info {};
    stat(QFile::encodeName(path).constData(), &info);
    return info.st_mode & 0777;
}

TEST_F(LocalInstanceTest, isTheOnlyOneOfItsLogin) {
    auto first = claim();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(claim(), nullptr);
    EXPECT_NE(LocalInstance::claim(runtime(), QStringLiteral(":8")), nullptr) << "another login";
    EXPECT_EQ(LocalInstance::claim(runtime(), QStringLiteral(":7.0")), nullptr) << "a screen of the same";
    first.reset();
    EXPECT_NE(claim(), nullptr);
}

TEST_F(LocalInstanceTest, answersEachCommand) {
    const auto instance = claim();
    for (const InstanceCommand command : {InstanceCommand::openPopover, InstanceCommand::openSettings,
                                          InstanceCommand::quit, InstanceCommand::doctor})
        EXPECT_EQ(ask(command), QStringLiteral("done"));
    EXPECT_EQ(commands_.join(u' '), QStringLiteral("0 1 2 3"));
}

TEST_F(LocalInstanceTest, answersTextsOfAnyLength) {
    const auto instance = claim();
    answer_.clear();
    EXPECT_EQ(ask(InstanceCommand::quit), QString(QLatin1String("")));
    answer_ = QStringLiteral("Tray: läuft\n").repeated(100'000);
    EXPECT_EQ(ask(InstanceCommand::doctor), answer_);
}

TEST_F(LocalInstanceTest, isNotWaitedForWhereNoneRuns) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(askInstance(runtime(), login, InstanceCommand::quit), std::nullopt);
    claim().reset();
    EXPECT_EQ(askInstance(runtime(), login, InstanceCommand::quit), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST_F(LocalInstanceTest, ofAnotherProcessIsRespectedUntilItIsKilled) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto instance = LocalInstance::claim(runtime(), login);
        if (!instance || write(ready[1], "x", 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_EQ(claim(), nullptr);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(QFileInfo(InstancePaths(runtime(), login).socket).exists()) << "what a kill leaves behind";
    const auto instance = claim();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(ask(InstanceCommand::doctor), QStringLiteral("done"));
}

TEST_F(LocalInstanceTest, thatEndsWithoutAnAnswerIsFollowedByTheNextAtOnce) {
    auto ending = LocalInstance::claim(runtime(), login);
    auto answer = asking(InstanceCommand::openPopover);
    const auto another = stranger();
    another->write("open-popover\n");
    EXPECT_TRUE(isCutOff(*another));
    const auto start = std::chrono::steady_clock::now();
    ending.reset();
    EXPECT_EQ(answer.get(), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_NE(claim(), nullptr);
}

TEST_F(LocalInstanceTest, thatIsJustComingUpIsAskedUntilItAnswers) {
    const auto instance = LocalInstance::claim(runtime(), login);
    auto answer = asking(InstanceCommand::doctor);
    const auto another = stranger();
    another->write("doctor\n");
    EXPECT_TRUE(isCutOff(*another));
    instance->onCommand = [](InstanceCommand) { return QStringLiteral("up"); };
    EXPECT_EQ(whenReady(answer), QStringLiteral("up"));
}

TEST_F(LocalInstanceTest, thatHangsIsGivenUp) {
    const auto instance = claim();
    const auto start = std::chrono::steady_clock::now();
    // The event loop does not turn.
    EXPECT_EQ(askInstance(runtime(), login, InstanceCommand::doctor), std::nullopt);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(4900));
    EXPECT_LT(waited, std::chrono::seconds(7));
}

TEST_F(LocalInstanceTest, isReachableForThisUserOnly) {
    const auto instance = claim();
    const InstancePaths paths(runtime(), login);
    EXPECT_EQ(mode(runtime()), 0700);
    EXPECT_EQ(mode(paths.lock), 0600);
    EXPECT_EQ(mode(paths.socket) & 077, 0);
}

TEST_F(LocalInstanceTest, cutsOffWhoeverAsksForSomethingElse) {
    const auto instance = claim();
    for (const QByteArray &request :
         {QByteArray("unheard-of\n"), QByteArray("\n"), QByteArray("quit\r\n"), QByteArray("QUIT\n"),
          QByteArray("\0quit\n", 6), QByteArray(10'000'000, 'x'), QByteArray(63, 'x') + '\n'}) {
        const auto socket = stranger();
        socket->write(request);
        EXPECT_TRUE(isCutOff(*socket)) << request.left(20).constData();
    }
    EXPECT_TRUE(commands_.isEmpty());
    EXPECT_EQ(ask(InstanceCommand::doctor), QStringLiteral("done"));
}

TEST_F(LocalInstanceTest, takesARequestThatComesInPieces) {
    const auto instance = claim();
    const auto socket = stranger();
    socket->write("doc");
    socket->flush();
    QCoreApplication::processEvents();
    socket->write("tor\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return socket->bytesAvailable() == 5; }));
    EXPECT_EQ(socket->readAll(), QByteArray("done\0", 5));
}

TEST_F(LocalInstanceTest, takesOneRequestOfEach) {
    const auto instance = claim();
    const auto socket = stranger();
    socket->write("doctor\nquit\n");
    EXPECT_TRUE(isCutOff(*socket));
    EXPECT_EQ(commands_.join(u' '), QStringLiteral("3"));
}

TEST_F(LocalInstanceTest, cutsOffWhoeverSaysNothing) {
    const auto instance = claim();
    const auto socket = stranger();
    EXPECT_TRUE(isCutOff(*socket, 8000));
}

TEST_F(LocalInstanceTest, servesOthersBesideACrowdThatSaysNothing) {
    const auto instance = claim();
    std::vector<std::unique_ptr<QLocalSocket>> crowd;
    for (int count = 0; count < 15; ++count)
        crowd.push_back(stranger());
    EXPECT_EQ(ask(InstanceCommand::doctor), QStringLiteral("done"));
    for (int count = 0; count < 50; ++count) {
        crowd.push_back(stranger());
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(isCutOff(*crowd.back())) << "too many";
    crowd.clear();
    QCoreApplication::processEvents();
    EXPECT_EQ(ask(InstanceCommand::doctor), QStringLiteral("done"));
}

TEST_F(LocalInstanceTest, survivesWhoeverLeavesBeforeTheAnswer) {
    const auto instance = claim();
    for (int round = 0; round < 20; ++round) {
        const auto socket = stranger();
        socket->write("doctor\n");
        socket->flush();
        socket->abort();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ask(InstanceCommand::doctor), QStringLiteral("done"));
}

TEST_F(LocalInstanceTest, answersNobodyBeforeItCan) {
    const auto instance = LocalInstance::claim(runtime(), login);
    EXPECT_EQ(ask(InstanceCommand::doctor), std::nullopt);
}

TEST_F(LocalInstanceTest, runsWhereNoLockCanBeMade) {
    QFile obstacle(runtime());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    EXPECT_NE(claim(), nullptr);
}

TEST_F(LocalInstanceTest, keepsToItsFolderWhateverTheLoginIsCalled) {
    const InstancePaths paths(runtime(), QStringLiteral("/tmp/../launch:0"));
    EXPECT_EQ(QFileInfo(paths.lock).path(), runtime());
    EXPECT_EQ(QFileInfo(paths.socket).path(), runtime());
}

}  // namespace
}  // namespace pimloft
