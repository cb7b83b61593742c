// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// One line of numbered instructions.
RowLayout {
    id: row

    required property int number
    required property string text

    Layout.fillWidth: true
    spacing: Theme.unit * 3
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1. %2").arg(number).arg(text)

    Rectangle {
        implicitWidth: Theme.unit * 6
        implicitHeight: implicitWidth
        radius: width / 2
        color: Theme.colors.accentSoft

        Label {
            anchors.centerIn: parent
            text: row.number
            font: Theme.calloutBold
            color: Theme.colors.accentText
            silent: true
        }
    }
    Label {
        Layout.fillWidth: true
        text: row.text
        wrapMode: Text.Wrap
        maximumLineCount: 4
        silent: true
    }
}
