// SPDX-License-Identifier: MIT
// On a real PulseAudio and a real PipeWire, which another program changes from outside.
#include "platform/audio/pulse_audio.h"

#include "support/sound_server.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::SoundServer;

const QString speakers = QStringLiteral("speakers");
const QString headphones = QStringLiteral("headphones");

class PulseAudioTest : public testing::TestWithParam<SoundServer::Kind> {
protected:
    /// A server with two outputs, of which the first is the default.
    void startServer() {
        server.start();
        server.addSink(speakers, QStringLiteral("Speakers"));
        secondModule = server.addSink(headphones, QStringLiteral("Headphones"));
        server.pactl({QStringLiteral("set-default-sink"), speakers});
        server.pactl({QStringLiteral("set-sink-volume"), speakers, QStringLiteral("60%")});
        server.pactl({QStringLiteral("set-sink-volume"), headphones, QStringLiteral("100%")});
    }
    void connect() {
        audio.emplace();
        audio->onRestarted = [this] { ++restarts; };
    }
    void start() {
        startServer();
        connect();
        ASSERT_TRUE(comes([&] { return names() == "Speakers*, Headphones" && volume(speakers) == 60; }))
            << names();
    }

    static bool comes(const std::function<bool()> &condition) {
        return QTest::qWaitFor([&] { return condition(); }, 15000);
    }
    std::optional<AudioDeviceId> find(const QString &uid) {
        for (const AudioDeviceId device : audio->devices())
            if (audio->uid(device) == uid)
                return device;
        return std::nullopt;
    }
    AudioDeviceId device(const QString &uid) { return find(uid).value_or(AudioDeviceId(0)); }
    /// In percent; -1 for none.
    int volume(const QString &uid) {
        const auto volume = audio->volume(device(uid));
        return volume ? int(*volume * 100) : -1;
    }
    /// "Speakers*, Headphones, Microphone (in)"
    std::string names() {
        QStringList list;
        for (const AudioDeviceId device : audio->devices()) {
            QString name = audio->name(device).value_or(QStringLiteral("?"));
            if (audio->defaultOutputDevice() == device)
                name += u'*';
            if (!audio->hasOutput(device))
                name += QStringLiteral(" (in)");
            list << name;
        }
        return list.join(QStringLiteral(", ")).toStdString();
    }
    void turn(const QString &sink, const char *volume) {
        server.pactl({QStringLiteral("set-sink-volume"), sink, QLatin1String(volume)});
    }

    SoundServer server{GetParam()};
    QString secondModule;
    std::optional<PulseAudio> audio;
    int restarts = 0;
};

TEST_P(PulseAudioTest, tellsTheServerAndTheDefaultOutput) {
    startServer();
    connect();
    const auto summary = audio->summary();
    EXPECT_TRUE(summary.server.contains(QStringLiteral("PulseAudio"))) << summary.server.toStdString();
    EXPECT_EQ(summary.output, QStringLiteral("Speakers"));
    EXPECT_TRUE(comes([&] { return restarts == 1; }));
}

TEST_P(PulseAudioTest, aServerWithoutDevicesHasNone) {
    server.start();
    connect();
    ASSERT_TRUE(comes([&] { return restarts == 1; }));
    EXPECT_EQ(names(), "") << "the dummy is no device";
    EXPECT_EQ(audio->defaultOutputDevice(), std::nullopt);
    EXPECT_FALSE(audio->summary().server.isEmpty());
    EXPECT_TRUE(audio->summary().output.isEmpty());
}

TEST_P(PulseAudioTest, aServersFirstDeviceIsToldLikeARestart) {
    server.start();
    connect();
    ASSERT_TRUE(comes([&] { return restarts == 1; }));
    server.addSink(speakers, QStringLiteral("Speakers"));
    server.pactl({QStringLiteral("set-default-sink"), speakers});
    EXPECT_TRUE(comes([&] { return names() == "Speakers*"; })) << names();
    EXPECT_TRUE(comes([&] { return restarts == 2; }));
}

TEST_P(PulseAudioTest, listsOutputsAndInputsButNoMonitors) {
    start();
    server.addSource(QStringLiteral("mic"), QStringLiteral("Microphone"));
    EXPECT_TRUE(comes([&] { return names() == "Speakers*, Headphones, Microphone (in)"; })) << names();
    EXPECT_FALSE(audio->setVolume(device(QStringLiteral("mic")), 0.1F)) << "no output";
}

TEST_P(PulseAudioTest, aServerThatComesLateIsFound) {
    connect();
    EXPECT_TRUE(audio->summary().server.isEmpty());
    startServer();
    EXPECT_TRUE(comes([&] { return names() == "Speakers*, Headphones"; })) << names();
    EXPECT_GE(restarts, 1);
}

TEST_P(PulseAudioTest, comesBackWithTheServerUnderTheSameNumbers) {
    start();
    const AudioDeviceId before = device(headphones);
    const int restartsBefore = restarts;
    ASSERT_TRUE(audio->listenToVolume(device(speakers), [] {}));
    server.kill();
    ASSERT_TRUE(comes([&] { return names().empty(); })) << names();
    EXPECT_FALSE(audio->setVolume(before, 0.5F));
    server.start();
    // The other way round, so that the server numbers them otherwise.
    server.addSink(headphones, QStringLiteral("Headphones"));
    server.addSink(speakers, QStringLiteral("Speakers"));
    EXPECT_TRUE(comes([&] { return find(headphones) && find(speakers); })) << names();
    EXPECT_EQ(device(headphones), before);
    EXPECT_GT(restarts, restartsBefore);
    EXPECT_TRUE(audio->setVolume(before, 0.4F));
    EXPECT_TRUE(comes([&] { return server.volumeOf(headphones) == QStringLiteral("40 40"); }));
}

TEST_P(PulseAudioTest, seesWhatAnotherProgramSets) {
    start();
    turn(speakers, "30%");
    EXPECT_TRUE(comes([&] { return volume(speakers) == 30; }));
    server.pactl({QStringLiteral("set-sink-mute"), speakers, QStringLiteral("1")});
    EXPECT_TRUE(comes([&] { return audio->isMuted(device(speakers)) == true; }));
    server.pactl({QStringLiteral("set-default-sink"), headphones});
    EXPECT_TRUE(comes([&] { return names() == "Speakers, Headphones*"; })) << names();
}

TEST_P(PulseAudioTest, tellsWhoListensOfTheVolumeAndOfNothingElse) {
    start();
    int told = 0;
    const auto listener = audio->listenToVolume(device(speakers), [&] { ++told; });
    ASSERT_TRUE(listener);
    server.pactl({QStringLiteral("set-sink-mute"), speakers, QStringLiteral("1")});
    turn(headphones, "20%");
    ASSERT_TRUE(comes([&] { return volume(headphones) == 20 && *audio->isMuted(device(speakers)); }));
    EXPECT_EQ(told, 0);
    turn(speakers, "30%");
    EXPECT_TRUE(comes([&] { return told == 1; }));
    EXPECT_FALSE(audio->stopListening(device(headphones), *listener));
    EXPECT_TRUE(audio->stopListening(device(speakers), *listener));
    turn(speakers, "40%");
    EXPECT_TRUE(comes([&] { return volume(speakers) == 40; }));
    EXPECT_EQ(told, 1);
}

TEST_P(PulseAudioTest, anAmplifiedDeviceReadsAsFull) {
    start();
    turn(speakers, "150%");
    EXPECT_TRUE(comes([&] { return volume(speakers) == 100; }));
    audio->setVolume(device(speakers), 0.5F);
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("50 50"); }));
}

TEST_P(PulseAudioTest, whatIsSetIsReadAtOnceAndReachesTheServer) {
    start();
    const AudioDeviceId id = device(speakers);
    EXPECT_TRUE(audio->setVolume(id, 0.25F));
    EXPECT_TRUE(audio->setMuted(id, true));
    EXPECT_EQ(audio->volume(id), 0.25F);
    EXPECT_EQ(audio->isMuted(id), true);
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("25 25"); }));
    EXPECT_TRUE(comes([&] { return server.isMuted(speakers); }));
    EXPECT_EQ(server.volumeOf(headphones), QStringLiteral("100 100"));
    turn(speakers, "70%");
    EXPECT_TRUE(comes([&] { return volume(speakers) == 70; })) << "our own value is no longer in the way";
}

TEST_P(PulseAudioTest, ofManySettingsTheLastCountsAndNoneJumpsBack) {
    start();
    const AudioDeviceId id = device(speakers);
    int told = 0;
    audio->listenToVolume(id, [&] { ++told; });
    for (int part = 0; part <= 500; ++part) {
        const float wanted = float(part) / 500;
        ASSERT_TRUE(audio->setVolume(id, wanted));
        QCoreApplication::processEvents();
        ASSERT_EQ(audio->volume(id), wanted);
    }
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("100 100"); }));
    EXPECT_EQ(audio->volume(id), 1.0F);
    EXPECT_EQ(told, 0) << "of what was set here";
}

TEST_P(PulseAudioTest, choosesTheDefaultAndStaysWithIt) {
    start();
    const AudioDeviceId id = device(headphones);
    EXPECT_TRUE(audio->setDefaultOutputDevice(id));
    EXPECT_EQ(audio->defaultOutputDevice(), id);
    QElapsedTimer elapsed;
    elapsed.start();
    bool jumpedBack = false;
    while (server.defaultSink() != headphones && !elapsed.hasExpired(5000)) {
        QCoreApplication::processEvents();
        jumpedBack = jumpedBack || audio->defaultOutputDevice() != id;
    }
    EXPECT_FALSE(jumpedBack);
    EXPECT_EQ(server.defaultSink(), headphones);
    server.pactl({QStringLiteral("set-default-sink"), speakers});
    EXPECT_TRUE(comes([&] { return audio->defaultOutputDevice() == device(speakers); }));
}

TEST_P(PulseAudioTest, keepsTheBalanceAlsoThroughSilence) {
    start();
    server.pactl({QStringLiteral("set-sink-volume"), speakers, QStringLiteral("80%"), QStringLiteral("40%")});
    ASSERT_TRUE(comes([&] { return volume(speakers) == 80; }));
    audio->setVolume(device(speakers), 0.5F);
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("50 25"); }));
    audio->setVolume(device(speakers), 0.0F);
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("0 0"); }));
    audio->setVolume(device(speakers), 0.8F);
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("80 40"); }))
        << server.volumeOf(speakers).toStdString();
}

TEST_P(PulseAudioTest, setsOneChannelAndSix) {
    start();
    server.addSink(QStringLiteral("one"), QStringLiteral("One"), QStringLiteral("mono"));
    server.addSink(QStringLiteral("six"), QStringLiteral("Six"),
                   QStringLiteral("front-left,front-right,rear-left,rear-right,front-center,lfe"));
    ASSERT_TRUE(comes([&] { return find(QStringLiteral("one")) && find(QStringLiteral("six")); }));
    audio->setVolume(device(QStringLiteral("one")), 0.3F);
    audio->setVolume(device(QStringLiteral("six")), 0.7F);
    EXPECT_TRUE(comes([&] { return server.volumeOf(QStringLiteral("one")) == QStringLiteral("30"); }));
    EXPECT_TRUE(
        comes([&] { return server.volumeOf(QStringLiteral("six")) == QStringLiteral("70 70 70 70 70 70"); }));
}

TEST_P(PulseAudioTest, devicesComeAndGoUnderTheirNumbers) {
    start();
    const AudioDeviceId id = device(headphones);
    server.removeModule(secondModule);
    EXPECT_TRUE(comes([&] { return names() == "Speakers*"; })) << names();
    EXPECT_EQ(audio->name(id), std::nullopt);
    EXPECT_FALSE(audio->setVolume(id, 0.5F));
    EXPECT_FALSE(audio->setDefaultOutputDevice(id));
    server.addSink(headphones, QStringLiteral("Headphones"));
    EXPECT_TRUE(comes([&] { return find(headphones) == id; })) << names();
}

TEST_P(PulseAudioTest, aServerThatHangsHoldsNobodyUp) {
    start();
    server.freeze();
    QElapsedTimer elapsed;
    elapsed.start();
    for (int part = 0; part < 200; ++part) {
        audio->setVolume(device(speakers), float(part) / 200);
        QCoreApplication::processEvents();
    }
    audio->setVolume(device(speakers), 0.35F);
    EXPECT_EQ(audio->volume(device(speakers)), 0.35F);
    EXPECT_LT(elapsed.elapsed(), 2000);
    server.thaw();
    EXPECT_TRUE(comes([&] { return server.volumeOf(speakers) == QStringLiteral("35 35"); }));
}

TEST_P(PulseAudioTest, goesWhileTheServerHangs) {
    start();
    server.freeze();
    audio->setVolume(device(speakers), 0.35F);
    audio.reset();
    server.thaw();
}

std::string kindName(const testing::TestParamInfo<SoundServer::Kind> &info) {
    return info.param == SoundServer::Kind::pulseAudio ? "PulseAudio" : "PipeWire";
}

INSTANTIATE_TEST_SUITE_P(Servers, PulseAudioTest,
                         testing::Values(SoundServer::Kind::pulseAudio, SoundServer::Kind::pipeWire),
                         kindName);

}  // namespace
}  // namespace pimloft
