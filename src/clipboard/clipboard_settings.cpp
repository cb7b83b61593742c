// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_settings.h"

#include "app/hotkey_manager.h"
#include "app/settings_manager.h"
#include "app/shortcut_row.h"
#include "clipboard/clipboard_preferences.h"
#include "clipboard/clipboard_shortcuts.h"
#include "clipboard/clipboard_store.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

/// A line of the list, and the shortcut that the desktop can refuse, if it is one.
struct ShortcutText {
    const char *keys;
    const char *action;
    const ClipboardShortcut *shortcut;
};

constexpr std::array<ShortcutText, 5> shortcutTexts{{
    {QT_TRANSLATE_NOOP("ClipboardSettings", "Cmd+Shift+V"),
     QT_TRANSLATE_NOOP("ClipboardSettings", "Open clipboard history"), &popupShortcut},
    {QT_TRANSLATE_NOOP("ClipboardSettings", "Cmd+Shift+Ctrl+V"),
     QT_TRANSLATE_NOOP("ClipboardSettings", "Paste as plain text"), &plainTextShortcut},
    {QT_TRANSLATE_NOOP("ClipboardSettings", "Enter / Click"),
     QT_TRANSLATE_NOOP("ClipboardSettings", "Paste selected item"), nullptr},
    {QT_TRANSLATE_NOOP("ClipboardSettings", "Delete"),
     QT_TRANSLATE_NOOP("ClipboardSettings", "Remove selected item"), nullptr},
    {QT_TRANSLATE_NOOP("ClipboardSettings", "Escape"),
     QT_TRANSLATE_NOOP("ClipboardSettings", "Dismiss popup"), nullptr},
}};

QString translated(const char *text) {
    return QCoreApplication::translate("ClipboardSettings", text);
}

ShortcutRow shortcutRow(const ShortcutText &text, const HotkeyManager &hotkeys) {
    ShortcutRow row;
    row.keys = translated(text.keys);
    row.action = translated(text.action);
    row.refused = text.shortcut && hotkeys.isRefused(text.shortcut->key, text.shortcut->modifiers);
    if (row.refused)
        row.toolTip =
            translated(QT_TRANSLATE_NOOP("ClipboardSettings", "Another application uses this shortcut."));
    return row;
}

}  // namespace

ClipboardSettings::ClipboardSettings(SettingsManager &settings, ClipboardStore &store, HotkeyManager &hotkeys)
    : settings_(settings), store_(store), hotkeys_(hotkeys) {
    connect(&store, &ClipboardStore::itemsChanged, this, &ClipboardSettings::countsChanged);
    connect(&hotkeys, &HotkeyManager::refusedChanged, this, &ClipboardSettings::shortcutsChanged);
}

int ClipboardSettings::maxItems() const {
    return int(pimloft::maxItems(settings_.defaults()));
}

void ClipboardSettings::setMaxItems(int count) {
    if (count == maxItems())
        return;
    settings_.defaults().set(SettingsKeys::clipboardMaxItems, count);
    emit maxItemsChanged();
}

QString ClipboardSettings::maxItemsText() const {
    return tr("Max items: %1").arg(maxItems());
}

QString ClipboardSettings::currentItemsText() const {
    return tr("Current items: %1").arg(store_.items().size());
}

QString ClipboardSettings::pinnedItemsText() const {
    const auto &items = store_.items();
    return tr("Pinned items: %1").arg(std::count_if(items.begin(), items.end(), [](const auto &item) {
        return item.isPinned;
    }));
}

void ClipboardSettings::clearUnpinned() {
    store_.removeAll();
}

QStringList ClipboardSettings::excludedApps() const {
    return pimloft::excludedApps(settings_.defaults());
}

void ClipboardSettings::removeExcludedApp(int index) {
    QStringList names = excludedApps();
    if (index < 0 || index >= names.size())
        return;
    names.removeAt(index);
    storeExcludedApps(names);
}

void ClipboardSettings::setNewExcludedApp(const QString &name) {
    if (newExcludedApp_ == name)
        return;
    newExcludedApp_ = name;
    emit newExcludedAppChanged();
}

bool ClipboardSettings::canAdd() const {
    return !newExcludedApp_.trimmed().isEmpty();
}

void ClipboardSettings::addExcludedApp() {
    if (!canAdd())
        return;
    storeExcludedApps(excludedApps() << newExcludedApp_.trimmed());
    setNewExcludedApp({});
}

void ClipboardSettings::storeExcludedApps(const QStringList &names) {
    settings_.defaults().set(SettingsKeys::clipboardExcludedApps, names);
    emit excludedAppsChanged();
}

QVariantList ClipboardSettings::shortcuts() const {
    QVariantList rows;
    for (const ShortcutText &text : shortcutTexts)
        rows << QVariant::fromValue(shortcutRow(text, hotkeys_));
    return rows;
}

}  // namespace pimloft
