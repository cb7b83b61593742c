// SPDX-License-Identifier: MIT
// The volume mixer in the panel, and the page of volume control.
#include "ui/popover_controller.h"

#include "page_session.h"

#include "quickvolume/audio_engine.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/page_view.h"
#include "ui/quick_engine.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class Mixer : public testing::Test {
protected:
    Mixer() {
        session.desktop.panels.blending = false;
        speakers = session.desktop.audio.add({.name = QStringLiteral("Speakers"), .volume = 0.66F});
        headphones = session.desktop.audio.add({.name = QStringLiteral("Headphones"), .volume = 0.25F});
        run(7, "com.spotify.client", "Spotify");
        run(8, "org.mozilla.firefox", "Firefox");
        session.appState().quickVolume()->activate();
    }

    void run(int process, const char *bundleId, const char *name) {
        session.desktop.workspace.running.push_back({.name = QLatin1String(name),
                                                     .bundleId = QString::fromLatin1(bundleId),
                                                     .processId = ProcessId(process)});
    }
    void quit(int process) {
        std::erase_if(session.desktop.workspace.running, [process](const Application &application) {
            return application.processId == ProcessId(process);
        });
        engine().refreshAudioApps();
        settle();
    }
    AudioEngine &engine() { return AudioEngine::shared(); }
    void settle() { QCoreApplication::processEvents(); }

    void open() {
        popover.open(QRectF(700, 776, 22, 22));
        window()->show();
        settle();
    }
    void unfold() {
        open();
        test::click(named("Show QuickVolume"));
        session.desktop.log();
        // A pretended panel has a frame, its view has none.
        window()->resize(panel().size().toSize());
        // Rows get their places with the next frame.
        ASSERT_TRUE(QTest::qWaitFor([&] { return slider("System")->width() > 50; }));
    }
    void showPage() {
        page = std::make_unique<PageView>(session.views().engine(),
                                          *session.appState().quickVolume()->settingsView());
        page->resize(560, 700);
        page->show();
        settle();
    }
    QQuickWindow *window() {
        for (QWindow *each : QGuiApplication::allWindows())
            if (auto *quick = qobject_cast<QQuickWindow *>(each))
                return quick;
        return nullptr;
    }
    QRectF panel() { return session.desktop.panels.existing().at(0)->frame(); }
    QQuickItem *named(const char *name) {
        QQuickItem *item = test::named(window(), QString::fromUtf8(name));
        if (!item)
            qFatal("nothing is called %s", name);
        return item;
    }
    /// Names are of sliders and of nothing else.
    QQuickItem *slider(const char *name) { return named(name); }
    QPoint knob(QQuickItem *slider) {
        auto *handle = slider->property("handle").value<QQuickItem *>();
        return handle->mapToScene(QPointF(handle->width() / 2, handle->height() / 2)).toPoint();
    }
    double value(QQuickItem *slider) { return slider->property("value").toDouble(); }
    std::string spoken() { return test::spoken(window()).join(QLatin1Char('\n')).toStdString(); }
    bool shows(const char *text) {
        return test::texts(window()->contentItem()).contains(QString::fromUtf8(text));
    }

    test::PageSession session;
    AudioDeviceId speakers{};
    AudioDeviceId headphones{};
    PopoverController popover{session.appState(), session.accessibility(), session.views().engine(),
                              session.desktop.panels, session.desktop.displays};
    std::unique_ptr<PageView> page;
};

TEST_F(Mixer, isShownOnlyAfterTheChevronIsUsed) {
    open();
    EXPECT_FALSE(shows("Output"));
    test::click(named("Show QuickVolume"));
    EXPECT_TRUE(shows("Output"));
    test::click(named("Hide QuickVolume"));
    EXPECT_FALSE(shows("Output"));
}

TEST_F(Mixer, saysThis) {
    unfold();
    const std::string mixer = spoken().substr(spoken().find("heading: Output"));
    EXPECT_EQ(mixer, "heading: Output\n"
                     "radio button: Speakers [on]\n"
                     "radio button: Headphones [off]\n"
                     "button: Mute\n"
                     "slider: System\n"
                     "slider: Spotify\n"
                     "button: Mute Spotify\n"
                     "slider: Firefox\n"
                     "button: Mute Firefox\n"
                     "button: Quit");
}

TEST_F(Mixer, thePanelGrowsAndShrinksAndStaysAtItsAnchor) {
    open();
    const QRectF folded = panel();
    test::click(named("Show QuickVolume"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel().height() > folded.height() + 150; }));
    EXPECT_DOUBLE_EQ(panel().y() + panel().height(), folded.y() + folded.height());
    test::click(named("Hide QuickVolume"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel() == folded; }));
}

TEST_F(Mixer, isFoldedAgainWhenThePanelOpensAgain) {
    open();
    const QRectF folded = panel();
    test::click(named("Show QuickVolume"));
    popover.close();
    open();
    EXPECT_FALSE(shows("Output"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel() == folded; }));
}

TEST_F(Mixer, unfoldingLooksAtEverythingAnew) {
    settle();
    session.desktop.audio.chosen = headphones;
    session.desktop.audio.at(headphones).muted = true;
    run(9, "io.mpv", "mpv");
    unfold();
    settle();
    EXPECT_TRUE(shows("25%"));
    EXPECT_NE(spoken().find("radio button: Headphones [on]"), std::string::npos);
    EXPECT_NE(spoken().find("button: Unmute\n"), std::string::npos);
    EXPECT_TRUE(shows("mpv"));
}

TEST_F(Mixer, choosingADeviceMakesItTheDefaultAndKeepsTheKeyboardThere) {
    unfold();
    named("Headphones")->forceActiveFocus(Qt::TabFocusReason);
    test::type(window(), Qt::Key_Space);
    settle();
    EXPECT_EQ(session.desktop.log(), "make Headphones the default output\n");
    EXPECT_NE(spoken().find("radio button: Headphones [on]"), std::string::npos);
    EXPECT_TRUE(shows("25%"));
    EXPECT_TRUE(named("Headphones")->hasActiveFocus());
}

TEST_F(Mixer, theSystemSliderSetsTheVolume) {
    unfold();
    slider("System")->forceActiveFocus();
    test::type(window(), Qt::Key_Right);
    settle();
    EXPECT_EQ(session.desktop.log(), "set the volume of Speakers to 0.71\n");
    EXPECT_TRUE(shows("71%"));
}

TEST_F(Mixer, theSystemSliderFollowsOtherPrograms) {
    unfold();
    session.desktop.audio.turn(speakers, 0.1F);
    settle();
    EXPECT_NEAR(value(slider("System")), 0.1, 1e-6);
    EXPECT_TRUE(shows("10%"));
}

TEST_F(Mixer, aHeldSliderFollowsTheHandAndThenTheTruth) {
    unfold();
    QQuickItem *system = slider("System");
    const QPoint start = knob(system);
    QTest::mousePress(window(), Qt::LeftButton, {}, start);
    QTest::mouseMove(window(), start - QPoint(30, 0));
    settle();
    const double held = value(system);
    EXPECT_LT(held, 0.6);
    session.desktop.audio.turn(speakers, 0.9F);
    settle();
    EXPECT_EQ(value(system), held) << "another program pulled the knob out of the hand";
    EXPECT_FLOAT_EQ(engine().systemVolume(), 0.9F);
    QTest::mouseMove(window(), start - QPoint(40, 0));
    settle();
    EXPECT_LT(value(system), held);
    session.desktop.audio.turn(speakers, 0.8F);
    settle();
    QTest::mouseRelease(window(), Qt::LeftButton, {}, start - QPoint(40, 0));
    settle();
    EXPECT_NEAR(value(system), 0.8, 1e-6);
}

TEST_F(Mixer, aPlayersSliderSendsItsVolume) {
    unfold();
    slider("Spotify")->forceActiveFocus();
    test::type(window(), Qt::Key_Left);
    settle();
    EXPECT_EQ(session.desktop.log(), "run: tell application \"Spotify\" to set sound volume to 95\n");
    EXPECT_NEAR(value(slider("Spotify")), 0.95, 1e-6);
}

TEST_F(Mixer, anotherApplicationsSliderStoresItsVolumeOnly) {
    unfold();
    slider("Firefox")->forceActiveFocus();
    test::type(window(), Qt::Key_Left);
    settle();
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_EQ(engine().audioApps().at(1).volume, 0.95F);
}

TEST_F(Mixer, anApplicationThatQuitsTakesTheSliderOutOfTheHand) {
    unfold();
    const QPoint start = knob(slider("Firefox"));
    QTest::mousePress(window(), Qt::LeftButton, {}, start);
    QTest::mouseMove(window(), start - QPoint(30, 0));
    quit(8);
    EXPECT_FALSE(shows("Firefox"));
    QTest::mouseMove(window(), start - QPoint(40, 0));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, start - QPoint(40, 0));
    settle();
    EXPECT_TRUE(shows("Spotify"));
}

TEST_F(Mixer, aHeldSliderStaysWhileOtherApplicationsComeAndGo) {
    unfold();
    QQuickItem *held = slider("Firefox");
    const QPoint start = knob(held);
    QTest::mousePress(window(), Qt::LeftButton, {}, start);
    QTest::mouseMove(window(), start - QPoint(30, 0));
    const double value = this->value(held);
    run(3, "io.mpv", "mpv");
    quit(7);
    ASSERT_EQ(slider("Firefox"), held);
    EXPECT_TRUE(held->property("pressed").toBool());
    EXPECT_EQ(this->value(held), value);
    QTest::mouseRelease(window(), Qt::LeftButton, {}, start - QPoint(30, 0));
}

TEST_F(Mixer, aRowThatIsMadeAgainStartsFromTheStoredVolume) {
    unfold();
    slider("Firefox")->forceActiveFocus();
    test::type(window(), Qt::Key_Left);
    settle();
    test::click(named("Hide QuickVolume"));
    test::click(named("Show QuickVolume"));
    EXPECT_NEAR(value(slider("Firefox")), 0.95, 1e-6);
}

TEST_F(Mixer, mutingAnApplicationDimsItsRowAndBack) {
    unfold();
    const QQuickItem *row = named("Mute Firefox")->parentItem();
    EXPECT_EQ(row->opacity(), 1.0);
    test::click(named("Mute Firefox"));
    settle();
    EXPECT_EQ(row->opacity(), 0.5);
    EXPECT_EQ(session.desktop.log(), "");
    test::click(named("Unmute Firefox"));
    settle();
    EXPECT_EQ(row->opacity(), 1.0);
}

TEST_F(Mixer, theSystemsButtonMutes) {
    unfold();
    test::click(named("Mute"));
    settle();
    EXPECT_EQ(session.desktop.log(), "mute Speakers\n");
    EXPECT_NE(spoken().find("button: Unmute\n"), std::string::npos);
}

TEST_F(Mixer, withoutDevicesTheListIsEmpty) {
    session.desktop.audio.at(speakers).plugged = false;
    session.desktop.audio.at(headphones).plugged = false;
    unfold();
    settle();
    EXPECT_EQ(spoken().find("radio button"), std::string::npos);
    EXPECT_TRUE(shows("System"));
}

TEST_F(Mixer, manyApplicationsScrollInsteadOfLeavingTheScreen) {
    for (int process = 20; process < 60; ++process)
        run(process, "io.mpv", "mpv");
    unfold();
    settle();
    EXPECT_LT(panel().height(), session.desktop.displays.list.front().frame.height());
}

TEST_F(Mixer, thePageSaysThis) {
    showPage();
    EXPECT_EQ(
        test::texts(page->rootObject()).join(QLatin1Char('\n')).toStdString(),
        "Volume Mixer\n"
        "The volume mixer is accessible from the Pimloft menu bar popover.\n"
        "Output Device\n"
        "Speakers\nDefault\n"
        "Headphones\nSet Default\n"
        "Per-App Volume\n"
        "System Volume\n66%\n"
        "Audio Apps Detected\n2\n"
        "Supported Apps\n"
        "Music\nVolume slider via AppleScript\n"
        "Spotify\nVolume slider via AppleScript\n"
        "Browsers\nMute toggle\n"
        "Other media apps\nMute toggle\n"
        "Per-app volume works via AppleScript for supported apps (Music, Spotify). For other apps, a mute "
        "toggle is provided.\n"
        "Full per-app volume control (like Windows Volume Mixer) requires a virtual audio driver, planned "
        "for a future update.");
}

TEST_F(Mixer, aDeviceThatIsRefusedIsNotShownAsChosen) {
    unfold();
    session.desktop.audio.at(headphones).plugged = false;
    test::click(named("Headphones"));
    settle();
    EXPECT_NE(spoken().find("radio button: Speakers [on]"), std::string::npos) << spoken();
    EXPECT_EQ(spoken().find("radio button: Headphones [on]"), std::string::npos) << spoken();
}

TEST_F(Mixer, thePageTellsWhichDeviceIsChosen) {
    showPage();
    const QStringList said = test::spoken(page.get());
    EXPECT_TRUE(said.contains(QStringLiteral("radio button: Speakers [on]")));
    EXPECT_TRUE(said.contains(QStringLiteral("radio button: Headphones [off]")));
}

TEST_F(Mixer, thePageMakesADeviceTheDefault) {
    showPage();
    session.desktop.log();
    test::click(test::named(page.get(), QStringLiteral("Set Default")));
    settle();
    EXPECT_EQ(session.desktop.log(), "make Headphones the default output\n");
    EXPECT_TRUE(test::texts(page->rootObject()).contains(QStringLiteral("25%")));
}

TEST_F(Mixer, thePageSaysThatThereAreNoDevices) {
    session.desktop.audio.at(speakers).plugged = false;
    session.desktop.audio.at(headphones).plugged = false;
    engine().refreshOutputDevices();
    settle();
    showPage();
    EXPECT_TRUE(test::texts(page->rootObject()).contains(QStringLiteral("No output devices found")));
    EXPECT_FALSE(test::texts(page->rootObject()).contains(QStringLiteral("Set Default")));
}

}  // namespace
}  // namespace pimloft
