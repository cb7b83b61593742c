// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <QString>

#include <array>
#include <optional>

namespace pimloft {

/// A behaviour of the keyboard that is switched on as a whole. A value; any thread.
enum class KeyMappingPreset { windowsMode, homeEndFix, deleteKey, fKeys };

/// In the order in which they are listed and loaded.
inline constexpr std::array allKeyMappingPresets{
    KeyMappingPreset::windowsMode,
    KeyMappingPreset::homeEndFix,
    KeyMappingPreset::deleteKey,
    KeyMappingPreset::fKeys,
};

/// Its name in documents and preferences, also the title shown.
QString rawValue(KeyMappingPreset preset);
/// The preset of exactly that name.
std::optional<KeyMappingPreset> presetOfRawValue(const QString &rawValue);

/// Name of a system symbol.
QString icon(KeyMappingPreset preset);
/// One line, in the user's language.
QString description(KeyMappingPreset preset);

/// The preference that keeps whether it is on.
QString settingsKey(KeyMappingPreset preset);

/// The rules that it consists of, in order, each with a new identity. None for `windowsMode`, which is a
/// switch of the engine, and for `fKeys`, which is a preference that nothing follows from.
KeyMappings rules(KeyMappingPreset preset);

}  // namespace pimloft
