// SPDX-License-Identifier: MIT
#include "quickvolume/volume_mixer.h"

#include "platform/fake_desktop.h"
#include "quickvolume/audio_engine.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class VolumeMixerTest : public testing::Test {
protected:
    void settle() { QCoreApplication::processEvents(); }
    void run(int process, const char *bundleId) {
        desktop.workspace.running.push_back({.name = QStringLiteral("Player"),
                                             .bundleId = QString::fromLatin1(bundleId),
                                             .processId = ProcessId(process)});
    }
    AudioOutputDevice device(int row) {
        auto *model = mixer.outputDevices();
        return model->data(model->index(row), Qt::UserRole).value<AudioOutputDevice>();
    }
    AudioApp app(int row) {
        auto *model = mixer.audioApps();
        return model->data(model->index(row), Qt::UserRole).value<AudioApp>();
    }

    FakeDesktop desktop;
    const AudioDeviceId speakers = desktop.audio.add({.name = QStringLiteral("Speakers")});
    const AudioDeviceId headphones = desktop.audio.add({.name = QStringLiteral("Headphones")});
    AudioEngine engine{desktop.audio, desktop.workspace, desktop.scripting, ProcessId(1)};
    VolumeMixer mixer{engine};
};

TEST_F(VolumeMixerTest, showsWhatTheEngineHas) {
    run(7, "io.mpv");
    engine.start();
    settle();
    EXPECT_EQ(mixer.outputDevices()->count(), 2);
    EXPECT_TRUE(device(0).isDefault);
    EXPECT_EQ(app(0).id, 7);
    EXPECT_EQ(mixer.systemVolume(), 0.5F);
}

TEST_F(VolumeMixerTest, refreshingFindsWhatNobodyTellsOf) {
    engine.start();
    settle();
    desktop.audio.chosen = headphones;
    desktop.audio.at(headphones).muted = true;
    desktop.audio.at(headphones).volume = 0.1F;
    run(7, "io.mpv");
    mixer.refresh();
    settle();
    EXPECT_TRUE(device(1).isDefault);
    EXPECT_TRUE(mixer.isSystemMuted());
    EXPECT_EQ(mixer.systemVolume(), 0.1F);
    EXPECT_EQ(mixer.audioApps()->count(), 1);
}

TEST_F(VolumeMixerTest, refreshingAStoppedEngineListsNoApplications) {
    run(7, "io.mpv");
    mixer.refresh();
    settle();
    EXPECT_EQ(mixer.audioApps()->count(), 0);
    EXPECT_EQ(mixer.outputDevices()->count(), 2);
}

TEST_F(VolumeMixerTest, choosingADeviceChangesTwoRowsAndReplacesNone) {
    engine.start();
    settle();
    QSignalSpy removed(mixer.outputDevices(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(mixer.outputDevices(), &QAbstractItemModel::dataChanged);
    mixer.setDefaultOutputDevice(std::uint32_t(headphones));
    settle();
    EXPECT_EQ(removed.count(), 0);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(VolumeMixerTest, handsTheUsersChangesToTheEngine) {
    run(7, "com.spotify.client");
    engine.start();
    settle();
    desktop.log();
    mixer.setSystemVolume(0.3F);
    mixer.toggleSystemMute();
    mixer.setVolume(app(0), 0.6F);
    mixer.toggleMute(app(0));
    settle();
    EXPECT_EQ(desktop.log(), "set the volume of Speakers to 0.3\n"
                             "mute Speakers\n"
                             "run: tell application \"Spotify\" to set sound volume to 60\n");
    EXPECT_EQ(app(0).volume, 0.6F);
    EXPECT_TRUE(app(0).isMuted);
}

}  // namespace
}  // namespace pimloft
