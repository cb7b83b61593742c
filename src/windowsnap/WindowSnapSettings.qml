// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.WindowSnap

Page {
    id: page

    required property WindowSnapModel settings

    Section {
        title: qsTr("Snap Zones")

        SliderRow {
            label: qsTr("Edge Sensitivity")
            from: 5
            to: 30
            stepSize: 1
            value: page.settings.snapSensitivity
            valueText: page.settings.snapSensitivityText
            onMoved: value => page.settings.snapSensitivity = value
        }
        Caption {
            text: qsTr("How close to the screen edge you need to drag before the snap preview appears.")
        }
    }

    Section {
        title: qsTr("Keyboard Shortcuts")

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
                    action: shortcut.modelData.action
                    problem: shortcut.modelData.toolTip
                }
            }
        }
    }

    Section {
        title: qsTr("Snap Layouts")

        Repeater {
            model: page.settings.layouts

            ColumnLayout {
                id: layout
                required property int index
                required property var modelData
                spacing: 0

                Divider {
                    visible: layout.index > 0
                }
                LayoutRow {
                    fractions: layout.modelData.fractions
                    name: layout.modelData.name
                    keys: layout.modelData.keys
                }
            }
        }
    }

    Section {
        title: qsTr("Multi-Monitor")

        Caption {
            alone: true
            text: qsTr("Snap zones are disabled on screen edges shared with another display to prevent accidental snapping.")
        }
    }
}
