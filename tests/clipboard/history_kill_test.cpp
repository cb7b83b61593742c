// SPDX-License-Identifier: MIT
#include "app/settings_keys.h"
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

namespace pimloft {
namespace {

/// The number of the newest numbered entry; zero when there is none.
unsigned newest(const ClipboardStore &store) {
    for (const ClipboardItem &item : store.items())
        if (std::holds_alternative<TextContent>(item.content))
            return unsigned(item.timestamp.seconds);
    return 0;
}

/// Lets the saver run and kills it at some moment. Answers the last entry that it knew to be saved.
unsigned killASaver(const QString &folder, unsigned first, std::chrono::microseconds after) {
    QProcess saver;
    saver.start(QStringLiteral(HISTORY_SAVER), {folder, QString::number(first)});
    if (!saver.waitForReadyRead(30'000))
        qFatal("the saver does not start");
    // The moment is what is tried out here; nothing is waited for.
    std::this_thread::sleep_for(after);
    saver.kill();
    saver.waitForFinished();
    const QByteArrayList lines = saver.readAllStandardOutput().trimmed().split('\n');
    return lines.back().toUInt();
}

TEST(HistoryThatIsBeingSaved, isWholeAndLosesNothingWhenTheProgramIsKilled) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const int kills = qEnvironmentVariableIntValue("PIMLOFT_TEST_KILLS");
    const QTemporaryDir folder;
    FakeDesktop desktop;
    unsigned first = 1;
    for (int run = 0; run < (kills > 0 ? kills : 20); ++run) {
        const unsigned told = killASaver(folder.path(), first, std::chrono::microseconds(random() % 60'000));
        testing::internal::CaptureStdout();
        const ClipboardStore store(desktop.preferences, folder.path());
        ASSERT_EQ(testing::internal::GetCapturedStdout(), "") << "kill " << run;
        // What was told is there; one more may have been saved and not yet told.
        ASSERT_GE(newest(store), told) << "kill " << run;
        ASSERT_LE(newest(store), told + 1) << "kill " << run;
        for (const ClipboardItem &item : store.items()) {
            const auto *image = std::get_if<ImageContent>(&item.content);
            ASSERT_TRUE(!image || image->bytes.size() == 1'000'000);
        }
        ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(u' ').toStdString(),
                  "clipboard_history.json");
        first = newest(store) + 1;
    }
}

}  // namespace
}  // namespace pimloft
