// SPDX-License-Identifier: MIT
#include "finderfix/cut_paste_engine.h"

#include "app/hotkey_manager.h"
#include "platform/fake_desktop.h"
#include "platform/scripting/finder_script.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <thread>

namespace pimloft {
namespace {

/// A file manager that answers when the test lets it.
class SlowScripting final : public ScriptingService {
public:
    void run(const QString &text, QObject *context, Done done) override {
        asked += text == finderSelectionScript() ? "selection\n"
                 : text == finderTargetScript()  ? "target\n"
                                                 : "something else\n";
        questions_.push_back({context, std::move(done)});
    }
    void answer(const ScriptResult &result) {
        ASSERT_FALSE(questions_.empty()) << "nothing was asked";
        const Question question = std::move(questions_.front());
        questions_.pop_front();
        if (question.context)
            question.done(result);
    }

    std::string asked;

private:
    struct Question {
        QPointer<QObject> context;
        Done done;
    };
    std::deque<Question> questions_;
};

ScriptResult paths(std::vector<QString> items) {
    return {.items = std::move(items), .error = {}};
}
const ScriptResult failure{.items = {}, .error = QStringLiteral("It does not answer.")};

class CutPaste : public testing::Test {
protected:
    CutPaste() {
        desktop.files.add("/home/a.txt", "A");
        desktop.files.add("/home/b.txt", "B");
        desktop.files.add("/target/");
        desktop.workspace.frontmost =
            Application{.name = QStringLiteral("Files"), .bundleId = QStringLiteral("com.apple.finder")};
        engine.emplace(CutPasteEngine::Collaborators{.hotkeys = hotkeys,
                                                     .workspace = desktop.workspace,
                                                     .scripting = scripting,
                                                     .pasteboard = desktop.pasteboard,
                                                     .files = desktop.files,
                                                     .dialogs = desktop.dialogs});
        engine->start();
        desktop.log();
    }

    void press(KeyCode key) {
        desktop.hotkeys.press(key, CarbonModifiers::command);
        QCoreApplication::processEvents();
    }
    void cut(const std::vector<QString> &items) {
        press(Key::x);
        scripting.answer(paths(items));
    }
    void paste(const QString &folder = QStringLiteral("/target/")) {
        press(Key::v);
        scripting.answer(paths({folder}));
    }
    void bringAnotherProgramToFront() {
        desktop.workspace.frontmost =
            Application{.name = QStringLiteral("xterm"), .bundleId = QStringLiteral("com.apple.Terminal")};
    }
    std::string buffer() const {
        QByteArrayList files;
        for (const FileUrl &file : engine->cutBuffer())
            files << file.path();
        return files.join(' ').toStdString();
    }
    /// What is on the clipboard.
    std::string copied() {
        std::string result;
        QObject context;
        desktop.pasteboard.read(desktop.pasteboard.changeCount(), {PasteType::fileUrls}, 1 << 20, &context,
                                [&](const PasteData &data) { result = data.bytes.toStdString(); });
        desktop.pasteboard.answer();
        return result;
    }
    bool waitForFile(const char *path) {
        return QTest::qWaitFor([&] { return desktop.files.tree().find(path) != std::string::npos; });
    }

    FakeDesktop desktop;
    HotkeyManager hotkeys{desktop.hotkeys};
    SlowScripting scripting;
    std::optional<CutPasteEngine> engine;
};

TEST_F(CutPaste, startTakesTheTwoCombinationsOnce) {
    engine->stop();
    QSignalSpy changed(&*engine, &CutPasteEngine::isActiveChanged);
    engine->start();
    engine->start();
    EXPECT_TRUE(engine->isActive());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(desktop.log(),
              "grant key 7 with modifiers 0x100 as 3\ngrant key 9 with modifiers 0x100 as 4\n");
    EXPECT_EQ(engine->cutHotkeyID(), 3u);
    EXPECT_EQ(engine->pasteHotkeyID(), 4u);
}

TEST_F(CutPaste, afterStopThePressesDoNothing) {
    cut({QStringLiteral("/home/a.txt")});
    engine->stop();
    EXPECT_FALSE(engine->isActive());
    press(Key::x);
    press(Key::v);
    EXPECT_EQ(scripting.asked, "selection\n");
    EXPECT_EQ(buffer(), "/home/a.txt") << "what was cut stays cut";
}

TEST_F(CutPaste, aPressThatIsStillOnItsWayWhenItStopsDoesNothing) {
    desktop.hotkeys.press(Key::x, CarbonModifiers::command);
    engine->stop();
    QCoreApplication::processEvents();
    EXPECT_EQ(scripting.asked, "");
}

TEST_F(CutPaste, thePressesOfAnEngineThatIsGoneDoNothing) {
    desktop.hotkeys.press(Key::x, CarbonModifiers::command);
    engine.reset();
    QCoreApplication::processEvents();
    press(Key::v);
    EXPECT_EQ(scripting.asked, "");
}

TEST_F(CutPaste, withAnotherProgramInFrontBothDoNothing) {
    cut({QStringLiteral("/home/a.txt")});
    scripting.asked.clear();
    bringAnotherProgramToFront();
    press(Key::x);
    press(Key::v);
    desktop.workspace.frontmost.reset();
    press(Key::x);
    press(Key::v);
    desktop.workspace.frontmost = Application{.name = QStringLiteral("Finder"), .bundleId = {}};
    press(Key::x);
    EXPECT_EQ(scripting.asked, "");
    EXPECT_EQ(buffer(), "/home/a.txt");
}

TEST_F(CutPaste, cutRemembersTheSelectionInItsOrder) {
    cut({QStringLiteral("/home/b.txt"), QStringLiteral("/home/a.txt"), QStringLiteral("/home/folder/")});
    EXPECT_EQ(scripting.asked, "selection\n");
    EXPECT_EQ(buffer(), "/home/b.txt /home/a.txt /home/folder");
}

TEST_F(CutPaste, aCutIsOnTheClipboardAsACopyIs) {
    const qint64 before = desktop.pasteboard.changeCount();
    cut({QStringLiteral("/home/a b.txt"), QStringLiteral("/home/ä%"), QStringLiteral("file:///home/%FF")});
    EXPECT_EQ(desktop.pasteboard.changeCount(), before + 1);
    EXPECT_EQ(copied(), "file:///home/a%20b.txt\nfile:///home/%C3%A4%25\nfile:///home/%FF");
}

TEST_F(CutPaste, theNextCutReplacesTheBuffer) {
    cut({QStringLiteral("/home/a.txt")});
    cut({QStringLiteral("/home/b.txt")});
    EXPECT_EQ(buffer(), "/home/b.txt");
}

TEST_F(CutPaste, aCutOfNothingKeepsBufferAndClipboard) {
    cut({QStringLiteral("/home/a.txt")});
    const qint64 count = desktop.pasteboard.changeCount();
    cut({});
    EXPECT_EQ(buffer(), "/home/a.txt");
    EXPECT_EQ(desktop.pasteboard.changeCount(), count);
}

TEST_F(CutPaste, aFileManagerThatDoesNotAnswerKeepsBufferAndClipboard) {
    cut({QStringLiteral("/home/a.txt")});
    desktop.log();
    press(Key::x);
    scripting.answer({.items = {QStringLiteral("/home/b.txt")}, .error = QStringLiteral("half an answer")});
    EXPECT_EQ(buffer(), "/home/a.txt");
    EXPECT_EQ(desktop.log(), "") << "silent";
}

TEST_F(CutPaste, itemsThatAreNoFilesAreLeftOut) {
    cut({QString(), QStringLiteral("/home/a.txt"), QStringLiteral("trash:///x"), QStringLiteral("relative")});
    EXPECT_EQ(buffer(), "/home/a.txt");
    cut({QString()});
    EXPECT_EQ(buffer(), "/home/a.txt") << "nothing but such items is nothing";
}

TEST_F(CutPaste, pasteMovesTheFilesIntoTheFolder) {
    cut({QStringLiteral("/home/b.txt"), QStringLiteral("/home/a.txt")});
    paste();
    EXPECT_EQ(buffer(), "") << "emptied at once";
    ASSERT_TRUE(waitForFile("/target/a.txt"));
    EXPECT_EQ(desktop.files.tree(), "/home/\n/target/\n/target/a.txt A\n/target/b.txt B\n");
    EXPECT_EQ(desktop.files.steps(), "rename /home/b.txt\nrename /home/a.txt\n") << "in their order";
}

TEST_F(CutPaste, pasteWithAnEmptyBufferAsksNobody) {
    press(Key::v);
    EXPECT_EQ(scripting.asked, "");
    cut({QStringLiteral("/home/a.txt")});
    paste();
    press(Key::v);
    EXPECT_EQ(scripting.asked, "selection\ntarget\n") << "a paste empties it";
}

TEST_F(CutPaste, withoutATargetTheBufferIsKept) {
    cut({QStringLiteral("/home/a.txt")});
    press(Key::v);
    scripting.answer(failure);
    press(Key::v);
    scripting.answer(paths({}));
    press(Key::v);
    scripting.answer(paths({QString()}));
    EXPECT_EQ(buffer(), "/home/a.txt");
    EXPECT_EQ(desktop.files.steps(), "");
    paste();
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, theBufferIsEmptyBeforeAnythingIsMoved) {
    desktop.files.hold();
    cut({QStringLiteral("/home/a.txt")});
    paste();
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(desktop.files.steps(), "") << "the main thread does not wait for the disk";
    desktop.files.letGo();
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, aPasteThatIsPressedBeforeTheCutIsAnsweredWaitsForIt) {
    press(Key::x);
    press(Key::v);
    EXPECT_EQ(scripting.asked, "selection\n");
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    EXPECT_EQ(scripting.asked, "selection\ntarget\n");
    scripting.answer(paths({QStringLiteral("/target")}));
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, aPasteBehindACutOfNothingDoesNothing) {
    press(Key::x);
    press(Key::v);
    scripting.answer(paths({}));
    EXPECT_EQ(scripting.asked, "selection\n");
}

TEST_F(CutPaste, aCutThatIsPressedWhileTheTargetIsAwaitedDoesNotChangeWhatIsPasted) {
    cut({QStringLiteral("/home/a.txt")});
    press(Key::v);
    press(Key::x);
    scripting.answer(paths({QStringLiteral("/target")}));
    scripting.answer(paths({QStringLiteral("/home/b.txt")}));
    EXPECT_EQ(buffer(), "/home/b.txt");
    ASSERT_TRUE(waitForFile("/target/a.txt"));
    EXPECT_NE(desktop.files.tree().find("/home/b.txt"), std::string::npos);
}

TEST_F(CutPaste, aPressThatWaitsIsDroppedWhenAnotherProgramComesToTheFront) {
    press(Key::x);
    press(Key::v);
    bringAnotherProgramToFront();
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    EXPECT_EQ(buffer(), "/home/a.txt") << "asked while the file manager was in front";
    EXPECT_EQ(scripting.asked, "selection\n") << "another window would be meant now";
}

TEST_F(CutPaste, anAnswerCountsAlsoWhenTheUserHasGoneOn) {
    cut({QStringLiteral("/home/a.txt")});
    press(Key::v);
    bringAnotherProgramToFront();
    scripting.answer(paths({QStringLiteral("/target")}));
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, aKeyThatIsHeldDownAsksNoMoreThanItMust) {
    for (int time = 0; time < 20; ++time)
        press(Key::x);
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    EXPECT_EQ(scripting.asked, "selection\nselection\n");
}

TEST_F(CutPaste, pressesOfBothKeysAreAllCarriedOutInTheirOrder) {
    press(Key::x);
    press(Key::v);
    press(Key::x);
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    scripting.answer(paths({QStringLiteral("/target")}));
    scripting.answer(paths({QStringLiteral("/home/b.txt")}));
    EXPECT_EQ(scripting.asked, "selection\ntarget\nselection\n");
    EXPECT_EQ(buffer(), "/home/b.txt");
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, anAnswerAfterStopIsNotHeard) {
    press(Key::x);
    press(Key::v);
    engine->stop();
    scripting.answer(paths({QStringLiteral("/home/a.txt")}));
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(scripting.asked, "selection\n");
    engine->start();
    cut({QStringLiteral("/home/b.txt")});
    EXPECT_EQ(buffer(), "/home/b.txt");
}

TEST_F(CutPaste, movesThatHaveBegunGoOnAfterStop) {
    desktop.files.hold();
    cut({QStringLiteral("/home/a.txt")});
    paste();
    engine->stop();
    desktop.files.letGo();
    EXPECT_TRUE(waitForFile("/target/a.txt"));
}

TEST_F(CutPaste, theEndOfTheEngineLeavesWhatIsNotMovedYetWhereItIs) {
    desktop.files.hold();
    cut({QStringLiteral("/home/a.txt"), QStringLiteral("/home/b.txt")});
    paste();
    std::thread later([this] { desktop.files.letGo(); });
    engine.reset();
    later.join();
    const std::string tree = desktop.files.tree();
    EXPECT_NE(tree.find("b.txt B"), std::string::npos);
    EXPECT_NE(tree.find("a.txt A"), std::string::npos) << tree;
}

TEST_F(CutPaste, twoPastesAreCarriedOutOneAfterTheOther) {
    desktop.files.hold();
    cut({QStringLiteral("/home/a.txt")});
    paste();
    cut({QStringLiteral("/home/b.txt")});
    paste();
    desktop.files.letGo();
    ASSERT_TRUE(waitForFile("/target/b.txt"));
    EXPECT_EQ(desktop.files.steps(), "rename /home/a.txt\nrename /home/b.txt\n");
}

TEST_F(CutPaste, eachFileThatFailsHasItsAlertAndTheOthersAreMoved) {
    desktop.files.add("/home/c.txt", "C");
    desktop.files.fail(FakeFiles::Step::rename, "/home/a.txt",
                       {FileProblem::noPermission, QStringLiteral("x")});
    cut({QStringLiteral("/home/a.txt"), QStringLiteral("/home/b.txt"), QStringLiteral("/home/gone"),
         QStringLiteral("/home/c.txt")});
    desktop.log();
    paste();
    ASSERT_TRUE(waitForFile("/target/c.txt"));
    std::string log;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !(log += desktop.log()).empty(); }));
    EXPECT_EQ(log, "alert: Could not move \"a.txt\" | Permission denied. The file may be locked or you may "
                   "not have access. | [OK]\n");
    QCoreApplication::processEvents();
    desktop.dialogs.closeAlert();
    EXPECT_EQ(desktop.log(), "alert: Could not move \"gone\" | No such file or directory | [OK]\n");
    EXPECT_EQ(desktop.files.tree(), "/home/\n/home/a.txt A\n/target/\n/target/b.txt B\n/target/c.txt C\n");
}

TEST_F(CutPaste, threeThousandFilesAreMoved) {
    std::vector<QString> items;
    for (int number = 0; number < 3000; ++number) {
        const QByteArray path = "/many/" + QByteArray::number(number);
        desktop.files.add(path, "x");
        items.push_back(QString::fromLatin1(path));
    }
    desktop.files.add("/many/last", "x");
    items.push_back(QStringLiteral("/many/last"));
    cut(items);
    paste();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return desktop.files.steps().ends_with("rename /many/last\n"); }, 30'000));
    EXPECT_TRUE(waitForFile("/target/last"));
}

}  // namespace
}  // namespace pimloft
