// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_settings.h"

#include "app/hotkey_manager.h"
#include "app/settings_manager.h"
#include "app/shortcut_row.h"
#include "windowsnap/snap_sensitivity.h"
#include "windowsnap/snap_shortcuts.h"

#include <QCoreApplication>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace pimloft {

namespace {

/// How the page writes the two modifiers. Both look alike.
const QString modifierKeys = QStringLiteral("^+^+");

/// A line of the list and the shortcuts that it stands for.
struct ShortcutText {
    const char *key;
    const char *action;
    std::size_t first;
    std::size_t count;
};

constexpr std::array<ShortcutText, 5> shortcutTexts{{
    {"←", QT_TRANSLATE_NOOP("WindowSnapSettings", "Snap left 50%"), 0, 1},
    {"→", QT_TRANSLATE_NOOP("WindowSnapSettings", "Snap right 50%"), 1, 1},
    {"↑", QT_TRANSLATE_NOOP("WindowSnapSettings", "Maximize"), 2, 1},
    {"↓", QT_TRANSLATE_NOOP("WindowSnapSettings", "Restore previous size"), 3, 1},
    {"1-6", QT_TRANSLATE_NOOP("WindowSnapSettings", "Quick layouts"), 4, 6},
}};

QString translated(const char *text) {
    return QCoreApplication::translate("WindowSnapSettings", text);
}

bool isAnyRefused(const ShortcutText &text, const HotkeyManager &hotkeys) {
    const auto first = snapShortcuts.begin() + text.first;
    return std::any_of(first, first + text.count, [&](const SnapShortcut &shortcut) {
        return hotkeys.isRefused(shortcut.key, snapModifiers);
    });
}

ShortcutRow shortcutRow(const ShortcutText &text, const HotkeyManager &hotkeys) {
    ShortcutRow row;
    row.keys = modifierKeys + QString::fromUtf8(text.key);
    row.action = translated(text.action);
    row.refused = isAnyRefused(text, hotkeys);
    if (row.refused)
        row.toolTip = text.count > 1
                          ? translated(QT_TRANSLATE_NOOP("WindowSnapSettings",
                                                         "Another application uses some of these shortcuts."))
                          : translated(QT_TRANSLATE_NOOP("WindowSnapSettings",
                                                         "Another application uses this shortcut."));
    return row;
}

LayoutRow layoutRow(SnapLayout layout) {
    LayoutRow row;
    row.name = displayName(layout);
    row.keys = modifierKeys + QString::number(int(layout) + 1);
    for (const SlotFractions &slot : slotFractions(layout))
        row.fractions << QRectF(slot.x, slot.y, slot.width, slot.height);
    return row;
}

}  // namespace

WindowSnapSettings::WindowSnapSettings(SettingsManager &settings, HotkeyManager &hotkeys)
    : settings_(settings), hotkeys_(hotkeys) {
    connect(&hotkeys, &HotkeyManager::refusedChanged, this, &WindowSnapSettings::shortcutsChanged);
}

double WindowSnapSettings::snapSensitivity() const {
    return pimloft::snapSensitivity(settings_.defaults());
}

void WindowSnapSettings::setSnapSensitivity(double points) {
    const double before = snapSensitivity();
    settings_.defaults().set(SettingsKeys::snapSensitivity, points);
    if (snapSensitivity() != before)
        emit snapSensitivityChanged();
}

QString WindowSnapSettings::snapSensitivityText() const {
    return tr("%1px").arg(qint64(snapSensitivity()));
}

QVariantList WindowSnapSettings::shortcuts() const {
    QVariantList rows;
    for (const ShortcutText &text : shortcutTexts)
        rows << QVariant::fromValue(shortcutRow(text, hotkeys_));
    return rows;
}

QVariantList WindowSnapSettings::layouts() const {
    QVariantList rows;
    for (const SnapLayout layout : allSnapLayouts)
        rows << QVariant::fromValue(layoutRow(layout));
    return rows;
}

}  // namespace pimloft
