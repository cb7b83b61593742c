// SPDX-License-Identifier: MIT
// Key remapping through its page, as a user goes about it, from the switch to what other programs get.
#include "desktop/support/desktop_test.h"
#include "support/key_sink.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace pimloft::test {
namespace {

const QString windowsMode = QStringLiteral("pimloft.keymapper.preset.Windows Mode");

class KeyMapperPage : public DesktopTest {
protected:
    void SetUp() override {
        openDesktop(QStringLiteral("openbox"));
        startPimloft();
        letPimloftCatchUp();
    }

    bool isStored(bool on) {
        QFile file(session().home() + QStringLiteral("/config/Pimloft/preferences.json"));
        return file.open(QIODevice::ReadOnly) &&
               QJsonDocument::fromJson(file.readAll()).object().value(windowsMode) == QJsonValue(on);
    }
    bool hasWindow() { return !desktop().windowsOf(QStringLiteral("pimloft")).empty(); }

    void openSettings() {
        EXPECT_EQ(launch(session(), {QStringLiteral("--settings")}).exitCode, 0);
        ASSERT_TRUE(waitUntil([this] {
            return hasWindow() &&
                   desktop().activeWindow() == desktop().windowsOf(QStringLiteral("pimloft")).front();
        }));
    }
    /// From the list of pages, of which key remapping's is the last but one, to the first switch.
    void switchWindowsModeOn() {
        openSettings();
        for (const int key : {KEY_TAB, KEY_END, KEY_UP, KEY_TAB, KEY_SPACE})
            hands().tap(key);
        ASSERT_TRUE(waitUntil([this] { return isStored(true); })) << "the switch does nothing";
    }

    /// What Control and c are in another program.
    std::string controlC() {
        KeySink sink({1200, 700, 300, 200}, "firefox");
        letPimloftCatchUp();
        hands().chord({KEY_LEFTCTRL, KEY_C});
        QString typed;
        EXPECT_TRUE(waitUntil([&] {
            typed += sink.typed();
            return !typed.isEmpty();
        }));
        return typed.toStdString();
    }
};

TEST_F(KeyMapperPage, aPresetThatIsKeptStays) {
    EXPECT_EQ(controlC(), "Control AB03");
    switchWindowsModeOn();
    picture(QStringLiteral("keymapper-sheet"));
    hands().tap(KEY_ENTER);
    letPimloftCatchUp();
    // Escape would take it back if the question were still open. As it is, it closes the window.
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !hasWindow(); }));
    EXPECT_TRUE(isStored(true));
    EXPECT_EQ(controlC(), "Super AB03");
}

TEST_F(KeyMapperPage, aPresetThatIsNotKeptIsTakenBackByItself) {
    switchWindowsModeOn();
    EXPECT_EQ(controlC(), "Super AB03") << "it holds from the start";
    EXPECT_TRUE(waitUntil([this] { return isStored(false); }));
    EXPECT_EQ(controlC(), "Control AB03");
}

TEST_F(KeyMapperPage, theCountGoesOnWhileTheWindowIsClosedAndTheQuestionIsThereAgain) {
    switchWindowsModeOn();
    desktop().close(desktop().windowsOf(QStringLiteral("pimloft")).front());
    EXPECT_TRUE(waitUntil([this] { return !hasWindow(); }));
    openSettings();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return isStored(false); }, 5000)) << "the question is not there again";
    EXPECT_TRUE(hasWindow());
}

TEST_F(KeyMapperPage, thePanicGestureEndsItAndTellsTheUser) {
    switchWindowsModeOn();
    hands().tap(KEY_ENTER);
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !hasWindow(); }));
    hands().tap(KEY_RIGHTSHIFT);
    hands().tap(KEY_RIGHTSHIFT);
    ASSERT_TRUE(waitUntil([this] { return hasWindow(); })) << "no alert";
    EXPECT_EQ(controlC(), "Control AB03");
    EXPECT_TRUE(isStored(true)) << "the switch stays on";
}

}  // namespace
}  // namespace pimloft::test
