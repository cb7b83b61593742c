// SPDX-License-Identifier: MIT
#include "quickvolume/quick_volume_module.h"

#include "app/process.h"
#include "platform/fake_desktop.h"
#include "quickvolume/audio_engine.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString enabledKey = QStringLiteral("pimloft.quickvolume.enabled");

class QuickVolumeModuleTest : public testing::Test {
protected:
    AudioEngine &engine() { return AudioEngine::shared(); }

    FakeDesktop desktop;
    SystemClock clock;
    Process process{desktop.platform(), clock, {}};
    std::unique_ptr<QuickVolumeModule> module = QuickVolumeModule::create();
};

TEST_F(QuickVolumeModuleTest, hasItsConstants) {
    EXPECT_EQ(module->id(), QStringLiteral("quickvolume"));
    EXPECT_EQ(module->name(), QStringLiteral("QuickVolume"));
    EXPECT_EQ(module->icon(), QStringLiteral("speaker.wave.3"));
    EXPECT_EQ(module->description(), QStringLiteral("Per-app volume mixer in your menu bar"));
    EXPECT_FALSE(module->requiresAccessibility());
}

TEST_F(QuickVolumeModuleTest, startsNothingByBeingMade) {
    EXPECT_FALSE(engine().isActive());
    EXPECT_EQ(desktop.audio.reads, 0);
}

TEST_F(QuickVolumeModuleTest, activatesAndDeactivatesTheEngine) {
    module->activate();
    EXPECT_TRUE(engine().isActive());
    module->deactivate();
    module->deactivate();
    EXPECT_FALSE(engine().isActive());
}

TEST_F(QuickVolumeModuleTest, isEnabledUntilTheUserSwitchesItOff) {
    EXPECT_TRUE(module->isEnabled());
    desktop.preferences.stored[enabledKey] = false;
    EXPECT_FALSE(QuickVolumeModule::create()->isEnabled());
}

TEST_F(QuickVolumeModuleTest, switchingItStoresTheWishAndStartsOrStops) {
    module->setEnabled(false);
    EXPECT_EQ(desktop.preferences.stored.value(enabledKey), QVariant(false));
    EXPECT_FALSE(engine().isActive());
    module->setEnabled(true);
    EXPECT_EQ(desktop.preferences.stored.value(enabledKey), QVariant(true));
    EXPECT_TRUE(engine().isActive());
}

TEST_F(QuickVolumeModuleTest, neverListsPimloftItself) {
    Application ourselves{.name = QStringLiteral("Pimloft"),
                          .bundleId = QStringLiteral("io.mpv"),
                          .processId = ProcessId(QCoreApplication::applicationPid())};
    desktop.workspace.running = {ourselves};
    module->activate();
    QCoreApplication::processEvents();
    EXPECT_TRUE(engine().audioApps().isEmpty());
}

TEST_F(QuickVolumeModuleTest, itsPageAndItsMixerShowTheSameMixer) {
    const auto page = module->settingsView();
    const auto mixer = module->panelView();
    ASSERT_TRUE(page && mixer);
    EXPECT_TRUE(page->source.path().endsWith(QStringLiteral("QuickVolumeSettings.qml")));
    EXPECT_TRUE(mixer->source.path().endsWith(QStringLiteral("VolumeMixerView.qml")));
    EXPECT_EQ(page->properties, mixer->properties);
    EXPECT_EQ(module->property("panelView").value<Page>().source, mixer->source) << "what the panel reads";
}

}  // namespace
}  // namespace pimloft
