// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"
#include "keymapper/key_mapping_preset.h"

#include <QByteArray>
#include <QObject>

#include <map>
#include <optional>

namespace pimloft {

class PreferencesService;

/// What the user has chosen to be remapped: which presets are on, and rules of their own. Main thread.
///
/// Does not apply anything: whoever changes it has the module reload. A file that cannot be read, made or
/// written is passed over in silence; what is in memory stays.
class KeyMappingStore : public QObject {
    Q_OBJECT

public:
    static KeyMappingStore &shared();
    /// `folder` keeps the rules; it is made when it is missing.
    KeyMappingStore(PreferencesService &defaults, const QString &folder);

    using PresetStates = std::map<KeyMappingPreset, bool>;
    /// An entry for every preset.
    const PresetStates &presetStates() const { return presetStates_; }
    bool isOn(KeyMappingPreset preset) const { return presetStates_.at(preset); }
    void setPreset(KeyMappingPreset preset, bool enabled);

    /// The user's own rules, in the order in which they are applied after those of the presets.
    const KeyMappings &customMappings() const { return customMappings_; }
    /// Removes every rule of that identity and saves.
    void removeCustomMapping(const QUuid &id);
    void saveCustomMappings() const;

    /// The document that `importMappings` takes.
    QByteArray exportMappings() const;
    /// Takes over the presets that the document knows and this program too, and replaces all rules by its
    /// own. False, and nothing is changed, when it is no such document.
    bool importMappings(const QByteArray &data);

signals:
    void presetStatesChanged();
    void customMappingsChanged();

private:
    void load();

    PreferencesService &defaults_;
    const QString customMappingsPath_;
    PresetStates presetStates_;
    KeyMappings customMappings_;
};

}  // namespace pimloft
