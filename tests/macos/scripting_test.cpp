// SPDX-License-Identifier: MIT
#include "platform/scripting/mac_scripting.h"

#include "fake_appkit.h"
#include "mac_test.h"
#include "platform/scripting/finder_script.h"
#include "platform/scripting/player_script.h"

#include <QObject>

namespace pimloft::test {

namespace {

using testing::ElementsAre;

class MacScriptingTest : public MacTest {
protected:
    ScriptResult run(const QString &text) {
        std::optional<ScriptResult> result;
        scripting_.run(text, &context_, [&](ScriptResult answer) { result = answer; });
        EXPECT_FALSE(result) << "answered before the call returned";
        runQueue();
        EXPECT_TRUE(result);
        return result.value_or(ScriptResult{});
    }

    mac::ScriptAnswer &answer(const QString &text) { return mac::scripts().answers[text.toStdString()]; }

    QObject context_;
    MacScripting scripting_;
};

TEST_F(MacScriptingTest, runsEachTextUnchanged) {
    for (const QString &text :
         {finderSelectionScript(), finderTargetScript(), setVolumeScript(QStringLiteral("Spotify"), 50)}) {
        run(text);
        EXPECT_EQ(log(), "run " + text.toStdString() + '\n');
    }
}

TEST_F(MacScriptingTest, answersTheItemsOfAListInOrder) {
    answer(QStringLiteral("list")).list = {{"/tmp/b", "/tmp/ä", "/tmp/c"}};
    const ScriptResult result = run(QStringLiteral("list"));
    EXPECT_THAT(result.items,
                ElementsAre(QStringLiteral("/tmp/b"), QStringLiteral("/tmp/ä"), QStringLiteral("/tmp/c")));
    EXPECT_EQ(result.error, std::nullopt);
}

TEST_F(MacScriptingTest, leavesOutItemsThatAreNoTexts) {
    answer(QStringLiteral("list")).list = {{"/tmp/b", std::nullopt, "/tmp/c"}};
    EXPECT_THAT(run(QStringLiteral("list")).items,
                ElementsAre(QStringLiteral("/tmp/b"), QStringLiteral("/tmp/c")));
}

TEST_F(MacScriptingTest, answersASingleTextAsOneItem) {
    answer(QStringLiteral("one")).text = "/tmp/";
    EXPECT_THAT(run(QStringLiteral("one")).items, ElementsAre(QStringLiteral("/tmp/")));
}

TEST_F(MacScriptingTest, answersNoItemsWhereThereIsNoText) {
    const ScriptResult result = run(QStringLiteral("silent"));
    EXPECT_TRUE(result.items.empty());
    EXPECT_EQ(result.error, std::nullopt);
}

TEST_F(MacScriptingTest, answersTheSystemsSentenceForAFailure) {
    answer(QStringLiteral("bad")).error = "Not authorised to send Apple events to Finder.";
    EXPECT_EQ(run(QStringLiteral("bad")).error,
              QStringLiteral("Not authorised to send Apple events to Finder."));
    answer(QStringLiteral("bad")).error = "";
    EXPECT_EQ(run(QStringLiteral("bad")).error, QStringLiteral("The script failed."));
}

TEST_F(MacScriptingTest, answersAnErrorForATextThatIsNoScript) {
    mac::scripts().canBeMade = false;
    EXPECT_EQ(run(QStringLiteral("?")).error, QStringLiteral("The script cannot be read."));
    EXPECT_EQ(log(), "");
}

TEST_F(MacScriptingTest, runsScriptsInTheOrderInWhichTheyWereGiven) {
    scripting_.run(QStringLiteral("first"), &context_, [](ScriptResult) { mac::note("done"); });
    scripting_.run(QStringLiteral("second"), &context_, [](ScriptResult) { mac::note("done"); });
    runQueue();
    EXPECT_EQ(log(), "run first\ndone\nrun second\ndone\n");
}

TEST_F(MacScriptingTest, runsToItsEndWithoutWhoAskedAndAnswersNobody) {
    auto context = std::make_unique<QObject>();
    bool answered = false;
    scripting_.run(QStringLiteral("text"), context.get(), [&](ScriptResult) { answered = true; });
    context.reset();
    runQueue();
    EXPECT_EQ(log(), "run text\n");
    EXPECT_FALSE(answered);
}

}  // namespace

}  // namespace pimloft::test
