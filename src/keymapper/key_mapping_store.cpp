// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_store.h"

#include "app/process.h"
#include "app/settings_manager.h"
#include "base/atomic_file.h"
#include "base/regular_file.h"
#include "keymapper/key_mapping_document.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

KeyMappingStore &KeyMappingStore::shared() {
    return Process::current().shared<KeyMappingStore>([](Process &process) {
        return std::make_unique<KeyMappingStore>(SettingsManager::shared().defaults(),
                                                 process.dirs().support);
    });
}

KeyMappingStore::KeyMappingStore(PreferencesService &defaults, const QString &folder)
    : defaults_(defaults), customMappingsPath_(folder + QStringLiteral("/key_mappings.json")) {
    makePrivateFolder(folder);
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        presetStates_[preset] = defaults_.flag(settingsKey(preset));
    load();
}

void KeyMappingStore::load() {
    const auto bytes = readRegularFile(customMappingsPath_, longestMappingsFile);
    if (auto mappings = bytes ? decodeMappings(*bytes) : std::nullopt)
        customMappings_ = std::move(*mappings);
}

void KeyMappingStore::setPreset(KeyMappingPreset preset, bool enabled) {
    const bool changes = std::exchange(presetStates_[preset], enabled) != enabled;
    defaults_.set(settingsKey(preset), enabled);
    if (changes)
        emit presetStatesChanged();
}

void KeyMappingStore::removeCustomMapping(const QUuid &id) {
    if (std::erase_if(customMappings_, [&](const KeyMapping &mapping) { return mapping.id == id; }))
        emit customMappingsChanged();
    saveCustomMappings();
}

void KeyMappingStore::saveCustomMappings() const {
    writeAtomically(customMappingsPath_, encode(customMappings_));
}

QByteArray KeyMappingStore::exportMappings() const {
    ExportedMappings exported{{}, customMappings_};
    for (const auto &[preset, isOn] : presetStates_)
        exported.presetStates.emplace_back(rawValue(preset), isOn);
    return encode(exported);
}

bool KeyMappingStore::importMappings(const QByteArray &data) {
    auto imported = decodeExportedMappings(data);
    if (!imported)
        return false;
    PresetStates states = presetStates_;
    for (const auto &[name, isOn] : imported->presetStates) {
        if (const auto preset = presetOfRawValue(name)) {
            states[*preset] = isOn;
            defaults_.set(settingsKey(*preset), isOn);
        }
    }
    presetStates_ = std::move(states);
    emit presetStatesChanged();
    customMappings_ = std::move(imported->customMappings);
    saveCustomMappings();
    emit customMappingsChanged();
    return true;
}

}  // namespace pimloft
