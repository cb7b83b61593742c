// SPDX-License-Identifier: MIT
#include "platform/audio/mac_audio.h"

#include "fake_audio.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

using mac::soundSystem;
using testing::ElementsAre;

constexpr AudioDeviceId speakers{41};
constexpr AudioDeviceId microphone{42};
constexpr AudioDeviceId gone{99};

class MacAudioTest : public MacTest {
protected:
    MacAudioTest() {
        soundSystem().devices = {{41, "Speakers", "speakers-uid"},
                                 {.id = 42,
                                  .name = "Microphone",
                                  .uid = "microphone-uid",
                                  .hasOutput = false,
                                  .volume = std::nullopt,
                                  .muted = std::nullopt}};
        soundSystem().output = 41;
        audio_.emplace();
    }

    std::optional<MacAudio> audio_;
};

TEST_F(MacAudioTest, listensForARestartOfTheSoundSystem) {
    EXPECT_EQ(log(), "listen to 1 srst glob 0\n");
    audio_.reset();
    EXPECT_EQ(log(), "stop listening to 1 srst glob 0\n");
}

TEST_F(MacAudioTest, readsTheDefaultOutput) {
    log();
    EXPECT_EQ(audio_->defaultOutputDevice(), speakers);
    EXPECT_EQ(log(), "read 1 dOut glob 0\n");
}

TEST_F(MacAudioTest, hasNoDefaultOutputWhereTheSystemKnowsNone) {
    soundSystem().output = 0;
    EXPECT_EQ(audio_->defaultOutputDevice(), std::nullopt);
}

TEST_F(MacAudioTest, listsTheDevicesInTheSystemsOrder) {
    log();
    EXPECT_THAT(audio_->devices(), ElementsAre(speakers, microphone));
    EXPECT_EQ(log(), "size of 1 dev# glob 0\nread 1 dev# glob 0\n");
}

TEST_F(MacAudioTest, listsNoDeviceTwiceThatGoesMeanwhile) {
    soundSystem().vanishes = 42;
    EXPECT_THAT(audio_->devices(), ElementsAre(speakers));
}

TEST_F(MacAudioTest, listsNothingWithoutDevices) {
    soundSystem().devices.clear();
    EXPECT_TRUE(audio_->devices().empty());
}

TEST_F(MacAudioTest, tellsOutputsByTheSizeOfTheirStreams) {
    log();
    EXPECT_TRUE(audio_->hasOutput(speakers));
    EXPECT_FALSE(audio_->hasOutput(microphone));
    EXPECT_FALSE(audio_->hasOutput(gone));
    EXPECT_EQ(log(), "size of 41 stm# outp 0\nsize of 42 stm# outp 0\nsize of 99 stm# outp 0\n");
}

TEST_F(MacAudioTest, readsTheNamesAndReleasesThem) {
    log();
    EXPECT_EQ(audio_->name(speakers), QStringLiteral("Speakers"));
    EXPECT_EQ(audio_->uid(speakers), QStringLiteral("speakers-uid"));
    EXPECT_EQ(log(), "read 41 lnam glob 0\nread 41 uid  glob 0\n");
    EXPECT_EQ(mac::liveObjects(), 0);
    EXPECT_EQ(audio_->name(gone), std::nullopt);
}

TEST_F(MacAudioTest, readsVolumeAndMute) {
    soundSystem().device(41).muted = 1;
    log();
    EXPECT_EQ(audio_->volume(speakers), 0.5F);
    EXPECT_EQ(audio_->isMuted(speakers), true);
    EXPECT_EQ(log(), "read 41 vmvc outp 0\nread 41 mute outp 0\n");
}

TEST_F(MacAudioTest, readsNothingOfADeviceWithoutVolumeAndMute) {
    EXPECT_EQ(audio_->volume(microphone), std::nullopt);
    EXPECT_EQ(audio_->isMuted(microphone), std::nullopt);
}

TEST_F(MacAudioTest, writesFourBytesEach) {
    log();
    EXPECT_TRUE(audio_->setVolume(speakers, 0.25F));
    EXPECT_TRUE(audio_->setMuted(speakers, true));
    EXPECT_TRUE(audio_->setMuted(speakers, false));
    EXPECT_TRUE(audio_->setDefaultOutputDevice(microphone));
    EXPECT_EQ(log(), "write 41 vmvc outp 0 = 0.25, 4 bytes\n"
                     "write 41 mute outp 0 = 1, 4 bytes\n"
                     "write 41 mute outp 0 = 0, 4 bytes\n"
                     "write 1 dOut glob 0 = 42, 4 bytes\n");
    EXPECT_EQ(audio_->defaultOutputDevice(), microphone);
}

TEST_F(MacAudioTest, takesAVolumeOutsideAsTheNearerEnd) {
    log();
    EXPECT_TRUE(audio_->setVolume(speakers, 1.5F));
    EXPECT_TRUE(audio_->setVolume(speakers, -1));
    EXPECT_EQ(log(), "write 41 vmvc outp 0 = 1, 4 bytes\nwrite 41 vmvc outp 0 = 0, 4 bytes\n");
}

TEST_F(MacAudioTest, saysWhenAChangeIsRefused) {
    EXPECT_FALSE(audio_->setVolume(microphone, 1));
    EXPECT_FALSE(audio_->setMuted(gone, true));
    soundSystem().refuses = true;
    EXPECT_FALSE(audio_->setDefaultOutputDevice(microphone));
}

class MacAudioListenerTest : public MacAudioTest {
protected:
    VolumeListenerId listen() {
        const auto id = audio_->listenToVolume(speakers, [this] { ++told_; });
        EXPECT_TRUE(id);
        log();
        return id.value_or(VolumeListenerId{});
    }

    int told_ = 0;
};

TEST_F(MacAudioListenerTest, listensToTheVolumeOfOneDevice) {
    log();
    EXPECT_TRUE(audio_->listenToVolume(speakers, [] {}));
    EXPECT_EQ(log(), "read 41 vmvc outp 0\nlisten to 41 vmvc outp 0\n");
}

TEST_F(MacAudioListenerTest, tellsLater) {
    listen();
    mac::tellListeners(41, "vmvc");
    EXPECT_EQ(told_, 0);
    runQueue();
    EXPECT_EQ(told_, 1);
}

TEST_F(MacAudioListenerTest, stopsWithTheSameBlockAtTheSameAddress) {
    const auto id = listen();
    EXPECT_TRUE(audio_->stopListening(speakers, id));
    EXPECT_EQ(log(), "stop listening to 41 vmvc outp 0\n");
    EXPECT_EQ(mac::listenerCount(), 1) << "the one for restarts";
    EXPECT_FALSE(audio_->stopListening(speakers, id));
}

TEST_F(MacAudioListenerTest, keepsWatchingADeviceWhenItIsAskedToStopWithAnother) {
    const auto id = listen();
    EXPECT_FALSE(audio_->stopListening(microphone, id));
    EXPECT_EQ(log(), "");
    mac::tellListeners(41, "vmvc");
    runQueue();
    EXPECT_EQ(told_, 1);
}

TEST_F(MacAudioListenerTest, tellsNothingOfWhatWasUnderWayWhenItStopped) {
    const auto id = listen();
    mac::tellListenersLater(41, "vmvc");
    audio_->stopListening(speakers, id);
    mac::tellNow();
    runQueue();
    EXPECT_EQ(told_, 0);
}

TEST_F(MacAudioListenerTest, callsNobodyOnceItIsGone) {
    bool called = false;
    auto listener = MacAudioListener::install({41, 0x766D7663, 0x6F757470, 0}, [&] { called = true; });
    ASSERT_TRUE(listener);
    mac::tellListenersLater(41, "vmvc");
    listener.reset();
    mac::tellNow();
    EXPECT_FALSE(called);
}

TEST_F(MacAudioListenerTest, canBeStoppedByWhoIsTold) {
    std::optional<VolumeListenerId> id;
    id = audio_->listenToVolume(speakers, [&] {
        ++told_;
        audio_->stopListening(speakers, *id);
    });
    mac::tellListeners(41, "vmvc");
    mac::tellListeners(41, "vmvc");
    runQueue();
    EXPECT_EQ(told_, 1);
}

TEST_F(MacAudioListenerTest, hasNothingToListenToOnADeviceWithoutVolume) {
    EXPECT_FALSE(audio_->listenToVolume(microphone, [] {}));
    soundSystem().refuses = true;
    EXPECT_FALSE(audio_->listenToVolume(speakers, [] {}));
}

TEST_F(MacAudioListenerTest, forgetsEveryListenerWhenTheSoundSystemRestarts) {
    const auto id = listen();
    bool restarted = false;
    audio_->onRestarted = [&] { restarted = true; };
    mac::tellListeners(1, "srst");
    EXPECT_FALSE(restarted);
    runQueue();
    EXPECT_TRUE(restarted);
    EXPECT_FALSE(audio_->stopListening(speakers, id));
}

}  // namespace

}  // namespace pimloft::test
