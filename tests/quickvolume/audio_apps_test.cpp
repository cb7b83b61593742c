// SPDX-License-Identifier: MIT
#include "audio_engine_session.h"

#include <QPixmap>
#include <QSignalSpy>

#include <limits>

namespace pimloft {
namespace {

using test::application;
using test::AudioEngineTest;
using test::self;

TEST(AudioApp, equalsAnotherFieldByField) {
    AudioApp app;
    app.icon = QIcon(QPixmap(8, 8));
    const auto differs = [&app](auto &&change) {
        AudioApp other = app;
        change(other);
        return !(other == app);
    };
    EXPECT_FALSE(differs([](AudioApp &) {}));
    EXPECT_TRUE(differs([](AudioApp &other) { other.id = 1; }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.name = QStringLiteral("Player"); }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.bundleID = QString(); }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.icon = QIcon(QPixmap(8, 8)); }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.volume = 0.5F; }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.isMuted = true; }));
    EXPECT_TRUE(differs([](AudioApp &other) { other.isActive = true; }));
}

TEST(AudioOutputDevice, equalsAnotherFieldByField) {
    const AudioOutputDevice device{.id = 1, .name = QStringLiteral("a"), .uid = QStringLiteral("b")};
    EXPECT_TRUE(device == AudioOutputDevice(device));
    EXPECT_FALSE(device == AudioOutputDevice({.id = 2, .name = device.name, .uid = device.uid}));
    EXPECT_FALSE(device == AudioOutputDevice({.id = 1, .name = {}, .uid = device.uid}));
    EXPECT_FALSE(device == AudioOutputDevice({.id = 1, .name = device.name, .uid = {}}));
    EXPECT_FALSE(device ==
                 AudioOutputDevice({.id = 1, .name = device.name, .uid = device.uid, .isDefault = true}));
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
