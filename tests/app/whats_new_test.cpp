// SPDX-License-Identifier: MIT
#include "app/whats_new.h"

#include "platform/fake_desktop.h"

#include <QSet>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString lastSeen = QStringLiteral("pimloft.general.lastSeenVersion");

TEST(WhatsNew, isShownUntilTheVersionHasBeenSeen) {
    FakeDesktop desktop;
    const QString version = QStringLiteral("1.0.0");
    EXPECT_TRUE(WhatsNew::shouldShow(version, desktop.preferences));
    EXPECT_FALSE(WhatsNew::shouldShow(QString(), desktop.preferences)) << "nothing counts as the empty text";
    desktop.preferences.stored[lastSeen] = version;
    EXPECT_FALSE(WhatsNew::shouldShow(version, desktop.preferences));
    EXPECT_TRUE(WhatsNew::shouldShow(QStringLiteral("1.0.1"), desktop.preferences));
    EXPECT_TRUE(WhatsNew::shouldShow(QStringLiteral("0.9"), desktop.preferences))
        << "an older one is another";
}

TEST(WhatsNew, tellsOfTheseFeatures) {
    QStringList lines;
    QSet<QUuid> ids;
    for (const WhatsNewFeature &feature : WhatsNew::currentFeatures()) {
        lines << QStringList{feature.icon, feature.title, feature.description}.join(QStringLiteral(" | "));
        ids << feature.id;
    }
    EXPECT_EQ(
        lines.join(QLatin1Char('\n')).toStdString(),
        "rectangle.split.2x1 | WindowSnap | Windows 11-style drag-to-edge snapping with 6 layout presets\n"
        "doc.on.clipboard | ClipboardPlus | Clipboard history with Cmd+Shift+V popup, search, and pinning\n"
        "folder.badge.gearshape | FinderFix | Cmd+X cut-paste for files and New File in Finder right-click\n"
        "keyboard | KeyMapper | One-click Ctrl/Cmd swap with safety panic hotkey\n"
        "speaker.wave.3 | QuickVolume | Per-app volume mixer and output device switcher");
    EXPECT_EQ(ids.size(), 5) << "two rows have the same identity";
}

TEST(WhatsNew, dismissingStoresTheVersionAndThenTellsIt) {
    FakeDesktop desktop;
    QString storedBefore;
    WhatsNew news(QStringLiteral("1.2"), WhatsNew::currentFeatures(), desktop.preferences,
                  [&] { storedBefore = desktop.preferences.text(lastSeen); });
    EXPECT_FALSE(desktop.preferences.stored.contains(lastSeen));
    news.dismiss();
    EXPECT_EQ(storedBefore, QStringLiteral("1.2"));
}

}  // namespace
}  // namespace pimloft
