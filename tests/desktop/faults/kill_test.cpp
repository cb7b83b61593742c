// SPDX-License-Identifier: MIT
// The program is killed at random moments while it is used. PIMLOFT_TEST_KILLS sets how often.
#include "desktop/faults/fault_desk.h"
#include "desktop/support/first_run.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>

#include <chrono>
#include <csignal>
#include <random>
#include <set>
#include <thread>

namespace pimloft::test {
namespace {

using std::chrono::milliseconds;

class Killed : public FaultDesk {
protected:
    /// Uses it until it is gone. What it has shown to be recorded is added to `recorded_`.
    void useUntilItDies() {
        while (pimloft().isRunning()) {
            // The next one would come before this one was looked at.
            if (recorded_.contains(newest()) || sinceCopy_.hasExpired(1500)) {
                copy(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")},
                     "copy " + QByteArray::number(++copies_));
                sinceCopy_.start();
            }
            hands().chord({KEY_LEFTCTRL, KEY_C});
            hands().press(KEY_LEFTCTRL);
            hands().tap(KEY_HOME);
            remember();
            hands().release(KEY_LEFTCTRL);
            if (copies_ % 3 == 0)
                hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
            hands().chord({KEY_LEFTMETA, KEY_LEFTCTRL, KEY_LEFT});
            QCoreApplication::processEvents();
        }
    }
    std::string newest() const { return "text: copy " + std::to_string(copies_); }
    void remember() {
        const std::vector<std::string> now = history();
        recorded_.insert(now.begin(), now.end());
    }
    /// Every state in which its files can be found is one that it has written whole.
    void expectWholeFiles() {
        QFile file(dataFolder() + QStringLiteral("/clipboard_history.json"));
        if (file.open(QIODevice::ReadOnly)) {
            EXPECT_FALSE(QJsonDocument::fromJson(file.readAll()).isNull()) << "the history is torn";
        }
        EXPECT_FALSE(storedPreferences(session()).isEmpty()) << "the preferences are torn";
        const std::vector<std::string> now = history();
        const std::set<std::string> kept(now.begin(), now.end());
        for (const std::string &each : recorded_)
            EXPECT_TRUE(kept.contains(each)) << '"' << each << "\" was recorded and is lost";
    }

    std::set<std::string> recorded_;
    int copies_ = 0;
    QElapsedTimer sinceCopy_;
};

TEST_F(Killed, atAnyMomentItLosesNothingAndLeavesTheKeyboardAsItWas) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RecordProperty("Seed", std::to_string(seed));
    std::mt19937 random(seed);
    const int wanted = qEnvironmentVariableIntValue("PIMLOFT_TEST_KILLS");
    sink();
    for (int kill = 0; kill < (wanted > 0 ? wanted : 20) && !HasFailure(); ++kill) {
        SCOPED_TRACE(testing::Message() << "kill " << kill);
        startEverything();
        const pid_t guardBefore = guard();
        copyText("copy " + QByteArray::number(++copies_));
        sinceCopy_.start();
        remember();
        // The moment is what is tried out; nothing is waited for.
        std::thread killer([process = pimloft().pid(), moment = milliseconds(random() % 900)] {
            std::this_thread::sleep_for(moment);
            ::kill(process, SIGKILL);
        });
        useUntilItDies();
        killer.join();
        EXPECT_EQ(pimloft().waitForEnd(), -1);
        expectThatNothingIsLeftOf(guardBefore);
        expectLiveKeyboard();
        expectWholeFiles();
    }
    startEverything();
    remember();
    copyText("the last one");
    expectWholeFiles();
    expectRemapping();
    EXPECT_THAT(dataFiles(), testing::ElementsAre(QStringLiteral("clipboard_history.json"),
                                                  QStringLiteral("key_mappings.json")))
        << "half-written files are left behind";
}

}  // namespace
}  // namespace pimloft::test
