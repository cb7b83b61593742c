// SPDX-License-Identifier: MIT
// A clipboard without an X server: nothing is there, and nothing waits.
#include "platform/pasteboard/x11_pasteboard.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class X11PasteboardWithoutServer : public testing::Test {
protected:
    X11PasteboardWithoutServer() { qputenv("DISPLAY", ":65000"); }

    QObject context_;
};

std::optional<QString> nobody(ProcessId) {
    return std::nullopt;
}

TEST_F(X11PasteboardWithoutServer, failsEveryQuestion) {
    X11Pasteboard pasteboard(nobody);
    std::vector<PasteData::Status> answers;
    for (int i = 0; i < 100; ++i)
        pasteboard.read(0, {PasteType::plainText}, 100, &context_,
                        [&](PasteData data) { answers.push_back(data.status); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 100; }));
    EXPECT_EQ(answers, std::vector(100, PasteData::failed));
    bool isKnown = true;
    pasteboard.origin(0, &context_, [&](auto origin) { isKnown = origin.has_value(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isKnown; }));
}

TEST_F(X11PasteboardWithoutServer, stillCountsItsOwnWrites) {
    X11Pasteboard pasteboard(nobody);
    EXPECT_EQ(pasteboard.write({{PasteType::plainText, "a"}}), 1);
    pasteboard.offerAsPrimary();
    EXPECT_EQ(pasteboard.write({}), 2);
    EXPECT_EQ(pasteboard.changeCount(), 2);
}

TEST_F(X11PasteboardWithoutServer, abandonsQuestionsWhenItWritesAndWhenItEnds) {
    int answers = 0;
    {
        X11Pasteboard pasteboard(nobody);
        for (int i = 0; i < 100; ++i)
            pasteboard.read(0, {PasteType::plainText}, 100, &context_, [&](PasteData) { ++answers; });
        pasteboard.write({});
        for (int i = 0; i < 100; ++i)
            pasteboard.read(1, {PasteType::plainText}, 100, &context_, [](PasteData) { ADD_FAILURE(); });
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, 100);
}

}  // namespace
}  // namespace pimloft
