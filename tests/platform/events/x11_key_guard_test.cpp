// SPDX-License-Identifier: MIT
// What becomes of the keyboard when the program that holds it dies, hangs or is held up.
#include "platform/events/tap_desk.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

#include <csignal>
#include <random>

namespace pimloft {
namespace {

using namespace test;

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a process has for a guard; 0 when it has none.
pid_t guardOf(qint64 process) {
    for (const QString &entry : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")})) {
        const QByteArray status = contentOf(QStringLiteral("/proc/%1/status").arg(entry));
        if (status.contains("Name:\tpimloft-keyguar") && !status.contains("State:\tZ") &&
            status.contains("PPid:\t" + QByteArray::number(process) + '\n'))
            return entry.toInt();
    }
    return 0;
}

bool isRunning(pid_t process) {
    return kill(process, 0) == 0 &&
           !contentOf(QStringLiteral("/proc/%1/status").arg(process)).contains("State:\tZ");
}

/// How often the threads of a process went to sleep and were woken.
int wakeUps(pid_t process) {
    int sum = 0;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString status =
            QString::fromLatin1(contentOf(tasks.filePath(task) + QStringLiteral("/status")));
        static const QRegularExpression count(QStringLiteral("\nvoluntary_ctxt_switches:\\s*(\\d+)"));
        sum += count.match(status).captured(1).toInt();
    }
    return sum;
}

struct X11KeyGuardTest : TapDesk {
    std::unique_ptr<QProcess> program;
    pid_t guard = 0;

    ~X11KeyGuardTest() override { endProgram(); }

    void endProgram() {
        if (!program)
            return;
        program->kill();
        program->waitForFinished();
    }

    void startProgram(const QStringList &arguments = {}) {
        endProgram();
        program = currentSession().start(QStringLiteral(TAP_PROGRAM),
                                         QStringList{QStringLiteral(KEY_GUARD)} + arguments);
        ASSERT_TRUE(says("ready"));
        guard = guardOf(program->processId());
        ASSERT_NE(guard, 0);
    }

    bool says(const char *what) {
        return waitUntil([&] { return program->canReadLine() || program->waitForReadyRead(10); }) &&
               program->readLine().trimmed() == what;
    }

    /// "Control AB03" on the plain keyboard, "Super AB03" on a rewritten one; nothing on a dead one.
    std::string controlAndC() {
        hands.chord({KEY_LEFTCTRL, KEY_C});
        QString seen;
        waitUntil([&] { return !(seen += sink.typed()).isEmpty(); }, 300);
        return seen.toStdString();
    }

    bool becomes(const std::string &chord) {
        return waitUntil([&] { return controlAndC() == chord; });
    }

    void signal(int number) { kill(pid_t(program->processId()), number); }
};

TEST_F(X11KeyGuardTest, killedWithKeysHeldItLeavesThePlainKeyboardAndNothingDown) {
    for (int round = 0; round < 5; ++round) {
        startProgram();
        hands.press(KEY_LEFTCTRL);
        hands.press(KEY_C);
        EXPECT_TRUE(waitUntil([&] { return hands.keysDown() == QSet<int>({KEY_LEFTMETA, KEY_C}); }));
        signal(SIGKILL);
        EXPECT_TRUE(nothingIsDown());
        hands.release(KEY_C);
        hands.release(KEY_LEFTCTRL);
        EXPECT_TRUE(nothingIsDown());
        sink.typed();
        EXPECT_TRUE(becomes("Control AB03"));
        EXPECT_TRUE(waitUntil([&] { return !isRunning(guard); }));
    }
}

TEST_F(X11KeyGuardTest, killedAtAnyMomentOfTypingItLeavesNothingDown) {
    std::minstd_rand random(3);
    for (int round = 0; round < 15; ++round) {
        startProgram();
        std::atomic<bool> done = false;
        std::thread typist([&] {
            PhysicalInput otherHand;
            while (!done)
                otherHand.chord({KEY_LEFTCTRL, KEY_C});
        });
        QElapsedTimer elapsed;
        elapsed.start();
        const int wait = int(random() % 20);
        waitUntil([&] { return elapsed.elapsed() >= wait; });
        signal(SIGKILL);
        EXPECT_TRUE(waitUntil([&] { return !isRunning(guard); }));
        done = true;
        typist.join();
        EXPECT_TRUE(nothingIsDown()) << "round " << round;
    }
}

TEST_F(X11KeyGuardTest, stoppedItLosesTheKeyboardWithinTwoSecondsAndCarriesOnAfterwards) {
    startProgram();
    EXPECT_EQ(controlAndC(), "Super AB03");
    hands.press(KEY_LEFTCTRL);
    hands.press(KEY_C);
    EXPECT_TRUE(waitUntil([&] { return hands.keysDown().contains(KEY_LEFTMETA); }));
    signal(SIGSTOP);
    QElapsedTimer elapsed;
    elapsed.start();
    hands.press(KEY_LEFTSHIFT);
    EXPECT_TRUE(waitUntil([&] { return hands.keysDownOnXTest().isEmpty(); }));
    // A little more on a busy machine.
    EXPECT_LT(elapsed.elapsed(), 2500);
    RecordProperty("MillisecondsUntilThePlainKeyboard", int(elapsed.elapsed()));
    for (const int key : {KEY_LEFTSHIFT, KEY_C, KEY_LEFTCTRL})
        hands.release(key);
    EXPECT_TRUE(nothingIsDown());
    sink.typed();
    EXPECT_TRUE(becomes("Control AB03"));
    EXPECT_TRUE(waitUntil([&] { return !isRunning(guard); }));

    signal(SIGCONT);
    EXPECT_TRUE(says("enabled again"));
    EXPECT_TRUE(becomes("Super AB03"));
    EXPECT_TRUE(nothingIsDown());
    const pid_t next = guardOf(program->processId());
    EXPECT_NE(next, 0);
    EXPECT_NE(next, guard);
}

TEST_F(X11KeyGuardTest, aBusyMainThreadNeitherDelaysAKeyNorCostsTheKeyboard) {
    startProgram({QStringLiteral("busy")});
    QElapsedTimer elapsed;
    elapsed.start();
    // Longer than the guard would wait for a program that hangs.
    while (elapsed.elapsed() < 2500)
        ASSERT_EQ(controlAndC(), "Super AB03");
    EXPECT_EQ(guardOf(program->processId()), guard);
}

TEST_F(X11KeyGuardTest, aGuardThatDiesIsReplacedAndTheKeyboardStaysTaken) {
    startProgram();
    kill(guard, SIGKILL);
    pid_t next = 0;
    EXPECT_TRUE(waitUntil([&] { return (next = guardOf(program->processId())) && next != guard; }));
    EXPECT_EQ(controlAndC(), "Super AB03");
    signal(SIGKILL);
    EXPECT_TRUE(becomes("Control AB03"));
    EXPECT_TRUE(waitUntil([&] { return !isRunning(next); }));
}

TEST_F(X11KeyGuardTest, itIgnoresTheSignalsThatEndItsProgram) {
    startProgram();
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        kill(guard, number);
    EXPECT_EQ(controlAndC(), "Super AB03");
    EXPECT_EQ(guardOf(program->processId()), guard);
}

TEST_F(X11KeyGuardTest, itEndsWithTheTap) {
    ASSERT_TRUE(install());
    const pid_t own = guardOf(QCoreApplication::applicationPid());
    EXPECT_NE(own, 0);
    tap.remove();
    EXPECT_FALSE(isRunning(own));
    EXPECT_EQ(guardOf(QCoreApplication::applicationPid()), 0);
}

TEST_F(X11KeyGuardTest, aProgramThatEndsInGoodOrderLeavesNoGuard) {
    startProgram();
    program->closeWriteChannel();
    EXPECT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitCode(), 0);
    EXPECT_FALSE(isRunning(guard));
    EXPECT_TRUE(becomes("Control AB03"));
}

TEST_F(X11KeyGuardTest, neitherItNorTheTapWakesWhileNobodyTypes) {
    startProgram();
    EXPECT_EQ(controlAndC(), "Super AB03");
    const auto all = [&] { return wakeUps(guard) + wakeUps(pid_t(program->processId())); };
    // The last question follows the last key by a second.
    int before = all();
    QElapsedTimer quiet;
    quiet.start();
    EXPECT_TRUE(waitUntil(
        [&] {
            if (const int now = all(); now != before) {
                before = now;
                quiet.restart();
            }
            return quiet.elapsed() > 2000;
        },
        15000));
}

TEST_F(X11KeyGuardTest, withoutAServerTheGuardEndsAndTheTapRestsQuietly) {
    auto other = std::make_unique<DesktopSession>(DesktopSession::Options{
        .windowManager = {}, .screen = QStringLiteral("640x480x24"), .serverArguments = {}});
    program = other->start(QStringLiteral(TAP_PROGRAM), {QStringLiteral(KEY_GUARD)});
    ASSERT_TRUE(says("ready"));
    guard = guardOf(program->processId());
    other.reset();
    qputenv("DISPLAY", currentSession().display().toUtf8());
    // Which it was asked to be, and cannot.
    EXPECT_TRUE(says("enabled again"));
    EXPECT_TRUE(waitUntil([&] { return !isRunning(guard); }));
    EXPECT_EQ(guardOf(program->processId()), 0);
    program->closeWriteChannel();
    EXPECT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitCode(), 0);
}

}  // namespace
}  // namespace pimloft
