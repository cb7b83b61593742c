// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// One thing that a version brings.
RowLayout {
    id: row

    property string symbol
    property string title
    property string description

    Layout.fillWidth: true
    spacing: Theme.unit * 3
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1: %2").arg(title).arg(description)

    Rectangle {
        implicitWidth: Theme.unit * 8
        implicitHeight: implicitWidth
        radius: Theme.controlRadius + 2
        color: Theme.colors.accentSoft

        Symbol {
            anchors.centerIn: parent
            name: row.symbol
            size: Theme.symbolSize
            color: Theme.colors.accentText
        }
    }
    ColumnLayout {
        spacing: 0

        Label {
            Layout.fillWidth: true
            text: row.title
            font: Theme.calloutBold
            silent: true
        }
        Label {
            Layout.fillWidth: true
            text: row.description
            font: Theme.caption
            color: Theme.colors.secondaryText
            wrapMode: Text.Wrap
            maximumLineCount: 4
            silent: true
        }
    }
}
