// SPDX-License-Identifier: MIT
// Volume control as a user has it: the panel, the keyboard, and a real sound server.
#include "desktop/support/desktop_test.h"
#include "support/sound_server.h"

namespace pimloft::test {
namespace {

using testing::HasSubstr;

const QString speakers = QStringLiteral("speakers");

class Volume : public DesktopTest {
protected:
    void SetUp() override {
        server.start();
        server.addSink(speakers, QStringLiteral("Speakers"));
        server.addSink(QStringLiteral("headphones"), QStringLiteral("Headphones"));
        server.pactl({QStringLiteral("set-default-sink"), speakers});
        server.pactl({QStringLiteral("set-sink-volume"), speakers, QStringLiteral("60%")});
        openDesktop(QStringLiteral("openbox"));
    }

    /// Opens the panel and goes backwards from its end to the chevron.
    void unfoldMixer() {
        launch(session(), {});
        ASSERT_TRUE(waitUntil([&] { return panelFrame().has_value(); }));
        const int folded = panelFrame()->height();
        hands().chord({KEY_LEFTSHIFT, KEY_TAB});
        hands().chord({KEY_LEFTSHIFT, KEY_TAB});
        hands().tap(KEY_SPACE);
        ASSERT_TRUE(waitUntil([&] { return panelFrame() && panelFrame()->height() > folded + 100; }));
        letPimloftCatchUp();
    }

    SoundServer server{SoundServer::Kind::pulseAudio};
};

TEST_F(Volume, isTurnedAndMovedFromThePanel) {
    startPimloft();
    unfoldMixer();
    picture(QStringLiteral("mixer"));
    // Two devices, the mute, the slider.
    for (int press = 0; press < 4; ++press)
        hands().tap(KEY_TAB);
    hands().tap(KEY_RIGHT);
    EXPECT_TRUE(waitUntil([&] { return server.volumeOf(speakers) == QStringLiteral("65 65"); }))
        << server.volumeOf(speakers).toStdString();
    hands().chord({KEY_LEFTSHIFT, KEY_TAB});
    hands().tap(KEY_SPACE);
    EXPECT_TRUE(waitUntil([&] { return server.isMuted(speakers); }));
    hands().chord({KEY_LEFTSHIFT, KEY_TAB});
    hands().tap(KEY_SPACE);
    EXPECT_TRUE(waitUntil([&] { return server.defaultSink() == QStringLiteral("headphones"); }));
    picture(QStringLiteral("mixer-headphones"));
}

TEST_F(Volume, theDoctorTellsTheTruthAboutSound) {
    const auto doctor = [this] {
        return launch(session(), {QStringLiteral("--doctor")}).output.toStdString();
    };
    EXPECT_THAT(doctor(), HasSubstr("playing to Speakers"));
    startPimloft();
    EXPECT_THAT(doctor(), HasSubstr("playing to Speakers"));
    server.kill();
    EXPECT_TRUE(waitUntil([&] { return doctor().find("No sound server answers") != std::string::npos; }));
}

TEST_F(Volume, survivesAServerThatCrashesWhileTheMixerIsOpen) {
    startPimloft();
    unfoldMixer();
    server.kill();
    for (int press = 0; press < 4; ++press)
        hands().tap(KEY_TAB);
    hands().tap(KEY_RIGHT);
    letPimloftCatchUp();
    server.start();
    server.addSink(speakers, QStringLiteral("Speakers"));
    EXPECT_TRUE(waitUntil(
        [&] {
            hands().tap(KEY_LEFT);
            return server.volumeOf(speakers) != QStringLiteral("100 100");
        },
        15000));
}

}  // namespace
}  // namespace pimloft::test
