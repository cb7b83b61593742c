// SPDX-License-Identifier: MIT
// The scripts that ask the file manager, with real ones.
#include "file_manager_desk.h"
#include "platform/events/x11_key_tap.h"
#include "platform/hotkeys/x11_hotkeys.h"
#include "platform/x11/x11_window_info.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <csignal>

namespace pimloft {
namespace {

using test::FileManagerUnderTest;
using test::waitUntil;

class FileManagerTest : public test::FileManagerDesk,
                        public testing::WithParamInterface<FileManagerUnderTest> {
protected:
    xcb_window_t open(const QString &folder) { return FileManagerDesk::open(GetParam(), folder); }

    /// What is selected while the user holds the hotkey that the question is asked by.
    void expectSelectionWhileHeld(const std::string &expected) {
        X11Hotkeys hotkeys(xSession_, keyboard_, input_);
        int pressed = 0;
        hotkeys.onPressed = [&pressed](HotkeyId) { ++pressed; };
        ASSERT_TRUE(hotkeys.grant(Key::x, CarbonModifiers::command, HotkeyId(1)));
        hands_.press(KEY_LEFTMETA);
        hands_.press(KEY_X);
        EXPECT_TRUE(waitUntil([&] { return pressed == 1; }));
        expectSelection(expected);
        hands_.release(KEY_X);
        hands_.release(KEY_LEFTMETA);
        EXPECT_TRUE(waitUntil([&] { return hands_.keysDown().isEmpty(); })) << "a key stays down";
    }

    /// The paths of files in a folder, one per line.
    static std::string paths(const QString &folder, const std::vector<const char *> &names) {
        QStringList all;
        for (const char *name : names)
            all << folder + QLatin1Char('/') + QLatin1String(name);
        return all.join(u'\n').toStdString();
    }
};

TEST_P(FileManagerTest, tellsTheSelectedFilesInTheirOrderAndLeavesTheClipboardAlone) {
    const QString folder = makeFolder(QStringLiteral("several"), {"c.txt", "a.txt", "b.txt"});
    const auto window = open(folder);
    copyText("what was copied before");
    const qint64 count = changeCount();
    expectAllSelected(paths(folder, {"a.txt", "b.txt", "c.txt"}));
    expectFolder(folder);
    EXPECT_EQ(clipboardText(), "what was copied before");

    clickBesideFiles(window);
    expectSelection("none");
    expectFolder(folder);
    EXPECT_EQ(clipboardText(), "what was copied before");
    EXPECT_EQ(changeCount(), count);
}

TEST_P(FileManagerTest, tellsOneFileWithAnyName) {
    const QByteArray oddName = "it's \"100%\" #1?\nnext line & \xc3\xa4";
    const QString folder = makeFolder(QStringLiteral("odd"), {oddName});
    open(folder);
    expectAllSelected(folder.toStdString() + "/" + oddName.toStdString());
}

TEST_P(FileManagerTest, tellsANameThatIsNoTextAsAUri) {
    if (GetParam().knowsOnlyText)
        GTEST_SKIP() << "it tells no such name";
    const QString folder = makeFolder(QStringLiteral("no text"), {"caf\xe9"});
    open(folder);
    expectAllSelected("file://" + QString(folder).replace(u' ', QLatin1String("%20")).toStdString() +
                      "/caf%E9");
}

TEST_P(FileManagerTest, tellsAnEmptyFolder) {
    const QString folder = makeFolder(QStringLiteral("empty"), {});
    open(folder);
    expectFolder(folder);
    expectSelection("none");
}

TEST_P(FileManagerTest, tellsOfTheWindowInFront) {
    if (GetParam().hasOneWindow)
        GTEST_SKIP() << "there is no second window";
    const QString one = makeFolder(QStringLiteral("first/same"), {"one.txt"});
    const QString other = makeFolder(QStringLiteral("second/same"), {"other.txt"});
    const auto first = open(one);
    expectAllSelected(paths(one, {"one.txt"}));
    open(other);
    expectAllSelected(paths(other, {"other.txt"}));
    expectFolder(other);
    bringToFront(first);
    expectSelection(paths(one, {"one.txt"}));
    expectFolder(one);
}

TEST_P(FileManagerTest, tellsThousandsOfFiles) {
    std::vector<QByteArray> names;
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i)
        names.push_back("file " + QByteArray::number(10000 + i) + ".txt");
    const QString folder = makeFolder(QStringLiteral("many"), names);
    QStringList all;
    for (const QByteArray &name : names)
        all << folder + QLatin1Char('/') + QLatin1String(name);
    const std::string expected = all.join(u'\n').toStdString();
    open(folder);
    expectAllSelected(expected, 60000);
}

TEST_P(FileManagerTest, doesNotTouchANameThatIsBeingTyped) {
    const QString folder = makeFolder(QStringLiteral("renaming"), {});
    QDir(folder).mkdir(QStringLiteral("before"));
    const auto window = open(folder);
    copyText("what was copied before");
    const qint64 count = changeCount();
    expectAllSelected(paths(folder, {"before"}));
    hands_.tap(KEY_F2);
    if (!GetParam().renamesInPlace) {
        EXPECT_TRUE(waitUntil([&] {
            const auto front = desktop_.activeWindow();
            return front != window && front != XCB_NONE;
        }));
    }
    hands_.type("af");
    // Some tell the file whose name it is.
    const std::vector<std::string> harmless{"unknown", "none", paths(folder, {"before"}),
                                            folder.toStdString()};
    for (const std::string &answer : {selection(), shown()})
        EXPECT_EQ(std::count(harmless.begin(), harmless.end(), answer), 1) << answer;
    hands_.type("ter");
    hands_.tap(KEY_ENTER);
    EXPECT_TRUE(waitUntil([&] { return QFileInfo::exists(folder + QStringLiteral("/after")); }))
        << QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(u' ').toStdString();
    EXPECT_EQ(clipboardText(), "what was copied before");
    EXPECT_EQ(changeCount(), count);
}

TEST_P(FileManagerTest, saysThatItDoesNotKnowWhileADialogIsInFront) {
    const QString folder = makeFolder(QStringLiteral("dialog"), {"a.txt"});
    const auto window = open(folder);
    expectAllSelected(paths(folder, {"a.txt"}));
    hands_.chord({KEY_LEFTALT, KEY_ENTER});
    EXPECT_TRUE(waitUntil([&] {
        const auto front = desktop_.activeWindow();
        return front != window && front != XCB_NONE;
    }));
    opened_.push_back(desktop_.activeWindow());
    EXPECT_EQ(selection(), "unknown");
    EXPECT_EQ(shown(), "unknown");
}

/// Passes every key on as it is.
class Nothing final : public KeyFilter {
public:
    KeyEvent filter(KeyEvent event, std::string_view, Instant) noexcept override { return event; }
};

TEST_P(FileManagerTest, answersWhileItsHotkeyIsHeld) {
    const QString folder = makeFolder(QStringLiteral("held"), {"a.txt", "b.txt"});
    open(folder);
    const std::string all = paths(folder, {"a.txt", "b.txt"});
    expectAllSelected(all);
    expectSelectionWhileHeld(all);
}

TEST_P(FileManagerTest, answersWhileKeysAreRemapped) {
    const QString folder = makeFolder(QStringLiteral("tapped"), {"a.txt"});
    open(folder);
    const std::string all = paths(folder, {"a.txt"});
    X11KeyTap tap(keyboard_, QStringLiteral(KEY_GUARD));
    ASSERT_TRUE(tap.install(std::make_shared<Nothing>()));
    expectAllSelected(all);
    expectSelectionWhileHeld(all);
}

TEST_P(FileManagerTest, isNotWaitedForWhenItHangs) {
    const QString folder = makeFolder(QStringLiteral("hanging"), {"a.txt"});
    const auto window = open(folder);
    copyText("what was copied before");
    expectAllSelected(paths(folder, {"a.txt"}));
    const qint64 count = changeCount();
    const auto process = windowProcess(xSession_, window);
    ASSERT_TRUE(process);
    kill(pid_t(*process), SIGSTOP);
    EXPECT_EQ(selection(), "unknown");
    EXPECT_EQ(selection(), "unknown") << "nor is it sent more and more keys";
    kill(pid_t(*process), SIGCONT);
    expectSelection(paths(folder, {"a.txt"}));
    EXPECT_EQ(clipboardText(), "what was copied before");
    EXPECT_EQ(changeCount(), count);
}

/// The desktop with its icons, which PCManFM shows as a window of its own kind.
class FileManagerDesktop : public test::FileManagerDesk {};

TEST_F(FileManagerDesktop, tellsTheDesktopsFilesAndFolder) {
    makeFolder(QStringLiteral("Desktop"), {"on the desktop.txt"});
    programs_.push_back(session().start(QStringLiteral("pcmanfm"), {QStringLiteral("--desktop")}));
    EXPECT_TRUE(waitUntil(
        [this] {
            const auto windows = desktop_.windows();
            if (!windows.empty() && desktop_.activeWindow() != windows.front())
                hands_.click({1200, 900});
            return !windows.empty() && desktop_.activeWindow() == windows.front();
        },
        20000))
        << "there is no desktop";
    expectAllSelected((desktopFolder_ + QStringLiteral("/on the desktop.txt")).toStdString());
    expectFolder(desktopFolder_);
}

TEST_F(FileManagerDesktop, isTheFolderWhileNoFileManagerIsInFront) {
    expectFolder(desktopFolder_);
    EXPECT_EQ(selection(), "unknown");
}

const FileManagerUnderTest managers[] = {
    {"thunar", "thunar"},
    {"pcmanfm", "pcmanfm", {QStringLiteral("--new-win")}},
    {"pcmanfmQt", "pcmanfm-qt", {QStringLiteral("--new-window")}, true},
    {"nemo", "nemo", {QStringLiteral("--no-desktop")}, true},
    {"caja", "caja", {QStringLiteral("--no-desktop")}, true},
    {"nautilus", "nautilus", {QStringLiteral("--new-window")}, true, true, true},
    {"dolphin", "dolphin", {QStringLiteral("--new-window")}, true, false, false, true},
};

std::string managerName(const testing::TestParamInfo<FileManagerUnderTest> &info) {
    return info.param.name;
}
INSTANTIATE_TEST_SUITE_P(With, FileManagerTest, testing::ValuesIn(managers), managerName);

}  // namespace
}  // namespace pimloft
