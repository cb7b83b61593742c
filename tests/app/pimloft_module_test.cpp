// SPDX-License-Identifier: MIT
#include "app/pimloft_module.h"

#include "app/settings_manager.h"
#include "platform/fake_desktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// Writes its starts and stops into the desktop's log, between the other things that happen.
class TestModule final : public PimloftModule {
public:
    TestModule(FakeLog &log, SettingsManager &settings)
        : PimloftModule({.id = QStringLiteral("test"),
                         .name = QStringLiteral("Test"),
                         .icon = QStringLiteral("gear"),
                         .description = QStringLiteral("For tests"),
                         .requiresAccessibility = true},
                        settings),
          log_(log) {}

    void activate() override { log_.line(QStringLiteral("activate")); }
    void deactivate() override { log_.line(QStringLiteral("deactivate")); }
    std::optional<Page> settingsView() override { return std::nullopt; }

private:
    FakeLog &log_;
};

struct Module : testing::Test {
    FakeLog log;
    FakePreferences preferences{log};
    FakeLoginItem loginItem{log};
    SettingsManager settings{preferences, loginItem};
};

TEST_F(Module, showsItsConstants) {
    const TestModule module(log, settings);
    EXPECT_EQ(module.id(), QStringLiteral("test"));
    EXPECT_EQ(module.name(), QStringLiteral("Test"));
    EXPECT_EQ(module.icon(), QStringLiteral("gear"));
    EXPECT_EQ(module.description(), QStringLiteral("For tests"));
    EXPECT_TRUE(module.requiresAccessibility());
}

TEST_F(Module, isEnabledUnlessTheUserSwitchedItOff) {
    EXPECT_TRUE(TestModule(log, settings).isEnabled());
    preferences.stored[QStringLiteral("pimloft.test.enabled")] = false;
    EXPECT_FALSE(TestModule(log, settings).isEnabled());
}

TEST_F(Module, unfoldsNothingInTheTrayPanelUnlessItSaysSo) {
    EXPECT_FALSE(TestModule(log, settings).property("panelView").isValid());
}

TEST_F(Module, isNotStartedByBeingMade) {
    log.take();
    TestModule module(log, settings);
    EXPECT_EQ(log.take(), "");
}

TEST_F(Module, switchingStoresTheWishAndThenStopsOrStarts) {
    TestModule module(log, settings);
    QSignalSpy changed(&module, &PimloftModule::isEnabledChanged);
    log.take();
    module.setEnabled(false);
    EXPECT_EQ(log.take(), "set pimloft.test.enabled = false\ndeactivate\n");
    EXPECT_FALSE(module.isEnabled());
    module.setEnabled(true);
    EXPECT_EQ(log.take(), "set pimloft.test.enabled = true\nactivate\n");
    EXPECT_TRUE(module.isEnabled());
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(Module, settingWhatIsAlreadySetDoesNothing) {
    TestModule module(log, settings);
    QSignalSpy changed(&module, &PimloftModule::isEnabledChanged);
    log.take();
    module.setEnabled(true);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(Module, aModuleSwitchedOffStaysOffInTheNextRun) {
    TestModule(log, settings).setEnabled(false);
    EXPECT_FALSE(TestModule(log, settings).isEnabled());
}

}  // namespace
}  // namespace pimloft
