// SPDX-License-Identifier: MIT
// Every feature switched off and on in the panel, and what becomes of its engine.
#include "desktop/support/clipboard_desk.h"
#include "desktop/support/first_run.h"
#include "desktop/support/screen_reader.h"
#include "support/sound_server.h"

#include <QDir>
#include <QFile>

#include <csignal>

namespace pimloft::test {
namespace {

/// The rows of the panel from its top.
enum Row { windowSnap, clipboardPlus, finderFix, keyMapper, quickVolume };
const QStringList ids = {QStringLiteral("windowsnap"), QStringLiteral("clipboardplus"),
                         QStringLiteral("finderfix"), QStringLiteral("keymapper"),
                         QStringLiteral("quickvolume")};

class Modules : public ClipboardDesk {
protected:
    void SetUp() override {
        openDesktop(QStringLiteral("openbox"));
        // Keys are remapped only while there is something to remap.
        skipFirstRun(session(), {{QStringLiteral("pimloft.keymapper.preset.Home/End Fix"), true}});
    }

    /// Opens the panel and flips a switch in it by the keyboard.
    void flip(Row row) {
        ASSERT_EQ(launch(session(), {}).exitCode, 0);
        ASSERT_TRUE(waitUntil([this] { return panelFrame().has_value(); }));
        letPimloftCatchUp();
        // The first stop is the button in the header.
        for (int stop = 0; stop <= row + 1; ++stop)
            hands().tap(KEY_TAB);
        const bool before = isOn(row);
        hands().tap(KEY_SPACE);
        EXPECT_TRUE(waitUntil([&] { return isOn(row) != before; })) << "it is not stored";
        hands().tap(KEY_ESC);
        ASSERT_TRUE(waitUntil([this] { return !panelFrame(); }));
    }
    bool isOn(Row row) {
        return storedPreferences(session())
            .value(QStringLiteral("pimloft.%1.enabled").arg(ids.at(row)))
            .toBool(true);
    }

    /// The keyboard is never remapped without its guard.
    bool remaps() {
        for (const QString &id : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            QFile status(QStringLiteral("/proc/%1/status").arg(id));
            if (!status.open(QIODevice::ReadOnly))
                continue;
            const QByteArray text = status.readAll();
            if (text.contains("pimloft-keygua") &&
                text.contains("\nPPid:\t" + QByteArray::number(pimloft().pid()) + '\n'))
                return true;
        }
        return false;
    }
    bool cuts() { return desktop().isKeyTaken(KEY_X, XCB_MOD_MASK_4); }
    void expectEngines(bool on) {
        EXPECT_TRUE(waitUntil([&] { return snaps() == on; })) << "window snapping is not " << on;
        EXPECT_TRUE(waitUntil([&] { return records() == on; })) << "the clipboard history is not " << on;
        EXPECT_TRUE(waitUntil([&] { return cuts() == on; })) << "cutting files is not " << on;
        EXPECT_TRUE(waitUntil([&] { return remaps() == on; })) << "key remapping is not " << on;
    }
    void restart() {
        pimloft().signal(SIGTERM);
        EXPECT_EQ(pimloft().waitForEnd(), 0);
        startPimloft();
    }
    /// Shortcuts stay the program's until it ends, so what counts is that they do nothing.
    void expectThatNothingHappens() {
        EXPECT_TRUE(waitUntil([&] { return !remaps(); })) << "keys are still remapped";
        const QRect frame(300, 250, 640, 400);
        const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Left alone"), frame);
        expectFrame(window, frame);
        press(KEY_LEFT);
        hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
        letPimloftCatchUp();
        EXPECT_EQ(desktop().visibleFrame(window), frame) << "windows are still placed";
        EXPECT_FALSE(panelFrame()) << "the clipboard history still opens";
    }
};

TEST_F(Modules, areSwitchedOffAndOnInThePanelAndStaySoInTheNextRun) {
    startPimloft();
    expectEngines(true);
    for (const Row row : {windowSnap, clipboardPlus, finderFix, keyMapper, quickVolume})
        flip(row);
    expectThatNothingHappens();

    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    startPimloftWithoutShortcuts();
    letPimloftCatchUp();
    expectEngines(false);

    for (const Row row : {windowSnap, clipboardPlus, finderFix, keyMapper, quickVolume})
        flip(row);
    expectEngines(true);
}

/// What the file manager in front has selected is cut, or not.
class FileTools : public Modules {
protected:
    QByteArray clipboard() {
        return session()
            .run(QStringLiteral("sh"),
                 {QStringLiteral("-c"), QStringLiteral("xclip -o -selection clipboard 2>/dev/null")})
            .toUtf8();
    }
    void pressCut() {
        hands().chord({KEY_LEFTCTRL, KEY_A});
        hands().chord({KEY_LEFTMETA, KEY_X});
    }
    /// Again while the window does not show its files yet.
    void expectThatItIsCut() {
        EXPECT_TRUE(waitUntil(
            [this] {
                pressCut();
                return waitUntil([this] { return clipboard().contains("letter.txt"); }, 1500);
            },
            20000))
            << "nothing is cut";
    }
    void expectThatNothingIsCut() {
        copyText("something else");
        pressCut();
        letPimloftCatchUp();
        EXPECT_EQ(clipboard().toStdString(), "something else");
    }
};

TEST_F(FileTools, cutOnlyWhileTheyAreSwitchedOn) {
    startPimloft();
    EXPECT_TRUE(waitUntil([this] { return cuts() && records(); }));
    makeFile(QStringLiteral("papers/letter.txt"));
    const xcb_window_t papers = openFileManager(session().home() + QStringLiteral("/papers"));
    const auto comeToThePapers = [&] {
        desktop().activate(papers);
        EXPECT_TRUE(waitUntil([&] { return desktop().activeWindow() == papers; }));
    };
    comeToThePapers();
    expectThatItIsCut();

    flip(finderFix);
    comeToThePapers();
    expectThatNothingIsCut();
    flip(finderFix);
    comeToThePapers();
    expectThatItIsCut();

    flip(finderFix);
    restart();
    EXPECT_TRUE(waitUntil([this] { return records(); }));
    letPimloftCatchUp();
    EXPECT_FALSE(cuts()) << "what was switched off starts";
    flip(finderFix);
    EXPECT_TRUE(waitUntil([this] { return cuts(); }));
    comeToThePapers();
    expectThatItIsCut();
}

/// The volume that the settings show, which is what the engine knows.
class VolumeEngine : public Modules {
protected:
    void SetUp() override {
        sound.start();
        sound.addSink(QStringLiteral("speakers"), QStringLiteral("Speakers"));
        Modules::SetUp();
        reader = std::make_unique<ScreenReader>(session());
        reader->start();
    }
    void TearDown() override {
        Modules::TearDown();
        reader.reset();
    }
    void setVolume(const char *volume) {
        sound.pactl({QStringLiteral("set-sink-volume"), QStringLiteral("speakers"), QLatin1String(volume)});
    }
    void openPage() {
        launch(session(), {QStringLiteral("--settings")});
        const auto tab = [this]() -> std::optional<Spoken> {
            for (const Spoken &each : heard())
                if (each.name == QLatin1String("QuickVolume") && each.role == QLatin1String("page tab"))
                    return each;
            return std::nullopt;
        };
        ASSERT_TRUE(waitUntil([&] { return tab().has_value(); }));
        reader->press(*tab());
        ASSERT_TRUE(waitUntil([this] { return shown() != "nothing"; }));
    }
    std::vector<Spoken> heard() {
        return reader->window(QStringLiteral("pimloft"), QStringLiteral("Pimloft Settings"));
    }
    std::string shown() {
        for (const Spoken &each : heard())
            if (each.name.startsWith(QLatin1String("System Volume: ")))
                return each.name.section(QLatin1Char(' '), -1).toStdString();
        return "nothing";
    }
    void expectShown(const std::string &volume) {
        EXPECT_TRUE(waitUntil([&] { return shown() == volume; })) << shown() << " and not " << volume;
    }

    SoundServer sound{SoundServer::Kind::pulseAudio};
    std::unique_ptr<ScreenReader> reader;
};

TEST_F(VolumeEngine, followsTheSoundServerOnlyWhileItsModuleIsOn) {
    startPimloft();
    openPage();
    setVolume("60%");
    expectShown("60%");

    flip(quickVolume);
    setVolume("30%");
    letPimloftCatchUp();
    EXPECT_EQ(shown(), "60%") << "it still follows";
    flip(quickVolume);
    expectShown("30%");
    setVolume("40%");
    expectShown("40%");

    flip(quickVolume);
    restart();
    openPage();
    setVolume("50%");
    letPimloftCatchUp();
    EXPECT_NE(shown(), "50%") << "what was switched off starts";
    flip(quickVolume);
    expectShown("50%");
}

}  // namespace
}  // namespace pimloft::test
