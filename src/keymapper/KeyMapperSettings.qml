// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.KeyMapper

Page {
    id: page

    required property KeyMapperModel settings

    Section {
        title: qsTr("Presets")

        Repeater {
            model: page.settings.presets

            ColumnLayout {
                id: preset
                required property int index
                required property var modelData
                spacing: 0

                Divider {
                    visible: preset.index > 0
                }
                SwitchRow {
                    symbol: preset.modelData.icon
                    text: preset.modelData.title
                    description: preset.modelData.description
                    checked: page.settings.presetStates[preset.index]
                    onSwitched: on => page.settings.setPreset(preset.index, on)
                }
            }
        }
    }

    Section {
        title: qsTr("Custom Mappings")
        visible: page.settings.customMappings.count > 0

        CustomMappingList {
            settings: page.settings
        }
    }

    Section {
        title: qsTr("Per-App Exclusions")

        Caption {
            alone: true
            text: qsTr("Terminal apps (Terminal, iTerm2, Kitty, Ghostty) are automatically excluded from Windows Mode to preserve Unix keybindings.")
        }
    }

    Section {
        title: qsTr("Safety")

        NoteRow {
            symbol: "exclamationmark.shield"
            title: qsTr("Panic Hotkey")
            text: qsTr("Triple-press Right Shift to instantly disable all remapping")
        }
        Divider {}
        NoteRow {
            symbol: "timer"
            title: qsTr("10-Second Confirmation")
            text: qsTr("New mappings auto-revert if not confirmed within 10 seconds")
        }
    }

    Section {
        title: qsTr("Import / Export")

        Flow {
            Layout.fillWidth: true
            Layout.margins: Theme.unit * 4
            spacing: Theme.unit * 3

            PushButton {
                text: qsTr("Export Mappings")
                enabled: !page.settings.showImportExport
                onClicked: page.settings.exportMappings()
            }
            PushButton {
                text: qsTr("Import Mappings")
                enabled: !page.settings.showImportExport
                onClicked: page.settings.importMappings()
            }
        }
    }

    ConfirmationSheet {
        settings: page.settings
        owner: page
    }
}
