// SPDX-License-Identifier: MIT
#include "keymapper/key_mapper_settings.h"

#include "base/regular_file.h"
#include "keymapper/key_mapper_module.h"
#include "keymapper/key_mapping_document.h"
#include "keymapper/key_mapping_store.h"
#include "keymapper/second_timer.h"
#include "platform/dialogs/dialogs.h"

#include <QSaveFile>

#include <utility>

namespace pimloft {

namespace {

const QString jsonType = QStringLiteral("application/json");
const QString exportName = QStringLiteral("Pimloft-KeyMappings.json");

/// Writes a file that the user has chosen, all of it or nothing. A failure is nobody's to hear.
void writeChosenFile(const QString &path, const QByteArray &bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    // On a full disk the last part is cut off, which commit() alone would not notice.
    if (file.write(bytes) != bytes.size() || !file.flush())
        file.cancelWriting();
    file.commit();
}

}  // namespace

KeyMapperSettings::KeyMapperSettings(KeyMapperModule &module, KeyMappingStore &store, DialogService &dialogs,
                                     std::unique_ptr<SecondTimer> confirmationTimer)
    : module_(module), store_(store), dialogs_(dialogs),
      confirmation_(module, store, std::move(confirmationTimer)), customMappings_(store) {
    connect(&store, &KeyMappingStore::presetStatesChanged, this, &KeyMapperSettings::presetStatesChanged);
    connect(&confirmation_, &PresetConfirmation::changed, this, &KeyMapperSettings::followConfirmation);
}

QVariantList KeyMapperSettings::presets() const {
    QVariantList rows;
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        rows << QVariant::fromValue(PresetRow{rawValue(preset), icon(preset), description(preset)});
    return rows;
}

QVariantList KeyMapperSettings::presetStates() const {
    QVariantList states;
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        states << store_.isOn(preset);
    return states;
}

void KeyMapperSettings::setPreset(int row, bool on) {
    const KeyMappingPreset preset = allKeyMappingPresets.at(std::size_t(row));
    if (on)
        confirmation_.enablePreset(preset);
    else
        confirmation_.disablePreset(preset);
}

void KeyMapperSettings::removeCustomMapping(const QString &id) {
    store_.removeCustomMapping(QUuid(id));
    module_.reloadMappings();
}

void KeyMapperSettings::followConfirmation() {
    // The sheet that closes keeps its words until it is gone.
    if (const auto pending = confirmation_.pendingPreset())
        pendingPreset_ = rawValue(*pending);
    emit confirmationChanged();
}

void KeyMapperSettings::exportMappings() {
    if (showImportExport_)
        return;
    setShowImportExport(true);
    dialogs_.askForSavePath(
        {.title = tr("Export Mappings"), .proposedName = exportName, .mimeType = jsonType}, this,
        [this, document = store_.exportMappings()](const std::optional<QString> &path) {
            setShowImportExport(false);
            if (path)
                writeChosenFile(*path, document);
        });
}

void KeyMapperSettings::importMappings() {
    if (showImportExport_)
        return;
    setShowImportExport(true);
    dialogs_.askForOpenPath({.title = tr("Import Mappings"), .proposedName = {}, .mimeType = jsonType}, this,
                            [this](const std::optional<QString> &path) {
                                setShowImportExport(false);
                                const auto document =
                                    path ? readRegularFile(*path, longestExportedMappings) : std::nullopt;
                                if (document && store_.importMappings(*document))
                                    module_.reloadMappings();
                            });
}

void KeyMapperSettings::setShowImportExport(bool show) {
    if (std::exchange(showImportExport_, show) != show)
        emit showImportExportChanged();
}

}  // namespace pimloft
