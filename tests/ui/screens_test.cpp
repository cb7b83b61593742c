// SPDX-License-Identifier: MIT
// Puts every window on a real screen in every look, and keeps a picture of each in the build folder.
#include "page_session.h"
#include "pictures.h"
#include "plain_panels.h"

#include "app/hotkey_manager.h"
#include "finderfix/finder_fix_module.h"
#include "finderfix/new_file_service.h"
#include "keymapper/key_mapping_document.h"
#include "keymapper/keyboard_session.h"
#include "quickvolume/audio_engine.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using Screens = test::Pictures;
using test::colours;

/// Stands for the icon of a program.
QIcon roundIcon(const QColor &color) {
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(2, 2, 60, 60);
    return QIcon(pixmap);
}

TEST_P(Screens, settings) {
    GeneralSettings general(session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace);
    SettingsWindow settings(session.views(), general.page(), session.appState().allModules());
    settings.open();
    QQuickWindow *window = test::shownWindow();
    EXPECT_GE(colours(picture(window, QStringLiteral("general"))), 50);
    settings.select(1);
    EXPECT_GE(colours(picture(window, QStringLiteral("windowsnap"))), 50);
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Tab);
    window->resize(window->width(), 940);
    EXPECT_GE(colours(picture(window, QStringLiteral("windowsnap-whole"))), 50);
    settings.select(0);
    test::type(window, Qt::Key_Tab);
    window->resize(window->minimumSize());
    EXPECT_GE(colours(picture(window, QStringLiteral("general-small"))), 50);
}

TEST_P(Screens, refusedShortcut) {
    using enum CarbonModifiers;
    session.desktop.hotkeys.take(Key::upArrow, control | command);
    HotkeyManager::shared().registerHotkey(Key::upArrow, control | command, [] {});
    GeneralSettings general(session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace);
    SettingsWindow settings(session.views(), general.page(), session.appState().allModules());
    settings.select(1);
    settings.open();
    QQuickWindow *window = test::shownWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    const QString role = QStringLiteral("list item: ");
    for (const QString &line : test::spoken(window)) {
        if (!line.startsWith(role) || !line.contains(QStringLiteral("^+^+↑")))
            continue;
        const QQuickItem *item = test::named(window, line.mid(role.size()));
        QTest::mouseMove(window, item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint());
    }
    // The hint comes after a while.
    waitForRest(window, 700);
    EXPECT_GE(colours(picture(window, QStringLiteral("windowsnap-refused"))), 50);
}

TEST_P(Screens, keyMapper) {
    test::KeyboardSession keyboard;
    keyboard.store->setPreset(KeyMappingPreset::homeEndFix, true);
    keyboard.store->importMappings(
        encode(ExportedMappings{{},
                                {{.fromKeyCode = Key::home, .toKeyCode = Key::leftArrow},
                                 {.fromKeyCode = KeyCode{105}, .toKeyCode = KeyCode{65535}}}}));
    GeneralSettings general(session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace);
    SettingsWindow settings(session.views(), general.page(), {&*keyboard.module});
    settings.select(1);
    settings.open();
    QQuickWindow *window = test::shownWindow();
    EXPECT_GE(colours(picture(window, QStringLiteral("keymapper"))), 50);
    window->resize(window->width(), 940);
    EXPECT_GE(colours(picture(window, QStringLiteral("keymapper-whole"))), 50);
    window->resize(window->width(), 560);
    keyboard.page().setPreset(0, true);
    EXPECT_GE(colours(picture(window, QStringLiteral("keymapper-sheet"))), 50);
    window->resize(window->minimumSize());
    test::type(window, Qt::Key_Tab);
    EXPECT_GE(colours(picture(window, QStringLiteral("keymapper-sheet-small"))), 50);
}

TEST_P(Screens, finderFix) {
    for (const char *name : {"Letter.odt", "Meeting notes.md"})
        QFile(NewFileService::shared().templatesDirectory() + QLatin1Char('/') + QString::fromUtf8(name))
            .open(QFile::WriteOnly);
    GeneralSettings general(session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace);
    SettingsWindow settings(session.views(), general.page(), {session.appState().finderFix()});
    settings.select(1);
    settings.open();
    QQuickWindow *window = test::shownWindow();
    EXPECT_GE(colours(picture(window, QStringLiteral("finderfix"))), 50);
    window->resize(window->width(), 940);
    EXPECT_GE(colours(picture(window, QStringLiteral("finderfix-whole"))), 50);
    window->resize(window->minimumSize());
    EXPECT_GE(colours(picture(window, QStringLiteral("finderfix-small"))), 50);
}

TEST_P(Screens, gallery) {
    const auto window =
        session.views().makeWindow({.title = QStringLiteral("Controls"),
                                    .contentSize = QSize(560, 640),
                                    .page = {QUrl(QStringLiteral("qrc:/tests/Gallery.qml")), {}}});
    window->present();
    EXPECT_GE(colours(picture(test::shownWindow(), QStringLiteral("gallery"))), 50);
}

/// Two outputs and three applications, one of them muted.
void makeSound(FakeDesktop &desktop) {
    desktop.audio.add({.name = QStringLiteral("Built-in Audio Analog Stereo"), .volume = 0.72F});
    desktop.audio.add({.name = QStringLiteral("USB Headphones"), .volume = 0.4F});
    const struct {
        const char *name;
        const char *bundleId;
        QColor color;
    } players[] = {{"Spotify", "com.spotify.client", QColor(0x1d, 0xb9, 0x54)},
                   {"Firefox", "org.mozilla.firefox", QColor(0xff, 0x71, 0x39)},
                   {"mpv Media Player", "io.mpv", QColor()}};
    for (const auto &player : players) {
        const int process = 100 + int(desktop.workspace.running.size());
        desktop.workspace.running.push_back({.name = QLatin1String(player.name),
                                             .bundleId = QString::fromLatin1(player.bundleId),
                                             .processId = ProcessId(process)});
        if (player.color.isValid())
            desktop.workspace.icons[process] = roundIcon(player.color);
    }
}

TEST_P(Screens, mixer) {
    makeSound(session.desktop);
    session.appState().quickVolume()->activate();
    QCoreApplication::processEvents();
    AudioEngine::shared().setVolume(AudioEngine::shared().audioApps().at(0), 0.64F);
    AudioEngine::shared().toggleMute(AudioEngine::shared().audioApps().at(1));
    const QSizeF screen = QGuiApplication::primaryScreen()->size();
    test::PlainPanels panels(screen.height());
    panels.blending = GetParam().trusted;
    PopoverController popover(session.appState(), session.accessibility(), session.views().engine(), panels,
                              session.desktop.displays);
    popover.open(QRectF(screen.width() - 100, screen.height() - 24, 22, 22));
    QQuickWindow *window = test::shownWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    test::type(window, Qt::Key_Backtab);
    test::type(window, Qt::Key_Backtab);
    test::type(window, Qt::Key_Space);
    EXPECT_GE(colours(picture(window, QStringLiteral("mixer"))), 50);
    SettingsWindow settings(session.views(), *session.appState().quickVolume()->settingsView(), {});
    popover.close();
    settings.open();
    window = test::shownWindow();
    window->resize(window->width(), 860);
    EXPECT_GE(colours(picture(window, QStringLiteral("quickvolume"))), 50);
}

TEST_P(Screens, popover) {
    const QSizeF screen = QGuiApplication::primaryScreen()->size();
    test::PlainPanels panels(screen.height());
    panels.blending = GetParam().trusted;
    PopoverController popover(session.appState(), session.accessibility(), session.views().engine(), panels,
                              session.desktop.displays);
    session.appState().finderFix()->setEnabled(false);
    popover.open(QRectF(screen.width() - 100, screen.height() - 24, 22, 22));
    QQuickWindow *window = test::shownWindow();
    EXPECT_GE(colours(picture(window, QStringLiteral("popover"))), 50);
    test::type(window, Qt::Key_Tab);
    test::type(window, Qt::Key_Tab);
    EXPECT_GE(colours(picture(window, QStringLiteral("popover-keyboard"))), 50);
}

INSTANTIATE_TEST_SUITE_P(Ui, Screens, testing::ValuesIn(test::looks()), test::lookName);

}  // namespace
}  // namespace pimloft
