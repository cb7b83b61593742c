// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// Lets a new user choose the features.
ColumnLayout {
    id: choice

    /// Each with a module and what is said about it.
    required property var modules

    spacing: Theme.unit * 2

    CenteredText {
        text: qsTr("Choose Your Modules")
        font: Theme.hero
        Accessible.role: Accessible.Heading
    }
    CenteredText {
        text: qsTr("All modules are enabled by default. Disable any you don't need.")
        color: Theme.colors.secondaryText
    }
    Page {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.topMargin: Theme.unit * 2
        margin: 0

        Section {
            Repeater {
                model: choice.modules

                ColumnLayout {
                    id: row

                    required property int index
                    required property var modelData

                    spacing: 0

                    Divider {
                        visible: row.index > 0
                    }
                    SwitchRow {
                        symbol: row.modelData.module.icon
                        text: row.modelData.module.name
                        description: row.modelData.description
                        checked: row.modelData.module.isEnabled
                        onSwitched: on => row.modelData.module.isEnabled = on
                    }
                }
            }
        }
    }
}
