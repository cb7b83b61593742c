// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.KeyMapper

/// A row that explains something, under a title.
RowLayout {
    id: row

    property string symbol
    property string title
    property string text

    Layout.fillWidth: true
    Layout.fillHeight: false
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.topMargin: Theme.unit * 3
    Layout.bottomMargin: Theme.unit * 3
    spacing: Theme.unit * 3
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(title).arg(text)

    Item {
        implicitWidth: 24
        implicitHeight: mark.height

        Symbol {
            id: mark
            anchors.centerIn: parent
            name: row.symbol
            size: Theme.symbolSize
            color: Theme.colors.accentText
        }
    }
    ColumnLayout {
        Layout.fillHeight: false
        spacing: Theme.unit / 2

        Label {
            Layout.fillWidth: true
            text: row.title
            wrapMode: Text.Wrap
            maximumLineCount: 2
            silent: true
        }
        Label {
            Layout.fillWidth: true
            text: row.text
            font: Theme.caption
            color: Theme.colors.secondaryText
            wrapMode: Text.Wrap
            maximumLineCount: 4
            silent: true
        }
    }
}
