// SPDX-License-Identifier: MIT
#include "audio_engine_session.h"

#include "quickvolume/known_audio_apps.h"

namespace pimloft {
namespace {

using test::application;
using test::AudioEngineTest;
using test::self;

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

TEST_F(AudioEngineTest, aDeviceWhoseNameOrIdentifierCannotBeHadIsLeftOut) {
    desktop.audio.at(speakers).nameKnown = false;
    desktop.audio.add({.name = QStringLiteral("Headset"), .uidKnown = false});
    start();
    EXPECT_EQ(outputs(), "Headphones");
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

TEST_F(AudioEngineTest, aDefaultDeviceWithoutAMuteLeavesTheMuteAsItWas) {
    desktop.audio.at(speakers).muted = true;
    start();
    desktop.audio.at(speakers).muted.reset();
    engine.refreshSystemVolume();
    engine.toggleSystemMute();
    settle();
    EXPECT_TRUE(engine.isSystemMuted());
    EXPECT_EQ(desktop.log(), "");
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

}  // namespace
}  // namespace pimloft
