// SPDX-License-Identifier: MIT
#include "platform/preferences/preferences.h"

#include <algorithm>

namespace pimloft {

std::optional<QStringList> PreferencesService::texts(const QString &key) const {
    const QVariant value = object(key);
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList();
    if (value.typeId() != QMetaType::QVariantList)
        return std::nullopt;
    const QVariantList list = value.toList();
    const bool onlyTexts = std::all_of(
        list.begin(), list.end(), [](const QVariant &entry) { return entry.typeId() == QMetaType::QString; });
    return onlyTexts ? std::optional(value.toStringList()) : std::nullopt;
}

}  // namespace pimloft
