// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// A history that is too long to be read before the program goes on.
class LongHistory : public testing::Test {
protected:
    static constexpr int pictures = 4;

    LongHistory() {
        ClipboardStore store(desktop.preferences, folder.path());
        for (unsigned number = 0; number < pictures; ++number)
            store.add(test::entry(ImageContent{test::noise(1'000'000, number)}));
        saved = store.items();
    }

    FakeDesktop desktop;
    QTemporaryDir folder;
    std::vector<ClipboardItem> saved;
};

TEST_F(LongHistory, isThereForWhoeverAsks) {
    const ClipboardStore store(desktop.preferences, folder.path());
    EXPECT_TRUE(test::areTheSame(store.items(), saved));
    EXPECT_EQ(store.filteredItems().size(), std::size_t(pictures));
}

TEST_F(LongHistory, isThereBeforeAnythingIsAdded) {
    {
        ClipboardStore store(desktop.preferences, folder.path());
        store.add(test::text(QStringLiteral("new")));
        EXPECT_EQ(store.items().size(), std::size_t(pictures + 1));
    }
    const ClipboardStore store(desktop.preferences, folder.path());
    EXPECT_EQ(store.items().size(), std::size_t(pictures + 1));
}

TEST_F(LongHistory, isNotLostToASaveThatComesFirst) {
    {
        ClipboardStore store(desktop.preferences, folder.path());
        store.saveToDisk();
    }
    const ClipboardStore store(desktop.preferences, folder.path());
    EXPECT_TRUE(test::areTheSame(store.items(), saved));
}

TEST_F(LongHistory, mayStillBeReadWhenTheProgramEnds) {
    for (int run = 0; run < 5; ++run)
        const ClipboardStore store(desktop.preferences, folder.path());
    QCoreApplication::processEvents();
}

/// Sees the calls that are posted to an object.
class PostedCalls : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override {
        seen = seen || event->type() == QEvent::MetaCall;
        return false;
    }
    bool seen = false;
};

TEST_F(LongHistory, tellsThatItIsBrokenAlthoughNobodyAsks) {
    QFile file(folder.filePath(QStringLiteral("clipboard_history.json")));
    ASSERT_TRUE(file.resize(file.size() - 10));
    testing::internal::CaptureStdout();
    ClipboardStore store(desktop.preferences, folder.path());
    PostedCalls calls;
    store.installEventFilter(&calls);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls.seen; }));
    EXPECT_EQ(testing::internal::GetCapturedStdout().substr(0, 38), "ClipboardStore: Failed to load: Missin");
    EXPECT_TRUE(store.items().empty());
}

}  // namespace
}  // namespace pimloft
