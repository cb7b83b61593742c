// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_preset.h"

#include "app/settings_keys.h"

#include <QCoreApplication>

#include <algorithm>

namespace pimloft {

namespace {

struct PresetText {
    const char *rawValue;
    const char *icon;
    const char *description;
};

/// In the order of the enumeration.
constexpr std::array<PresetText, allKeyMappingPresets.size()> presetTexts{{
    {"Windows Mode", "arrow.left.arrow.right",
     QT_TRANSLATE_NOOP("KeyMappingPreset", "Swap Ctrl and Cmd for all shortcuts (Ctrl+C copies, etc.)")},
    {"Home/End Fix", "arrow.left.to.line",
     QT_TRANSLATE_NOOP("KeyMappingPreset", "Home/End go to beginning/end of line, not document")},
    {"Delete Key", "delete.forward",
     QT_TRANSLATE_NOOP("KeyMappingPreset", "Fn+Delete works as forward-delete consistently")},
    {"F-Keys", "function",
     QT_TRANSLATE_NOOP("KeyMappingPreset", "F1-F12 as function keys by default (not media keys)")},
}};

struct PresetRule {
    KeyMappingPreset preset;
    KeyCode fromKeyCode;
    KeyFlags fromModifiers;
    KeyCode toKeyCode;
    KeyFlags toModifiers;
    bool sparesTerminals;
};

using enum KeyFlags;
constexpr std::array presetRules{
    PresetRule{KeyMappingPreset::homeEndFix, Key::home, none, Key::leftArrow, command, true},
    PresetRule{KeyMappingPreset::homeEndFix, Key::end, none, Key::rightArrow, command, true},
    PresetRule{KeyMappingPreset::homeEndFix, Key::home, shift, Key::leftArrow, command | shift, true},
    PresetRule{KeyMappingPreset::homeEndFix, Key::end, shift, Key::rightArrow, command | shift, true},
    PresetRule{KeyMappingPreset::deleteKey, Key::backspace, function, Key::forwardDelete, none, false},
};

/// Where Home and End have a meaning of their own.
QStringList terminals() {
    return {QStringLiteral("com.apple.Terminal"), QStringLiteral("com.googlecode.iterm2")};
}

const PresetText &textOf(KeyMappingPreset preset) {
    return presetTexts[std::size_t(preset)];
}

}  // namespace

QString rawValue(KeyMappingPreset preset) {
    return QString::fromLatin1(textOf(preset).rawValue);
}

std::optional<KeyMappingPreset> presetOfRawValue(const QString &text) {
    const auto found = std::find_if(allKeyMappingPresets.begin(), allKeyMappingPresets.end(),
                                    [&](KeyMappingPreset preset) { return rawValue(preset) == text; });
    return found == allKeyMappingPresets.end() ? std::nullopt : std::optional(*found);
}

QString icon(KeyMappingPreset preset) {
    return QString::fromLatin1(textOf(preset).icon);
}

QString description(KeyMappingPreset preset) {
    return QCoreApplication::translate("KeyMappingPreset", textOf(preset).description);
}

QString settingsKey(KeyMappingPreset preset) {
    return SettingsKeys::keymapperPreset + rawValue(preset);
}

KeyMappings rules(KeyMappingPreset preset) {
    KeyMappings list;
    for (const PresetRule &rule : presetRules)
        if (rule.preset == preset)
            list.push_back({.fromKeyCode = rule.fromKeyCode,
                            .fromModifiers = rule.fromModifiers,
                            .toKeyCode = rule.toKeyCode,
                            .toModifiers = rule.toModifiers,
                            .excludedApps = rule.sparesTerminals ? terminals() : QStringList()});
    return list;
}

}  // namespace pimloft
