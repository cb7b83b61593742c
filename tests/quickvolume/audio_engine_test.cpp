// SPDX-License-Identifier: MIT
#include "quickvolume/audio_engine.h"

#include "platform/fake_desktop.h"
#include "quickvolume/known_audio_apps.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <limits>

namespace pimloft {
namespace {

constexpr ProcessId self{4242};

Application application(int process, const char *bundleId, const char *name = "Player") {
    return {.name = QLatin1String(name),
            .bundleId = QString::fromLatin1(bundleId),
            .processId = ProcessId(process),
            .policy = ActivationPolicy::regular};
}

class AudioEngineTest : public testing::Test {
protected:
    void settle() { QCoreApplication::processEvents(); }
    void start() {
        engine.start();
        settle();
        desktop.log();
    }
    void run(const std::vector<Application> &applications) {
        desktop.workspace.running = applications;
        engine.refreshAudioApps();
        settle();
    }

    /// "Player 7 100%, Other 8 50% muted"
    std::string apps() const {
        QStringList list;
        for (const AudioApp &app : engine.audioApps())
            list << QStringLiteral("%1 %2 %3%%4")
                        .arg(app.name)
                        .arg(app.id)
                        .arg(int(app.volume * 100))
                        .arg(app.isMuted ? QStringLiteral(" muted") : QString());
        return list.join(QStringLiteral(", ")).toStdString();
    }
    /// "Speakers*, Headphones"
    std::string outputs() const {
        QStringList list;
        for (const AudioOutputDevice &device : engine.outputDevices())
            list << device.name + (device.isDefault ? QStringLiteral("*") : QString());
        return list.join(QStringLiteral(", ")).toStdString();
    }
    AudioApp app(int index = 0) const { return engine.audioApps().at(index); }

    FakeDesktop desktop;
    const AudioDeviceId speakers = desktop.audio.add({.name = QStringLiteral("Speakers")});
    const AudioDeviceId headphones =
        desktop.audio.add({.name = QStringLiteral("Headphones"), .volume = 0.25F});
    AudioEngine engine{desktop.audio, desktop.workspace, desktop.scripting, self};
};

TEST_F(AudioEngineTest, knowsSeventeenApplications) {
    EXPECT_EQ(knownAudioApps.size(), 17u);
    EXPECT_STREQ(knownAudioApps.front(), "com.spotify.client");
    EXPECT_STREQ(knownAudioApps.back(), "io.mpv");
}

TEST_F(AudioEngineTest, readsNothingBeforeItIsStarted) {
    EXPECT_EQ(desktop.audio.reads, 0);
    EXPECT_FALSE(engine.isActive());
    EXPECT_FALSE(engine.pollTimer());
}

TEST_F(AudioEngineTest, startingReadsEverythingAndListens) {
    desktop.workspace.running = {application(7, "com.spotify.client", "Spotify")};
    engine.start();
    settle();
    EXPECT_FLOAT_EQ(engine.systemVolume(), 0.5F);
    EXPECT_EQ(outputs(), "Speakers*, Headphones");
    EXPECT_EQ(apps(), "Spotify 7 100%");
    EXPECT_EQ(desktop.log(), "listen to the volume of Speakers\n");
    EXPECT_TRUE(engine.isActive());
}

TEST_F(AudioEngineTest, startingTwiceDoesNothingTheSecondTime) {
    start();
    const int reads = desktop.audio.reads;
    engine.start();
    settle();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(desktop.audio.reads, reads);
}

TEST_F(AudioEngineTest, whatIsPublishedChangesAfterTheCall) {
    engine.start();
    EXPECT_EQ(outputs(), "");
    EXPECT_EQ(engine.systemVolume(), 0);
    settle();
    engine.setSystemVolume(0.75F);
    EXPECT_EQ(engine.systemVolume(), 0.5F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.75F);
}

TEST_F(AudioEngineTest, looksForApplicationsEveryTwoSecondsWithoutTouchingTheSoundSystem) {
    start();
    ASSERT_TRUE(engine.pollTimer());
    EXPECT_EQ(engine.pollTimer()->interval(), 2000);
    EXPECT_TRUE(engine.pollTimer()->isActive());
    EXPECT_FALSE(engine.pollTimer()->isSingleShot());
    const int reads = desktop.audio.reads;
    run({application(7, "io.mpv")});
    EXPECT_EQ(apps(), "Player 7 100%");
    EXPECT_EQ(desktop.audio.reads, reads);
}

TEST_F(AudioEngineTest, stoppingEmptiesTheApplicationsAtOnceAndKeepsTheRest) {
    start();
    run({application(7, "io.mpv")});
    engine.stop();
    EXPECT_EQ(apps(), "");
    EXPECT_EQ(outputs(), "Speakers*, Headphones");
    EXPECT_EQ(engine.systemVolume(), 0.5F);
    EXPECT_FALSE(engine.pollTimer());
    EXPECT_EQ(desktop.log(), "stop listening to the volume of Speakers\n");
}

TEST_F(AudioEngineTest, aListThatWasReadBeforeTheStopDoesNotComeAfterIt) {
    desktop.workspace.running = {application(7, "io.mpv")};
    engine.start();
    engine.stop();
    settle();
    EXPECT_EQ(apps(), "");
}

TEST_F(AudioEngineTest, stoppingWithoutHavingStartedDoesNothing) {
    engine.stop();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(AudioEngineTest, aDeviceWithoutOutputIsNoOutputDevice) {
    desktop.audio.add({.name = QStringLiteral("Microphone"), .output = false});
    start();
    EXPECT_EQ(outputs(), "Speakers*, Headphones");
    EXPECT_EQ(engine.outputDevices().front().uid, QStringLiteral("uid of Speakers"));
    EXPECT_EQ(engine.outputDevices().front().id, std::uint32_t(speakers));
}

TEST_F(AudioEngineTest, withoutADefaultDeviceNoneIsMarked) {
    desktop.audio.chosen.reset();
    start();
    EXPECT_EQ(outputs(), "Speakers, Headphones");
    EXPECT_EQ(engine.volumeListenerBlock(), std::nullopt);
}

TEST_F(AudioEngineTest, withoutADefaultDeviceNothingIsSet) {
    start();
    desktop.audio.chosen.reset();
    engine.setSystemVolume(0.1F);
    engine.toggleSystemMute();
    engine.refreshSystemVolume();
    settle();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(engine.systemVolume(), 0.5F);
    EXPECT_FALSE(engine.isSystemMuted());
}

TEST_F(AudioEngineTest, aDefaultDeviceWithoutVolumeLeavesTheVolumeAsItWas) {
    start();
    desktop.audio.at(speakers).volume.reset();
    desktop.audio.at(speakers).muted = true;
    engine.refreshSystemVolume();
    engine.setSystemVolume(0.9F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.5F);
    EXPECT_TRUE(engine.isSystemMuted()) << "it still has a mute";
}

TEST_F(AudioEngineTest, startingWithADeviceWithoutVolumeListensToNothing) {
    desktop.audio.at(speakers).volume.reset();
    engine.start();
    settle();
    EXPECT_EQ(desktop.log(), "");
    engine.stop();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(AudioEngineTest, aRefusedChangeIsNotPublished) {
    start();
    desktop.audio.at(speakers).refuses = true;
    engine.setSystemVolume(0.9F);
    engine.toggleSystemMute();
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.5F);
    EXPECT_FALSE(engine.isSystemMuted());
}

TEST_F(AudioEngineTest, theSystemVolumeIsHandedOnAsItIs) {
    start();
    engine.setSystemVolume(1.5F);
    settle();
    EXPECT_EQ(desktop.log(), "set the volume of Speakers to 1.5\n");
    EXPECT_EQ(engine.systemVolume(), 1.5F);
}

TEST_F(AudioEngineTest, mutesAndUnmutesTheDefaultDevice) {
    start();
    engine.toggleSystemMute();
    settle();
    EXPECT_TRUE(engine.isSystemMuted());
    engine.toggleSystemMute();
    settle();
    EXPECT_FALSE(engine.isSystemMuted());
    EXPECT_EQ(desktop.log(), "mute Speakers\nunmute Speakers\n");
}

TEST_F(AudioEngineTest, followsTheVolumeWhenAnotherProgramTurnsIt) {
    start();
    desktop.audio.turn(speakers, 0.3F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.3F);
}

TEST_F(AudioEngineTest, readsMuteAlongWithTheVolumeOnly) {
    start();
    desktop.audio.at(speakers).muted = true;
    settle();
    EXPECT_FALSE(engine.isSystemMuted());
    desktop.audio.turn(speakers, 0.3F);
    settle();
    EXPECT_TRUE(engine.isSystemMuted());
}

TEST_F(AudioEngineTest, goesOnListeningToTheDeviceThatWasTheDefaultAtTheStart) {
    start();
    desktop.audio.chosen = headphones;
    desktop.audio.turn(headphones, 0.9F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.5F) << "the new default is not listened to";
    desktop.audio.turn(speakers, 0.1F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.9F) << "the old one leads to a look at the new one";
}

TEST_F(AudioEngineTest, anExplicitRefreshShowsTheNewDefaultsVolume) {
    start();
    desktop.audio.chosen = headphones;
    engine.refreshSystemVolume();
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.25F);
}

TEST_F(AudioEngineTest, asksTheDefaultOfThatMomentToRemoveTheListener) {
    start();
    desktop.audio.chosen = headphones;
    engine.stop();
    EXPECT_EQ(desktop.log(), "stop listening to the volume of Headphones, in vain\n");
    EXPECT_EQ(engine.volumeListenerBlock(), std::nullopt);
    desktop.audio.turn(speakers, 0.1F);  // does no harm
    settle();
}

TEST_F(AudioEngineTest, aListenerThatIsLeftBehindOutlivesTheEngineWithoutHarm) {
    {
        AudioEngine other(desktop.audio, desktop.workspace, desktop.scripting, self);
        other.start();
        desktop.audio.chosen = headphones;
    }
    desktop.audio.turn(speakers, 0.1F);
    settle();
}

TEST_F(AudioEngineTest, choosingADeviceMakesItTheDefaultAndShowsItsVolume) {
    start();
    engine.setDefaultOutputDevice(headphones);
    settle();
    EXPECT_EQ(desktop.log(), "make Headphones the default output\n");
    EXPECT_EQ(outputs(), "Speakers, Headphones*");
    EXPECT_EQ(engine.systemVolume(), 0.25F);
}

TEST_F(AudioEngineTest, choosingADeviceThatIsGoneChangesNothing) {
    start();
    desktop.audio.at(headphones).plugged = false;
    engine.setDefaultOutputDevice(headphones);
    settle();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(outputs(), "Speakers*, Headphones");
}

TEST_F(AudioEngineTest, readsAndListensAgainWhenTheSoundSystemIsBack) {
    start();
    desktop.audio.at(headphones).plugged = false;
    desktop.audio.at(speakers).volume = 0.8F;
    desktop.audio.restart();
    settle();
    EXPECT_EQ(desktop.log(), "listen to the volume of Speakers\n");
    EXPECT_EQ(outputs(), "Speakers*");
    EXPECT_EQ(engine.systemVolume(), 0.8F);
    desktop.audio.turn(speakers, 0.2F);
    settle();
    EXPECT_EQ(engine.systemVolume(), 0.2F);
}

TEST_F(AudioEngineTest, staysStoppedWhenTheSoundSystemIsBack) {
    start();
    engine.stop();
    desktop.log();
    const int reads = desktop.audio.reads;
    desktop.audio.restart();
    settle();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(desktop.audio.reads, reads);
}

TEST_F(AudioEngineTest, listsKnownApplicationsInTheDesktopsOrder) {
    start();
    run({application(9, "org.mozilla.firefox", "Firefox"), application(3, "com.spotify.client", "Spotify"),
         application(5, "org.gnome.Maps", "Maps")});
    EXPECT_EQ(apps(), "Firefox 9 100%, Spotify 3 100%");
}

TEST_F(AudioEngineTest, skipsWhatIsNoApplicationToList) {
    start();
    Application prohibited = application(5, "io.mpv", "Hidden");
    prohibited.policy = ActivationPolicy::prohibited;
    Application accessory = application(6, "io.mpv", "Tray");
    accessory.policy = ActivationPolicy::accessory;
    Application nameless = application(7, "io.mpv", "");
    Application unknown = application(8, "io.mpv", "Unknown");
    unknown.bundleId.reset();
    Application ourselves = application(int(self), "io.mpv", "Pimloft");
    run({prohibited, accessory, nameless, unknown, ourselves});
    EXPECT_EQ(apps(), "Tray 6 100%");
}

TEST_F(AudioEngineTest, comparesIdentifiersToTheLetter) {
    start();
    run({application(5, "IO.mpv"), application(6, "io.mpv.other")});
    EXPECT_EQ(apps(), "");
}

TEST_F(AudioEngineTest, anEntryIsNeverActive) {
    start();
    run({application(5, "io.mpv")});
    EXPECT_FALSE(app().isActive);
}

TEST_F(AudioEngineTest, anEntryHasItsIcon) {
    QPixmap pixmap(8, 8);
    desktop.workspace.icons[5] = QIcon(pixmap);
    start();
    run({application(5, "io.mpv"), application(6, "com.spotify.client")});
    EXPECT_TRUE(app(0).hasIcon());
    EXPECT_FALSE(app(1).hasIcon());
}

TEST_F(AudioEngineTest, keepsVolumeAndMuteOfWhatGoesOnRunning) {
    start();
    run({application(5, "io.mpv")});
    engine.setVolume(app(), 0.4F);
    engine.toggleMute(app());
    run({application(4, "com.spotify.client", "Spotify"), application(5, "io.mpv")});
    EXPECT_EQ(apps(), "Spotify 4 100%, Player 5 40% muted");
}

TEST_F(AudioEngineTest, aVolumeThatIsSetWhileTheListIsReadIsNotLost) {
    start();
    run({application(5, "io.mpv")});
    engine.refreshAudioApps();
    engine.setVolume(app(), 0.4F);
    engine.refreshAudioApps();
    settle();
    EXPECT_EQ(apps(), "Player 5 40%");
}

TEST_F(AudioEngineTest, anApplicationThatQuitsDisappears) {
    start();
    run({application(5, "io.mpv")});
    run({});
    EXPECT_EQ(apps(), "");
}

TEST_F(AudioEngineTest, aRelaunchedApplicationStartsAtFullVolumeAndNotMuted) {
    start();
    run({application(5, "com.spotify.client")});
    engine.setVolume(app(), 0.2F);
    engine.toggleMute(app());
    run({application(6, "com.spotify.client")});
    EXPECT_EQ(apps(), "Player 6 100%");
}

TEST_F(AudioEngineTest, tellsOfApplicationsOnlyWhenSomethingChanged) {
    start();
    run({application(5, "io.mpv")});
    QSignalSpy changed(&engine, &AudioEngine::audioAppsChanged);
    run({application(5, "io.mpv")});
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(AudioEngineTest, mutingAnApplicationChangesItsFlagAndNothingElse) {
    start();
    run({application(5, "org.mozilla.firefox", "Firefox")});
    engine.toggleMute(app());
    settle();
    EXPECT_EQ(apps(), "Firefox 5 100% muted");
    EXPECT_EQ(desktop.log(), "");
    engine.toggleMute(app());
    settle();
    EXPECT_EQ(apps(), "Firefox 5 100%");
}

TEST_F(AudioEngineTest, mutingAnApplicationThatIsGoneDoesNothing) {
    start();
    run({application(5, "io.mpv")});
    const AudioApp gone = app();
    run({});
    engine.toggleMute(gone);
    settle();
    EXPECT_EQ(apps(), "");
}

TEST_F(AudioEngineTest, theVolumeOfAnApplicationThatTakesNoScriptIsOnlyStored) {
    start();
    run({application(5, "io.mpv")});
    engine.setVolume(app(), 0.4F);
    settle();
    EXPECT_EQ(apps(), "Player 5 40%");
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(AudioEngineTest, aPlayerIsToldEvenWhenItIsNoLongerListed) {
    start();
    run({application(5, "com.apple.Music", "Music")});
    const AudioApp gone = app();
    run({});
    engine.setVolume(gone, 0.5F);
    settle();
    EXPECT_EQ(desktop.log(), "run: tell application \"Music\" to set sound volume to 50\n");
    EXPECT_EQ(apps(), "");
}

TEST_F(AudioEngineTest, anApplicationWithoutIdentifierIsToldNothing) {
    start();
    engine.setVolume(AudioApp{}, 0.5F);
    settle();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(AudioEngineTest, errorsOfScriptsAreIgnored) {
    desktop.scripting.results[QStringLiteral("tell application \"Spotify\" to set sound volume to 50")]
        .error = QStringLiteral("It is not running.");
    start();
    run({application(5, "com.spotify.client", "Spotify")});
    engine.setVolume(app(), 0.5F);
    settle();
    EXPECT_EQ(apps(), "Spotify 5 50%");
}

struct Sent {
    float volume;
    int percent;
};

class SentVolume : public AudioEngineTest, public testing::WithParamInterface<Sent> {};

TEST_P(SentVolume, isTheWholePercentCutOff) {
    start();
    run({application(5, "com.spotify.client", "Spotify")});
    engine.setVolume(app(), GetParam().volume);
    settle();
    EXPECT_EQ(desktop.log(), "run: tell application \"Spotify\" to set sound volume to " +
                                 std::to_string(GetParam().percent) + "\n");
}

INSTANTIATE_TEST_SUITE_P(AudioEngine, SentVolume,
                         testing::Values(Sent{0.999F, 99}, Sent{1.0F, 100}, Sent{0.0F, 0}, Sent{0.505F, 50},
                                         Sent{0.29F, 29}, Sent{0.009F, 0}, Sent{-0.5F, -50}, Sent{-0.009F, 0},
                                         Sent{1.7F, 170}));

TEST_F(AudioEngineTest, aVolumeThatIsNoNumberIsNotSent) {
    start();
    run({application(5, "com.spotify.client", "Spotify")});
    engine.setVolume(app(), std::numeric_limits<float>::quiet_NaN());
    settle();
    EXPECT_EQ(desktop.log(), "");
}

}  // namespace
}  // namespace pimloft
