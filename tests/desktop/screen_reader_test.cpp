// SPDX-License-Identifier: MIT
// What a screen reader is told of every window, over the bus that the desktop has for it, and what it can do.
#include "desktop/support/clipboard_desk.h"
#include "desktop/support/first_run.h"
#include "desktop/support/screen_reader.h"
#include "support/sound_server.h"

#include <algorithm>

namespace pimloft::test {
namespace {

const QString panel = QStringLiteral("Pimloft");
const QString settings = QStringLiteral("Pimloft Settings");
const QString popup = QStringLiteral("Clipboard history");
const QString welcome = QStringLiteral("Welcome to Pimloft");
const QString news = QStringLiteral("What's New");

class WithAScreenReader : public ClipboardDesk {
protected:
    void SetUp() override {
        sound.start();
        sound.addSink(QStringLiteral("speakers"), QStringLiteral("Speakers"));
        sound.addSink(QStringLiteral("headphones"), QStringLiteral("Headphones"));
        sound.pactl({QStringLiteral("set-default-sink"), QStringLiteral("speakers")});
        openDesktop(QStringLiteral("openbox"));
        reader = std::make_unique<ScreenReader>(session());
    }
    void TearDown() override {
        ClipboardDesk::TearDown();
        // Before the bus that it is connected to.
        reader.reset();
    }

    std::vector<Spoken> heard(const QString &window) {
        return reader->window(QStringLiteral("pimloft"), window);
    }
    std::string text(const QString &window) { return lines(heard(window)).toStdString(); }
    /// Waits until a line is told.
    void expectHeard(const QString &window, const std::string &line) {
        EXPECT_TRUE(waitUntil([&] { return text(window).find(line + '\n') != std::string::npos; }))
            << "there is no \"" << line << "\" in\n"
            << text(window);
    }
    /// Has the screen reader press what has that name.
    void press(const QString &window, const QString &name) {
        const std::vector<Spoken> all = heard(window);
        const auto found =
            std::find_if(all.begin(), all.end(), [&](const Spoken &each) { return each.name == name; });
        ASSERT_NE(found, all.end()) << name.toStdString() << " is not in\n" << text(window);
        reader->press(*found);
    }
    /// Nobody can use what has no name.
    void expectThatEverythingHasAName(const QString &window) {
        for (const Spoken &each : heard(window)) {
            if (each.isFocusable()) {
                EXPECT_NE(each.name, QString()) << "a " << each.role.toStdString() << " in\n" << text(window);
            }
            EXPECT_FALSE(each.role.isEmpty() || each.role == QLatin1String("unknown"))
                << each.name.toStdString();
        }
    }
    void openPanel() {
        launch(session(), {});
        ASSERT_TRUE(waitUntil([this] { return panelFrame().has_value(); }));
    }

    SoundServer sound{SoundServer::Kind::pulseAudio};
    std::unique_ptr<ScreenReader> reader;
};

TEST_F(WithAScreenReader, thePanelIsSwitchesAndTheDevicesOfItsMixerAreRadioButtons) {
    reader->start();
    startPimloft();
    openPanel();
    expectHeard(panel, "push button: Quit");
    EXPECT_EQ(text(panel), "frame: Pimloft\n"
                           "heading: Pimloft\n"
                           "push button: Open Settings\n"
                           "check box: WindowSnap, enabled [on]\n"
                           "check box: ClipboardPlus, enabled [on]\n"
                           "check box: FinderFix, enabled [on]\n"
                           "check box: KeyMapper, enabled [on]\n"
                           "check box: QuickVolume, enabled [on]\n"
                           "push button: Show QuickVolume\n"
                           "push button: Quit\n");

    press(panel, QStringLiteral("Show QuickVolume"));
    expectHeard(panel, "radio button: Headphones [off]");
    const std::string unfolded = text(panel);
    EXPECT_EQ(unfolded.substr(unfolded.find("push button: Hide")), "push button: Hide QuickVolume\n"
                                                                   "heading: Output\n"
                                                                   "radio button: Speakers [on]\n"
                                                                   "radio button: Headphones [off]\n"
                                                                   "push button: Mute\n"
                                                                   "slider: System\n"
                                                                   "push button: Quit\n");
    expectThatEverythingHasAName(panel);

    press(panel, QStringLiteral("Headphones"));
    EXPECT_TRUE(waitUntil([&] { return sound.defaultSink() == QStringLiteral("headphones"); }));
    expectHeard(panel, "radio button: Headphones [on]");
    expectHeard(panel, "radio button: Speakers [off]");

    press(panel, QStringLiteral("WindowSnap, enabled"));
    expectHeard(panel, "check box: WindowSnap, disabled [off]");
    EXPECT_TRUE(waitUntil([&] {
        return storedPreferences(session()).value(QStringLiteral("pimloft.windowsnap.enabled")) ==
               QJsonValue(false);
    }));
}

TEST_F(WithAScreenReader, theSettingsAreTabsWithPagesOfNamedControls) {
    reader->start();
    startPimloft();
    launch(session(), {QStringLiteral("--settings")});
    expectHeard(settings, "page tab: General [selected]");
    EXPECT_EQ(heard(settings).front().role, QStringLiteral("frame"));

    const std::pair<const char *, std::vector<std::string>> pages[] = {
        {"WindowSnap", {"slider: Edge Sensitivity", "list item: ^+^+1-6: Quick layouts"}},
        {"ClipboardPlus",
         {"spin box: Max items: 50", "push button: Remove 1Password", "text: App name", "push button: Add"}},
        {"FinderFix", {"label: Markdown File", "push button: Open Templates Folder"}},
        {"KeyMapper", {"check box: Windows Mode [off]", "check box: Home/End Fix [off]"}},
        {"QuickVolume",
         {"radio button: Speakers [on]", "radio button: Headphones [off]", "push button: Set Default",
          "label: System Volume: 100%"}},
        {"General",
         {"check box: Launch at login [off]", "label: Permission Granted", "push button: Open Settings",
          "push button: Check Now", "label: Version: 1.0.0"}},
    };
    for (const auto &[page, said] : pages) {
        press(settings, QString::fromLatin1(page));
        expectHeard(settings, std::string("page tab: ") + page + " [selected]");
        for (const std::string &line : said)
            expectHeard(settings, line);
        const std::string all = text(settings);
        EXPECT_EQ(all.find("[selected]"), all.rfind("[selected]")) << all;
        expectThatEverythingHasAName(settings);
    }

    press(settings, QStringLiteral("Launch at login"));
    expectHeard(settings, "check box: Launch at login [on]");
}

TEST_F(WithAScreenReader, theFirstRunIsHeardStepByStep) {
    forgetPreferences(session());
    reader->start();
    startPimloftWithoutShortcuts();
    expectHeard(welcome, "heading: Welcome to Pimloft");
    EXPECT_EQ(text(welcome), "frame: Welcome to Pimloft\n"
                             "heading: Welcome to Pimloft\n"
                             "label: Everything you miss from Windows, in one app.\n"
                             "label: Step 1 of 4\n"
                             "push button: Next\n");
    press(welcome, QStringLiteral("Next"));
    expectHeard(welcome, "heading: Choose Your Modules");
    expectHeard(welcome, "label: Step 2 of 4");
    for (const char *module : {"WindowSnap", "ClipboardPlus", "FinderFix", "KeyMapper", "QuickVolume"})
        expectHeard(welcome, std::string("check box: ") + module + " [on]");
    expectThatEverythingHasAName(welcome);
    press(welcome, QStringLiteral("QuickVolume"));
    expectHeard(welcome, "check box: QuickVolume [off]");

    // The step of the permission, which is there, leaves by itself.
    press(welcome, QStringLiteral("Next"));
    expectHeard(welcome, "heading: You're All Set!");
    expectHeard(welcome, "label: Step 4 of 4");
    expectThatEverythingHasAName(welcome);
    press(welcome, QStringLiteral("Get Started"));
    expectShortcuts();
}

TEST_F(WithAScreenReader, theNewsAreAListOfFeatures) {
    forgetPreferences(session());
    skipFirstRun(session(), {}, QStringLiteral("0.9"));
    reader->start();
    startPimloft();
    expectHeard(news, "heading: What's New in v1.0.0");
    expectHeard(news, "list item: KeyMapper: One-click Ctrl/Cmd swap with safety panic hotkey");
    expectThatEverythingHasAName(news);
    press(news, QStringLiteral("Continue"));
    EXPECT_TRUE(waitUntil([&] { return !desktop().window(news); }));
}

TEST_F(WithAScreenReader, theHistoryIsAListOfItsEntries) {
    reader->start();
    startWatching();
    copyText("an older text");
    copyText("a newer text");
    openPopup();
    expectHeard(popup, "list item: an older text");
    const std::string all = text(popup);
    EXPECT_LT(all.find("list item: a newer text"), all.find("list item: an older text")) << all;
    EXPECT_NE(all.find("list: Clipboard history"), std::string::npos) << all;
    EXPECT_NE(all.find("text: Search clipboard history..."), std::string::npos) << all;
    expectThatEverythingHasAName(popup);
    press(popup, QStringLiteral("an older text"));
    expectHeard(popup, "list item: an older text [selected]");
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([&] { return !isPopupOpen(); }));
}

}  // namespace
}  // namespace pimloft::test
