// SPDX-License-Identifier: MIT
#include "app/whats_new.h"

#include "app/settings_keys.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

bool WhatsNew::shouldShow(const QString &version, const PreferencesService &defaults) {
    return defaults.text(SettingsKeys::lastSeenVersion) != version;
}

std::vector<WhatsNewFeature> WhatsNew::currentFeatures() {
    return {
        {.icon = QStringLiteral("rectangle.split.2x1"),
         .title = QStringLiteral("WindowSnap"),
         .description = tr("Windows 11-style drag-to-edge snapping with 6 layout presets")},
        {.icon = QStringLiteral("doc.on.clipboard"),
         .title = QStringLiteral("ClipboardPlus"),
         .description = tr("Clipboard history with Cmd+Shift+V popup, search, and pinning")},
        {.icon = QStringLiteral("folder.badge.gearshape"),
         .title = QStringLiteral("FinderFix"),
         .description = tr("Cmd+X cut-paste for files and New File in Finder right-click")},
        {.icon = QStringLiteral("keyboard"),
         .title = QStringLiteral("KeyMapper"),
         .description = tr("One-click Ctrl/Cmd swap with safety panic hotkey")},
        {.icon = QStringLiteral("speaker.wave.3"),
         .title = QStringLiteral("QuickVolume"),
         .description = tr("Per-app volume mixer and output device switcher")},
    };
}

WhatsNew::WhatsNew(QString version, std::vector<WhatsNewFeature> features, PreferencesService &defaults,
                   std::function<void()> onDismiss)
    : version_(std::move(version)), features_(std::move(features)), defaults_(defaults),
      onDismiss_(std::move(onDismiss)) {
}

void WhatsNew::dismiss() {
    defaults_.set(SettingsKeys::lastSeenVersion, version_);
    onDismiss_();
}

QVariantList WhatsNew::features() const {
    QVariantList list;
    for (const WhatsNewFeature &feature : features_)
        list << QVariant::fromValue(feature);
    return list;
}

}  // namespace pimloft
