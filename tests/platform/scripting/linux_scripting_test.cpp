// SPDX-License-Identifier: MIT
#include "platform/scripting/linux_scripting.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <utility>

namespace pimloft {
namespace {

/// Answers one text with another, when it is told to.
class Echo final : public ScriptHandler {
public:
    Echo(QString text, std::vector<Answer> &pending) : text_(std::move(text)), pending_(pending) {}
    bool handle(const QString &text, Answer answer) override {
        if (text != text_)
            return false;
        pending_.push_back(std::move(answer));
        return true;
    }

private:
    QString text_;
    std::vector<Answer> &pending_;
};

class LinuxScriptingTest : public testing::Test {
protected:
    LinuxScriptingTest() {
        std::vector<std::unique_ptr<ScriptHandler>> handlers;
        handlers.push_back(std::make_unique<Echo>(QStringLiteral("first"), first));
        handlers.push_back(std::make_unique<Echo>(QStringLiteral("second"), second));
        scripting = std::make_unique<LinuxScripting>(std::move(handlers));
    }
    void run(const char *text) {
        scripting->run(QLatin1String(text), &context,
                       [this](const ScriptResult &result) { results.push_back(result); });
    }
    void settle() { QCoreApplication::processEvents(); }

    std::vector<ScriptHandler::Answer> first;
    std::vector<ScriptHandler::Answer> second;
    std::unique_ptr<LinuxScripting> scripting;
    QObject context;
    std::vector<ScriptResult> results;
};

TEST_F(LinuxScriptingTest, aTextThatNobodyKnowsIsAnErrorThatComesLater) {
    run("third");
    EXPECT_TRUE(results.empty());
    settle();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_TRUE(results[0].error);
}

TEST_F(LinuxScriptingTest, eachTextGoesToWhoKnowsIt) {
    run("second");
    EXPECT_EQ(first.size(), 0u);
    ASSERT_EQ(second.size(), 1u);
    second[0]({.items = {QStringLiteral("a"), QStringLiteral("b")}, .error = {}});
    EXPECT_TRUE(results.empty()) << "it comes from the event loop";
    settle();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].items.size(), 2u);
    EXPECT_FALSE(results[0].error);
}

TEST_F(LinuxScriptingTest, nobodyIsAnsweredWhoIsGone) {
    bool answered = false;
    {
        QObject shortLived;
        scripting->run(QStringLiteral("first"), &shortLived, [&](const ScriptResult &) { answered = true; });
        scripting->run(QStringLiteral("first"), &shortLived, [&](const ScriptResult &) { answered = true; });
        first[0]({});
    }
    first[1]({});
    settle();
    EXPECT_FALSE(answered);
}

/// Handlers that have become useless while `isUseless`.
class RenewedScripting : public LinuxScriptingTest {
protected:
    RenewedScripting() {
        scripting = std::make_unique<LinuxScripting>(echoTo(first), [this] {
            return std::exchange(isUseless, false) ? echoTo(second) : LinuxScripting::Handlers();
        });
    }
    static LinuxScripting::Handlers echoTo(std::vector<ScriptHandler::Answer> &pending) {
        LinuxScripting::Handlers handlers;
        handlers.push_back(std::make_unique<Echo>(QStringLiteral("text"), pending));
        return handlers;
    }
    bool isUseless = false;
};

TEST_F(RenewedScripting, keepsItsHandlersWhileTheyAreOfUse) {
    run("text");
    first[0]({});
    run("text");
    EXPECT_EQ(first.size(), 2u);
}

TEST_F(RenewedScripting, goesToOthersOnceThoseAreOfNoUse) {
    run("text");
    first[0]({});
    isUseless = true;
    run("text");
    EXPECT_EQ(first.size(), 1u);
    EXPECT_EQ(second.size(), 1u);
}

TEST_F(RenewedScripting, leavesTheOnesThatAreStillToAnswer) {
    run("text");
    isUseless = true;
    run("text");
    EXPECT_EQ(first.size(), 2u);
    first[0]({});
    first[1]({});
    settle();
    EXPECT_EQ(results.size(), 2u);
    run("text");
    EXPECT_EQ(second.size(), 1u);
}

}  // namespace
}  // namespace pimloft
