// SPDX-License-Identifier: MIT
// Puts every window on a real screen in every look, and keeps a picture of each in the build folder.
#include "page_session.h"
#include "plain_panels.h"
#include "support/desktop_session.h"

#include "app/hotkey_manager.h"
#include "finderfix/finder_fix_module.h"
#include "quickvolume/audio_engine.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// A language in which everything takes half as much room again.
class LongLanguage final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override {
        const QString text = QString::fromUtf8(source);
        if (text.startsWith(QLatin1String("QT_")) || text.contains(QLatin1String("px")))
            return {};
        QString longer = QStringLiteral("⟦") + text;
        for (const QChar letter : text.left(std::max<qsizetype>(3, text.size() / 2)))
            longer += letter.isSpace() ? QLatin1Char(' ') : QLatin1Char('o');
        return longer + QStringLiteral("⟧");
    }
};

struct Look {
    const char *name;
    bool dark = false;
    bool mirrored = false;
    bool longTexts = false;
    bool trusted = true;
};

class Screens : public testing::TestWithParam<Look> {
protected:
    Screens() {
        session.desktop.appearance.setDark(GetParam().dark);
        session.desktop.windows.trusted = GetParam().trusted;
        qApp->setLayoutDirection(GetParam().mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        if (GetParam().longTexts)
            qApp->installTranslator(&language);
    }
    ~Screens() override {
        qApp->removeTranslator(&language);
        qApp->setLayoutDirection(Qt::LeftToRight);
    }

    /// Waits until the window has drawn nothing new for so many milliseconds: every motion is at its end.
    static void waitForRest(QQuickWindow *window, int milliseconds) {
        QSignalSpy frames(window, &QQuickWindow::frameSwapped);
        while (frames.wait(milliseconds)) {
        }
    }

    /// Waits until the window is drawn and still, keeps the picture and answers it.
    static QImage picture(QQuickWindow *window, const QString &name) {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
        waitForRest(window, 100);
        const QRect frame = window->frameGeometry().adjusted(-12, -12, 12, 12);
        const QImage image =
            window->screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
        const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/../screenshots/ui"));
        folder.mkpath(QStringLiteral("."));
        const QString scale = window->devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString();
        image.save(folder.filePath(name + QLatin1Char('-') + QLatin1String(GetParam().name) + scale +
                                   QStringLiteral(".png")));
        return image;
    }

    test::PageSession session;
    LongLanguage language;
};

std::string lookName(const testing::TestParamInfo<Look> &info) {
    return info.param.name;
}

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

/// How many different colours a picture has, up to a hundred.
qsizetype colours(const QImage &image) {
    QSet<QRgb> found;
    for (int y = 0; y < image.height() && found.size() < 100; ++y)
        for (int x = 0; x < image.width(); ++x)
            found.insert(image.pixel(x, y));
    return found.size();
}

TEST_P(Screens, settings) {
    GeneralSettings general(session.settings(), session.accessibility(), session.desktop.workspace);
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
    GeneralSettings general(session.settings(), session.accessibility(), session.desktop.workspace);
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

INSTANTIATE_TEST_SUITE_P(Ui, Screens,
                         testing::Values(Look{.name = "light"}, Look{.name = "dark", .dark = true},
                                         Look{.name = "untrusted", .trusted = false},
                                         Look{.name = "untrusted_dark", .dark = true, .trusted = false},
                                         Look{.name = "mirrored", .mirrored = true, .trusted = false},
                                         Look{.name = "long", .longTexts = true, .trusted = false}),
                         lookName);

}  // namespace
}  // namespace pimloft
