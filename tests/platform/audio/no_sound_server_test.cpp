// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_audio.h"

#include "support/sound_server.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class NoSoundServer : public testing::Test {
protected:
    test::SoundServer server{test::SoundServer::Kind::pulseAudio};  // is never started
};

TEST_F(NoSoundServer, everythingAnswersNone) {
    testing::internal::CaptureStderr();
    {
        PulseAudio audio;
        EXPECT_EQ(audio.summary().server, QString());
        EXPECT_EQ(audio.defaultOutputDevice(), std::nullopt);
        EXPECT_TRUE(audio.devices().empty());
        for (const AudioDeviceId device : {AudioDeviceId(0), AudioDeviceId(1), AudioDeviceId(77)}) {
            EXPECT_FALSE(audio.hasOutput(device));
            EXPECT_EQ(audio.name(device), std::nullopt);
            EXPECT_EQ(audio.uid(device), std::nullopt);
            EXPECT_EQ(audio.volume(device), std::nullopt);
            EXPECT_EQ(audio.isMuted(device), std::nullopt);
            EXPECT_FALSE(audio.setVolume(device, 0.5F));
            EXPECT_FALSE(audio.setMuted(device, true));
            EXPECT_FALSE(audio.setDefaultOutputDevice(device));
            EXPECT_EQ(audio.listenToVolume(device, [] {}), std::nullopt);
            EXPECT_FALSE(audio.stopListening(device, VolumeListenerId(1)));
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(NoSoundServer, itEndsAtAnyMomentAtOnce) {
    for (int round = 0; round < 50; ++round) {
        PulseAudio audio;
        QTest::qWait(round % 7);
    }
}

TEST_F(NoSoundServer, changesAreDroppedAndCountedAsDealtWith) {
    std::atomic<quint64> carriedOut = 0;
    PulseServer pulse([&](const PulseState &state) { carriedOut = state.carriedOut; });
    quint64 last = 0;
    for (int change = 0; change < 100; ++change)
        last = pulse.change([](PulseChanges &changes) { changes.volumes["x"] = 0.5F; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return carriedOut == last; }));
}

}  // namespace
}  // namespace pimloft
