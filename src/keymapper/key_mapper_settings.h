// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/custom_mappings_model.h"
#include "keymapper/preset_confirmation.h"

#include <QVariantList>

namespace pimloft {

class DialogService;

/// One line of the page's list of presets. A value.
struct PresetRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString description MEMBER description)

public:
    QString title;
    QString icon;
    QString description;
};

/// What the page of key remapping shows and changes. Outlives its windows, and so do the confirmation and
/// its countdown. Main thread.
class KeyMapperSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList presets READ presets CONSTANT)
    Q_PROPERTY(QVariantList presetStates READ presetStates NOTIFY presetStatesChanged)
    Q_PROPERTY(pimloft::CustomMappingsModel *customMappings READ customMappings CONSTANT)
    Q_PROPERTY(bool showConfirmation READ showConfirmation NOTIFY confirmationChanged)
    Q_PROPERTY(QString pendingPreset READ pendingPreset NOTIFY confirmationChanged)
    Q_PROPERTY(int confirmationCountdown READ confirmationCountdown NOTIFY confirmationChanged)
    Q_PROPERTY(bool showImportExport READ showImportExport NOTIFY showImportExportChanged)

public:
    KeyMapperSettings(KeyMapperModule &module, KeyMappingStore &store, DialogService &dialogs,
                      std::unique_ptr<SecondTimer> confirmationTimer);

    /// A PresetRow for each preset, in their order.
    QVariantList presets() const;
    /// Whether each of them is on.
    QVariantList presetStates() const;
    /// Flips the switch of one row.
    Q_INVOKABLE void setPreset(int row, bool on);

    CustomMappingsModel *customMappings() { return &customMappings_; }
    Q_INVOKABLE void removeCustomMapping(const QString &id);

    /// Whether a preset waits to be kept, its raw value, and the seconds that are left.
    bool showConfirmation() const { return confirmation_.showConfirmation(); }
    QString pendingPreset() const { return pendingPreset_; }
    int confirmationCountdown() const { return confirmation_.confirmationCountdown(); }
    Q_INVOKABLE void confirmPreset() { confirmation_.confirmPreset(); }
    Q_INVOKABLE void revertPreset() { confirmation_.revertPreset(); }

    /// Whether the user is being asked for a file; a second question has to wait.
    bool showImportExport() const { return showImportExport_; }
    Q_INVOKABLE void exportMappings();
    Q_INVOKABLE void importMappings();

signals:
    void presetStatesChanged();
    void confirmationChanged();
    void showImportExportChanged();

private:
    void followConfirmation();
    void setShowImportExport(bool show);

    KeyMapperModule &module_;
    KeyMappingStore &store_;
    DialogService &dialogs_;
    PresetConfirmation confirmation_;
    CustomMappingsModel customMappings_;
    QString pendingPreset_;
    bool showImportExport_ = false;
};

}  // namespace pimloft
