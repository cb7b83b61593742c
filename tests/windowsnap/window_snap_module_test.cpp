// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_module.h"

#include "app/accessibility_manager.h"
#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "support/animation_clock.h"
#include "windowsnap/window_position_memory.h"
#include "windowsnap/window_snap_engine.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString enabledKey = QStringLiteral("pimloft.windowsnap.enabled");

/// The module on the shared instances of a process of its own.
struct Module {
    explicit Module(bool trusted = true) {
        desktop.windows.trusted = trusted;
        desktop.displays.add(DisplayId(1), {0, 0, 1920, 1080});
        process.emplace(desktop.platform(), clock, Dirs{});
        module = WindowSnapModule::create();
        desktop.log();
    }
    WindowSnapEngine &engine() { return WindowSnapEngine::shared(); }

    FakeDesktop desktop;
    test::AnimationClock animations;
    SystemClock clock;
    std::optional<Process> process;
    std::unique_ptr<WindowSnapModule> module;
};

TEST(WindowSnapModule, hasItsConstants) {
    Module m;
    EXPECT_EQ(m.module->id(), QStringLiteral("windowsnap"));
    EXPECT_EQ(m.module->name(), QStringLiteral("WindowSnap"));
    EXPECT_EQ(m.module->icon(), QStringLiteral("rectangle.split.2x1"));
    EXPECT_EQ(m.module->description(),
              QStringLiteral("Windows 11-style window snapping with visual layout picker"));
    EXPECT_TRUE(m.module->requiresAccessibility());
}

TEST(WindowSnapModule, isEnabledUntilTheUserSwitchesItOff) {
    Module m;
    EXPECT_TRUE(m.module->isEnabled());
    m.desktop.preferences.stored[enabledKey] = false;
    EXPECT_FALSE(WindowSnapModule::create()->isEnabled());
}

TEST(WindowSnapModule, startsNothingByBeingMade) {
    Module m;
    EXPECT_FALSE(m.engine().isActive());
}

TEST(WindowSnapModule, activatesTheEngineOnce) {
    Module m;
    m.module->activate();
    EXPECT_TRUE(m.engine().isActive());
    EXPECT_TRUE(m.desktop.mouse.isWatched());
    EXPECT_EQ(m.engine().hotkeyIDs().size(), 10u);
    m.desktop.log();
    m.module->activate();
    EXPECT_EQ(m.desktop.log(), "");
}

TEST(WindowSnapModule, activatesNothingWithoutThePermission) {
    Module m(false);
    m.module->activate();
    EXPECT_FALSE(m.engine().isActive());
    EXPECT_EQ(m.desktop.log(), "");
}

TEST(WindowSnapModule, enablingItWithoutThePermissionStoresTheWishOnly) {
    Module m(false);
    m.module->setEnabled(false);
    m.module->setEnabled(true);
    EXPECT_EQ(m.desktop.preferences.stored.value(enabledKey), QVariant(true));
    EXPECT_TRUE(m.module->isEnabled());
    EXPECT_FALSE(m.engine().isActive());
}

TEST(WindowSnapModule, disablingItStoresTheWishAndStops) {
    Module m;
    m.module->activate();
    QSignalSpy changed(m.module.get(), &PimloftModule::isEnabledChanged);
    m.module->setEnabled(false);
    EXPECT_EQ(m.desktop.preferences.stored.value(enabledKey), QVariant(false));
    EXPECT_FALSE(m.engine().isActive());
    EXPECT_FALSE(m.desktop.mouse.isWatched());
    EXPECT_EQ(changed.count(), 1);
}

TEST(WindowSnapModule, disablingAndEnablingStartsAfreshWithNewIds) {
    Module m;
    m.module->activate();
    m.module->setEnabled(false);
    m.module->setEnabled(true);
    EXPECT_TRUE(m.desktop.mouse.isWatched());
    EXPECT_EQ(m.engine().hotkeyIDs().front(), 11u);
}

TEST(WindowSnapModule, deactivatingInMidDragTakesTheOverlayAway) {
    Module m;
    m.module->activate();
    m.desktop.windows.open(QStringLiteral("Editor"), ProcessId(7), {300, 200, 800, 600});
    m.desktop.mouse.down({500, 210});
    m.desktop.mouse.drag({0, 540});
    m.animations.pass(150);
    m.module->deactivate();
    m.animations.pass(100);
    EXPECT_TRUE(m.desktop.panels.existing().empty());
    EXPECT_FALSE(m.engine().isDragging());
}

TEST(WindowSnapModule, canBeDeactivatedWhenItIsNotActive) {
    Module m;
    m.module->deactivate();
    EXPECT_EQ(m.desktop.log(), "");
}

TEST(WindowSnapModule, namesItsPageAndWhatItShows) {
    Module m;
    const auto page = m.module->settingsView();
    ASSERT_TRUE(page);
    EXPECT_EQ(page->source, QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/WindowSnap/WindowSnapSettings.qml")));
    EXPECT_TRUE(
        qobject_cast<WindowSnapSettings *>(page->properties[QStringLiteral("settings")].value<QObject *>()));
}

TEST(WindowPositionMemory, holdsItsKey) {
    EXPECT_EQ(WindowPositionMemory(QStringLiteral("some.key")).storageKey, QStringLiteral("some.key"));
}

}  // namespace
}  // namespace pimloft
