// SPDX-License-Identifier: MIT
#include "app/app_state.h"

#include "app/accessibility_manager.h"
#include "app/process.h"
#include "clipboard/clipboard_module.h"
#include "finderfix/finder_fix_module.h"
#include "keymapper/key_mapper_module.h"
#include "platform/fake_desktop.h"
#include "quickvolume/quick_volume_module.h"
#include "windowsnap/window_snap_module.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class AppStateTest : public testing::Test {
protected:
    AppStateTest() { desktop.displays.add(DisplayId{1}, {0, 0, 1920, 1080}); }

    AppState &state() { return AppState::shared(); }

    FakeDesktop desktop;
    SystemClock clock;
    QTemporaryDir folder;
    Process process{desktop.platform(), clock, Dirs{{}, folder.path(), {}, {}, {}, {}}};
};

TEST_F(AppStateTest, holdsTheModulesInTheirFixedOrder) {
    QStringList rows;
    for (const PimloftModule *module : state().allModules())
        rows << QStringList{module->id(), module->name(), module->icon(), module->description(),
                            module->requiresAccessibility() ? QStringLiteral("permission") : QString()}
                    .join(QStringLiteral(" | "));
    EXPECT_EQ(
        rows.join(QLatin1Char('\n')).toStdString(),
        "windowsnap | WindowSnap | rectangle.split.2x1 | "
        "Windows 11-style window snapping with visual layout picker | permission\n"
        "clipboardplus | ClipboardPlus | doc.on.clipboard | "
        "Clipboard history with Cmd+Shift+V popup | \n"
        "finderfix | FinderFix | folder.badge.gearshape | "
        "Cmd+X cut-paste for files, New File in Finder | permission\n"
        "keymapper | KeyMapper | keyboard | One-click Ctrl/Cmd swap, Windows key behavior | permission\n"
        "quickvolume | QuickVolume | speaker.wave.3 | Per-app volume mixer in your menu bar | ");
}

TEST_F(AppStateTest, makingItStartsNothing) {
    state();
    EXPECT_EQ(desktop.log(), "register 10 defaults\n");
}

TEST_F(AppStateTest, startsTheEnabledModules) {
    state().activateEnabledModules();
    EXPECT_TRUE(desktop.mouse.isWatched());
}

TEST_F(AppStateTest, leavesAModuleAloneThatWasSwitchedOffInAnEarlierRun) {
    desktop.preferences.stored[QStringLiteral("pimloft.windowsnap.enabled")] = false;
    state().activateEnabledModules();
    EXPECT_FALSE(state().windowSnap()->isEnabled());
    EXPECT_FALSE(desktop.mouse.isWatched());
}

TEST_F(AppStateTest, skipsModulesThatLackThePermissionButKeepsThemEnabled) {
    desktop.windows.trusted = false;
    state().activateEnabledModules();
    EXPECT_FALSE(desktop.mouse.isWatched());
    EXPECT_TRUE(state().windowSnap()->isEnabled());

    desktop.windows.trusted = true;
    AccessibilityManager::shared().refresh();
    state().activateEnabledModules();
    EXPECT_TRUE(desktop.mouse.isWatched());
}

TEST_F(AppStateTest, stopsEveryModuleAlsoTheDisabledOnes) {
    state().activateEnabledModules();
    state().windowSnap()->setEnabled(false);
    desktop.log();
    state().deactivateModules();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_FALSE(desktop.mouse.isWatched());
}

TEST_F(AppStateTest, tellsWhenTheKeyMapperChangesAndOnlyThen) {
    QSignalSpy changed(&state(), &AppState::changed);
    state().clipboardPlus()->setEnabled(false);
    state().quickVolume()->setEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.count(), 0);
    state().keyMapper()->setEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(state().menuBarIcon(), QStringLiteral("square.on.square"));
}

TEST_F(AppStateTest, showsInTheMenuBarWhetherKeysAreRemapped) {
    const QString plain = QStringLiteral("square.on.square");
    const QString remapping = QStringLiteral("square.on.square.badge.person.crop");
    desktop.preferences.stored[QStringLiteral("pimloft.keymapper.preset.Windows Mode")] = true;
    QStringList icons;
    QObject::connect(&state(), &AppState::changed, &state(), [&] { icons << state().menuBarIcon(); });
    EXPECT_EQ(state().menuBarIcon(), plain);
    state().activateEnabledModules();
    QCoreApplication::processEvents();
    EXPECT_EQ(icons, QStringList{remapping});
    for (int time = 0; time < 3; ++time)
        desktop.keyTap.press({Key::rightShift, KeyFlags::shift, KeyEventType::flagsChanged});
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(icons, (QStringList{remapping, plain}));
    EXPECT_TRUE(state().keyMapper()->isEnabled()) << "the panic gesture";
    state().keyMapper()->reloadMappings();
    state().keyMapper()->setEnabled(false);
    EXPECT_EQ(state().menuBarIcon(), plain);
}

}  // namespace
}  // namespace pimloft
