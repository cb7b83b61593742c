// SPDX-License-Identifier: MIT
#include "file_system.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

namespace pimloft {
namespace {

constexpr int files = 300;

QByteArray content(int number) {
    return QByteArray(20'000, char('a' + number % 26));
}

/// Whether the folder holds every file, whole.
bool isWhole(const FileUrl &folder) {
    for (int number = 0; number < files; ++number)
        if (test::read(folder.appending(QByteArray::number(number))) != content(number))
            return false;
    return true;
}

void killAMove(const FileUrl &item, const FileUrl &folder, std::chrono::microseconds after) {
    QProcess client;
    client.start(QStringLiteral(FILE_MOVER_CLIENT),
                 {QString::fromUtf8(item.path()), QString::fromUtf8(folder.path())});
    if (!client.waitForReadyRead(30'000))
        qFatal("the client does not start");
    // The moment is what is tried out here; nothing is waited for.
    std::this_thread::sleep_for(after);
    client.kill();
    client.waitForFinished();
}

TEST(AMoveThatIsKilled, leavesEveryFileWholeInOnePlaceAndNoHalfOneUnderItsName) {
    const test::TwoVolumes volumes;
    if (!volumes.areTwo())
        GTEST_SKIP() << "the build folder and " OTHER_VOLUME " are on the same file system";
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    int met = 0;
    for (int run = 0; run < 12; ++run) {
        const FileUrl source = volumes.here().appending("f");
        const FileUrl target = volumes.there().appending("f");
        test::makeFolder(source);
        for (int number = 0; number < files; ++number)
            test::write(source.appending(QByteArray::number(number)), content(number));
        // A quick machine is done in a few milliseconds.
        const unsigned latest = 60'000u >> (run % 5);
        killAMove(source, volumes.there(), std::chrono::microseconds(random() % latest));
        const bool isPlaced = test::isThere(target);
        met += !isPlaced || test::isThere(source);
        if (isPlaced)
            ASSERT_TRUE(isWhole(target)) << "run " << run;
        else
            ASSERT_TRUE(isWhole(source)) << "run " << run;
        test::removeAll(source);
        test::removeAll(target);
    }
    EXPECT_GT(met, 0) << "every move was over before it was killed";
}

}  // namespace
}  // namespace pimloft
