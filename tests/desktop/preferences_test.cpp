// SPDX-License-Identifier: MIT
// What the user has set, through the program's own switches, and what becomes of it on a disk that fails.
#include "desktop/support/desktop_test.h"
#include "desktop/support/first_run.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>

#include <csignal>

namespace pimloft::test {
namespace {

constexpr QRect leftHalf(0, 0, 800, 1000);
const QString snapping = QStringLiteral("pimloft.windowsnap.enabled");

class Preferences : public DesktopTest {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }

    QString folder() { return session().home() + QStringLiteral("/config/Pimloft"); }
    QString file() { return preferencesFile(session()); }

    void store(const QByteArray &text) {
        QDir().mkpath(folder());
        QFile stored(file());
        ASSERT_TRUE(stored.open(QIODevice::WriteOnly));
        stored.write(text);
    }
    QByteArray read(const QString &path) {
        QFile stored(path);
        return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
    }
    QJsonObject stored() { return storedPreferences(session()); }

    void expectThatSnappingWorks() {
        const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
        press(KEY_LEFT);
        expectFrame(window, leftHalf);
    }
    void expectThatSnappingIsOff() {
        const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Left alone"));
        press(KEY_LEFT);
        dragTo(window, {2, 500});
        letPimloftCatchUp();
        EXPECT_TRUE(noOverlay());
        drop();
        letPimloftCatchUp();
        EXPECT_EQ(desktop().visibleFrame(window).size(), QSize(640, 400));
    }
};

TEST_F(Preferences, areReadAtTheStart) {
    skipFirstRun(session(), {{QStringLiteral("pimloft.windowsnap.snapSensitivity"), 30}});
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {28, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(leftHalf); }));
    drop();
    expectFrame(window, leftHalf);
}

TEST_F(Preferences, switchWindowSnappingOffAtOnceAndForTheNextStart) {
    startPimloft();
    flipTopmostSwitch();
    EXPECT_TRUE(waitUntil([&] { return stored().value(snapping) == QJsonValue(false); }));
    expectThatSnappingIsOff();
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    startPimloftWithoutShortcuts();
    EXPECT_FALSE(snaps());
}

TEST_F(Preferences, areSetAsideWhenTheyAreDamaged) {
    const QByteArray damaged = R"({"pimloft.windowsnap.enabled": fal)";
    store(damaged);
    // Nothing is known of the user any more.
    startPimloftWithoutShortcuts();
    EXPECT_EQ(read(file()), damaged) << "a file is written that nobody has changed";
    goThroughFirstRun();
    expectShortcuts();
    expectThatSnappingWorks();
    flipTopmostSwitch();
    EXPECT_TRUE(waitUntil([&] { return stored().value(snapping) == QJsonValue(false); }));
    const QStringList kept = QDir(folder()).entryList({QStringLiteral("preferences.json?*")}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(read(folder() + QLatin1Char('/') + kept.front()), damaged);
}

TEST_F(Preferences, holdForThisRunWhenTheyCannotBeStored) {
    // A file stands where the folder should be, which stops root as well.
    forgetPreferences(session());
    QFile inTheWay(folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    startPimloftWithoutShortcuts();
    goThroughFirstRun();
    expectShortcuts();
    expectThatSnappingWorks();
    flipTopmostSwitch();
    expectThatSnappingIsOff();
}

}  // namespace
}  // namespace pimloft::test
