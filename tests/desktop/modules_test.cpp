// SPDX-License-Identifier: MIT
// Every feature switched off and on in the panel, and what becomes of its engine.
#include "desktop/support/desktop_test.h"
#include "desktop/support/first_run.h"

#include <QDir>
#include <QFile>

#include <csignal>

namespace pimloft::test {
namespace {

constexpr std::uint16_t superShift = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;

/// The rows of the panel from its top.
enum Row { windowSnap, clipboardPlus, finderFix, keyMapper, quickVolume };
const QStringList ids = {QStringLiteral("windowsnap"), QStringLiteral("clipboardplus"),
                         QStringLiteral("finderfix"), QStringLiteral("keymapper"),
                         QStringLiteral("quickvolume")};

class Modules : public DesktopTest {
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

    bool snaps() { return desktop().isKeyTaken(KEY_6, controlSuper); }
    bool records() { return desktop().isKeyTaken(KEY_V, superShift); }
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
    void expectEngines(bool on) {
        EXPECT_TRUE(waitUntil([&] { return snaps() == on; })) << "window snapping is not " << on;
        EXPECT_TRUE(waitUntil([&] { return records() == on; })) << "the clipboard history is not " << on;
        EXPECT_TRUE(waitUntil([&] { return remaps() == on; })) << "key remapping is not " << on;
    }
    /// Shortcuts stay the program's until it ends, so what counts is that they do nothing.
    void expectThatNothingHappens() {
        EXPECT_TRUE(waitUntil([&] { return !remaps(); })) << "keys are still remapped";
        const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Left alone"));
        const QRect frame = desktop().visibleFrame(window);
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

}  // namespace
}  // namespace pimloft::test
