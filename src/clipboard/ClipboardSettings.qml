// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Clipboard

Page {
    id: page

    required property SettingsModel settings

    Section {
        title: qsTr("History")

        StepperRow {
            text: page.settings.maxItemsText
            from: 10
            to: 200
            stepSize: 10
            value: page.settings.maxItems
            onMoved: value => page.settings.maxItems = value
        }
        Divider {}
        LeadingText {
            text: page.settings.currentItemsText
        }
        Divider {}
        ButtonRow {
            text: page.settings.pinnedItemsText
            buttonText: qsTr("Clear Unpinned History")
            onClicked: page.settings.clearUnpinned()
        }
    }

    Section {
        title: qsTr("Excluded Apps")

        Caption {
            alone: true
            text: qsTr("Clipboard content from these apps is never saved (e.g., password managers).")
        }
        Repeater {
            model: page.settings.excludedApps

            ColumnLayout {
                id: app
                required property int index
                required property string modelData
                spacing: 0

                Divider {}
                LeadingText {
                    text: app.modelData

                    SymbolButton {
                        symbol: "minus.circle"
                        text: qsTr("Remove %1").arg(app.modelData)
                        onClicked: page.settings.removeExcludedApp(app.index)
                    }
                }
            }
        }
        Divider {}
        RowLayout {
            Layout.leftMargin: Theme.unit * 4
            Layout.rightMargin: Theme.unit * 4
            Layout.topMargin: Theme.unit * 2.5
            Layout.bottomMargin: Theme.unit * 2.5
            spacing: Theme.unit * 2

            TextField {
                Layout.fillWidth: true
                placeholderText: qsTr("App name")
                text: page.settings.newExcludedApp
                onTextEdited: page.settings.newExcludedApp = text
                onAccepted: page.settings.addExcludedApp()
            }
            PushButton {
                text: qsTr("Add")
                enabled: page.settings.canAdd
                onClicked: page.settings.addExcludedApp()
            }
        }
    }

    Section {
        title: qsTr("Shortcuts")

        Repeater {
            model: page.settings.shortcuts

            ColumnLayout {
                id: shortcut
                required property int index
                required property var modelData
                spacing: 0

                Divider {
                    visible: shortcut.index > 0
                }
                ShortcutRow {
                    keys: shortcut.modelData.keys
                    keysWidth: Theme.unit * 36
                    action: shortcut.modelData.action
                    problem: shortcut.modelData.toolTip
                    small: true
                }
            }
        }
    }

    Section {
        title: qsTr("Smart Features")

        LeadingText {
            symbol: "square.on.square"
            symbolColor: Theme.colors.accentText
            text: qsTr("Duplicate detection: identical consecutive copies are merged into one entry.")
        }
        Divider {}
        LeadingText {
            symbol: "lock.shield"
            symbolColor: Theme.colors.accentText
            text: qsTr("Password managers (1Password, Bitwarden, LastPass) are auto-excluded.")
        }
        Divider {}
        LeadingText {
            symbol: "photo"
            symbolColor: Theme.colors.accentText
            text: qsTr("Images larger than 50MB are skipped to prevent memory issues.")
        }
    }
}
