// SPDX-License-Identifier: MIT
#pragma once

#include "app/settings_keys.h"
#include "platform/preferences/preferences.h"

/// What the user has chosen about the clipboard history. Main thread.
namespace pimloft {

/// The most entries that the history keeps.
inline qint64 maxItems(const PreferencesService &defaults) {
    constexpr qint64 usual = 50;
    const qint64 stored = defaults.integer(SettingsKeys::clipboardMaxItems);
    return stored == 0 ? usual : stored;
}

/// Names, or parts of names, of the applications whose copies are not recorded. An emptied list stays empty.
inline QStringList excludedApps(const PreferencesService &defaults) {
    return defaults.texts(SettingsKeys::clipboardExcludedApps)
        .value_or(QStringList{QStringLiteral("1Password"), QStringLiteral("Bitwarden"),
                              QStringLiteral("LastPass")});
}

}  // namespace pimloft
