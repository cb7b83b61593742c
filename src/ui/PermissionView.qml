// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Ui

/// Asks the user for the accessibility permission.
Page {
    id: page

    required property PermissionRequest request
    readonly property bool granted: request.accessibilityManager.isAccessibilityGranted

    margin: 0
    centred: true

    ColumnLayout {
        Layout.fillWidth: true
        spacing: Theme.unit * 2.5

        Symbol {
            Layout.alignment: Qt.AlignHCenter
            name: "lock.shield"
            size: Theme.unit * 15
            color: Theme.brand
            endColor: Theme.brandEnd
        }
        CenteredText {
            text: qsTr("Accessibility Permission Required")
            font: Theme.hero
            Accessible.role: Accessible.Heading
        }
        CenteredText {
            text: qsTr("Pimloft needs Accessibility access to manage windows, remap keys, and enhance Finder. Your data stays completely private — nothing leaves your Mac.")
            color: Theme.colors.secondaryText
        }
    }
    ColumnLayout {
        Layout.alignment: Qt.AlignHCenter
        Layout.fillWidth: false
        Layout.maximumWidth: parent.width
        spacing: Theme.unit * 2

        PermissionStepRow {
            number: 1
            text: qsTr("Click the button below to open System Settings")
        }
        PermissionStepRow {
            number: 2
            text: qsTr("Find Pimloft in the list")
        }
        PermissionStepRow {
            number: 3
            text: qsTr("Toggle the switch ON")
        }
    }
    RowLayout {
        Layout.alignment: Qt.AlignHCenter
        visible: page.granted
        spacing: Theme.unit * 2

        Symbol {
            name: "checkmark.circle.fill"
            size: Theme.symbolSize
            color: Theme.colors.success
        }
        Label {
            text: qsTr("Permission Granted!")
            font: Theme.headline
            color: Theme.colors.success
        }
    }
    ColumnLayout {
        Layout.alignment: Qt.AlignHCenter
        visible: !page.granted
        spacing: Theme.unit * 1.5

        PushButton {
            Layout.alignment: Qt.AlignHCenter
            prominent: true
            symbol: "gear"
            text: qsTr("Open System Settings")
            onClicked: page.request.openSystemSettings()
        }
        PushButton {
            Layout.alignment: Qt.AlignHCenter
            flat: true
            text: qsTr("Skip for Now")
            onClicked: page.request.skip()
        }
    }
}
